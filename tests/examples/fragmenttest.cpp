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

QStringList Changed(const char* fragment, const char* written)
{
    return FindChangedValues(QString::fromUtf8(fragment), QStringLiteral("A"), QString::fromUtf8(written));
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

TEST(Fragment, LeavesTextThatStandsInNoElement)
{
    EXPECT_EQ(Find("one <A>2</A>\n  three\tand  four <B/> ").ignored,
              Names({"\"one\"", "\"three and four\""}));
    EXPECT_EQ(Find("<All><A/>text</All>").ignored, Names({"\"text\""}));
    EXPECT_EQ(Find("<A/><C>text<D/>text</C>").ignored, Names({"C"})) << "the name stands for it";
}

TEST(Fragment, ShortensLongTexts)
{
    const QString longest(40, QLatin1Char('x'));
    const QString quote = QString(QLatin1Char('"'));
    EXPECT_EQ(FindLeftovers(longest, QStringList()).ignored, QStringList(quote + longest + quote));
    EXPECT_EQ(FindLeftovers(longest + QLatin1Char('x'), QStringList()).ignored,
              QStringList(quote + longest + QChar(0x2026) + quote));
}

TEST(Fragment, IsLookedThroughInTimeThatGrowsWithItsLength)
{
    constexpr int COUNT = 200000;
    const QString fragment = QStringLiteral("<C/>").repeated(COUNT);
    EXPECT_EQ(FindLeftovers(fragment, QStringList()).ignored.size(), COUNT);
}

TEST(Fragment, ReportsWhyItCannotBeReadToItsEnd)
{
    EXPECT_FALSE(Find("<A/><B>").problem.isEmpty());
    EXPECT_FALSE(Find("<A/></B>").problem.isEmpty());
    EXPECT_FALSE(Find("<A/></Fragment>").problem.isEmpty());
    EXPECT_FALSE(Find("<A/></Fragment><Fragment>").problem.isEmpty());
    EXPECT_FALSE(Find("<A").problem.isEmpty());
    EXPECT_TRUE(Find("").problem.isEmpty());
}

TEST(ChangedValues, NoneWhenAllAreWrittenAgain)
{
    EXPECT_EQ(
        Changed("<A v=\"1\"><X>text</X><Y><Z>2</Z></Y></A>", "<A v=\"1\"><X>text</X><Y><Z>2</Z></Y></A>"),
        QStringList());
    EXPECT_EQ(Changed("<All><B/><A><X>1</X></A></All>", "<A><X>1</X></A>"), QStringList());
    EXPECT_EQ(Changed("<A>\n  <X>1</X>\n</A>", "<A w=\"1\"><X>1</X><Y>2</Y></A>"), QStringList())
        << "what is written besides is no loss";
}

TEST(ChangedValues, NoneWhenNumbersAreOnlyRounded)
{
    EXPECT_EQ(
        Changed("<A><X>1</X><Y>0.126</Y><Z> 1e3 </Z></A>", "<A><X>1.00</X><Y>0.13</Y><Z>1000.00</Z></A>"),
        QStringList());
}

TEST(ChangedValues, NamesWhatIsNoNumber)
{
    EXPECT_EQ(Changed("<A><X>12,5</X><Y></Y></A>", "<A><X>0.00</X><Y>0.00</Y></A>"),
              Names({"A.X \"12,5\"", "A.Y \"\""}));
}

TEST(ChangedValues, NamesWhatALaterValueReplaced)
{
    EXPECT_EQ(Changed("<A><X>1</X><X>2</X></A>", "<A><X>2.00</X></A>"), Names({"A.X \"1\""}));
    EXPECT_EQ(Changed("<A><X>1</X><X>1</X></A>", "<A><X>1.00</X></A>"), Names({"A.X \"1\""}));
    EXPECT_EQ(Changed("<A><X>1<!-- -->2</X></A>", "<A><X>2.00</X></A>"), Names({"A.X \"12\""}));
}

TEST(ChangedValues, NamesAttributesAndTextsThatWerePassedOver)
{
    EXPECT_EQ(Changed("<A unit=\"Hz\">about <X n=\"1\">2</X></A>", "<A><X>2.00</X></A>"),
              Names({"A@unit \"Hz\"", "A.X@n \"1\"", "A \"about\""}));
}

TEST(ChangedValues, AnEmptyTextThatSetsNothingIsNoLoss)
{
    EXPECT_EQ(Changed("<A><X></X><Y/></A>", "<A/>"), QStringList());
}

TEST(ChangedValues, DeepElementsAreNamedAfterTheOneThatTheyAreIn)
{
    EXPECT_EQ(Changed("<A><B><C><D><E><F>1</F></E></D></C></B></A>", "<A/>"), Names({"A.B.C.D... \"1\""}));
    EXPECT_EQ(Changed("<A><B><C><D>1</D></C></B></A>", "<A/>"), Names({"A.B.C.D \"1\""}));
}

TEST(ChangedValues, DeepElementsTakeRoomThatGrowsWithTheirDepth)
{
    constexpr int DEPTH = 100000;
    const QString fragment = QStringLiteral("<A>") + QStringLiteral("<Deep>").repeated(DEPTH) +
                             QStringLiteral("</Deep>").repeated(DEPTH) + QStringLiteral("</A>");
    EXPECT_EQ(FindChangedValues(fragment, QStringLiteral("A"), QStringLiteral("<A/>")), QStringList());
}

TEST(ChangedValues, OnlyTheObjectsFirstElementCounts)
{
    EXPECT_EQ(Changed("<B><X>1</X></B><A><X>2</X></A><A><X>3</X></A>", "<A><X>2.00</X></A>"), QStringList());
    EXPECT_EQ(Changed("<B><X>1</X></B>", ""), QStringList());
}

} // namespace
