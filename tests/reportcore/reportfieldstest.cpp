#include "support/expect.h"

#include <reportgenerator/reflection/names.h>
#include <reportgenerator/reflection/reportfields.h>

#include <reportgenerator/reportbase/reportbase.h>
#include <reportgenerator/reportbase/rgexception.h>

#include <gtest/gtest.h>

#include <QtCore/QStringList>

#include <functional>
#include <limits>

namespace {

using ReportCore::Field;
using ReportCore::FieldPath;
using ReportCore::PathError;
using ReportCore::ReportInfo;
using REPORTGENERATOR::Coordinate;
using REPORTGENERATOR::ReportBase;

FieldPath Path(const char* text)
{
    return FieldPath::Parse(ReportInfo(), QLatin1String(text));
}

Coordinate Point(double longitude, double latitude)
{
    Coordinate point;
    point.SetLongitude(longitude);
    point.SetLatitude(latitude);
    return point;
}

/// A frequency without bounds and an area of two points; no IF bandwidth.
ReportBase LakeReport()
{
    ReportBase report;
    report.GetFrequency().SetValue(121500000.0);
    report.GetArea().SetName(QStringLiteral("Lake"));
    report.GetArea().AppendCoordinate(Point(9.5, 47.5));
    report.GetArea().AppendCoordinate(Point(9.75, 47.625));
    return report;
}

/// The text of the exception that `act` throws; a failed expectation if it throws none.
QString Refusal(const std::function<void()>& act)
{
    try {
        act();
    } catch (const RGException& exception) {
        return QStringLiteral("%1: %2").arg(exception.GetErrorName(), exception.GetErrorText());
    } catch (const PathError& error) {
        return error.text;
    }
    ADD_FAILURE() << "nothing was refused";
    return QString();
}

// --- Names

TEST(ReportFields, NamesFollowFromThoseOfTheSchemas)
{
    struct
    {
        const char* name;
        const char* key;
        const char* label;
        const char* wireLabel;
    } const rows[] = {{"Value", "value", "value", "value"},
                      {"IFBandwidth", "ifBandwidth", "IF bandwidth", "IF bandwidth"},
                      {"ScriptID", "scriptId", "script ID", "script identifier"},
                      {"FrequencyStep", "frequencyStep", "frequency step", "frequency step"},
                      {"IF", "if", "IF", "IF"},
                      {"X", "x", "x", "x"}};
    for (const auto& row : rows) {
        const QString name = QLatin1String(row.name);
        EXPECT_TEXT(ReportCore::KeyOf(name), row.key);
        EXPECT_TEXT(ReportCore::LabelOf(name), row.label);
        EXPECT_TEXT(ReportCore::WireLabelOf(name), row.wireLabel);
    }
}

TEST(ReportFields, ListIsNamedInTheSingularInPathsAndInThePluralInJson)
{
    const Field& list = *Path("area.coordinate").Last().field;
    EXPECT_TEXT(list.Name(), "coordinate");
    EXPECT_TEXT(list.Key(), "coordinates");
    EXPECT_TEXT(list.Label(), "coordinates");
    EXPECT_EQ(Path("area.coordinates[2]"), Path("area.coordinate[2]"));
}

// --- Paths

TEST(ReportFields, PathsAreReadAndWritten)
{
    for (const char* text :
         {"frequency", "frequency.value", "ifBandwidth.min", "area.scriptId", "area.version",
          "area.coordinate", "area.coordinate[17]", "area.coordinate[17].latitude"})
        EXPECT_TEXT(Path(text).Text(), text);
    EXPECT_EQ(Path("area.coordinate[17]").Last().index, 16);
}

TEST(ReportFields, HolderOfAnItemIsTheObjectWithTheList)
{
    EXPECT_TEXT(Path("area.coordinate[17].latitude").Parent().Text(), "area.coordinate[17]");
    EXPECT_TEXT(Path("area.coordinate[17]").Parent().Text(), "area");
    EXPECT_TEXT(Path("area").Parent().Text(), "");
}

TEST(ReportFields, PathIsAboveItselfAndWhatItHolds)
{
    EXPECT_TRUE(Path("area").IsAbove(Path("area.name")));
    EXPECT_TRUE(Path("area.coordinate").IsAbove(Path("area.coordinate[2].latitude")));
    EXPECT_TRUE(Path("area.name").IsAbove(Path("area.name")));
    EXPECT_FALSE(Path("area.coordinate[1]").IsAbove(Path("area.coordinate[2].latitude")));
    EXPECT_FALSE(Path("area.name").IsAbove(Path("area")));
    EXPECT_NE(Path("area.coordinate"), Path("area.coordinate[1]"));
}

TEST(ReportFields, WrongPathsAreRefusedInWords)
{
    struct
    {
        const char* path;
        const char* text;
    } const rows[] = {
        {"", ": no field is called \"\"; there are frequency, ifBandwidth, area"},
        {"frequency.valu",
         "frequency.valu: no field is called \"valu\", did you mean 'value'? There are min, max, use, value"},
        {"frequency.value.x", "frequency.value.x: frequency.value holds no fields"},
        {"area.coordinate.latitude", "area.coordinate.latitude: area.coordinate holds no fields"},
        {"area.coordinate[0]",
         "area.coordinate[0]: an item is named by its number from 1, as in coordinate[1]"},
        {"area.coordinate[x]",
         "area.coordinate[x]: an item is named by its number from 1, as in coordinate[1]"},
        {"area.coordinate[1",
         "area.coordinate[1: an item is named by its number from 1, as in coordinate[1]"},
        {"area.name[1]", "area.name[1]: name is no list"}};
    for (const auto& row : rows)
        EXPECT_TEXT(Refusal([&row] { Path(row.path); }), row.text);
}

// --- Looking

TEST(ReportFields, VisitGoesThroughAllFieldsInWritingOrder)
{
    QStringList paths;
    ReportCore::VisitFields(
        LakeReport(), ReportInfo(),
        [&paths](const FieldPath& path, const REPORTGENERATOR::IRGObject&) { paths << path.Text(); });
    EXPECT_TEXT(paths.join(QLatin1Char(' ')),
                "frequency frequency.min frequency.max frequency.use frequency.value ifBandwidth area "
                "area.version area.name area.coordinate "
                "area.coordinate[1] area.coordinate[1].longitude area.coordinate[1].latitude "
                "area.coordinate[2] area.coordinate[2].longitude area.coordinate[2].latitude area.scriptId");
}

TEST(ReportFields, ValuesAreThoseOfTheGetters)
{
    const ReportBase report = LakeReport();
    EXPECT_EQ(ReportCore::ValueAt(report, Path("frequency.value")), QVariant(121500000.0));
    EXPECT_EQ(ReportCore::ValueAt(report, Path("area.name")), QVariant(QStringLiteral("Lake")));
    EXPECT_EQ(ReportCore::ValueAt(report, Path("area.coordinate[2].latitude")), QVariant(47.625));
    for (const char* path : {"frequency.min", "ifBandwidth.value", "area.scriptId",
                             "area.coordinate[3].latitude", "area.version", "area"})
        EXPECT_FALSE(ReportCore::ValueAt(report, Path(path)).isValid()) << path;
}

TEST(ReportFields, WhatIsSetIsThatOfTheQueries)
{
    const ReportBase report = LakeReport();
    for (const char* path : {"frequency", "frequency.value", "area", "area.coordinate", "area.coordinate[2]"})
        EXPECT_TRUE(ReportCore::IsSet(report, Path(path))) << path;
    for (const char* path : {"ifBandwidth", "ifBandwidth.value", "frequency.use", "area.coordinate[3]"})
        EXPECT_FALSE(ReportCore::IsSet(report, Path(path))) << path;
}

TEST(ReportFields, LookingLeavesTheReportAsItIs)
{
    const ReportBase report;
    ReportCore::VisitFields(report, ReportInfo(),
                            [](const FieldPath& path, const REPORTGENERATOR::IRGObject& holder) {
                                path.Last().field->ValueIn(holder);
                            });
    EXPECT_FALSE(report.IsInitialized());
}

// --- Setting

TEST(ReportFields, SetValueSetsThatFieldOnly)
{
    ReportBase report = LakeReport();
    ReportCore::SetValue(report, Path("area.coordinate[2].latitude"), -12.25);
    ReportCore::SetValue(report, Path("frequency.use"), false);
    ReportCore::SetValue(report, Path("area.name"), QStringLiteral("Sea"));
    ReportBase expected = LakeReport();
    expected.GetArea().GetCoordinate()[1].SetLatitude(-12.25);
    expected.GetFrequency().SetUse(false);
    expected.GetArea().SetName(QStringLiteral("Sea"));
    EXPECT_EQ(report, expected);
    EXPECT_EQ(report.GetBinaryRepresentationAsQByteArray(), expected.GetBinaryRepresentationAsQByteArray());
}

TEST(ReportFields, SetValueLeavesCopiesAsTheyAre)
{
    ReportBase report = LakeReport();
    const ReportBase copy = report;
    ReportCore::SetValue(report, Path("area.coordinate[1].longitude"), 1.0);
    EXPECT_EQ(copy, LakeReport());
    EXPECT_NE(report, copy);
}

TEST(ReportFields, SetValueMakesTheMemberObject)
{
    ReportBase report;
    ReportCore::SetValue(report, Path("ifBandwidth.max"), 25000.0);
    EXPECT_TRUE(report.IsIFBandwidthSet());
    EXPECT_EQ(report.GetIFBandwidth().GetMax(), 25000.0);
    EXPECT_FALSE(report.GetIFBandwidth().IsValueSet());
    EXPECT_FALSE(report.IsFrequencySet());
}

TEST(ReportFields, SetterRefusesInItsOwnWordsAndNothingChanges)
{
    ReportBase report = LakeReport();
    EXPECT_TEXT(
        Refusal([&report] { ReportCore::SetValue(report, Path("area.coordinate[2].latitude"), 90.5); }),
        "OutOfRangeException: Parameters for m_latitude are not set within range (-90, 90) in 'Coordinate'.");
    EXPECT_TEXT(Refusal([&report] {
                    ReportCore::SetValue(report, Path("area.coordinate[2].longitude"),
                                         std::numeric_limits<double>::quiet_NaN());
                }),
                "OutOfRangeException: Parameters for m_longitude are not set within range (-180, 180) in "
                "'Coordinate'.");
    EXPECT_TEXT(Refusal([&report] { ReportCore::SetValue(report, Path("area.name"), QString()); }),
                "OutOfRangeException: Area: Please set Name properly (origin: Setter).");
    EXPECT_EQ(report, LakeReport());
}

TEST(ReportFields, WhatCannotBeSetIsRefused)
{
    ReportBase report = LakeReport();
    const auto refusal = [&report](const char* path, const QVariant& value) {
        return Refusal([&] { ReportCore::SetValue(report, Path(path), value); });
    };
    EXPECT_TEXT(refusal("area.version", QStringLiteral("1.0")), "RGException: version cannot be set");
    EXPECT_TEXT(refusal("area", QStringLiteral("x")), "RGException: area is no value");
    EXPECT_TEXT(refusal("area.coordinate[3].latitude", 1.0),
                "RGException: there is no area.coordinate[3].latitude");
    EXPECT_TEXT(refusal("frequency.value", QStringLiteral("1")),
                "RGException: value takes no value of this type");
    EXPECT_TEXT(refusal("area.name", 1.0), "RGException: name takes no value of this type");
    EXPECT_EQ(report, LakeReport());
}

TEST(ReportFields, TextsBecomeValues)
{
    const auto value = [](const char* path, const char* text) {
        return Path(path).Last().field->ValueOf(QLatin1String(text));
    };
    EXPECT_EQ(value("frequency.value", "121.5e6"), QVariant(121500000.0));
    EXPECT_EQ(value("frequency.use", "false"), QVariant(false));
    EXPECT_EQ(value("area.name", "121.5e6"), QVariant(QStringLiteral("121.5e6")));
    EXPECT_TEXT(Refusal([&value] { value("frequency.value", "121,5"); }),
                "RGException: value is a number, not \"121,5\"");
    EXPECT_TEXT(Refusal([&value] { value("frequency.use", "1"); }),
                "RGException: use is true or false, not \"1\"");
}

// --- Unsetting

TEST(ReportFields, UnsetTakesAwayValuesObjectsListsAndItems)
{
    ReportBase report = LakeReport();
    report.GetArea().SetScriptID(QStringLiteral("A1"));
    ReportCore::Unset(report, Path("area.scriptId"));
    EXPECT_EQ(report, LakeReport());
    ReportCore::Unset(report, Path("area.coordinate[1]"));
    ASSERT_EQ(std::as_const(report).GetArea().GetCoordinate().size(), 1);
    EXPECT_EQ(std::as_const(report).GetArea().GetCoordinate().at(0), Point(9.75, 47.625));
    ReportCore::Unset(report, Path("area.coordinate"));
    EXPECT_FALSE(std::as_const(report).GetArea().IsCoordinateSet());
    ReportCore::Unset(report, Path("frequency"));
    EXPECT_FALSE(report.IsFrequencySet());
}

TEST(ReportFields, UnsettingWhatIsNotThereMakesNothing)
{
    ReportBase report;
    ReportCore::Unset(report, Path("ifBandwidth.value"));
    ReportCore::Unset(report, Path("area.coordinate[1]"));
    EXPECT_FALSE(report.IsIFBandwidthSet());
    EXPECT_FALSE(report.IsAreaSet());
}

TEST(ReportFields, ItemsGoIntoListsAsAppendingAdmitsThem)
{
    ReportBase report = LakeReport();
    const FieldPath list = Path("area.coordinate");
    ReportCore::ChangeParent(report, list, [&list](REPORTGENERATOR::IRGObject& area) {
        list.Last().field->InsertIn(area, 1, Point(1.0, 2.0));
    });
    ASSERT_EQ(std::as_const(report).GetArea().GetCoordinate().size(), 3);
    EXPECT_EQ(std::as_const(report).GetArea().GetCoordinate().at(1), Point(1.0, 2.0));
    EXPECT_TEXT(Refusal([&] {
                    ReportCore::ChangeParent(report, list, [&list](REPORTGENERATOR::IRGObject& area) {
                        list.Last().field->InsertIn(area, 0, Coordinate());
                    });
                }),
                "IncompleteDefinitionException: Area: Tried to append not completely defined or invalid item "
                "Coordinate.");
    EXPECT_EQ(std::as_const(report).GetArea().GetCoordinate().size(), 3);
}

} // namespace
