#include <reportcore/reading/soundbody.h>

#include <reportcore/byterange.h>
#include <reportcore/reading/bytes.h>

#include <reportgenerator/reflection/reportfields.h>
#include <reportgenerator/reportbase/forms/wirefacts.h>

#include <algorithm>

namespace ReportCore {

namespace {

namespace wire = REPORTGENERATOR::wire;

class Looking
{
public:
    explicit Looking(const QByteArray& body) : m_body(body) {}

    BodyLook Look()
    {
        ByteRange range(m_body);
        if (!range.Has(2 * wire::WORD_SIZE))
            return {};
        range.Take(wire::WORD_SIZE);
        const qint64 length = range.TakeLength();
        const bool isSound = length == range.Size() && Elements(range, ReportInfo());
        return {isSound, isSound && m_isPlain};
    }

private:
    bool Elements(ByteRange range, const ObjectInfo& object)
    {
        quint64 seen = 0;
        while (!range.IsEmpty()) {
            if (!range.Has(2 * wire::WORD_SIZE))
                return false;
            const auto tag = static_cast<qint32>(range.TakeWord());
            const qint64 length = range.TakeLength();
            if (!range.Has(length))
                return false;
            const ByteRange payload = range.Take(length);
            const auto field =
                std::find_if(object.All().begin(), object.All().end(),
                             [tag](const auto& candidate) { return candidate->Facts().tag == tag; });
            if (field == object.All().end()) {
                m_isPlain = false;
                continue;
            }
            Note(static_cast<int>(field - object.All().begin()), seen);
            if (!Payload(payload, **field))
                return false;
        }
        return true;
    }

    /// That an element has come. No class has as many fields as there are bits.
    void Note(int number, quint64& seen)
    {
        const quint64 bit = quint64(1) << number;
        m_isPlain = m_isPlain && (seen & bit) == 0;
        seen |= bit;
    }

    bool Payload(ByteRange payload, const Field& field)
    {
        switch (field.Kind()) {
        case FieldKind::Object:
            return Elements(payload, field.Object());
        case FieldKind::List:
            return Items(payload, field);
        case FieldKind::Switch:
            return payload.Size() == 1;
        default:
            return Text(payload, field);
        }
    }

    bool Items(ByteRange payload, const Field& list)
    {
        if (!payload.Has(wire::WORD_SIZE))
            return false;
        qint64 left = payload.TakeLength();
        for (; left > 0; --left) {
            if (!payload.Has(wire::WORD_SIZE))
                return false;
            const qint64 length = payload.TakeLength();
            if (!payload.Has(length) || !Elements(payload.Take(length), list.Object()))
                return false;
        }
        return left == 0 && payload.IsEmpty();
    }

    /// A number travels as its text.
    bool Text(ByteRange payload, const Field& field)
    {
        if (!payload.Has(wire::WORD_SIZE))
            return false;
        const quint32 size = payload.TakeWord();
        m_isPlain = m_isPlain && IsPlain(payload, field);
        return size == wire::NULL_SIZE ? payload.IsEmpty() : size == payload.Size();
    }

    /// Whether the text is read as it stands there, and takes nothing away.
    static bool IsPlain(const ByteRange& text, const Field& field)
    {
        switch (field.Kind()) {
        case FieldKind::Number:
            return IsPlainNumber(text.Data(), text.Data() + text.Size());
        case FieldKind::Version:
            return !field.Empties(text.Utf16());
        default:
            // Behind a NUL nothing is read.
            return IsAscii(text) || (!text.Bytes().contains('\0') && text.Utf8().toUtf8() == text.Bytes());
        }
    }

    static bool IsAscii(const ByteRange& text)
    {
        return std::all_of(text.Data(), text.Data() + text.Size(),
                           [](char byte) { return static_cast<signed char>(byte) > 0; });
    }

    const QByteArray& m_body;
    bool m_isPlain = true;
};

} // namespace

BodyLook LookAtBody(const QByteArray& body)
{
    return Looking(body).Look();
}

} // namespace ReportCore
