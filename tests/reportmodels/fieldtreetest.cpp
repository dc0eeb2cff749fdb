// The rows behind a model, and those of a class that only the tests know: what its description says shows up without
// another line.

#include "reportmodels/modelreports.h"
#include "support/expect.h"

#include <reportgenerator/models/tree/treechanges.h>

#include <reportgenerator/reflection/reportfields.h>
#include <reportgenerator/reflection/schemafields.h>

#include <reportgenerator/reportbase/schema/areaschema.h>
#include <reportgenerator/reportbase/schema/frequencyschema.h>

#include <gtest/gtest.h>

#include <utility>

namespace FieldTreeTest {

struct BeaconData : REPORTGENERATOR::Record
{
    QString callSign;
    double height = 0.0;
    REPORTGENERATOR::Frequency frequency;
    REPORTGENERATOR::ObjectList<REPORTGENERATOR::Coordinate> masts;
    REPORTGENERATOR::ObjectList<REPORTGENERATOR::Frequency> channels;
};

/// Keeps its record where everybody sees it.
class Beacon : public REPORTGENERATOR::IRGObject
{
public:
    using RecordData = BeaconData;

    bool HasData() const override { return true; }
    void Reset() override {}
    using IRGObject::Check;
    void Check() const override {}
    void GetXml(QXmlStreamWriter& /*writer*/) const override {}

    BeaconData data;
};

} // namespace FieldTreeTest

using FieldTreeTest::Beacon;
using FieldTreeTest::BeaconData;

template <>
struct REPORTGENERATOR::Schema<BeaconData>
{
    using Object = Beacon;

    static constexpr Name NAME = REPORTBASE_NAME("Beacon");
    static constexpr auto CALL_SIGN =
        ElementField(&BeaconData::callSign, REPORTBASE_NAME("CallSign"), PresenceBit{0, 1}).Mandatory();
    static constexpr auto HEIGHT =
        ElementField(&BeaconData::height, REPORTBASE_NAME("Height"), PresenceBit{1, 2}).Within(10.0, 500.0);
    static constexpr Member<BeaconData, Frequency> FREQUENCY = {&BeaconData::frequency, PresenceBit{2, 3}};
    static constexpr ItemList<BeaconData, Coordinate> MASTS = {&BeaconData::masts, REPORTBASE_NAME("Mast"),
                                                               PresenceBit{3, 4}, nullptr, nullptr};
    static constexpr ItemList<BeaconData, Frequency> CHANNELS = {
        &BeaconData::channels, REPORTBASE_NAME("Channel"), PresenceBit{4, 5}, nullptr, nullptr};
    static constexpr auto FIELDS = std::make_tuple(MASTS, CHANNELS, FREQUENCY, HEIGHT, CALL_SIGN);
};

template <>
struct ReportCore::Records<BeaconData>
{
    static const BeaconData& Of(const REPORTGENERATOR::IRGObject& object)
    {
        return static_cast<const Beacon&>(object).data;
    }

    template <class Change>
    static void Alter(REPORTGENERATOR::IRGObject& object, Change&& change)
    {
        change(static_cast<Beacon&>(object).data);
    }
};

namespace {

using ReportCore::FieldPath;
using REPORTGENERATOR::Coordinate;
using REPORTGENERATOR::ReportBase;
using ReportModels::FieldTree;
using ReportModels::Node;
using ReportModels::Nodes;
using ReportModels::Row;
using ReportModelsTest::PointOf;
using ReportModelsTest::RichReport;

const ReportCore::ObjectInfo& BeaconInfo()
{
    return ReportCore::InfoOf<BeaconData>();
}

Row Find(FieldTree& tree, const ReportCore::ObjectInfo& info, const char* path)
{
    const auto row = tree.Find(FieldPath::Parse(info, QLatin1String(path)));
    return row ? *row : Row();
}

void SetPoints(Beacon& beacon, const QVector<Coordinate>& points)
{
    beacon.data.masts.Assign(points);
    beacon.data.flags |= 8;
}

void SetChannels(Beacon& beacon, const QVector<double>& values)
{
    QVector<REPORTGENERATOR::Frequency> channels;
    for (const double value : values)
        channels.append(Support::FrequencyOf(value));
    beacon.data.channels.Assign(channels);
    beacon.data.flags |= 16;
}

TEST(FieldTree, RowsAreThoseOfTheSchema)
{
    Beacon beacon;
    ReportCore::SetValue(beacon, FieldPath::Parse(BeaconInfo(), QStringLiteral("height")), 35.5);
    SetPoints(beacon, {PointOf(9.5, 47.25)});
    SetChannels(beacon, {5.0});
    FieldTree tree(BeaconInfo());
    tree.Show(beacon);

    QStringList rows;
    for (int i = 0; i < tree.CountBelow(tree.Root()); ++i) {
        const Row row = {&tree.Root(), i};
        rows << tree.PathOf(row).Text() + QLatin1Char('=') + tree.NameAt(row) + QLatin1Char('=') +
                    tree.TextAt(row);
    }
    EXPECT_TEXT(rows.join(QLatin1Char('\n')), "callSign=call sign=not set\n"
                                              "height=height=35.5\n"
                                              "frequency=frequency=not set\n"
                                              "mast=masts=1 coordinate\n"
                                              "channel=channels=1 frequency");
    EXPECT_TEXT(tree.ComplaintAt({&tree.Root(), 0}), "AnyType: Please set CallSign properly.");
    EXPECT_TEXT(tree.ComplaintAt({&tree.Root(), 1}), "");
    EXPECT_TEXT(tree.TextAt(Find(tree, BeaconInfo(), "channel[1].value")), "5");
    EXPECT_TEXT(tree.NameAt(Find(tree, BeaconInfo(), "channel[1]")), "frequency 1");
}

TEST(FieldTree, ChangesAreToldOfEveryListThatGrows)
{
    Beacon before;
    SetPoints(before, {PointOf(1.0, 2.0)});
    FieldTree tree(BeaconInfo());
    tree.Show(before);
    Beacon after;
    SetPoints(after, {PointOf(1.0, 2.0), PointOf(3.0, 4.0)});
    SetChannels(after, {5.0, 6.0});
    const ReportModels::TreeChanges changes = ReportModels::ChangesTo(tree, after);
    ASSERT_EQ(changes.lists.size(), 2U);
    EXPECT_TEXT(tree.PathOf({changes.lists[0].list->above, changes.lists[0].list->row}).Text(), "mast");
    EXPECT_EQ(changes.lists[0].first, 1);
    EXPECT_EQ(changes.lists[0].inserted, 1);
    EXPECT_EQ(changes.lists[1].first, 0);
    EXPECT_EQ(changes.lists[1].inserted, 2);
}

TEST(FieldTree, NumbersAreComparedBitByBit)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_TRUE(ReportModels::AreSame(nan, nan));
    EXPECT_FALSE(ReportModels::AreSame(0.0, -0.0));
    EXPECT_FALSE(ReportModels::AreSame(1.0, 1.0 + 1e-15));
    EXPECT_FALSE(ReportModels::AreSame(QString(), QStringLiteral("")));
    EXPECT_FALSE(ReportModels::AreSame(QVariant(), QStringLiteral("")));
}

// --- Nodes

TEST(FieldTree, ItemsHaveNoNodesUntilSomebodyAsksForWhatIsBelow)
{
    const ReportBase report = RichReport();
    FieldTree tree(ReportCore::ReportInfo());
    tree.Show(report);
    const Row list = Find(tree, ReportCore::ReportInfo(), "area.coordinate");
    Node& node = tree.NodeAt(list);
    EXPECT_EQ(tree.CountBelow(list), 2);
    for (const int i : {0, 1}) {
        const Row item = {&node, i};
        EXPECT_EQ(tree.CountBelow(item), 2);
        EXPECT_TRUE(tree.IsSet(item));
        EXPECT_TEXT(tree.TextAt(item), i == 0 ? "1 2" : "9.5 47.25");
    }
    EXPECT_TRUE(node.below.empty());
    Find(tree, ReportCore::ReportInfo(), "area.coordinate[2].latitude");
    EXPECT_EQ(node.below.size(), 1U);
}

TEST(FieldTree, ItemsThatMoveKeepTheirNamesUntilTheyAreRenumbered)
{
    ReportBase report;
    report.GetArea().SetCoordinate(QVector<Coordinate>(5, PointOf(1.0, 2.0)));
    FieldTree tree(ReportCore::ReportInfo());
    tree.Show(report);
    Node& list = tree.NodeAt(Find(tree, ReportCore::ReportInfo(), "area.coordinate"));
    const auto names = [&] {
        QStringList texts;
        for (int i = 0; i < 5; ++i)
            texts << tree.NameAt({&list, i}).mid(11);
        return texts.join(QLatin1Char(' '));
    };
    tree.InsertRows(list, 1, 2);
    EXPECT_TEXT(names(), "1 2 3 2 3");
    tree.Renumber();
    EXPECT_TEXT(names(), "1 2 3 4 5");
    tree.RemoveRows(list, 3, 2);
    EXPECT_TEXT(names(), "1 2 3 6 7");
    tree.Renumber();
    EXPECT_TEXT(names(), "1 2 3 4 5");
}

TEST(FieldTree, NodesKeepTheirAddressWhenTheirRowMoves)
{
    const ReportBase report = RichReport();
    FieldTree tree(ReportCore::ReportInfo());
    tree.Show(report);
    Node& list = tree.NodeAt(Find(tree, ReportCore::ReportInfo(), "area.coordinate"));
    Node* const first = &tree.NodeAt({&list, 0});
    Node* const second = &tree.NodeAt({&list, 1});
    tree.InsertRows(list, 1, 3);
    EXPECT_EQ(FieldTree::FindNode({&list, 0}), first);
    EXPECT_EQ(FieldTree::FindNode({&list, 4}), second);
    EXPECT_EQ(FieldTree::FindNode({&list, 1}), nullptr);
    EXPECT_EQ(second->row, 4);
    const Nodes removed = tree.RemoveRows(list, 0, 4);
    ASSERT_EQ(removed.size(), 1U);
    EXPECT_EQ(removed[0].get(), first);
    EXPECT_EQ(FieldTree::FindNode({&list, 0}), second);
    EXPECT_EQ(second->row, 0);
}

} // namespace
