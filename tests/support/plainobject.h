#ifndef TESTS_SUPPORT_PLAINOBJECT_H
#define TESTS_SUPPORT_PLAINOBJECT_H

// The least that is an IRGObject: for tests of what the base does.
//
//     PlainObject object;                              // type 80, "AnyType"
//     object.children = {{QStringLiteral("A"), QStringLiteral("1")}};
//     EXPECT_XML(object, "\n<AnyType>\n    <A>1</A>\n</AnyType>");
//     object.problem = QStringLiteral("not good");     // what Check() reports from now on
//     EXPECT_EQ(object.calls.check, 1);
//
// Its data are its XML children, name and text each. It has no binary form and so keeps the base's refusal,
// until `hasBinary` is set: then its body is the bytes in `body`, written and read as they are.
//
// The base's protected members can be called. `calls` counts what the base asked the object for.

#include <reportgenerator/reportbase/irgobject.h>
#include <reportgenerator/reportbase/rgexception.h>

#include <QtCore/QByteArray>
#include <QtCore/QDataStream>
#include <QtCore/QIODevice>
#include <QtCore/QString>
#include <QtCore/QVector>
#include <QtCore/QXmlStreamReader>
#include <QtCore/QXmlStreamWriter>

#include <ostream>

namespace Support {

class PlainObject : public REPORTGENERATOR::IRGObject
{
public:
    struct Child
    {
        QString name;
        QString text;

        friend bool operator==(const Child& left, const Child& right)
        {
            return left.name == right.name && left.text == right.text;
        }
    };

    struct Calls
    {
        int hasData = 0;
        int reset = 0;
        int check = 0;
        int getXml = 0;
        int getBinary = 0;
        int setBinary = 0;
        int processXmlStartElement = 0;
    };

    PlainObject() = default;
    explicit PlainObject(REPORTGENERATOR::ObjectTypes type) : IRGObject(type) {}

    using IRGObject::Check;
    using IRGObject::GetTextValue;
    using IRGObject::ReadXmlUntil;
    using IRGObject::SetObjectId;
    using IRGObject::SetObjectName;
    using IRGObject::SetObjectType;

    bool HasData() const override
    {
        ++calls.hasData;
        return hasData;
    }

    void Reset() override
    {
        ++calls.reset;
        children.clear();
        body.clear();
    }

    /// Reports `problem` the way the library's classes do, unless it is empty.
    void Check() const override
    {
        ++calls.check;
        if (problem.isEmpty())
            return;
        RGException exception(problem);
        TraceOrThrow(REPORTGENERATOR::ERROR, exception, true, true);
    }

    void GetXml(QXmlStreamWriter& writer) const override
    {
        ++calls.getXml;
        if (!HasData())
            return;
        writer.writeStartElement(GetObjectName());
        for (const Child& child : children)
            writer.writeTextElement(child.name, child.text);
        writer.writeEndElement();
    }

    bool GetBinary(QDataStream& stream, int tag, bool withTag) const override
    {
        ++calls.getBinary;
        lastTag = tag;
        lastWithTag = withTag;
        if (!hasBinary)
            return IRGObject::GetBinary(stream, tag, withTag);
        stream.writeRawData(body.constData(), static_cast<int>(body.size()));
        return true;
    }

    void SetBinary(QDataStream& stream, int length) override
    {
        ++calls.setBinary;
        lastLength = length;
        if (!hasBinary) {
            IRGObject::SetBinary(stream, length);
            return;
        }
        body = stream.device()->read(length);
    }

    /// Takes every child.
    void ProcessXmlStartElement(QXmlStreamReader& reader) override
    {
        ++calls.processXmlStartElement;
        const QString name = reader.name().toString();
        children.append({name, GetTextValue(reader)});
    }

    QVector<Child> children;
    QByteArray body;     ///< what GetBinary writes and SetBinary reads when `hasBinary` is set
    QString problem;     ///< what Check() reports; nothing when empty
    bool hasData = true; ///< what HasData() answers
    bool hasBinary = false;

    mutable Calls calls;
    mutable int lastTag = 0; ///< the arguments of the last GetBinary
    mutable bool lastWithTag = false;
    int lastLength = 0; ///< the argument of the last SetBinary
};

/// A PlainObject that holds something which a reset takes away.
struct FilledObject
{
    FilledObject() { object.children = {{QStringLiteral("Old"), QStringLiteral("1")}}; }

    bool IsUntouched() const { return object.calls.reset == 0 && object.children.size() == 1; }
    bool IsReset() const { return object.calls.reset == 1 && object.children.isEmpty(); }

    PlainObject object;
};

inline void PrintTo(const PlainObject::Child& child, std::ostream* stream)
{
    *stream << child.name.toStdString() << "=\"" << child.text.toStdString() << '"';
}

} // namespace Support

#endif
