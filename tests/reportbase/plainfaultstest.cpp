// The classes without a shared record, on devices that are faulty from one of their bytes on, and called by loggers,
// devices and overrides that do anything to them.

#include "support/calls.h"
#include "support/devices.h"
#include "support/plainclasses.h"
#include "support/scratchfile.h"

#include <reportgenerator/reportbase/rgexception.h>

#include <gtest/gtest.h>

#include <QtCore/QBuffer>
#include <QtCore/QByteArray>
#include <QtCore/QFile>
#include <QtCore/QString>
#include <QtCore/QXmlStreamReader>
#include <QtCore/QXmlStreamWriter>

#include <functional>
#include <memory>
#include <vector>

namespace {

using REPORTGENERATOR::IRGObject;
using Support::Calling;
using Support::CallingLogger;
using Support::Fault;
using Support::Faulty;
using Support::g_calls;
using Support::Overridden;
using Support::Sample;

template <class T>
QByteArray XmlOf()
{
    return QByteArray(Sample<T>::XML).trimmed();
}

template <class T>
void ProcessOn(T& object, QIODevice& device)
{
    QXmlStreamReader reader(&device);
    if (reader.readNextStartElement())
        object.ProcessXml(reader);
}

void WriteOn(const IRGObject& object, QIODevice& device)
{
    QXmlStreamWriter writer(&device);
    object.GetXml(writer);
}

/// Runs the operation, which may be refused with an exception of the library's.
void Attempt(const std::function<void()>& operation)
{
    try {
        operation();
    } catch (const RGException&) {
    }
}

template <class T>
void ExpectUsable(T& object)
{
    object.ResetLogger();
    object.Reset();
    object = T(Sample<T>::Filled());
    EXPECT_XML(object, Sample<T>::XML);
}

// --- Devices

template <class T>
class PlainDevices : public ::testing::Test
{
};

TYPED_TEST_SUITE(PlainDevices, Support::PlainClasses, Support::PlainClassNames);

constexpr Fault FAULTS[] = {Fault::GivesNothing, Fault::Fails, Fault::Closes,
                            Fault::StandsStill,  Fault::Lies,  Fault::Trickles};

TYPED_TEST(PlainDevices, ReadingEndsWhereverOneIsFaulty)
{
    const QByteArray xml = XmlOf<TypeParam>();
    Support::WriteScratch(xml);
    for (const Fault fault : FAULTS) {
        for (int position = 0; position <= xml.size(); ++position) {
            SCOPED_TRACE(testing::Message() << "fault " << static_cast<int>(fault) << " at " << position);
            TypeParam object;
            Faulty<QFile> file(fault, position, Support::ScratchPath());
            EXPECT_TRUE(file.open(QIODevice::ReadOnly | QIODevice::Unbuffered));
            Attempt([&] { static_cast<IRGObject&>(object).LoadXml(&file); });
            Faulty<QBuffer> buffer(fault, position);
            buffer.setData(xml);
            buffer.open(QIODevice::ReadOnly | QIODevice::Unbuffered);
            Attempt([&] { ProcessOn(object, buffer); });
            ExpectUsable(object);
        }
    }
    Support::RemoveScratch();
}

TYPED_TEST(PlainDevices, WritingLeavesTheObjectAsItWasWhereverOneIsFaulty)
{
    const TypeParam object = Sample<TypeParam>::Filled();
    const auto size = QByteArray(Sample<TypeParam>::XML).size();
    for (const Fault fault : FAULTS) {
        for (int position = 0; position <= size; ++position) {
            SCOPED_TRACE(testing::Message() << "fault " << static_cast<int>(fault) << " at " << position);
            Faulty<QBuffer> buffer(fault, position);
            buffer.open(QIODevice::WriteOnly | QIODevice::Unbuffered);
            WriteOn(object, buffer);
            EXPECT_XML(object, Sample<TypeParam>::XML);
        }
    }
}

// --- Callbacks

template <class T>
using Deeds = std::vector<std::function<void(T&)>>;

template <class Base, class T>
Deeds<T> DeedsTo()
{
    return {
        [](T&) { throw RGException(Support::Text("thrown")); },
        [](T& object) { object.Reset(); },
        [](T& object) { object = T(); },
        [](T& object) { object = T(Sample<Base>::Filled()); },
        [](T& object) { object = T(Sample<Base>::Refused()); },
        [](T& object) { object.SetXmlString(QString::fromUtf8(XmlOf<Base>()), false); },
        [](T& object) { object.GetXmlString(); },
        [](T& object) { object.ResetLogger(); },
        [](T& object) { object.SetLogger(std::make_shared<CallingLogger>()); },
        [](T& object) { object.SetValidate(!object.GetValidate()); },
    };
}

template <class Base, class T>
Deeds<T> Operations()
{
    const auto processOn = [](T& object, QByteArray xml) {
        Calling<QBuffer> buffer(&xml);
        buffer.open(QIODevice::ReadOnly);
        ProcessOn(object, buffer);
    };
    return {
        [](T& object) { object.SetXmlString(QString::fromUtf8(XmlOf<Base>()), true); },
        [](T& object) { object.SetXmlString(QString::fromUtf8(XmlOf<Base>().chopped(4)), true); },
        [processOn](T& object) { processOn(object, XmlOf<Base>()); },
        [processOn](T& object) { processOn(object, XmlOf<Base>().chopped(4)); },
        [](T& object) { object.MergeRGObject(T(Sample<Base>::Filled())); },
        [](T& object) { static_cast<IRGObject&>(object).Check(true); },
        [](T& object) { static_cast<IRGObject&>(object).Check(); },
        [](T& object) { object.GetXmlString(); },
        [](T& object) {
            Calling<QBuffer> buffer;
            buffer.open(QIODevice::WriteOnly);
            WriteOn(object, buffer);
        },
    };
}

/// Returns whether the deed was done.
template <class Base, class T>
bool IsDone(const std::function<void(T&)>& operation, const std::function<void(T&)>& deed, bool isRefused,
            int number)
{
    T object{isRefused ? Sample<Base>::Refused() : Sample<Base>::Filled()};
    object.SetLogger(std::make_shared<CallingLogger>());
    g_calls.Await(number, [&] { deed(object); });
    Attempt([&] { operation(object); });
    const bool isDone = g_calls.HaveCome();
    object.ResetLogger();
    object.Reset();
    object = T(Sample<Base>::Filled());
    EXPECT_XML(object, Sample<Base>::XML);
    return isDone;
}

template <class Base, class T>
void TryAll()
{
    int tried = 0;
    for (const auto& operation : Operations<Base, T>()) {
        for (const auto& deed : DeedsTo<Base, T>()) {
            for (const bool isRefused : {false, true}) {
                int number = 1;
                while (IsDone<Base, T>(operation, deed, isRefused, number) && !testing::Test::HasFailure())
                    ++number;
                tried += number - 1;
            }
        }
    }
    EXPECT_GT(tried, 100);
    testing::Test::RecordProperty("calls", tried);
}

template <class T>
class PlainCallbacks : public ::testing::Test
{
};

TYPED_TEST_SUITE(PlainCallbacks, Support::PlainClasses, Support::PlainClassNames);

TYPED_TEST(PlainCallbacks, OfLoggersAndDevicesMayDoAnythingToTheObject)
{
    TryAll<TypeParam, TypeParam>();
}

TYPED_TEST(PlainCallbacks, OfOverridesMayDoAnythingToTheObject)
{
    TryAll<TypeParam, Overridden<TypeParam>>();
}

} // namespace
