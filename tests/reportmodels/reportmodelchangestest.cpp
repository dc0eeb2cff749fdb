// What changes a model's report, what refuses to, and what views are told of it.

#include "reportmodels/modelreports.h"
#include "reportmodels/watchedmodel.h"
#include "support/expect.h"

#include <gtest/gtest.h>

#include <QtCore/QPersistentModelIndex>

#include <functional>
#include <limits>
#include <random>
#include <vector>

namespace {

using REPORTGENERATOR::Area;
using REPORTGENERATOR::Coordinate;
using REPORTGENERATOR::ReportBase;
using REPORTGENERATOR::ReportModel;
using ReportModelsTest::PointOf;
using ReportModelsTest::RichReport;
using ReportModelsTest::WatchedModel;

const QVector<Coordinate>& PointsOf(const ReportModel& model)
{
    return model.Report().GetArea().GetCoordinate();
}

// --- Setting

TEST(ReportModelSetting, ValuesAreSetAsTheirOwnTypeAndAsTexts)
{
    WatchedModel watched{ReportBase()};
    ReportModel& model = watched.model;
    EXPECT_TRUE(model.setData(watched.At("frequency.value"), 1.5));
    EXPECT_TRUE(model.setData(watched.At("frequency.min"), QStringLiteral(" 121.5e6 ")));
    EXPECT_TRUE(model.setData(watched.At("frequency.max"), 7));
    EXPECT_TRUE(model.setData(watched.At("frequency.use"), QStringLiteral("false")));
    EXPECT_TRUE(model.setData(watched.At("ifBandwidth.value"), 2.5, ReportModel::ValueRole));
    EXPECT_TRUE(model.setData(watched.At("area.name"), QStringLiteral(" 1 ")));
    EXPECT_TRUE(model.setData(watched.At("area.scriptId"), QStringLiteral(""), ReportModel::ValueRole));

    ReportBase expected;
    expected.GetFrequency().SetValue(1.5);
    expected.GetFrequency().SetMin(121500000.0);
    expected.GetFrequency().SetMax(7.0);
    expected.GetFrequency().SetUse(false);
    expected.GetIFBandwidth().SetValue(2.5);
    expected.GetArea().SetName(QStringLiteral(" 1 "));
    expected.GetArea().SetScriptID(QStringLiteral(""));
    EXPECT_EQ(model.Report(), expected);
    EXPECT_TRUE(model.setData(watched.At("frequency.use"), true));
    EXPECT_TRUE(model.Report().GetFrequency().GetUse());
}

TEST(ReportModelSetting, ViewsAreToldOfTheField)
{
    WatchedModel watched{RichReport()};
    EXPECT_TRUE(watched.model.setData(watched.At("frequency.max"), 6.0));
    EXPECT_TEXT(watched.TakeSignals(), "dataChanged frequency.max\nReportChanged\n");
}

TEST(ReportModelSetting, ViewsAreToldOfAMemberThatComesIntoBeing)
{
    WatchedModel watched{ReportBase()};
    EXPECT_TRUE(watched.model.setData(watched.At("ifBandwidth.value"), 6.0));
    EXPECT_TEXT(watched.TakeSignals(), "dataChanged ifBandwidth\n"
                                       "dataChanged ifBandwidth.value to ifBandwidth.max\n"
                                       "ReportChanged\n");
}

TEST(ReportModelSetting, ViewsAreToldOfTheItemToo)
{
    WatchedModel watched{RichReport()};
    EXPECT_TRUE(watched.model.setData(watched.At("area.coordinate[2].latitude"), QStringLiteral("-12.25")));
    EXPECT_TEXT(watched.TakeSignals(), "dataChanged area.coordinate[2].latitude\n"
                                       "dataChanged area.coordinate[2]\n"
                                       "ReportChanged\n");
    EXPECT_EQ(PointsOf(watched.model).at(1), PointOf(9.5, -12.25));
}

TEST(ReportModelSetting, WhatIsSetAlreadyChangesNothing)
{
    ReportBase report = RichReport();
    report.GetArea().SetValidate(false);
    report.GetArea().SetScriptID(QString());
    report.GetArea().GetCoordinate()[0].SetValidate(false);
    report.GetArea().GetCoordinate()[0].SetLatitude(95.0);
    WatchedModel watched{report};
    for (const char* path : {"frequency.value", "frequency.use", "frequency.max", "ifBandwidth.min",
                             "area.name", "area.scriptId", "area.version", "area.coordinate[1].latitude"}) {
        const QModelIndex index = watched.At(path);
        EXPECT_TRUE(watched.model.setData(index, index.data(Qt::EditRole))) << path;
        EXPECT_TRUE(watched.model.setData(index, index.data(ReportModel::ValueRole), ReportModel::ValueRole))
            << path;
    }
    EXPECT_TRUE(watched.model.setData(watched.At("frequency.value"), 5));
    EXPECT_TEXT(watched.TakeSignals(), "");
}

TEST(ReportModelSetting, EmptyTextOfAnEditorUnsetsNumbersAndSwitches)
{
    WatchedModel watched{RichReport()};
    EXPECT_TRUE(watched.model.setData(watched.At("frequency.min"), QStringLiteral(" ")));
    EXPECT_TRUE(watched.model.setData(watched.At("frequency.use"), QString()));
    EXPECT_TRUE(watched.model.setData(watched.At("area.scriptId"), QStringLiteral("")));
    EXPECT_FALSE(watched.model.Report().GetFrequency().IsMinSet());
    EXPECT_FALSE(watched.model.Report().GetFrequency().IsUseSet());
    EXPECT_TRUE(watched.model.Report().GetArea().IsScriptIDSet());
    EXPECT_TEXT(watched.At("area.scriptId").data().toString(), "\"\"");
}

TEST(ReportModelSetting, EditorThatIsLeftChangesNothingThatIsNotSet)
{
    WatchedModel watched{ReportBase()};
    for (const char* path : {"frequency.value", "frequency.use", "area.name"})
        EXPECT_TRUE(watched.model.setData(watched.At(path), QStringLiteral(""))) << path;
    EXPECT_TEXT(watched.TakeSignals(), "");
    EXPECT_EQ(watched.model.Report(), ReportBase());
}

TEST(ReportModelSetting, InvalidValueUnsets)
{
    WatchedModel watched{RichReport()};
    EXPECT_TRUE(watched.model.setData(watched.At("frequency.min"), QVariant()));
    EXPECT_TRUE(watched.model.setData(watched.At("area.scriptId"), QVariant(), ReportModel::ValueRole));
    EXPECT_FALSE(watched.model.Report().GetFrequency().IsMinSet());
    EXPECT_FALSE(watched.model.Report().GetArea().IsScriptIDSet());
}

TEST(ReportModelSetting, RefusedInWordsWithNothingChanged)
{
    WatchedModel watched{RichReport()};
    struct
    {
        const char* path;
        QVariant value;
        int role;
        const char* text;
    } const rows[] = {
        {"area.coordinate[2].latitude", 90.5, Qt::EditRole,
         "Parameters for m_latitude are not set within range (-90, 90) in 'Coordinate'."},
        {"area.coordinate[2].latitude", std::numeric_limits<double>::quiet_NaN(), ReportModel::ValueRole,
         "Parameters for m_latitude are not set within range (-90, 90) in 'Coordinate'."},
        {"frequency.value", QStringLiteral("121,5"), Qt::EditRole, "value is a number, not \"121,5\""},
        {"frequency.use", QStringLiteral("1"), Qt::EditRole, "use is true or false, not \"1\""},
        {"frequency.value", true, Qt::EditRole, "value takes no value of this type"},
        {"frequency.value", QStringLiteral("5.5"), ReportModel::ValueRole,
         "value takes no value of this type"},
        {"area.name", 1.0, Qt::EditRole, "name takes no value of this type"},
        {"area.name", QString(), ReportModel::ValueRole, "Area: Please set Name properly (origin: Setter)."},
        {"area", QStringLiteral("x"), Qt::EditRole, "area is no value"},
        {"area.coordinate", 1.0, Qt::EditRole, "coordinate is no value"},
        {"area.coordinate[1]", QStringLiteral(""), Qt::EditRole, "coordinate is no value"},
        {"area.version", QStringLiteral("1.0"), Qt::EditRole, "version cannot be set"},
    };
    for (const auto& row : rows) {
        EXPECT_FALSE(watched.model.setData(watched.At(row.path), row.value, row.role)) << row.path;
        EXPECT_TEXT(
            watched.TakeSignals(),
            QStringLiteral("Refused at %1: %2\n").arg(QLatin1String(row.path), QLatin1String(row.text)));
    }
    EXPECT_FALSE(watched.model.setData(watched.NameAt("area.name"), QStringLiteral("x")));
    EXPECT_TEXT(watched.TakeSignals(), "Refused at area.name: the name of a field cannot be changed\n");
    EXPECT_EQ(watched.model.Report(), RichReport());
}

TEST(ReportModelSetting, ReportThatDoesNotValidateIsCheckedToo)
{
    ReportBase report = RichReport();
    report.SetValidate(false);
    WatchedModel watched{report};
    EXPECT_FALSE(watched.model.setData(watched.At("area.coordinate[1].longitude"), 180.5));
    EXPECT_TRUE(watched.model.setData(watched.At("area.coordinate[1].longitude"), 180.0));
    EXPECT_FALSE(watched.model.Report().GetValidate());
}

TEST(ReportModelSetting, OtherRolesAndNoIndexSetNothingWithoutAWord)
{
    WatchedModel watched{RichReport()};
    EXPECT_FALSE(watched.model.setData(watched.At("frequency.value"), 1.0, Qt::DisplayRole));
    EXPECT_FALSE(watched.model.setData(watched.At("frequency.value"), 1.0, ReportModel::IsSetRole));
    EXPECT_FALSE(watched.model.setData(QModelIndex(), 1.0));
    EXPECT_FALSE(watched.model.Unset(QModelIndex()));
    EXPECT_TEXT(watched.TakeSignals(), "");
}

// --- Unsetting

TEST(ReportModelUnsetting, TakesAwayValuesMembersListsAndItems)
{
    WatchedModel watched{RichReport()};
    EXPECT_TRUE(watched.model.Unset(watched.At("area.scriptId")));
    EXPECT_TEXT(watched.TakeSignals(), "dataChanged area.scriptId\nReportChanged\n");
    EXPECT_TRUE(watched.model.Unset(watched.NameAt("area.coordinate[1]")));
    EXPECT_TEXT(watched.TakeSignals(), "rowsRemoved area.coordinate 0-0\n"
                                       "dataChanged area.coordinate\n"
                                       "dataChanged area.coordinate[1]\n"
                                       "ReportChanged\n");
    EXPECT_TRUE(watched.model.Unset(watched.NameAt("area.coordinate")));
    EXPECT_TEXT(watched.TakeSignals(), "rowsRemoved area.coordinate 0-0\n"
                                       "dataChanged area.coordinate\n"
                                       "ReportChanged\n");
    EXPECT_FALSE(watched.model.Report().GetArea().IsCoordinateSet());
    EXPECT_TRUE(watched.model.Unset(watched.NameAt("frequency")));
    EXPECT_TEXT(watched.TakeSignals(), "dataChanged frequency\n"
                                       "dataChanged frequency.value to frequency.use\n"
                                       "ReportChanged\n");
    EXPECT_FALSE(watched.model.Report().IsFrequencySet());
}

TEST(ReportModelUnsetting, TakesAMemberAwayWithItsItems)
{
    WatchedModel watched{RichReport()};
    EXPECT_TRUE(watched.model.Unset(watched.NameAt("area")));
    EXPECT_TEXT(watched.TakeSignals(), "rowsRemoved area.coordinate 0-1\n"
                                       "dataChanged area\n"
                                       "dataChanged area.name to area.coordinate\n"
                                       "ReportChanged\n");
    EXPECT_FALSE(watched.model.Report().IsAreaSet());
}

TEST(ReportModelUnsetting, WhatIsNotSetStaysSo)
{
    WatchedModel watched{ReportBase()};
    for (const char* path : {"ifBandwidth", "ifBandwidth.value", "area.coordinate", "area.version"})
        EXPECT_TRUE(watched.model.Unset(watched.NameAt(path))) << path;
    EXPECT_TEXT(watched.TakeSignals(), "");
    EXPECT_FALSE(watched.model.Report().IsIFBandwidthSet());
}

TEST(ReportModelUnsetting, VersionStays)
{
    ReportBase report;
    ASSERT_TRUE(report.SetXmlString(
        QStringLiteral(
            "<ReportBase><Area Version=\"1.0\"><Name>Lake</Name><Coordinate><Longitude>1</Longitude>"
            "<Latitude>2</Latitude></Coordinate></Area></ReportBase>"),
        true));
    WatchedModel watched{report};
    EXPECT_TEXT(watched.At("area.version").data().toString(), "\"1.0\"");
    EXPECT_FALSE(watched.model.Unset(watched.NameAt("area.version")));
    EXPECT_TEXT(watched.TakeSignals(), "Refused at area.version: version cannot be unset\n");
}

// --- Items

TEST(ReportModelItems, NewItemIsACopyOfTheOneInFront)
{
    WatchedModel watched{RichReport()};
    const QModelIndex list = watched.NameAt("area.coordinate");
    EXPECT_TRUE(watched.model.AddItem(list, 1));
    EXPECT_TEXT(watched.TakeSignals(), "rowsInserted area.coordinate 1-1\n"
                                       "dataChanged area.coordinate\n"
                                       "dataChanged area.coordinate[3]\n"
                                       "ReportChanged\n");
    EXPECT_EQ(PointsOf(watched.model),
              (QVector<Coordinate>{PointOf(1.0, 2.0), PointOf(1.0, 2.0), PointOf(9.5, 47.25)}));
    EXPECT_TRUE(watched.model.AddItem(list, 3));
    EXPECT_TRUE(watched.model.AddItem(list, 0));
    EXPECT_EQ(PointsOf(watched.model),
              (QVector<Coordinate>{PointOf(1.0, 2.0), PointOf(1.0, 2.0), PointOf(1.0, 2.0),
                                   PointOf(9.5, 47.25), PointOf(9.5, 47.25)}));
}

TEST(ReportModelItems, FirstItemHasNoughtInItsMandatoryFields)
{
    WatchedModel watched{ReportBase()};
    EXPECT_TRUE(watched.model.AddItem(watched.At("area.coordinate"), 0));
    EXPECT_TEXT(watched.TakeSignals(), "rowsInserted area.coordinate 0-0\n"
                                       "dataChanged area\n"
                                       "dataChanged area.name to area.coordinate\n"
                                       "ReportChanged\n");
    EXPECT_TRUE(watched.model.Report().IsAreaSet());
    EXPECT_EQ(PointsOf(watched.model), QVector<Coordinate>{PointOf(0.0, 0.0)});
}

TEST(ReportModelItems, ItemIsMadeOfValues)
{
    WatchedModel watched{RichReport()};
    EXPECT_TRUE(watched.model.InsertItem(
        watched.NameAt("area.coordinate"), 1,
        {{QStringLiteral("longitude"), 3.5}, {QStringLiteral("latitude"), QStringLiteral("-4.5")}}));
    EXPECT_EQ(PointsOf(watched.model),
              (QVector<Coordinate>{PointOf(1.0, 2.0), PointOf(3.5, -4.5), PointOf(9.5, 47.25)}));
}

TEST(ReportModelItems, RowsAreInsertedAndRemovedTogether)
{
    WatchedModel watched{RichReport()};
    const QModelIndex list = watched.NameAt("area.coordinate");
    EXPECT_TRUE(watched.model.insertRows(2, 3, list));
    EXPECT_TEXT(watched.TakeSignals(), "rowsInserted area.coordinate 2-4\n"
                                       "dataChanged area.coordinate\n"
                                       "ReportChanged\n");
    EXPECT_EQ(PointsOf(watched.model).size(), 5);
    EXPECT_TRUE(watched.model.removeRows(1, 3, list));
    EXPECT_TEXT(watched.TakeSignals(), "rowsRemoved area.coordinate 1-3\n"
                                       "dataChanged area.coordinate\n"
                                       "dataChanged area.coordinate[2]\n"
                                       "ReportChanged\n");
    EXPECT_EQ(watched.model.Report(), RichReport());
    EXPECT_TRUE(watched.model.removeRow(0, list));
    EXPECT_TRUE(watched.model.removeRow(0, list));
    EXPECT_TRUE(watched.model.Report().GetArea().IsCoordinateSet());
    EXPECT_TEXT(watched.At("area.coordinate").data().toString(), "0 coordinates");
}

TEST(ReportModelItems, IndexesMoveWithTheirItems)
{
    WatchedModel watched{RichReport()};
    const QModelIndex list = watched.NameAt("area.coordinate");
    const QPersistentModelIndex item = watched.NameAt("area.coordinate[2]");
    const QPersistentModelIndex latitude = watched.At("area.coordinate[2].latitude");
    const auto latitudePath = [&] { return watched.model.PathOf(latitude); };
    EXPECT_TRUE(watched.model.insertRows(0, 2, list));
    EXPECT_TEXT(latitudePath(), "area.coordinate[4].latitude");
    EXPECT_EQ(latitude.parent(), item);
    EXPECT_EQ(latitude.data(ReportModel::ValueRole), QVariant(47.25));
    EXPECT_TRUE(watched.model.AddItem(list, 4));
    EXPECT_TEXT(latitudePath(), "area.coordinate[4].latitude");
    EXPECT_TRUE(watched.model.removeRows(1, 2, list));
    EXPECT_TEXT(latitudePath(), "area.coordinate[2].latitude");
    EXPECT_TRUE(watched.model.removeRows(1, 1, list));
    EXPECT_FALSE(latitude.isValid());
    EXPECT_FALSE(item.isValid());
}

TEST(ReportModelItems, RemovedItemIsTheOneThatWasNamedAmongEqualOnes)
{
    ReportBase report;
    report.GetArea().SetCoordinate(QVector<Coordinate>(3, PointOf(1.0, 2.0)));
    WatchedModel watched{report};
    const QPersistentModelIndex first = watched.NameAt("area.coordinate[1].latitude");
    const QPersistentModelIndex last = watched.NameAt("area.coordinate[3].latitude");
    EXPECT_TRUE(watched.model.removeRow(0, watched.NameAt("area.coordinate")));
    EXPECT_FALSE(first.isValid());
    EXPECT_TEXT(watched.model.PathOf(last), "area.coordinate[2].latitude");
}

TEST(ReportModelItems, RefusedInWordsWithNothingChanged)
{
    WatchedModel watched{RichReport()};
    ReportModel& model = watched.model;
    const QModelIndex list = watched.NameAt("area.coordinate");
    const QVariantMap halfAPoint = {{QStringLiteral("longitude"), 1.0}};
    const QVariantMap outOfRange = {{QStringLiteral("longitude"), 1.0}, {QStringLiteral("latitude"), 91.0}};
    const QVariantMap tooMuch = {{QStringLiteral("height"), 1.0}};
    struct
    {
        std::function<bool()> change;
        const char* refusal;
    } const rows[] = {
        {[&] { return model.AddItem(list, 3); }, "area.coordinate: area.coordinate has 2 coordinates"},
        {[&] { return model.AddItem(list, -1); }, "area.coordinate: area.coordinate has 2 coordinates"},
        {[&] { return model.insertRows(0, 0, list); }, "area.coordinate: area.coordinate has 2 coordinates"},
        {[&] { return model.removeRows(1, 2, list); }, "area.coordinate: area.coordinate has 2 coordinates"},
        {[&] { return model.removeRows(-1, 1, list); }, "area.coordinate: area.coordinate has 2 coordinates"},
        {[&] { return model.AddItem(watched.NameAt("area"), 0); }, "area: area is no list"},
        {[&] { return model.AddItem(watched.NameAt("area.coordinate[1]"), 0); },
         "area.coordinate[1]: area.coordinate[1] is no list"},
        {[&] { return model.removeRow(0); }, "the report: the report itself is no list"},
        {[&] { return model.removeRow(0, watched.NameAt("frequency")); }, "frequency: frequency is no list"},
        {[&] { return model.InsertItem(list, 0, halfAPoint); },
         "area.coordinate: Area: Tried to append not completely defined or invalid item Coordinate."},
        {[&] { return model.InsertItem(list, 0, outOfRange); },
         "area.coordinate: Parameters for m_latitude are not set within range (-90, 90) in 'Coordinate'."},
        {[&] { return model.InsertItem(list, 0, tooMuch); },
         "area.coordinate: coordinate has no field \"height\""},
    };
    for (const auto& row : rows) {
        EXPECT_FALSE(row.change()) << row.refusal;
        EXPECT_TEXT(watched.TakeSignals(), QStringLiteral("Refused at %1\n").arg(QLatin1String(row.refusal)));
    }
    EXPECT_EQ(model.Report(), RichReport());
}

TEST(ReportModelItems, CopyOfAnIncompleteItemIsRefused)
{
    ReportBase report;
    report.GetArea().SetCoordinate({Coordinate()});
    WatchedModel watched{report};
    EXPECT_FALSE(watched.model.AddItem(watched.NameAt("area.coordinate"), 1));
    EXPECT_TEXT(watched.TakeSignals(),
                "Refused at area.coordinate: Area: Tried to append not completely defined or invalid item "
                "Coordinate.\n");
}

// --- Another report in place of the present one

TEST(ReportModelUndoing, ReportFromBeforeIsPutBackExactly)
{
    ReportBase before = RichReport();
    before.GetArea().GetCoordinate()[0].SetValidate(false);
    before.GetArea().GetCoordinate()[0].SetLatitude(95.0); // which no setter would put back
    WatchedModel watched{before};
    const QString shown = watched.Shown();
    const ReportBase kept = watched.model.Report();
    const QPersistentModelIndex index = watched.NameAt("area.coordinate[2].latitude");
    EXPECT_TRUE(watched.model.setData(watched.At("area.coordinate[1].latitude"), 9.0));
    EXPECT_TRUE(watched.model.Unset(watched.NameAt("ifBandwidth")));
    EXPECT_TRUE(watched.model.removeRow(0, watched.NameAt("area.coordinate")));
    watched.TakeSignals();
    watched.model.SetReadOnly(true);
    watched.model.ChangeReport(kept);
    EXPECT_TEXT(watched.TakeSignals(), "rowsInserted area.coordinate 0-0\n"
                                       "dataChanged ifBandwidth\n"
                                       "dataChanged ifBandwidth.value to ifBandwidth.max\n"
                                       "dataChanged area.coordinate\n"
                                       "dataChanged area.coordinate[2]\n"
                                       "ReportChanged\n");
    EXPECT_TEXT(watched.Shown(), shown.toUtf8().constData());
    EXPECT_TEXT(watched.model.PathOf(index), "area.coordinate[2].latitude");
    EXPECT_EQ(watched.model.Report(), before);
}

TEST(ReportModelUndoing, ItemsInTheMiddleAreComparedFromBothEnds)
{
    ReportBase report;
    for (const double longitude : {1.0, 2.0, 3.0, 4.0})
        report.GetArea().AppendCoordinate(PointOf(longitude, 0.0));
    WatchedModel watched{report};
    const QPersistentModelIndex latitude = watched.NameAt("area.coordinate[4].latitude");
    const QPersistentModelIndex longitude = watched.NameAt("area.coordinate[2].longitude");
    ReportBase changed = report;
    changed.GetArea().SetCoordinate({PointOf(1.0, 0.0), PointOf(7.0, 0.0), PointOf(4.0, 0.0)});
    watched.model.ChangeReport(changed);
    EXPECT_TEXT(watched.TakeSignals(), "rowsRemoved area.coordinate 2-2\n"
                                       "dataChanged area.coordinate\n"
                                       "dataChanged area.coordinate[2].longitude\n"
                                       "dataChanged area.coordinate[2] to area.coordinate[3]\n"
                                       "ReportChanged\n");
    EXPECT_TEXT(watched.model.PathOf(latitude), "area.coordinate[3].latitude");
    EXPECT_TEXT(watched.model.PathOf(longitude), "area.coordinate[2].longitude");
}

TEST(ReportModelUndoing, SameReportTellsNothing)
{
    WatchedModel watched{RichReport()};
    watched.model.ChangeReport(RichReport());
    watched.model.ChangeReport(ReportBase(watched.model.Report()));
    EXPECT_TEXT(watched.TakeSignals(), "");
}

TEST(ReportModelUndoing, ListThatIsSetWithoutItemsIsAnotherThanNone)
{
    ReportBase report = RichReport();
    report.GetArea().SetCoordinate({});
    WatchedModel watched{report};
    ReportBase changed = report;
    changed.GetArea().ResetCoordinate();
    watched.model.ChangeReport(changed);
    EXPECT_TEXT(watched.TakeSignals(), "dataChanged area.coordinate\nReportChanged\n");
    EXPECT_TEXT(watched.At("area.coordinate").data().toString(), "not set");
}

/// What a view remembers of a row, and learns of anew only when it is told to.
struct RememberedRow
{
    QStringList texts;
    std::vector<RememberedRow> below;
};

class RememberingView
{
public:
    explicit RememberingView(const ReportModel& model) : m_model(model)
    {
        m_root.below = Read(QModelIndex(), 0, model.rowCount() - 1);
        QObject::connect(&model, &ReportModel::rowsInserted, &m_context,
                         [this](const QModelIndex& parent, int first, int last) {
                             auto& rows = At(parent).below;
                             auto read = Read(parent, first, last);
                             rows.insert(rows.begin() + first, read.begin(), read.end());
                         });
        QObject::connect(&model, &ReportModel::rowsRemoved, &m_context,
                         [this](const QModelIndex& parent, int first, int last) {
                             auto& rows = At(parent).below;
                             rows.erase(rows.begin() + first, rows.begin() + last + 1);
                         });
        QObject::connect(&model, &ReportModel::dataChanged, &m_context,
                         [this](const QModelIndex& first, const QModelIndex& last) {
                             for (int row = first.row(); row <= last.row(); ++row)
                                 At(first.sibling(row, 0)).texts = Texts(first.sibling(row, 0));
                         });
    }

    QString Text() const { return TextBelow(m_root); }
    static QString TextBelow(const RememberedRow& row)
    {
        QString text;
        for (const RememberedRow& below : row.below)
            text += below.texts.join(QLatin1Char('|')) + QLatin1Char('\n') + TextBelow(below);
        return text;
    }

private:
    static QStringList Texts(const QModelIndex& name)
    {
        const QModelIndex value = name.siblingAtColumn(ReportModel::ValueColumn);
        return {name.data().toString(), value.data().toString(), value.data(Qt::EditRole).toString(),
                value.data(ReportModel::IsSetRole).toString(),
                value.data(ReportModel::ComplaintRole).toString()};
    }

    std::vector<RememberedRow> Read(const QModelIndex& parent, int first, int last) const
    {
        std::vector<RememberedRow> rows;
        for (int row = first; row <= last; ++row) {
            const QModelIndex index = m_model.index(row, 0, parent);
            rows.push_back({Texts(index), Read(index, 0, m_model.rowCount(index) - 1)});
        }
        return rows;
    }

    RememberedRow& At(const QModelIndex& index)
    {
        return index.isValid() ? At(index.parent()).below.at(static_cast<std::size_t>(index.row())) : m_root;
    }

    const ReportModel& m_model;
    RememberedRow m_root;
    QObject m_context;
};

/// A report of few different values, so that much is the same in two of them.
ReportBase SomeReport(std::mt19937& random)
{
    const auto some = [&random](int count) {
        return static_cast<int>(random() % static_cast<unsigned>(count));
    };
    ReportBase report;
    report.SetValidate(false);
    if (some(3) > 0) {
        report.GetFrequency().SetValidate(false);
        if (some(2) > 0)
            report.GetFrequency().SetValue(some(2));
        if (some(2) > 0)
            report.GetFrequency().SetUse(some(2) > 0);
    }
    if (some(2) > 0)
        report.GetIFBandwidth().SetMax(some(2));
    if (some(4) > 0) {
        Area& area = report.GetArea();
        area.SetValidate(false);
        if (some(3) > 0)
            area.SetName(some(2) > 0 ? QStringLiteral("Lake") : QString());
        if (some(4) > 0) {
            QVector<Coordinate> points;
            for (int i = some(7); i > 0; --i) {
                Coordinate point;
                point.SetValidate(false);
                if (some(4) > 0)
                    point.SetLongitude(some(2) * 100.0);
                if (some(4) > 0)
                    point.SetLatitude(some(2) * 100.0);
                points.append(point);
            }
            area.SetCoordinate(points);
        }
    }
    return report;
}

TEST(ReportModelUndoing, ViewThatIsToldOfEveryDifferenceShowsAnyReport)
{
    std::mt19937 random(1); // NOLINT: the same walk each time
    WatchedModel watched{ReportBase()};
    const RememberingView view(watched.model);
    for (int i = 0; i < 300; ++i) {
        const ReportBase report = SomeReport(random);
        watched.model.ChangeReport(report);
        ReportModel fresh;
        fresh.SetReport(report);
        EXPECT_TEXT(view.Text(), RememberingView(fresh).Text());
        if (HasFailure())
            return;
    }
}

TEST(ReportModelUndoing, ViewThatIsToldOfEveryChangeShowsTheReport)
{
    std::mt19937 random(2); // NOLINT: the same walk each time
    const auto some = [&random](int count) {
        return static_cast<int>(random() % static_cast<unsigned>(count));
    };
    WatchedModel watched{RichReport()};
    ReportModel& model = watched.model;
    const RememberingView view(model);
    const char* const fields[] = {"frequency.value",
                                  "ifBandwidth.min",
                                  "area.name",
                                  "area.coordinate[1].latitude",
                                  "area.coordinate[2].longitude",
                                  "frequency",
                                  "area",
                                  "area.coordinate"};
    for (int i = 0; i < 300; ++i) {
        const QModelIndex field = watched.At(fields[some(8)]);
        const QModelIndex list = watched.NameAt("area.coordinate");
        switch (some(6)) {
        case 0:
        case 1:
            model.setData(field, QString::number(some(100)));
            break;
        case 2:
            model.Unset(field);
            break;
        case 3:
        case 4:
            model.insertRows(some(4), 1 + some(2), list);
            break;
        default:
            model.removeRows(some(3), 1, list);
        }
        ReportModel fresh;
        fresh.SetReport(model.Report());
        EXPECT_TEXT(view.Text(), RememberingView(fresh).Text());
        if (HasFailure())
            return;
    }
}

// --- Signals

TEST(ReportModelSignals, ReportMayBeReplacedByWhoIsToldOfRows)
{
    for (const bool isReset : {false, true}) {
        WatchedModel watched{RichReport()};
        ReportModel& model = watched.model;
        watched.At("area.coordinate[2].latitude");
        bool isFirst = true;
        QObject::connect(&model, &ReportModel::rowsInserted, &model, [&] {
            if (!isFirst)
                return;
            isFirst = false;
            if (isReset)
                model.SetReport(ReportBase());
            else
                model.ChangeReport(ReportBase());
        });
        ReportBase changed = RichReport();
        changed.GetArea().SetCoordinate({PointOf(9.0, 9.0), PointOf(9.5, 9.5), PointOf(1.0, 1.0)});
        model.ChangeReport(changed);
        EXPECT_EQ(model.Report(), ReportBase());
        EXPECT_TEXT(watched.Shown(), WatchedModel(ReportBase()).Shown());
    }
}

TEST(ReportModelSignals, ReportMayBeChangedByWhoIsToldOfAChange)
{
    WatchedModel watched{RichReport()};
    ReportModel& model = watched.model;
    bool isFirst = true;
    QObject::connect(&model, &ReportModel::dataChanged, &model, [&] {
        if (isFirst) {
            isFirst = false;
            EXPECT_TRUE(model.Unset(model.IndexOf(QStringLiteral("area.coordinate"))));
        }
    });
    ReportBase changed = RichReport();
    changed.GetFrequency().SetMax(1.0);
    changed.GetArea().GetCoordinate()[1].SetLatitude(1.0);
    watched.At("area.coordinate[2].latitude");
    model.ChangeReport(changed);
    EXPECT_FALSE(model.Report().GetArea().IsCoordinateSet());
    EXPECT_EQ(model.Report().GetFrequency().GetMax(), 1.0);
    EXPECT_EQ(model.rowCount(model.IndexOf(QStringLiteral("area.coordinate"))), 0);
}

} // namespace
