// Loggers, devices and overrides that do something to the object that calls them: each of their calls is the
// one in which they do it, once for each operation. What was freed is overwritten meanwhile.

#include "support/calls.h"
#include "support/deviceoperations.h"
#include "support/files.h"
#include "support/recordclasses.h"
#include "support/scratchfile.h"

#include <reportgenerator/reportbase/ellipse.h>
#include <reportgenerator/reportbase/rgexception.h>

#include <gtest/gtest.h>

#include <QtCore/QBuffer>
#include <QtCore/QByteArray>
#include <QtCore/QFile>
#include <QtCore/QString>

#include <functional>
#include <memory>
#include <type_traits>
#include <vector>

#if defined(__GLIBC__)
#    include <malloc.h>
#endif

namespace {

using REPORTGENERATOR::Area;
using REPORTGENERATOR::Coordinate;
using REPORTGENERATOR::Frequency;
using REPORTGENERATOR::IFBandwidth;
using REPORTGENERATOR::ReportBase;
using Support::At;
using Support::CallingLogger;
using Support::g_calls;
using Support::Overridden;
using Support::Text;

// --- Objects and inputs that there is much to say about

/// One coordinate is out of range, one incomplete, one child unknown.
const char* const AREA_XML =
    "<Area Version=\"1.0\"><Name>First</Name><Coordinate><Longitude>200</Longitude><Latitude>100</Latitude>"
    "</Coordinate><Coordinate><Latitude>3</Latitude></Coordinate><Coordinate><Longitude>1</Longitude>"
    "<Latitude>2</Latitude></Coordinate><ScriptID>S</ScriptID><Unknown/><Name>Second</Name></Area>";

template <class T>
QByteArray OddXml()
{
    if constexpr (std::is_same_v<T, Area>)
        return AREA_XML;
    if constexpr (std::is_same_v<T, ReportBase>)
        return QByteArray("<ReportBase><Frequency Min=\"1\">2</Frequency>") + AREA_XML +
               "<IFBandwidth>3</IFBandwidth><Other>x</Other>" + AREA_XML + "</ReportBase>";
    if constexpr (std::is_same_v<T, Coordinate>)
        return "<Coordinate><Longitude>200</Longitude><Latitude>100</Latitude><Other/></Coordinate>";
    return QByteArray("<@ Min=\"1\">2<!-- -->3</@>").replace('@', Support::RecordClass<T>::NAME);
}

void MakeOdd(Frequency& object)
{
    object.SetMin(1.0);
}

void MakeOdd(IFBandwidth& object)
{
    object.SetMin(1.0);
}

void MakeOdd(Coordinate& object)
{
    object.SetLatitude(100.0);
}

void MakeOdd(Area& object)
{
    object.SetName(QString());
    object.SetScriptID(QString());
    object.AppendCoordinate(Support::OutOfRange(200.0, 100.0));
    object.AppendCoordinate(Support::OnlyLatitude(3.0));
    object.AppendCoordinate(At(1.0, 2.0));
}

void MakeOdd(ReportBase& object)
{
    MakeOdd(object.GetFrequency());
    MakeOdd(object.GetIFBandwidth());
    object.GetArea().SetValidate(false);
    MakeOdd(object.GetArea());
}

/// Doesn't validate, and has much to report.
template <class T>
T Odd()
{
    T object;
    object.SetValidate(false);
    MakeOdd(object);
    return object;
}

// --- What is done

template <class T>
struct Deed
{
    const char* name;
    std::function<void(T&)> run;
};

template <class T>
using Deeds = std::vector<Deed<T>>;

/// What no part of the library throws.
struct Foreign
{
};

template <class Base, class T>
Deeds<T> DeedsToAll()
{
    return {
        {"throws", [](T&) { throw RGException(Text("thrown")); }},
        {"throws what is foreign", [](T&) { throw Foreign(); }},
        {"resets", [](T& object) { object.Reset(); }},
        {"resets to default", [](T& object) { object.ResetToDefault(); }},
        {"assigns an empty one", [](T& object) { object = T(); }},
        {"assigns a full one", [](T& object) { object = T(Support::Used<Base>()); }},
        {"assigns a copy", [](T& object) { object = T(object); }},
        {"takes name and kind of another class",
         [](T& object) {
             REPORTGENERATOR::Ellipse other;
             other.SetValidate(object.GetValidate());
             object.IRGObject::operator=(other);
         }},
        {"reads", [](T& object) { object.SetXmlString(Support::XmlOfOne<Base>(), false); }},
        {"reads what is odd",
         [](T& object) { object.SetXmlString(QString::fromUtf8(OddXml<Base>()), false); }},
        {"writes", [](T& object) { object.GetXmlString(); }},
        {"takes the logger", [](T& object) { object.ResetLogger(); }},
        {"gives another logger", [](T& object) { object.SetLogger(Support::NewLogger()); }},
        {"switches validation", [](T& object) { object.SetValidate(!object.GetValidate()); }},
    };
}

template <class T>
Deeds<T> DeedsTo(const Coordinate* /*classOf*/)
{
    return {};
}

template <class T>
Deeds<T> DeedsTo(const Frequency* /*classOf*/)
{
    return {};
}

template <class T>
Deeds<T> DeedsTo(const IFBandwidth* /*classOf*/)
{
    return {};
}

void AppendMany(Area& area)
{
    for (int i = 0; i < 20; ++i)
        area.AppendCoordinate(At(i, i));
}

template <class T>
Deeds<T> DeedsTo(const Area* /*classOf*/)
{
    return {
        {"clears the list", [](T& area) { area.GetCoordinate().clear(); }},
        {"resets the coordinates", [](T& area) { area.ResetCoordinate(); }},
        {"gives another list", [](T& area) { area.SetCoordinate({At(5.0, 6.0)}); }},
        {"appends", [](T& area) { AppendMany(area); }},
        {"gives another name", [](T& area) { area.SetName(QString(100, QLatin1Char('n'))); }},
    };
}

template <class T>
Deeds<T> DeedsTo(const ReportBase* /*classOf*/)
{
    return {
        {"assigns its area", [](T& report) { report.GetArea() = Support::Lake(); }},
        {"gives another area", [](T& report) { report.SetArea(Area()); }},
        {"resets the area", [](T& report) { report.ResetArea(); }},
        {"clears the list", [](T& report) { report.GetArea().GetCoordinate().clear(); }},
        {"appends", [](T& report) { AppendMany(report.GetArea()); }},
        {"reads its area", [](T& report) { report.GetArea().SetXmlString(Text(AREA_XML), false); }},
    };
}

// --- What the object is doing meanwhile

/// Has the operation use a device that calls.
template <class T>
Deed<T> WithDevice(const Support::DeviceOperation<T>& operation)
{
    return {operation.name, [operation](T& object) {
                static const Support::TemporaryFolder folder;
                const auto run = [&](auto& device) {
                    device.open(operation.input.isEmpty() ? QIODevice::WriteOnly : QIODevice::ReadOnly);
                    operation.run(object, device);
                };
                if (operation.wantsFile) {
                    Support::Calling<QFile> file(folder.Write("input", operation.input));
                    run(file);
                } else {
                    Support::Calling<QBuffer> buffer;
                    buffer.setData(operation.input);
                    run(buffer);
                }
            }};
}

template <class Base, class T>
Deeds<T> Operations()
{
    static const QString xml = QString::fromUtf8(OddXml<Base>());
    static const QByteArray plain = Odd<Base>().GetBinaryRepresentationAsQByteArray();
    Deeds<T> operations = {
        {"SetXmlString", [](T& object) { object.SetXmlString(xml, true); }},
        {"SetXmlString(malformed)", [](T& object) { object.SetXmlString(xml.left(xml.size() - 9), false); }},
        {"MergeRGObject", [](T& object) { object.MergeRGObject(T(Odd<Base>())); }},
        {"SetBinaryRepresentation(array)",
         [](T& object) {
             QByteArray bytes = plain;
             object.SetBinaryRepresentation(bytes);
         }},
        {"SetBinaryRepresentation(cut)",
         [](T& object) {
             QByteArray bytes = plain.left(plain.size() - 5);
             object.SetBinaryRepresentation(bytes);
         }},
        {"Check(true)", [](T& object) { object.Check(true); }},
        {"Check", [](T& object) { object.Check(); }},
        {"GetXmlString", [](T& object) { object.GetXmlString(); }},
        {"SaveXml", [](T& object) { object.SaveXml(Support::ScratchPath()); }},
        {"GetBinaryRepresentationAsQByteArray",
         [](T& object) { object.GetBinaryRepresentationAsQByteArray(); }},
        {"operator==",
         [](T& object) {
             const T other(object);
             static_cast<void>(object == other);
         }},
    };
    for (const auto& reading : Support::DeviceReadings<T>(Odd<Base>(), OddXml<Base>()))
        operations.push_back(WithDevice(reading));
    for (const auto& writing : Support::DeviceWritings<T>())
        operations.push_back(WithDevice(writing));
    return operations;
}

// --- The trials

/// What is freed is overwritten, so that nothing of it can be used by mistake.
class OverwritingWhatIsFreed
{
public:
    OverwritingWhatIsFreed() { Overwrite(0x5A); }
    ~OverwritingWhatIsFreed() { Overwrite(0); }

private:
    static void Overwrite([[maybe_unused]] int value)
    {
#if defined(__GLIBC__)
        mallopt(M_PERTURB, value);
#endif
    }
};

template <class Base, class T>
void ExpectUsable(T& object)
{
    // It may bear another class's name.
    object.IRGObject::operator=(Base());
    object.ResetLogger();
    object.SetValidate(true);
    object.Reset();
    Support::RecordClass<Base>::Fill(object, 1.0);
    EXPECT_XML(object, Support::XmlOfOne<Base>());
}

struct State
{
    bool validates;
    bool isCopied;
};

/// Returns whether the deed was done.
template <class Base, class T>
bool IsDone(const Deed<T>& operation, const Deed<T>& deed, State state, int number)
{
    T object{Odd<Base>()};
    const Base copy(state.isCopied ? object : Odd<Base>());
    object.SetValidate(state.validates);
    object.SetLogger(std::make_shared<CallingLogger>());
    g_calls.Await(number, [&] { deed.run(object); });
    try {
        operation.run(object);
    } catch (const RGException&) {
    } catch (const Foreign&) {
    }
    const bool isDone = g_calls.HaveCome();
    ExpectUsable<Base>(object);
    EXPECT_TRUE(copy == Odd<Base>());
    return isDone;
}

template <class Base, class T>
void TryAll()
{
    const OverwritingWhatIsFreed overwriting;
    Deeds<T> deeds = DeedsToAll<Base, T>();
    for (const Deed<T>& deed : DeedsTo<T>(static_cast<const Base*>(nullptr)))
        deeds.push_back(deed);
    int tried = 0;
    for (const Deed<T>& operation : Operations<Base, T>()) {
        for (const Deed<T>& deed : deeds) {
            for (const State state : {State{false, false}, {true, false}, {false, true}, {true, true}}) {
                SCOPED_TRACE(testing::Message() << operation.name << ", " << deed.name << ", "
                                                << state.validates << state.isCopied);
                int number = 1;
                while (IsDone<Base>(operation, deed, state, number) && !testing::Test::HasFailure())
                    ++number;
                tried += number - 1;
            }
        }
    }
    EXPECT_GT(tried, 500);
    testing::Test::RecordProperty("calls", tried);
}

template <class T>
class Callbacks : public ::testing::Test
{
};

TYPED_TEST_SUITE(Callbacks, Support::RecordClasses, Support::RecordClassNames);

TYPED_TEST(Callbacks, OfLoggersAndDevicesMayDoAnythingToTheObject)
{
    TryAll<TypeParam, TypeParam>();
}

TYPED_TEST(Callbacks, OfOverridesMayDoAnythingToTheObject)
{
    TryAll<TypeParam, Overridden<TypeParam>>();
}

} // namespace
