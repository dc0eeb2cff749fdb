// What a view sees of a report.

#include "reportmodels/modelreports.h"
#include "reportmodels/watchedmodel.h"
#include "support/expect.h"
#include "support/vectors.h"

#include <gtest/gtest.h>

#include <QtCore/QDir>
#include <QtCore/QStringList>

#include <functional>
#include <limits>

namespace {

using REPORTGENERATOR::ReportBase;
using REPORTGENERATOR::ReportModel;
using ReportModelsTest::RichReport;
using ReportModelsTest::WatchedModel;

TEST(ReportModel, IsWatchedByQtsOwnTesterOfModels)
{
    if (!WatchedModel::CanBeTested())
        GTEST_SKIP() << "this build has no Qt Test, so nobody but these tests watches the models";
    EXPECT_TRUE(WatchedModel(RichReport()).IsTested());
    EXPECT_FALSE(WatchedModel(RichReport(), ReportModelsTest::Tester::StaysAway).IsTested());
}

TEST(ReportModel, EmptyReportShowsAllFieldsAsNotSet)
{
    const WatchedModel watched{ReportBase()};
    EXPECT_TEXT(watched.Shown(), "frequency | not set\n"
                                 "  value | not set\n"
                                 "  min | not set\n"
                                 "  max | not set\n"
                                 "  use | not set\n"
                                 "IF bandwidth | not set\n"
                                 "  value | not set\n"
                                 "  min | not set\n"
                                 "  max | not set\n"
                                 "area | not set\n"
                                 "  name | not set\n"
                                 "  version | not set\n"
                                 "  script ID | not set\n"
                                 "  coordinates | not set\n");
}

TEST(ReportModel, ReportShowsItsFieldsInReadingOrder)
{
    const WatchedModel watched{RichReport()};
    EXPECT_TEXT(watched.Shown(), "frequency | \n"
                                 "  value | 5\n"
                                 "  min | -0.125\n"
                                 "  max | not set\n"
                                 "  use | true\n"
                                 "IF bandwidth | \n"
                                 "  value | 6\n"
                                 "  min | not set\n"
                                 "  max | not set\n"
                                 "area | \n"
                                 "  name | \"Lake\"\n"
                                 "  version | not set\n"
                                 "  script ID | \"A\\n1\"\n"
                                 "  coordinates | 2 coordinates\n"
                                 "    coordinate 1 | 1 2\n"
                                 "      longitude | 1\n"
                                 "      latitude | 2\n"
                                 "    coordinate 2 | 9.5 47.25\n"
                                 "      longitude | 9.5\n"
                                 "      latitude | 47.25\n");
}

TEST(ReportModel, MembersThatAreNotCarriedShowNothingOfWhatTheyHold)
{
    const WatchedModel watched{Support::ReportWithFlags(0)};
    EXPECT_TEXT(watched.Shown(), WatchedModel(ReportBase()).Shown());
}

TEST(ReportModel, NewModelShowsAReportThatCarriesNothingAndIsReadOnly)
{
    const ReportModel model;
    EXPECT_TRUE(model.IsReadOnly());
    EXPECT_EQ(model.Report(), ReportBase());
    EXPECT_EQ(model.rowCount(), 3);
    EXPECT_EQ(model.columnCount(), 2);
}

TEST(ReportModel, ColumnsHaveTitles)
{
    const ReportModel model;
    EXPECT_TEXT(model.headerData(0, Qt::Horizontal).toString(), "Field");
    EXPECT_TEXT(model.headerData(1, Qt::Horizontal).toString(), "Value");
    EXPECT_FALSE(model.headerData(2, Qt::Horizontal).isValid());
    EXPECT_FALSE(model.headerData(0, Qt::Horizontal, Qt::DecorationRole).isValid());
}

// --- Roles

TEST(ReportModel, RolesTellOfBothColumns)
{
    const WatchedModel watched{RichReport()};
    struct
    {
        const char* path;
        bool isSet;
        bool isObject;
        QVariant value;
        QVariant edited;
    } const rows[] = {
        {"frequency", true, true, QVariant(), QVariant()},
        {"frequency.min", true, false, -0.125, QStringLiteral("-0.125")},
        {"frequency.max", false, false, QVariant(), QVariant()},
        {"frequency.use", true, false, true, true},
        {"area.name", true, false, QStringLiteral("Lake"), QStringLiteral("Lake")},
        {"area.version", false, false, QVariant(), QVariant()},
        {"area.coordinate", true, true, QVariant(), QVariant()},
        {"area.coordinate[2]", true, true, QVariant(), QVariant()},
        {"area.coordinate[2].latitude", true, false, 47.25, QStringLiteral("47.25")},
    };
    for (const auto& row : rows) {
        for (const QModelIndex& index : {watched.NameAt(row.path), watched.At(row.path)}) {
            EXPECT_TEXT(index.data(ReportModel::PathRole).toString(), row.path);
            EXPECT_EQ(index.data(ReportModel::IsSetRole), QVariant(row.isSet)) << row.path;
            EXPECT_EQ(index.data(ReportModel::IsObjectRole), QVariant(row.isObject)) << row.path;
            EXPECT_EQ(index.data(ReportModel::ValueRole), row.value) << row.path;
            EXPECT_TEXT(index.data(ReportModel::ComplaintRole).toString(), "");
            EXPECT_FALSE(index.data(Qt::ToolTipRole).isValid()) << row.path;
        }
        EXPECT_EQ(watched.At(row.path).data(Qt::EditRole), row.edited) << row.path;
    }
}

TEST(ReportModel, RolesHaveNames)
{
    const QHash<int, QByteArray> names = ReportModel().roleNames();
    EXPECT_EQ(names.value(Qt::DisplayRole), "display");
    EXPECT_EQ(names.value(ReportModel::PathRole), "path");
    EXPECT_EQ(names.value(ReportModel::IsSetRole), "isSet");
    EXPECT_EQ(names.value(ReportModel::ComplaintRole), "complaint");
    EXPECT_EQ(names.value(ReportModel::IsObjectRole), "isObject");
    EXPECT_EQ(names.value(ReportModel::ValueRole), "value");
}

TEST(ReportModel, EditorsBeginWithNumbersThatReadBackAsTheSame)
{
    ReportBase report;
    for (const double number : {0.1, 1.0 / 3.0, 121500000.0, 5e-324, std::numeric_limits<double>::max()}) {
        report.GetFrequency().SetValue(number);
        const WatchedModel watched(report);
        const QVariant edited = watched.At("frequency.value").data(Qt::EditRole);
        ASSERT_EQ(edited.userType(), static_cast<int>(QMetaType::QString));
        EXPECT_EQ(edited.toString().toDouble(), number);
    }
}

TEST(ReportModel, ComplaintIsThatOfTheCheckOfTheFieldsOwnObject)
{
    ReportBase report;
    report.SetValidate(false);
    report.GetFrequency().SetMin(1.0);
    report.GetArea().SetValidate(false);
    report.GetArea().SetName(QString());
    REPORTGENERATOR::Coordinate point;
    point.SetValidate(false);
    point.SetLongitude(181.0);
    report.GetArea().AppendCoordinate(point);
    const WatchedModel watched{report};
    struct
    {
        const char* path;
        const char* complaint;
    } const rows[] = {
        {"frequency", ""},
        {"frequency.value", "Frequency: Please set Value properly."},
        {"frequency.min", ""},
        {"ifBandwidth.value", ""}, // the report does not carry it
        {"area.name", "Area: Please set Name properly."},
        {"area.scriptId", ""},
        {"area.coordinate", ""},
        {"area.coordinate[1]", ""},
        {"area.coordinate[1].longitude", "Coordinate: Please set Longitude properly."},
        {"area.coordinate[1].latitude", "Coordinate: Please set Latitude properly."},
    };
    for (const auto& row : rows) {
        EXPECT_TEXT(watched.NameAt(row.path).data(ReportModel::ComplaintRole).toString(), row.complaint);
        EXPECT_TEXT(watched.At(row.path).data(Qt::ToolTipRole).toString(), row.complaint);
    }

    report.GetArea().ResetCoordinate();
    const WatchedModel withoutPoints{report};
    EXPECT_TEXT(withoutPoints.At("area.coordinate").data(ReportModel::ComplaintRole).toString(),
                "Area: Please set Coordinate properly.");
}

// --- Paths

void ExpectPathsLeadBack(const ReportModel& model, const QModelIndex& parent)
{
    for (int row = 0; row < model.rowCount(parent); ++row) {
        for (int column = 0; column < model.columnCount(parent); ++column) {
            const QModelIndex index = model.index(row, column, parent);
            EXPECT_EQ(model.IndexOf(model.PathOf(index), column), index) << qPrintable(model.PathOf(index));
        }
        ExpectPathsLeadBack(model, model.index(row, 0, parent));
    }
}

TEST(ReportModel, EveryRowIsFoundByItsPath)
{
    const WatchedModel watched{RichReport()};
    ExpectPathsLeadBack(watched.model, QModelIndex());
}

TEST(ReportModel, PathsThatLeadNowhereHaveNoIndex)
{
    const WatchedModel watched{RichReport()};
    for (const char* path : {"", "frequency.valu", "area.coordinate[0]", "area.coordinate[3]",
                             "area.coordinate[3].latitude", "area.coordinate.latitude", "area.name.x"})
        EXPECT_FALSE(watched.NameAt(path).isValid()) << path;
    EXPECT_FALSE(watched.model.IndexOf(QStringLiteral("area"), 2).isValid());
    EXPECT_FALSE(watched.model.IndexOf(QStringLiteral("area"), -1).isValid());
    EXPECT_TEXT(watched.model.PathOf(QModelIndex()), "");
}

TEST(ReportModel, FieldsOfMembersThatAreNotCarriedAreFound)
{
    const WatchedModel watched{ReportBase()};
    EXPECT_TRUE(watched.NameAt("ifBandwidth.value").isValid());
    EXPECT_FALSE(watched.NameAt("area.coordinate[1]").isValid());
}

// --- The report

TEST(ReportModel, ReportIsACopy)
{
    ReportBase report = RichReport();
    WatchedModel watched{report};
    report.GetArea().SetName(QStringLiteral("Sea"));
    EXPECT_EQ(watched.model.Report(), RichReport());
    const ReportBase kept = watched.model.Report();
    EXPECT_TRUE(watched.model.Unset(watched.NameAt("area")));
    EXPECT_EQ(kept, RichReport());
    EXPECT_FALSE(watched.model.Report().IsAreaSet());
}

TEST(ReportModel, SetReportResets)
{
    WatchedModel watched{ReportBase()};
    const QPersistentModelIndex index = watched.NameAt("area.name");
    watched.model.SetReport(RichReport());
    EXPECT_TEXT(watched.TakeSignals(), "modelReset\n");
    EXPECT_FALSE(index.isValid());
    EXPECT_TEXT(watched.Shown(), WatchedModel(RichReport()).Shown());
}

TEST(ReportModel, LookingLeavesTheReportAsItIs)
{
    const WatchedModel watched{ReportBase()};
    watched.Shown();
    EXPECT_FALSE(watched.model.Report().IsInitialized());
}

TEST(ReportModel, GoldenReportsAreShown)
{
    QStringList shown;
    for (const QString& file : QDir(QStringLiteral(REPORTGENERATOR_TEST_VECTORS "/reportbase"))
                                   .entryList({QStringLiteral("*.xml")})) {
        ReportBase report;
        report.SetValidate(false);
        report.SetXmlString(Support::LoadXmlVector(QStringLiteral("reportbase/") + file), true);
        const WatchedModel watched(report);
        ExpectPathsLeadBack(watched.model, QModelIndex());
        shown << file + QLatin1Char('\n') + watched.Shown();
    }
    ASSERT_EQ(shown.size(), 5);
    EXPECT_TEXT(shown.at(1).left(16), "children_without");
}

TEST(ReportModel, ManyCoordinatesAreFoundAndShown)
{
    constexpr int COUNT = 200000;
    ReportBase report;
    QVector<REPORTGENERATOR::Coordinate> points;
    for (int i = 0; i < COUNT; ++i)
        points.append(ReportModelsTest::PointOf(i / 2000.0, 1.0));
    report.GetArea().SetCoordinate(points);
    WatchedModel watched(report, ReportModelsTest::Tester::StaysAway);
    EXPECT_EQ(watched.model.rowCount(watched.NameAt("area.coordinate")), COUNT);
    EXPECT_TEXT(watched.At("area.coordinate[200000]").data().toString(), "99.9995 1");
    EXPECT_TEXT(watched.NameAt("area.coordinate[200000]").data().toString(), "coordinate 200000");
    EXPECT_FALSE(watched.NameAt("area.coordinate[200001]").isValid());
    EXPECT_TRUE(watched.model.setData(watched.At("area.coordinate[150000].latitude"), 2.0));
    EXPECT_TEXT(watched.At("area.coordinate[150000]").data().toString(), "74.9995 2");
    EXPECT_TRUE(watched.model.removeRows(0, COUNT - 1, watched.NameAt("area.coordinate")));
    EXPECT_TEXT(watched.At("area.coordinate").data().toString(), "1 coordinate");
    EXPECT_TEXT(watched.At("area.coordinate[1]").data().toString(), "99.9995 1");
}

// --- Read-only

TEST(ReportModel, ValuesCanBeEditedUnlessTheModelIsReadOnly)
{
    WatchedModel watched{RichReport()};
    const auto isEditable = [&watched](const QModelIndex& index) {
        return watched.model.flags(index).testFlag(Qt::ItemIsEditable);
    };
    for (const char* path :
         {"frequency.value", "ifBandwidth.max", "area.name", "area.coordinate[1].latitude"}) {
        EXPECT_TRUE(isEditable(watched.At(path))) << path;
        EXPECT_FALSE(isEditable(watched.NameAt(path))) << path;
    }
    for (const char* path : {"frequency", "area.version", "area.coordinate", "area.coordinate[1]"})
        EXPECT_FALSE(isEditable(watched.At(path))) << path;
    watched.model.SetReadOnly(true);
    EXPECT_FALSE(isEditable(watched.At("frequency.value")));
    EXPECT_TRUE(watched.model.flags(watched.At("frequency.value")).testFlag(Qt::ItemIsEnabled));
    EXPECT_TRUE(watched.model.flags(watched.At("frequency.value")).testFlag(Qt::ItemIsSelectable));
}

TEST(ReportModel, ReadOnlyModelRefusesEveryChange)
{
    WatchedModel watched{RichReport()};
    watched.model.SetReadOnly(true);
    ReportModel& model = watched.model;
    const QModelIndex list = watched.NameAt("area.coordinate");
    EXPECT_FALSE(model.setData(watched.At("frequency.value"), 1.0));
    EXPECT_TEXT(watched.TakeSignals(), "Refused at frequency.value: the report is read-only\n");
    EXPECT_FALSE(model.Unset(watched.NameAt("area")));
    EXPECT_TEXT(watched.TakeSignals(), "Refused at area: the report is read-only\n");
    const std::function<bool()> changes[] = {
        [&] { return model.AddItem(list, 0); }, [&] { return model.InsertItem(list, 0, {}); },
        [&] { return model.insertRows(0, 1, list); }, [&] { return model.removeRows(0, 1, list); }};
    for (const auto& change : changes) {
        EXPECT_FALSE(change());
        EXPECT_TEXT(watched.TakeSignals(), "Refused at area.coordinate: the report is read-only\n");
    }
    EXPECT_EQ(model.Report(), RichReport());
}

} // namespace
