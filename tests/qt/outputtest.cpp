#include "support/expect.h"
#include "support/points.h"

#include <reportgenerator/qt/output.h>
#include <reportgenerator/qt/points.h>
#include <reportgenerator/reportbase/interfacealreadyregisteredexception.h>
#include <reportgenerator/reportbase/outofrangeexception.h>

#include <gtest/gtest.h>

#include <QtCore/QScopedArrayPointer>

#include <iomanip>
#include <limits>
#include <sstream>

namespace {

using REPORTGENERATOR::AnyType;
using REPORTGENERATOR::Area;
using REPORTGENERATOR::ChannelSpacing;
using REPORTGENERATOR::Coordinate;
using REPORTGENERATOR::Double;
using REPORTGENERATOR::Ellipse;
using REPORTGENERATOR::ERROR;
using REPORTGENERATOR::Frequency;
using REPORTGENERATOR::FrequencyInformation;
using REPORTGENERATOR::FrequencyListValue;
using REPORTGENERATOR::FrequencyRangeOld;
using REPORTGENERATOR::GetInValidObjectTypes;
using REPORTGENERATOR::IFBandwidth;
using REPORTGENERATOR::INFO;
using REPORTGENERATOR::IRGObject;
using REPORTGENERATOR::Logger;
using REPORTGENERATOR::LogLevel;
using REPORTGENERATOR::MakeArea;
using REPORTGENERATOR::MakeCoordinate;
using REPORTGENERATOR::MeasurementTime;
using REPORTGENERATOR::MinMax;
using REPORTGENERATOR::RegisterCenter;
using REPORTGENERATOR::ReportBase;
using REPORTGENERATOR::ScanParameter;
using REPORTGENERATOR::Task;
using REPORTGENERATOR::ToText;
using REPORTGENERATOR::ValueMinMax;
using REPORTGENERATOR::VersionConverterProxy;
using REPORTGENERATOR::WARNING;
namespace TaskType = REPORTGENERATOR::TaskType;
namespace MeasurementType = REPORTGENERATOR::MeasurementType;
namespace ResourceType = REPORTGENERATOR::ResourceType;
using Support::Text;

template <class Value>
QString Debugged(const Value& value)
{
    QString text;
    QDebug(&text).nospace() << value;
    return text;
}

template <class Value>
std::string Streamed(const Value& value)
{
    std::ostringstream stream;
    stream << value;
    return stream.str();
}

/// What Qt Test shows, which deletes it.
template <class Value>
QString Compared(const Value& value)
{
    return QString::fromUtf8(QScopedArrayPointer<char>(toString(value)).data());
}

/// All ways to print a value that QCOMPARE knows.
#define EXPECT_PRINTED(value, expected)                                                                      \
    do {                                                                                                     \
        EXPECT_TEXT(Debugged(value), expected);                                                              \
        EXPECT_EQ(Streamed(value), expected);                                                                \
        EXPECT_EQ(testing::PrintToString(value), expected);                                                  \
        EXPECT_TEXT(Compared(value), expected);                                                              \
    } while (false)

/// A class that the library doesn't know.
class Mission : public IRGObject
{
public:
    Mission()
    {
        SetObjectType(Task);
        SetObjectName(Text("Mission"));
        SetObjectId(4711);
    }
    bool HasData() const override { return false; }
    void Reset() override {}
    void Check() const override {}
    void GetXml(QXmlStreamWriter& /*writer*/) const override {}
};

class QuietLogger : public Logger
{
public:
    explicit QuietLogger(bool hasErrors) : Logger(INFO), m_hasErrors(hasErrors) {}
    using Logger::Trace;
    void Trace(LogLevel /*level*/, const QString& /*text*/, bool /*fatal*/) override {}
    bool HasErrors() const override { return m_hasErrors; }
    void Reset(bool /*clearEntries*/) override {}

private:
    bool m_hasErrors;
};

} // namespace

// --- Objects of a report

TEST(QtOutput, FrequencyShowsWhatIsSet)
{
    Frequency frequency;
    EXPECT_PRINTED(frequency, "Frequency()");
    frequency.SetMin(121487500.0);
    frequency.SetUse(false);
    EXPECT_PRINTED(frequency, "Frequency(min: 121487500, use: false)");
    frequency.SetValue(121500000.0);
    frequency.SetMax(121512500.0);
    frequency.SetUse(true);
    EXPECT_PRINTED(frequency, "Frequency(value: 121500000, min: 121487500, max: 121512500, use: true)");
}

TEST(QtOutput, IFBandwidthShowsWhatIsSet)
{
    IFBandwidth bandwidth;
    bandwidth.SetValue(8333.33);
    EXPECT_PRINTED(bandwidth, "IFBandwidth(value: 8333.33)");
}

TEST(QtOutput, CoordinateShowsWhatIsSet)
{
    EXPECT_PRINTED(MakeCoordinate(9.5, -47.25), "Coordinate(longitude: 9.5, latitude: -47.25)");
    EXPECT_PRINTED(Support::OnlyLatitude(1.0), "Coordinate(latitude: 1)");
}

TEST(QtOutput, NumbersHaveTheDigitsThatTellThemFromOthers)
{
    const struct
    {
        double number;
        const char* text;
    } rows[] = {
        {0.1, "0.1"},
        {0.30000000000000004, "0.30000000000000004"},
        {121500000.001, "121500000.001"},
        {0.0, "0"},
        {-0.0, "0"},
        {1e-7, "0.0000001"},
        {9e-8, "9e-08"},
        {999999999999999.0, "999999999999999"},
        {1e15, "1e+15"},
        {-1e300, "-1e+300"},
        {std::numeric_limits<double>::infinity(), "inf"},
        {std::numeric_limits<double>::quiet_NaN(), "nan"},
    };
    for (const auto& row : rows) {
        IFBandwidth bandwidth;
        bandwidth.SetValue(row.number);
        EXPECT_EQ(Streamed(bandwidth), std::string("IFBandwidth(value: ") + row.text + ")");
    }
}

TEST(QtOutput, ShortAreasShowEachPoint)
{
    Area area;
    EXPECT_PRINTED(area, "Area()");
    area.GetCoordinate();
    EXPECT_PRINTED(area, "Area(coordinates: 0 [])");
    area = MakeArea(Text("Lake"), {{1, 2}, {3, 4}, {5, 6}, {7, 8}});
    area.SetScriptID(Text("S7"));
    EXPECT_PRINTED(area,
                   "Area(name: \"Lake\", coordinates: 4 [(1, 2), (3, 4), (5, 6), (7, 8)], script: \"S7\")");
}

TEST(QtOutput, LongAreasShowTheFirstPointsAndACheckSum)
{
    const Area area = MakeArea(Text("Lake"), {{1, 2}, {3, 4}, {5, 6}, {7, 8}, {9, 10}});
    EXPECT_PRINTED(area,
                   "Area(name: \"Lake\", coordinates: 5 [(1, 2), (3, 4), (5, 6), ... check sum 26116fc1])");
    const Area other = MakeArea(Text("Lake"), {{1, 2}, {3, 4}, {5, 6}, {7, 8}, {9, 10.5}});
    EXPECT_PRINTED(other,
                   "Area(name: \"Lake\", coordinates: 5 [(1, 2), (3, 4), (5, 6), ... check sum 000ef558])");
}

TEST(QtOutput, AnAreaOfManyPointsStaysShort)
{
    Area area;
    area.SetName(Text("Lake"));
    area.SetCoordinate(QVector<Coordinate>(100000, MakeCoordinate(-179.123456, -89.123456)));
    EXPECT_LT(ToText(area).size(), 200);
}

TEST(QtOutput, CheckSumsAreOfEqualAreasEqual)
{
    const Area zero = MakeArea(Text("Z"), {{0.0, 2}, {3, 4}, {5, 6}, {7, 8}, {9, 0.0}});
    const Area negativeZero = MakeArea(Text("Z"), {{0.0, 2}, {3, 4}, {5, 6}, {7, 8}, {9, -0.0}});
    ASSERT_TRUE(zero == negativeZero);
    EXPECT_EQ(Streamed(zero), Streamed(negativeZero));
}

TEST(QtOutput, IncompletePointsSayWhatIsMissing)
{
    Area area;
    area.SetValidate(false);
    area.AppendCoordinate(Support::OnlyLatitude(2.5));
    area.AppendCoordinate(Support::OnlyLongitude(1.5));
    EXPECT_PRINTED(area, "Area(coordinates: 2 [(not set, 2.5), (1.5, not set)])");
}

TEST(QtOutput, TextsAreQuotedAndNullDiffersFromEmpty)
{
    Area area;
    area.SetValidate(false);
    area.SetName(QString());
    EXPECT_PRINTED(area, "Area(name: null)");
    area.SetName(Text(""));
    EXPECT_PRINTED(area, "Area(name: \"\")");
    area.SetName(Text("a\"b\n"));
    EXPECT_PRINTED(area, "Area(name: \"a\\\"b\\n\")");
    area.SetName(Text("Z\u00fcrich"));
    EXPECT_PRINTED(area, "Area(name: \"Z\u00fcrich\")");
}

TEST(QtOutput, ReportShowsItsMembers)
{
    ReportBase report;
    EXPECT_PRINTED(report, "ReportBase()");
    report.GetFrequency().SetValue(121500000.0);
    report.GetIFBandwidth();
    report.SetArea(MakeArea(Text("Lake"), {{9.5, 47.5}}));
    EXPECT_PRINTED(report, "ReportBase(Frequency(value: 121500000), IFBandwidth(), "
                           "Area(name: \"Lake\", coordinates: 1 [(9.5, 47.5)]))");
}

TEST(QtOutput, PrintingMarksNothing)
{
    ReportBase report;
    report.GetArea().SetName(Text("Lake"));
    Streamed(report);
    EXPECT_FALSE(report.IsFrequencySet());
    EXPECT_FALSE(report.IsIFBandwidthSet());
    EXPECT_FALSE(std::as_const(report).GetArea().IsCoordinateSet());
}

// --- Objects of a task

TEST(QtOutput, DoubleShowsWhatIsSet)
{
    Double number;
    number.SetName(Text("DwellTime"));
    EXPECT_PRINTED(number, "Double(name: \"DwellTime\")");
    number.SetValue(0.25);
    number.SetMinimum(0.0);
    number.SetMaximum(1.0);
    number.SetDefault(0.5);
    number.SetUnit(Text("s"));
    EXPECT_PRINTED(
        number,
        "Double(name: \"DwellTime\", value: 0.25, minimum: 0, maximum: 1, default: 0.5, unit: \"s\")");
}

TEST(QtOutput, ADoubleKnowsItsOwnNumberForUnset)
{
    Double number;
    number.SetDefaultInvalidValue(-1.0);
    number.SetMinimum(-111111.11);
    EXPECT_PRINTED(number, "Double(name: \"AnyType\", minimum: -111111.11)");
}

TEST(QtOutput, ValueMinMaxShowsWhatIsSet)
{
    ValueMinMax value;
    EXPECT_PRINTED(value, "ValueMinMax()");
    value.SetName(Text("N"));
    value.SetValue(2.0);
    value.SetMin(1.0);
    value.SetMax(3.0);
    EXPECT_PRINTED(value, "ValueMinMax(name: \"N\", value: 2, min: 1, max: 3)");
}

TEST(QtOutput, MinMaxShowsBothBounds)
{
    EXPECT_PRINTED(MinMax(1.5, -2.0), "MinMax(min: 1.5, max: -2)");
}

TEST(QtOutput, FrequencyRangeShowsWhatIsSet)
{
    FrequencyRangeOld range;
    range.SetStartFrequency(87.5);
    EXPECT_PRINTED(range, "FrequencyRangeOld(start: 87.5)");
    range.SetStopFrequency(108.0);
    EXPECT_PRINTED(range, "FrequencyRangeOld(start: 87.5, stop: 108)");
}

TEST(QtOutput, FrequencyInformationShowsFrequencyAndRange)
{
    FrequencyInformation where;
    EXPECT_PRINTED(where, "FrequencyInformation()");
    where.SetFrequency(121.5);
    where.SetFrequencyMinMax(121.25, 121.75);
    where.GetFrequencyRange().SetStopFrequency(108.0);
    EXPECT_PRINTED(where, "FrequencyInformation(frequency: 121.5, min: 121.25, max: 121.75, "
                          "FrequencyRangeOld(stop: 108))");
}

TEST(QtOutput, FrequencyListValueShowsItsTimeInUtc)
{
    FrequencyListValue entry;
    entry.SetXmlString(Text("<Value><Frequency Min=\"1\">2</Frequency>"
                            "<TimeStamp>2014-07-03T10:05:09.120+02:00</TimeStamp></Value>"),
                       true);
    EXPECT_PRINTED(entry, "FrequencyListValue(frequency: 2, min: 1, time: 2014-07-03T08:05:09.120Z)");
}

TEST(QtOutput, EllipseShowsWhatIsSet)
{
    Ellipse ellipse;
    EXPECT_PRINTED(ellipse, "Ellipse()");
    ellipse.SetMinRadius(100.0);
    ellipse.SetMaxRadius(250.5);
    ellipse.SetRotation(30.0);
    EXPECT_PRINTED(ellipse, "Ellipse(minRadius: 100, maxRadius: 250.5, rotation: 30)");
}

TEST(QtOutput, ChannelSpacingShowsTheFirstSpacings)
{
    ChannelSpacing raster;
    EXPECT_PRINTED(raster, "ChannelSpacing()");
    raster.SetVisual(Text("Aero"));
    raster.SetSameDistance(false);
    raster.SetValues({8.25, 25.0});
    EXPECT_PRINTED(raster, "ChannelSpacing(visual: \"Aero\", sameDistance: false, values: 2 [8.25, 25])");
    raster.SetSameDistance(true);
    raster.SetValues({1, 2, 3, 4, 5});
    EXPECT_PRINTED(raster, "ChannelSpacing(visual: \"Aero\", sameDistance: true, "
                           "values: 5 [1, 2, 3, ... check sum de30a6d4])");
}

TEST(QtOutput, ScanParameterShowsWhatIsSet)
{
    ScanParameter scan;
    EXPECT_PRINTED(scan, "ScanParameter()");
    scan.GetFrequencyRange().SetStartFrequency(118.0);
    scan.SetStepFrequency(12.5);
    scan.SetDwellTime(0.25);
    scan.SetHoldTime(3.0);
    EXPECT_PRINTED(scan, "ScanParameter(FrequencyRangeOld(start: 118), step: 12.5, dwell: 0.25, hold: 3)");
}

TEST(QtOutput, MeasurementTimeShowsModeAndTime)
{
    MeasurementTime time;
    EXPECT_PRINTED(time, "MeasurementTime()");
    time.SetMeasurementMode(MeasurementTime::Periodic);
    time.GetMeasurementTime().SetValue(2.5);
    EXPECT_PRINTED(time, "MeasurementTime(mode: Periodic, Double(name: \"MeasurementTime\", value: 2.5))");
}

// --- Any object, services

TEST(QtOutput, AnObjectIsShownByItsOwnClass)
{
    const Area area = MakeArea(Text("Lake"), {{1, 2}});
    const Ellipse ellipse;
    const IRGObject& asObject = area;
    EXPECT_PRINTED(asObject, "Area(name: \"Lake\", coordinates: 1 [(1, 2)])");
    EXPECT_PRINTED(static_cast<const IRGObject&>(ellipse), "Ellipse()");
}

TEST(QtOutput, ObjectsOfOtherClassesAreShownByNameAndId)
{
    const Mission mission;
    const char* const expected = "IRGObject(name: \"Mission\", id: 4711)";
    EXPECT_TEXT(Debugged(mission), expected);
    EXPECT_EQ(testing::PrintToString(mission), expected);
    EXPECT_PRINTED(VersionConverterProxy(), "IRGObject(name: \"AnyType\", id: 80)");
}

TEST(QtOutput, RegisterCenterShowsItsObject)
{
    RegisterCenter center;
    EXPECT_PRINTED(center, "RegisterCenter()");
    center.RegisterInterface(new Ellipse);
    EXPECT_PRINTED(center, "RegisterCenter(Ellipse())");
}

TEST(QtOutput, LoggersSayWhetherThereWereErrors)
{
    EXPECT_TEXT(Debugged(QuietLogger(true)), "Logger(errors: true)");
    EXPECT_EQ(Streamed(QuietLogger(false)), "Logger(errors: false)");
}

// --- Exceptions

TEST(QtOutput, ExceptionsShowNameAndText)
{
    const RGException plain(Text("Say \"when\"."));
    EXPECT_TEXT(Debugged(plain), "RGException(\"Say \\\"when\\\".\")");
    EXPECT_EQ(Streamed(OutOfRangeException(Text("Z\u00fcrich"))), "OutOfRangeException(\"Z\u00fcrich\")");
    EXPECT_EQ(testing::PrintToString(InterfaceAlreadyRegisteredException(Text("x"))),
              "InterfaceAlreadyRegisteredException(\"x\")");
    EXPECT_EQ(Streamed(ReportException()), "ReportException(\"unknown error\")");
}

// --- Enumerations

TEST(QtOutput, EnumerationsShowTheirNames)
{
    EXPECT_PRINTED(AnyType, "AnyType");
    EXPECT_PRINTED(ERROR, "ERROR");
    EXPECT_PRINTED(WARNING, "WARNING");
    EXPECT_PRINTED(INFO, "INFO");
    EXPECT_PRINTED(TaskType::NG_Production, "NG_Production");
    EXPECT_PRINTED(MeasurementType::AMPos, "AM Pos");
    EXPECT_PRINTED(MeasurementType::SubSensorAMPos, "AM Pos");
    EXPECT_PRINTED(ResourceType::BaseIPCVoiceHF, "Base IPC Voice HF");
    EXPECT_PRINTED(MeasurementTime::Continuous, "Continuous");
    EXPECT_PRINTED(MeasurementTime::Periodic, "Periodic");
}

TEST(QtOutput, NumbersOutsideAnEnumerationAreShownAsNumbers)
{
    EXPECT_PRINTED(GetInValidObjectTypes(), "ObjectTypes(-1)");
    EXPECT_PRINTED(static_cast<LogLevel>(3), "LogLevel(3)");
    EXPECT_PRINTED(static_cast<LogLevel>(-1), "LogLevel(-1)");
    EXPECT_PRINTED(TaskType::GetInvalidTaskType(), "TaskTypeValue(-1)");
    EXPECT_PRINTED(MeasurementType::GetInvalidMeasurementType(), "MeasurementTypeValue(-1)");
    EXPECT_PRINTED(static_cast<MeasurementType::SubSensorTypeValue>(8), "SubSensorTypeValue(8)");
    EXPECT_PRINTED(static_cast<ResourceType::ResourceTypeValue>(51), "ResourceTypeValue(51)");
    EXPECT_PRINTED(MeasurementTime::GetInvalidMeasurementModeType(), "MeasurementModeType(-1)");
}

// --- Streams

TEST(QtOutput, QDebugGoesOnAsItWas)
{
    QString text;
    QDebug(&text) << "a" << Ellipse() << "b" << Text("quoted");
    EXPECT_TEXT(text, "a Ellipse() b \"quoted\" ");
}

TEST(QtOutput, StandardStreamsGoOnAsTheyWere)
{
    std::ostringstream stream;
    stream << std::hex << std::setw(40) << std::setfill('*') << Ellipse() << ' ' << 255;
    EXPECT_EQ(stream.str(), "Ellipse() ff");
}
