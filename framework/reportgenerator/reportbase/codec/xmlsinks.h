#ifndef REPORTGENERATOR_CODEC_XMLSINKS_H
#define REPORTGENERATOR_CODEC_XMLSINKS_H

#include <reportgenerator/reportbase/codec/buffer.h>
#include <reportgenerator/reportbase/codec/fixednumbers.h>
#include <reportgenerator/reportbase/codec/name.h>
#include <reportgenerator/reportbase/codec/values.h>

#include <QtCore/QXmlStreamWriter>

#include <algorithm>
#include <cstddef>

namespace REPORTGENERATOR {

// What XML is written to. All sinks offer the same few operations: `Start` and `End` of an element, and
// between them attributes, child elements that hold one value, and the element's own text.

/// A caller's writer.
class XmlWriterSink
{
public:
    explicit XmlWriterSink(QXmlStreamWriter& writer) : m_writer(writer) {}

    QXmlStreamWriter& Writer() const { return m_writer; }

    void Start(const QString& name) { m_writer.writeStartElement(name); }
    void Start(const Name& name) { Start(name.Text()); }

    template <class ElementName>
    void End(const ElementName& /*name*/)
    {
        m_writer.writeEndElement();
    }

    template <class Value>
    void Attribute(const Name& name, const Value& value, NumberFormat format)
    {
        m_writer.writeAttribute(name.Text(), ToText(value, format));
    }
    template <class Value>
    void Element(const Name& name, const Value& value, NumberFormat format)
    {
        m_writer.writeTextElement(name.Text(), ToText(value, format));
    }
    template <class Value>
    void Text(const Value& value, NumberFormat format)
    {
        m_writer.writeCharacters(ToText(value, format));
    }

private:
    QXmlStreamWriter& m_writer;
};

/// The text that a `QXmlStreamWriter` with auto-formatting writes, without one: into a `QString`, or as UTF-8
/// into a `QByteArray`.
template <class Container>
class XmlText
{
public:
    using Unit = typename Buffer<Container>::Unit;

    void Start(const Name& name)
    {
        CloseStartTag();
        BreakLine();
        Put("<", name);
        m_isStartTagOpen = true;
        ++m_depth;
    }

    void End(const Name& name)
    {
        --m_depth;
        if (m_isStartTagOpen) {
            m_isStartTagOpen = false;
            Put("/>");
        } else {
            if (m_hasChild)
                BreakLine();
            Put("</", name, ">");
        }
        m_hasChild = true;
    }

    template <class Value>
    void Attribute(const Name& name, const Value& value, NumberFormat format)
    {
        Put(" ", name, "=\"");
        PutValue(value, format);
        Put("\"");
    }

    template <class Value>
    void Element(const Name& name, const Value& value, NumberFormat format)
    {
        CloseStartTag();
        BreakLine();
        Put("<", name, ">");
        m_valueBegin = m_out.Size();
        PutValue(value, format);
        m_valueEnd = m_out.Size();
        Put("</", name, ">");
        m_hasChild = true;
    }

    template <class Value>
    void Text(const Value& value, NumberFormat format)
    {
        CloseStartTag();
        PutValue(value, format);
    }

    /// Where the value of the child element stands that was written last.
    qint64 ValueBegin() const { return m_valueBegin; }
    qint64 ValueEnd() const { return m_valueEnd; }

    Buffer<Container>& Out() { return m_out; }

    Container Take() && { return std::move(m_out).Take(); }

private:
    static constexpr int INDENTATION = 4;

    /// Ends the start tag, if one is open, so that what is put next is content.
    void CloseStartTag()
    {
        if (!m_isStartTagOpen)
            return;
        Put(">");
        m_isStartTagOpen = false;
        m_hasChild = false;
    }

    template <std::size_t Size>
    static Unit* Copy(const char (&literal)[Size], Unit* out)
    {
        return std::copy(literal, literal + Size - 1, out);
    }

    static Unit* Copy(const Name& name, Unit* out)
    {
        return std::copy(name.latin1, name.latin1 + name.size, out);
    }

    template <std::size_t Size>
    static constexpr qint64 SizeOf(const char (&)[Size])
    {
        return qint64(Size) - 1;
    }

    static qint64 SizeOf(const Name& name) { return name.size; }

    template <class... Parts>
    void Put(const Parts&... parts)
    {
        Unit* out = m_out.Room((SizeOf(parts) + ...));
        ((out = Copy(parts, out)), ...);
        m_out.SetEnd(out);
    }

    void BreakLine()
    {
        const int blanks = m_depth * INDENTATION;
        Unit* out = m_out.Room(1 + blanks);
        *out = static_cast<Unit>('\n');
        m_out.SetEnd(std::fill_n(out + 1, blanks, static_cast<Unit>(' ')));
    }

    void PutValue(double value, NumberFormat format)
    {
        Unit* const end = numbers::WriteFixed(m_out.Room(numbers::MAX_FIXED), value, format.decimals);
        if (end)
            m_out.SetEnd(end);
        else
            PutPlain(ToText(value, format));
    }

    void PutValue(bool value, NumberFormat format) { PutPlain(ToText(value, format)); }

    void PutValue(const Name& value, NumberFormat /*format*/) { Put(value); }

    /// Escapes what a writer escapes and drops what it drops.
    void PutValue(const QString& value, NumberFormat /*format*/)
    {
        const auto isPlain = [](QChar c) {
            const ushort unit = c.unicode();
            return unit >= ' ' && unit < 0x7F && unit != '<' && unit != '>' && unit != '&' && unit != '"';
        };
        if (std::all_of(value.cbegin(), value.cend(), isPlain)) {
            PutPlain(value);
            return;
        }
        QString escaped;
        QXmlStreamWriter writer(&escaped);
        writer.writeCharacters(value);
        PutPlain(escaped);
    }

    void PutPlain(const QString& text)
    {
        if constexpr (sizeof(Unit) == sizeof(QChar)) {
            m_out.Append(UnitsOf(text), text.size());
        } else {
            const QByteArray bytes = text.toUtf8();
            m_out.Append(bytes.constData(), bytes.size());
        }
    }

    Buffer<Container> m_out;
    int m_depth = 0;
    bool m_isStartTagOpen = false;

    /// Whether what was written last is a child element.
    bool m_hasChild = false;
    qint64 m_valueBegin = 0;
    qint64 m_valueEnd = 0;
};

} // namespace REPORTGENERATOR

#endif
