#ifndef TESTS_SUPPORT_SMALLOBJECT_H
#define TESTS_SUPPORT_SMALLOBJECT_H

// An object with a binary form as simple as the frame allows, and its form composed by hand.
//
//     SmallSample sample;                            // count 5, label "Zoo"
//     EXPECT_BYTES(sample.object.GetBinaryRepresentationAsQByteArray(),
//                  Representation(u"AnyType", sample.elements));
//     SmallObject read;
//     EXPECT_TRUE(Read(read, Representation(u"AnyType", sample.elements)));
//     EXPECT_EQ(read.count, 5);

#include "support/bytes.h"
#include "support/expect.h"
#include "support/plainobject.h"

#include <reportgenerator/reportbase/binaryparsingexception.h>
#include <reportgenerator/reportbase/frequency.h>
#include <reportgenerator/reportbase/irgobject.h>

#include <QtCore/QByteArray>
#include <QtCore/QDataStream>
#include <QtCore/QString>

namespace Support {

// The tags of its elements.
constexpr int TAG_COUNT = 7;
constexpr int TAG_LABEL = -2;

/// An object with a binary form as simple as the frame allows: a number and a text.
class SmallObject : public PlainObject
{
public:
    bool GetBinary(QDataStream& stream, int tag, bool withTag) const override
    {
        ++calls.getBinary;
        lastTag = tag;
        lastWithTag = withTag;
        if (withTag)
            stream << static_cast<qint32>(tag);
        const QByteArray labelBytes = label.toUtf8();
        const auto labelLength = static_cast<qint32>(4 + labelBytes.size());
        stream << static_cast<qint32>(12 + 8 + labelLength);
        stream << static_cast<qint32>(TAG_COUNT) << static_cast<qint32>(4) << static_cast<qint32>(count);
        stream << static_cast<qint32>(TAG_LABEL) << labelLength << labelBytes;
        return true;
    }

    void SetBinary(QDataStream& stream, int length) override
    {
        ++calls.setBinary;
        lastLength = length;
        count = 0;
        label.clear();
        int remaining = length;
        while (remaining > 0 && !stream.atEnd()) {
            qint32 tag = 0;
            qint32 elementLength = 0;
            stream >> tag >> elementLength;
            remaining -= 8 + elementLength;
            ReadElement(stream, tag, elementLength);
        }
        if (remaining != 0) {
            BinaryParsingException exception(Text("lengths differ"));
            TraceOrThrow(REPORTGENERATOR::ERROR, exception, true, true);
        }
    }

    void Reset() override
    {
        PlainObject::Reset();
        count = 0;
        label.clear();
    }

    int count = 0;
    QString label;

private:
    void ReadElement(QDataStream& stream, qint32 tag, qint32 length)
    {
        if (tag == TAG_COUNT) {
            qint32 number = 0;
            stream >> number;
            count = number;
        } else if (tag == TAG_LABEL) {
            QByteArray bytes;
            stream >> bytes;
            label = QString::fromUtf8(bytes);
        } else {
            skipCurrentElement(stream, length, tag);
        }
    }
};

/// An object with its elements, its form composed by hand.
struct SmallSample
{
    SmallSample()
    {
        object.count = 5;
        object.label = Text("Zoo");
    }

    SmallObject object;
    Bytes elements = Element(TAG_COUNT, Int32(5)) + Element(TAG_LABEL, ByteArray("Zoo"));
};

/// Reads a representation.
inline bool Read(REPORTGENERATOR::IRGObject& object, const Bytes& representation)
{
    QByteArray bytes = representation.Data();
    return object.SetBinaryRepresentation(bytes);
}

/// Value 121500000, minimum 1.5, use false.
inline REPORTGENERATOR::Frequency SampleFrequency()
{
    REPORTGENERATOR::Frequency frequency;
    frequency.SetValue(121500000.0);
    frequency.SetMin(1.5);
    frequency.SetUse(false);
    return frequency;
}

} // namespace Support

#endif
