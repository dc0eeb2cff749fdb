// Const operations of the classes with a record, from several threads at the same time.

#include "threads/interface.h"
#include "threads/pairs.h"

#include <reportgenerator/reportbase/area.h>
#include <reportgenerator/reportbase/coordinate.h>
#include <reportgenerator/reportbase/frequency.h>
#include <reportgenerator/reportbase/ifbandwidth.h>
#include <reportgenerator/reportbase/reportbase.h>

#include <utility>

namespace {

using REPORTGENERATOR::Area;
using REPORTGENERATOR::Coordinate;
using REPORTGENERATOR::Frequency;
using REPORTGENERATOR::IFBandwidth;
using REPORTGENERATOR::ReportBase;
using Threads::CountingLogger;
using Threads::ExpectPairsAreSafe;
using Threads::Operations;
using Threads::States;
using Threads::Told;
using Threads::Written;

/// The same class by another name: it goes along Qt's streams.
template <class T>
class Derived : public T
{
};

// --- Operations -------------------------------------------------------------------------------------------

template <class T>
Operations<T> RecordOperations()
{
    return Threads::BaseOperations<T>() + Operations<T>
    {
        OPERATION(IsInitialized()), OPERATION(AnyData()),
            ACTION(GetVersionSpecificBinaryWithoutValidation(stream), return Written([&](QDataStream& s) {
                       object.GetVersionSpecificBinaryWithoutValidation(s);
                   });),
            ACTION(operator==(itself), return Told(object == object);),
            ACTION(operator==(other), return Told(object == T());),
            ACTION(operator!=(other), return Told(T() != object);),
            // What is given already changes nothing.
            ACTION(SetValidate(GetValidate()), object.SetValidate(object.GetValidate()); return {};),
            ACTION(SetLogger(GetLogger()), object.SetLogger(object.GetLogger()); return {};),
    };
}

template <class T>
Operations<T> CoordinateOperations()
{
    return RecordOperations<T>() + Operations<T>{
                                       OPERATION(GetLongitude()),          OPERATION(IsLongitudeSet()),
                                       OPERATION(IsValidLongitude(200.0)), OPERATION(GetDefaultLongitude()),
                                       OPERATION(GetLatitude()),           OPERATION(IsLatitudeSet()),
                                       OPERATION(IsValidLatitude(80.0)),   OPERATION(GetDefaultLatitude()),
                                   };
}

template <class T>
Operations<T> BoundedValueOperations()
{
    return RecordOperations<T>() +
           Operations<T>{
               OPERATION(GetValue()),        OPERATION(IsValueSet()),    OPERATION(IsValidValue(1.0)),
               OPERATION(GetDefaultValue()), OPERATION(GetMin()),        OPERATION(IsMinSet()),
               OPERATION(IsValidMin(1.0)),   OPERATION(GetDefaultMin()), OPERATION(GetMax()),
               OPERATION(IsMaxSet()),        OPERATION(IsValidMax(1.0)), OPERATION(GetDefaultMax()),
           };
}

template <class T>
Operations<T> FrequencyOperations()
{
    return BoundedValueOperations<T>() + Operations<T>{
                                             OPERATION(GetUse()),
                                             OPERATION(IsUseSet()),
                                             OPERATION(GetDefaultUse()),
                                         };
}

/// All that a list of coordinates tells.
QByteArray ToldOf(const QVector<Coordinate>& points)
{
    QByteArray told;
    for (const Coordinate& point : points)
        told += Told(point.GetLongitude()) + ' ' + Told(point.GetLatitude()) + '\n';
    return told;
}

template <class T>
Operations<T> AreaOperations()
{
    return RecordOperations<T>() + Operations<T>
    {
        OPERATION(GetName()), OPERATION(IsNameSet()), OPERATION(IsValidName(QString())),
            OPERATION(GetDefaultName()), OPERATION(GetScriptID()), OPERATION(IsScriptIDSet()),
            OPERATION(IsValidScriptID(QString())), OPERATION(GetDefaultScriptID()),
            OPERATION(GetInitialVersionLoaded()), OPERATION(IsCoordinateSet()),
            OPERATION(IsValidCoordinate(Coordinate())),
            ACTION(GetCoordinate(), return ToldOf(object.GetCoordinate());),
            ACTION(IsValidCoordinate(GetCoordinate()),
                   return Told(object.IsValidCoordinate(object.GetCoordinate()));),
            ACTION(GetCoordinate() copied and changed, QVector<Coordinate> points = object.GetCoordinate();
                   for (Coordinate& point
                        : points) point.ResetLatitude();
                   return ToldOf(points);),
            ACTION(GetCoordinate() written, QByteArray told;
                   for (const Coordinate& point
                        : object.GetCoordinate()) told += point.GetXmlString().toUtf8();
                   return told;),
            // The coordinates get the settings one after the other, which only a look at several would tell.
            ACTION(GetCoordinate().last().GetValidate(),
                   const QVector<Coordinate>& points = object.GetCoordinate();
                   return Told(!points.isEmpty() && points.last().GetValidate());),
            ACTION(operator==(copy), T other(object); return Told(other == object);),
    };
}

template <class T>
Operations<T> ReportOperations()
{
    return RecordOperations<T>() + Operations<T>
    {
        OPERATION(IsFrequencySet()), OPERATION(IsIFBandwidthSet()), OPERATION(IsAreaSet()),
            OPERATION(IsValidFrequency(Frequency())), OPERATION(IsValidIFBandwidth(IFBandwidth())),
            OPERATION(IsValidArea(Area())), OPERATION(GetFrequency().GetValue()),
            OPERATION(GetFrequency().GetValidate()), OPERATION(GetFrequency().IsInitialized()),
            OPERATION(GetFrequency().GetXmlString()), OPERATION(GetIFBandwidth().GetMin()),
            OPERATION(GetIFBandwidth().GetXmlString()), OPERATION(GetArea().GetName()),
            OPERATION(GetArea().GetValidate()), OPERATION(GetArea().GetBinaryRepresentationAsQByteArray()),
            ACTION(GetArea().GetLogger(), return object.GetArea().GetLogger() ? "logger" : "none";),
            ACTION(GetArea().Check(true), object.GetArea().Check(true); return {};),
            ACTION(GetArea().GetCoordinate(), return ToldOf(object.GetArea().GetCoordinate());),
            ACTION(GetArea() copied and changed, Area area(object.GetArea());
                   area.SetName(QStringLiteral("changed")); area.AppendCoordinate(Coordinate(Coordinate()));
                   return {};),
            ACTION(SetArea(GetArea()), ReportBase other; other.SetArea(object.GetArea());
                   return other.GetXmlString().toUtf8();),
            ACTION(operator==(copy), T other(object); return Told(other == object);),
    };
}

// --- States -----------------------------------------------------------------------------------------------

Coordinate At(double longitude, double latitude)
{
    Coordinate point;
    point.SetLongitude(longitude);
    point.SetLatitude(latitude);
    return point;
}

template <class T>
std::unique_ptr<T> Unchecked()
{
    auto object = std::make_unique<T>();
    object->SetValidate(false);
    object->SetLogger(std::make_shared<CountingLogger>());
    return object;
}

/// An object that `fill` has filled, and what becomes of it.
template <class T>
States<T> StatesOf(const std::function<void(T&)>& fill)
{
    const auto filled = [fill] {
        auto object = std::make_unique<T>();
        fill(*object);
        return object;
    };
    return {
        {"empty", [] { return std::make_unique<T>(); }},
        {"empty, unchecked", Unchecked<T>},
        {"filled", filled},
        {"with a logger",
         [fill] {
             auto object = Unchecked<T>();
             fill(*object);
             return object;
         }},
        {"copied", [source = std::shared_ptr<T>(filled())] { return std::make_unique<T>(*source); }},
        {"copied, with a logger",
         [source = std::shared_ptr<T>(filled())] {
             auto object = std::make_unique<T>(*source);
             object->SetLogger(std::make_shared<CountingLogger>());
             return object;
         }},
        {"copied from what has gone", [filled] { return std::make_unique<T>(*filled()); }},
        {"assigned",
         [source = std::shared_ptr<T>(filled())] {
             auto object = Unchecked<T>();
             *object = *source;
             return object;
         }},
        {"assigned from what has gone",
         [filled] {
             auto source = filled();
             source->SetLogger(std::make_shared<CountingLogger>());
             source->Check(true);
             auto object = Unchecked<T>();
             *object = *source;
             return object;
         }},
        {"without its logger",
         [filled] {
             auto object = filled();
             object->SetLogger(std::make_shared<CountingLogger>());
             object->ResetLogger();
             return object;
         }},
        {"read",
         [filled] {
             auto object = std::make_unique<T>();
             object->SetXmlString(filled()->GetXmlString(), true);
             return object;
         }},
    };
}

void FillCoordinate(Coordinate& point)
{
    point = At(1.5, 2.5);
}

template <class T>
void FillNumbers(T& value)
{
    value.SetValue(2.0);
    value.SetMin(1.0);
}

void FillArea(Area& area)
{
    area.SetName(QStringLiteral("Lake"));
    area.AppendCoordinate(At(1.0, 2.0));
    area.AppendCoordinate(At(3.0, 4.0));
}

/// The area has been given, and so has a setting that its report hasn't.
void FillReport(ReportBase& report)
{
    Area area;
    FillArea(area);
    area.SetLogger(std::make_shared<CountingLogger>());
    report.SetArea(area);
    report.GetArea() = area;
    FillNumbers(report.GetFrequency());
    report.GetFrequency().SetLogger(std::make_shared<CountingLogger>());
}

template <class T>
void ExpectSafe(const Operations<T>& operations, const std::function<void(T&)>& fill,
                const std::function<void(T&)>& change)
{
    ExpectPairsAreSafe<T>(StatesOf<T>(fill), operations, change);
}

void ChangeArea(Area& area)
{
    area.GetCoordinate().append(At(5.0, 6.0));
    area.AppendCoordinate(At(7.0, 8.0));
    area.ResetCoordinate();
}

} // namespace

TEST(ThreadsOfRecords, AreTriedWithAllConstOperations)
{
    const auto expectAll = [](const auto& operations, const std::string& name, const std::string& holder) {
        const std::string data = "REPORTGENERATOR::" + name + "Data";
        Threads::ExpectNothingIsLeftOut(
            operations, {name, "IRGObject", "BoundedValue<" + data + ">",
                         "RecordObject<" + data + ", REPORTGENERATOR::" + holder + "<" + data + "> >"});
    };
    expectAll(CoordinateOperations<Coordinate>(), "Coordinate", "OwnRecord");
    expectAll(FrequencyOperations<Frequency>(), "Frequency", "OwnRecord");
    expectAll(BoundedValueOperations<IFBandwidth>(), "IFBandwidth", "OwnRecord");
    expectAll(AreaOperations<Area>(), "Area", "SharedRecord");
    expectAll(ReportOperations<ReportBase>(), "ReportBase", "SharedRecord");
}

TEST(ThreadsOfRecords, ReadACoordinate)
{
    ExpectSafe<Coordinate>(CoordinateOperations<Coordinate>(), FillCoordinate,
                           [](Coordinate& point) { point.SetLongitude(9.0); });
}

TEST(ThreadsOfRecords, ReadAFrequency)
{
    ExpectSafe<Frequency>(FrequencyOperations<Frequency>(), FillNumbers<Frequency>,
                          [](Frequency& frequency) { frequency.SetUse(false); });
}

TEST(ThreadsOfRecords, ReadAnIFBandwidth)
{
    ExpectSafe<IFBandwidth>(BoundedValueOperations<IFBandwidth>(), FillNumbers<IFBandwidth>,
                            [](IFBandwidth& bandwidth) { bandwidth.ResetMin(); });
}

TEST(ThreadsOfRecords, ReadAnArea)
{
    ExpectSafe<Area>(AreaOperations<Area>(), FillArea, ChangeArea);
}

TEST(ThreadsOfRecords, ReadAReport)
{
    ExpectSafe<ReportBase>(ReportOperations<ReportBase>(), FillReport,
                           [](ReportBase& report) { ChangeArea(report.GetArea()); });
}

TEST(ThreadsOfRecords, ReadAnObjectOfADerivedClass)
{
    using DerivedReport = Derived<ReportBase>;
    ExpectSafe<DerivedReport>(ReportOperations<DerivedReport>(), FillReport,
                              [](ReportBase& report) { ChangeArea(report.GetArea()); });
    using DerivedArea = Derived<Area>;
    ExpectSafe<DerivedArea>(AreaOperations<DerivedArea>(), FillArea, ChangeArea);
}
