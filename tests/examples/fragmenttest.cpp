#include <settings-dialog/fragment.h>

#include <gmock/gmock.h>

namespace {

QStringList Names(std::initializer_list<const char*> names)
{
    QStringList list;
    for (const char* name : names)
        list.append(QString::fromUtf8(name));
    return list;
}

Leftovers Find(const char* fragment)
{
    return FindLeftovers(QString::fromUtf8(fragment), Names({"A", "B"}));
}

TEST(Fragment, LeavesNothingWhenEachElementIsAnObjects)
{
    const Leftovers leftovers = Find("<A><X/></A>\n<B/>");
    EXPECT_EQ(leftovers.ignored, QStringList());
    EXPECT_TRUE(leftovers.problem.isEmpty());
}

TEST(Fragment, LeavesElementsThatAreNoObjectsInTheirOrder)
{
    EXPECT_EQ(Find("<C/><A/><D>1</D>").ignored, Names({"C", "D"}));
}

TEST(Fragment, LeavesTheSecondElementOfAnObject)
{
    EXPECT_EQ(Find("<A/><A/>").ignored, Names({"A"}));
}

TEST(Fragment, LooksIntoElementsThatHoldObjects)
{
    EXPECT_EQ(Find("<All><Group><A/><C/></Group></All><B/>").ignored, Names({"C"}));
}

TEST(Fragment, NamesAnElementThatHoldsNoObjectOnceForAllThatIsInIt)
{
    EXPECT_EQ(Find("<A/><C><D/><E><F/></E></C>").ignored, Names({"C"}));
}

TEST(Fragment, ReportsWhyItCannotBeReadToItsEnd)
{
    EXPECT_FALSE(Find("<A/><B>").problem.isEmpty());
    EXPECT_FALSE(Find("<A/></B>").problem.isEmpty());
    EXPECT_FALSE(Find("<A/></Fragment>").problem.isEmpty());
    EXPECT_FALSE(Find("<A/></Fragment><Fragment>").problem.isEmpty());
}

} // namespace
