// Devices that are faulty from one of their bytes on, each byte in turn: what is read and written with them,
// along both ways.

#include "support/devices.h"
#include "support/deviceoperations.h"
#include "support/paths.h"
#include "support/recordclasses.h"
#include "support/scratchfile.h"

#include <reportgenerator/reportbase/rgexception.h>

#include <gtest/gtest.h>

#include <QtCore/QBuffer>
#include <QtCore/QByteArray>
#include <QtCore/QFile>
#include <QtCore/QString>

#include <type_traits>

namespace {

using Support::DeviceOperation;
using Support::Fault;
using Support::Faulty;
using Support::StreamPathOnly;
using Support::Used;

constexpr Fault FAULTS[] = {Fault::GivesNothing, Fault::Fails, Fault::Closes,
                            Fault::StandsStill,  Fault::Lies,  Fault::Trickles};

/// What an operation came to.
struct Outcome
{
    QString result;
    QByteArray held;    ///< raw form of the object
    QByteArray written; ///< what the device has got

    friend bool operator==(const Outcome& left, const Outcome& right)
    {
        return left.result == right.result && left.held == right.held && left.written == right.written;
    }
    friend std::ostream& operator<<(std::ostream& stream, const Outcome& outcome)
    {
        return stream << outcome.result.toStdString() << ", holds " << outcome.held.toHex().constData()
                      << ", wrote " << outcome.written.toHex().constData();
    }
};

template <class T>
QString ResultOf(const DeviceOperation<T>& operation, T& object, QIODevice& device)
{
    try {
        return operation.run(object, device) ? QStringLiteral("true") : QStringLiteral("false");
    } catch (const RGException& exception) {
        return exception.GetErrorName() + QStringLiteral(": ") + exception.GetErrorText();
    }
}

/// Runs the operation on an object and looks at it. Afterwards the object has to be of use.
template <class Base, class T>
Outcome Run(const DeviceOperation<T>& operation, T& object, QIODevice& device, bool validate)
{
    object.SetValidate(validate);
    Outcome outcome;
    outcome.result = ResultOf(operation, object, device);
    outcome.held = Support::RawFormOf(object);
    object.SetValidate(true);
    object.Reset();
    Support::RecordClass<Base>::Fill(object, 1.0);
    EXPECT_XML(object, Support::XmlOfOne<Base>());
    return outcome;
}

template <class Base, class T>
Outcome Read(const DeviceOperation<T>& reading, Fault fault, int position, bool validate)
{
    T object;
    if (reading.wantsFile) {
        Faulty<QFile> file(fault, position, Support::ScratchPath());
        EXPECT_TRUE(file.open(QIODevice::ReadOnly | QIODevice::Unbuffered));
        return Run<Base>(reading, object, file, validate);
    }
    if (fault == Fault::Trickles) {
        // So many at a time, and no way back.
        Support::Sequential device(reading.input, position + 1);
        device.open(QIODevice::ReadOnly | QIODevice::Unbuffered);
        return Run<Base>(reading, object, device, validate);
    }
    Faulty<QBuffer> buffer(fault, position);
    buffer.setData(reading.input);
    buffer.open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    return Run<Base>(reading, object, buffer, validate);
}

template <class Base, class T>
Outcome Write(const DeviceOperation<T>& writing, Fault fault, int position, bool validate)
{
    T object{Used<Base>()};
    Faulty<QBuffer> buffer(fault, position);
    buffer.open(QIODevice::WriteOnly | QIODevice::Unbuffered);
    Outcome outcome = Run<Base>(writing, object, buffer, validate);
    outcome.written = buffer.data();
    return outcome;
}

template <class T>
class Devices : public ::testing::Test
{
};

TYPED_TEST_SUITE(Devices, Support::RecordClasses, Support::RecordClassNames);

TYPED_TEST(Devices, ReadingSaysTheSameOnBothWaysWhereverOneIsFaulty)
{
    using Plain = StreamPathOnly<TypeParam>;
    const TypeParam source = Used<TypeParam>();
    const QByteArray xml = source.GetXmlString().toUtf8();
    const auto direct = Support::DeviceReadings<TypeParam>(source, xml);
    const auto plain = Support::DeviceReadings<Plain>(source, xml);
    int tried = 0;
    for (std::size_t i = 0; i < direct.size(); ++i) {
        Support::WriteScratch(direct[i].input);
        const auto size = static_cast<int>(direct[i].input.size());
        for (const Fault fault : FAULTS) {
            for (const bool validate : {false, true}) {
                for (int position = 0; position <= size; ++position) {
                    SCOPED_TRACE(testing::Message() << direct[i].name << ", fault " << static_cast<int>(fault)
                                                    << " at " << position << ", " << validate);
                    const Outcome outcome = Read<TypeParam>(direct[i], fault, position, validate);
                    EXPECT_EQ(outcome, Read<TypeParam>(plain[i], fault, position, validate));
                    // What has given all its bytes has done its duty.
                    if (position == size) {
                        EXPECT_EQ(outcome.held, Support::RawFormOf(source));
                    }
                    ++tried;
                }
            }
        }
    }
    Support::RemoveScratch();
    testing::Test::RecordProperty("positions", tried);
}

TYPED_TEST(Devices, WritingLeavesTheObjectAsItWasWhereverOneIsFaulty)
{
    using Plain = StreamPathOnly<TypeParam>;
    const QByteArray held = Support::RawFormOf(Used<TypeParam>());
    const auto direct = Support::DeviceWritings<TypeParam>();
    const auto plain = Support::DeviceWritings<Plain>();
    int tried = 0;
    for (std::size_t i = 0; i < direct.size(); ++i) {
        constexpr int FAR = 1 << 20;
        const QByteArray whole = Write<TypeParam>(direct[i], Fault::Fails, FAR, true).written;
        EXPECT_FALSE(whole.isEmpty());
        for (const Fault fault : FAULTS) {
            for (int position = 0; position <= whole.size(); ++position) {
                SCOPED_TRACE(testing::Message() << direct[i].name << ", fault " << static_cast<int>(fault)
                                                << " at " << position);
                const Outcome outcome = Write<TypeParam>(direct[i], fault, position, true);
                EXPECT_EQ(outcome, Write<TypeParam>(plain[i], fault, position, true));
                EXPECT_EQ(outcome.held, held);
                ++tried;
            }
        }
    }
    testing::Test::RecordProperty("positions", tried);
}

} // namespace
