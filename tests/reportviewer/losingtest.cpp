#include "viewerwindow.h"

#include "reporttool/samples.h"
#include "support/recordelements.h"

#include <reportviewer/problemmodel.h>
#include <reportviewer/treepane.h>

#include <gtest/gtest.h>

#include <QtWidgets/QTreeView>

namespace {

using ReportCore::Form;
using ReportViewer::ProblemModel;
using ReportViewer::Questions;
using ViewerTest::ViewerWindow;

/// In UTF-16 with the least significant byte first, without byte order mark.
QByteArray InUtf16(const QByteArray& ascii)
{
    QByteArray bytes;
    for (const char byte : ascii) {
        bytes += byte;
        bytes += '\0';
    }
    return bytes;
}

QByteArray Report(const QByteArray& content)
{
    return "<ReportBase>" + content + "</ReportBase>";
}

constexpr char FREQUENCY[] = "<Frequency>3.00</Frequency>";
constexpr char COLOUR[] = "<ReportBase><Frequency>3.00</Frequency><Colour>red</Colour></ReportBase>";

/// What a file says and its report doesn't.
class ViewerLosing : public testing::Test
{
protected:
    QString Open(const QByteArray& bytes)
    {
        const QString name = m_scratch.Write("more", bytes);
        m_viewer.Open(name);
        m_viewer.answers->asked.clear();
        return name;
    }

    QStringList& Asked() const { return m_viewer.answers->asked; }

    /// A column of the list of problems.
    QStringList Listed(int column)
    {
        const QAbstractItemModel& model = *m_viewer.Find<QTreeView>("problems")->model();
        QStringList texts;
        for (int row = 0; row < model.rowCount(); ++row)
            texts << model.index(row, column).data().toString();
        return texts;
    }

    void TargetIs(const char* name)
    {
        m_viewer.answers->target = Questions::Target{m_scratch.Path(name), {Form::Xml, false}};
    }

    ViewerWindow m_viewer;
    const ToolTest::Scratch& m_scratch = m_viewer.scratch;
};

TEST_F(ViewerLosing, WhatIsLostIsNamedBeforeItIsLost)
{
    const struct
    {
        const char* what;
        QByteArray bytes;
        const char* loss;
    } files[] = {
        {"element", COLOUR, "element 'Colour'"},
        {"misspelt element", Report("<Frequenzy>3.00</Frequenzy>"), "element 'Frequenzy'"},
        {"attribute", Report("<Frequency Colour=\"red\">3.00</Frequency>"), "attribute 'Colour'"},
        {"attribute of a value",
         Report("<Area Version=\"1.0\"><Name Colour=\"red\">a</Name><Coordinate><Longitude>8</Longitude>"
                "<Latitude>47</Latitude></Coordinate></Area>"),
         "attribute 'Colour'"},
        {"text", Report(QByteArray("red") + FREQUENCY), "text \"red\""},
        {"divided text", Report("<Frequency>1<!-- -->2</Frequency>"),
         "a piece of a text that something divides"},
        {"element around", "<All>" + Report(FREQUENCY) + "</All>", "element 'All' around the report"},
        {"second report", "<All>" + Report(FREQUENCY) + "<ReportBase/></All>", "another report"},
        {"no number", Report("<Frequency>6,02</Frequency>"), "frequency.value \"6,02\" becomes 0"},
        {"element that comes twice", Report(QByteArray(FREQUENCY) + "<Frequency>4.00</Frequency>"),
         "frequency.value \"3.00\" becomes 4"},
        {"another encoding without mark", InUtf16(COLOUR), "element 'Colour'"},
        {"binary element",
         ToolTest::Plain(Support::FrequencyElement("5") + Support::Element(4711, Support::ByteArray("red"))),
         "element with tag 0x00001267"},
        {"bytes behind", ToolTest::Plain(Support::FrequencyElement("5")) + "more", "4 bytes behind the end"},
        // The frame and the root take 0x36 bytes, a frequency of one digit 0x15.
        {"cut area",
         ToolTest::Plain(Support::FrequencyElement("5") + ToolTest::NamedArea("Lake")).left(0x4b + 60),
         "the area from offset 0x4b on"},
    };
    for (const auto& file : files) {
        SCOPED_TRACE(file.what);
        const QString name = Open(file.bytes);
        EXPECT_FALSE(m_viewer.window.Save());
        ASSERT_EQ(Asked().size(), 1);
        EXPECT_TRUE(Asked()[0].startsWith(QStringLiteral("lose %1: ").arg(name))) << Asked()[0].toStdString();
        EXPECT_TRUE(Asked()[0].contains(QString::fromUtf8(file.loss))) << Asked()[0].toStdString();
        EXPECT_EQ(m_scratch.Read("more"), file.bytes);
    }
}

TEST_F(ViewerLosing, WhoAcceptsTheLossSaves)
{
    Open(ToolTest::FullPlain() + "more");
    m_viewer.answers->mayLose = true;
    EXPECT_TRUE(m_viewer.window.Save());
    EXPECT_EQ(m_scratch.Read("more"), ToolTest::FullPlain());
    m_viewer.Settle();
    EXPECT_FALSE(m_viewer.Problems().contains(QLatin1String("loss"))) << m_viewer.Problems().toStdString();
    Asked().clear();
    EXPECT_TRUE(m_viewer.window.Save());
    EXPECT_TRUE(Asked().isEmpty());
}

TEST_F(ViewerLosing, SavingElsewhereAsksToo)
{
    const QString name = Open(COLOUR);
    const QString lose = QStringLiteral("lose %1: element 'Colour'").arg(name);
    TargetIs("free.xml");
    EXPECT_FALSE(m_viewer.window.SaveAs());
    EXPECT_EQ(Asked(), QStringList({QStringLiteral("target ") + name, lose}));
    EXPECT_EQ(m_scratch.Names(), QStringList{QStringLiteral("more")});

    Asked().clear();
    m_scratch.Write("other.xml", "precious");
    TargetIs("other.xml");
    m_viewer.answers->mayReplace = true;
    EXPECT_FALSE(m_viewer.window.SaveAs());
    EXPECT_EQ(Asked(),
              QStringList({QStringLiteral("target ") + name,
                           QStringLiteral("replace OtherFile ") + m_scratch.Path("other.xml"), lose}));
    EXPECT_EQ(m_scratch.Read("other.xml"), QByteArray("precious"));
}

TEST_F(ViewerLosing, ARefusalComesBeforeAllQuestionsAndNamesThePoint)
{
    Open(Report("<Colour/><Area Version=\"1.0\"><Name>a</Name>"
                "<Coordinate><Longitude>8</Longitude><Latitude>47</Latitude></Coordinate>"
                "<Coordinate><Longitude>9</Longitude><Latitude>97</Latitude></Coordinate></Area>"));
    const QString refusal =
        QStringLiteral("Not saved: OutOfRangeException: Coordinate: Please set Latitude properly. "
                       "(area.coordinate[2].latitude = \"97.000000\")");
    EXPECT_FALSE(m_viewer.window.Save());
    EXPECT_TRUE(Asked().isEmpty());
    EXPECT_TEXT(m_viewer.Notice(), refusal);
    EXPECT_TEXT(m_viewer.window.Tree().CurrentPath(), "area.coordinate[2].latitude");
    m_scratch.Write("other.xml", "precious");
    TargetIs("other.xml");
    EXPECT_FALSE(m_viewer.window.SaveAs());
    EXPECT_EQ(Asked(), QStringList{QStringLiteral("target ") + m_scratch.Path("more")});
    EXPECT_TEXT(m_viewer.Notice(), refusal);
}

TEST_F(ViewerLosing, WhatTheReportCannotHoldIsListed)
{
    Open(COLOUR);
    EXPECT_TEXT(m_viewer.Problems(), "1 loss");
    EXPECT_EQ(Listed(ProblemModel::KindColumn), QStringList{QStringLiteral("UnknownElement")});
    EXPECT_EQ(Listed(ProblemModel::TextColumn),
              QStringList{QStringLiteral("element 'Colour' (lost by saving)")});
    EXPECT_EQ(Listed(ProblemModel::PlaceColumn), QStringList{QStringLiteral("line 1, column 40")});
    Open("<All>" + Report(FREQUENCY) + "</All>");
    EXPECT_EQ(Listed(ProblemModel::TextColumn),
              QStringList{QStringLiteral("element 'All' around the report (lost by saving)")});
    Open(Report("<Area Version=\"1.0\"><Name>a\r\nb</Name></Area>"));
    EXPECT_TRUE(Listed(ProblemModel::TextColumn)
                    .contains(QStringLiteral("carriage returns in area.name (lost by saving)")));
}

TEST_F(ViewerLosing, WhatIsToldAlreadyIsListedOnce)
{
    Open(Report("<Frequency>6,02</Frequency>"));
    EXPECT_TEXT(m_viewer.Problems(), "1 warning");
    EXPECT_EQ(Listed(ProblemModel::KindColumn), QStringList{QStringLiteral("NotANumber")});
    Open("hello");
    EXPECT_TEXT(m_viewer.Problems(), "1 problem");
    Open("<All>" + Report(FREQUENCY) + "<ReportBase/></All>");
    EXPECT_TEXT(m_viewer.Problems(), "1 warning, 1 loss");
}

TEST_F(ViewerLosing, WhatIsLostStaysListedUntilItIsSaved)
{
    Open(ToolTest::Plain(Support::FrequencyElement("5") + ToolTest::NamedArea("Lake")).left(0x4b + 60));
    EXPECT_TRUE(m_viewer.Set("frequency.value", "6"));
    m_viewer.Settle();
    const QString loss = QStringLiteral("the area from offset 0x4b on (lost by saving)");
    EXPECT_EQ(Listed(ProblemModel::TextColumn), QStringList{loss});
    // It stands in the file and not in the bytes that are shown.
    EXPECT_EQ(Listed(ProblemModel::PlaceColumn), QStringList{QString()});
    EXPECT_TEXT(m_viewer.Problems(), "1 loss");
    EXPECT_TRUE(m_viewer.Set("frequency.value", "7"));
    m_viewer.Settle();
    EXPECT_EQ(Listed(ProblemModel::TextColumn), QStringList{loss});
    m_viewer.answers->mayLose = true;
    EXPECT_TRUE(m_viewer.window.Save());
    m_viewer.Settle();
    EXPECT_TEXT(m_viewer.Problems(), "No problems");
}

TEST_F(ViewerLosing, AValueThatIsSetIsLostNoMore)
{
    Open(Report("<Frequency Min=\"1,5\">6,02</Frequency>"));
    EXPECT_TRUE(m_viewer.Set("frequency.value", "6.02"));
    m_viewer.Settle();
    EXPECT_EQ(Listed(ProblemModel::TextColumn),
              QStringList{QStringLiteral("frequency.min \"1,5\" becomes 0 (lost by saving)")});
    EXPECT_TRUE(m_viewer.window.Model().Unset(m_viewer.At("frequency.min")));
    m_viewer.Settle();
    EXPECT_TEXT(m_viewer.Problems(), "No problems");
    EXPECT_TRUE(m_viewer.window.Save());
    EXPECT_TRUE(Asked().isEmpty());
}

TEST_F(ViewerLosing, AnItemThatTakesTheNumberOfAnotherIsNoCure)
{
    QByteArray points;
    for (int i = 0; i < 5; ++i)
        points += "<Coordinate><Longitude>" + QByteArray::number(i) + "</Longitude><Latitude>" +
                  (i == 1 ? QByteArray("6,02") : QByteArray::number(i * i)) + "</Latitude></Coordinate>";
    Open(Report("<Area Version=\"1.0\"><Name>a</Name>" + points + "</Area>"));
    EXPECT_TRUE(m_viewer.window.Model().removeRows(0, 1, m_viewer.At("area.coordinate", 0)));
    m_viewer.Settle();
    EXPECT_TRUE(
        Listed(ProblemModel::TextColumn)
            .contains(QStringLiteral("area.coordinate[2].latitude \"6,02\" becomes 0 (lost by saving)")));
}

} // namespace
