#include "viewerwindow.h"

#include "reporttool/samples.h"

#include <reportviewer/bytespane.h>
#include <reportviewer/finding.h>
#include <reportviewer/rowview.h>
#include <reportviewer/treepane.h>

#include <gtest/gtest.h>

#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>

namespace {

using ReportViewer::FindInBytes;
using ReportViewer::FindInText;
using ViewerTest::ViewerWindow;

constexpr int FORWARDS = 1;
constexpr int BACKWARDS = -1;

template <class Found>
QString Range(const Found& found)
{
    return found ? QStringLiteral("%1-%2").arg(found->begin).arg(found->end) : QStringLiteral("nothing");
}

TEST(Finding, TextsAreFoundForwardsAndBackwardsAroundTheEnd)
{
    const QString text = QStringLiteral("abc Abc abcabc");
    const auto range = [&text](const char* wanted, qint64 from, int direction) {
        return Range(FindInText(text, QString::fromUtf8(wanted), from, direction));
    };
    EXPECT_TEXT(range("abc", 0, FORWARDS), "4-7");
    EXPECT_TEXT(range("ABC", 4, FORWARDS), "8-11");
    EXPECT_TEXT(range("abc", 8, FORWARDS), "11-14");
    EXPECT_TEXT(range("abc", 11, FORWARDS), "0-3");
    EXPECT_TEXT(range("abc", 11, BACKWARDS), "8-11");
    EXPECT_TEXT(range("abc", 4, BACKWARDS), "0-3");
    EXPECT_TEXT(range("abc", 0, BACKWARDS), "11-14");
    EXPECT_TEXT(range("abca", 8, FORWARDS), "8-12");
    EXPECT_TEXT(range("x", 0, FORWARDS), "nothing");
    EXPECT_TEXT(range("", 0, FORWARDS), "nothing");
    EXPECT_TEXT(Range(FindInText(QString(), QStringLiteral("a"), 0, BACKWARDS)), "nothing");
}

TEST(Finding, TextsInBytesAreThoseOfBothEncodings)
{
    // "Zürich" in UTF-8, then "ZÜR" in UTF-16 with high bytes first, then "zür" in UTF-8.
    const QByteArray bytes("Z\xC3\xBCrich\0Z\0\xDC\0Rz\xC3\xBCr", 17);
    const auto range = [&bytes](const char* wanted, qint64 from, int direction) {
        return Range(FindInBytes(bytes, QString::fromUtf8(wanted), from, direction));
    };
    EXPECT_TEXT(range("z\xC3\xBCr", 0, FORWARDS), "13-17");
    EXPECT_TEXT(range("z\xC3\xBCr", 13, FORWARDS), "0-4");
    EXPECT_TEXT(range("z\xC3\xBCr", 13, BACKWARDS), "0-4");
    EXPECT_TEXT(range("z\xC3\xBCr", 0, BACKWARDS), "13-17");
    EXPECT_TEXT(range("z\xC3\x9Cr", 0, FORWARDS), "7-13");
    EXPECT_TEXT(range("RICH", 16, FORWARDS), "3-7");
    EXPECT_TEXT(range("x", 0, FORWARDS), "nothing");
    EXPECT_TEXT(range("", 0, FORWARDS), "nothing");
    EXPECT_TEXT(Range(FindInBytes(QByteArray(), QStringLiteral("a"), 0, FORWARDS)), "nothing");
}

class ViewerFinding : public testing::Test
{
protected:
    ViewerFinding() { m_viewer.Open(m_viewer.scratch.Write("report.xml", ToolTest::FullXml())); }

    QString Current() { return m_viewer.window.Tree().CurrentPath(); }

    QString Focus() const
    {
        const QWidget* const focus = QApplication::focusWidget();
        return focus ? focus->objectName() : QStringLiteral("nobody");
    }

    /// Types a text into the empty bar.
    void Look(const char* text)
    {
        m_viewer.Press(Qt::Key_F, Qt::ControlModifier);
        ASSERT_EQ(Focus(), QStringLiteral("find"));
        m_viewer.Type(text);
        m_viewer.Press(Qt::Key_Return);
    }

    QString Outcome() { return m_viewer.Find<QLabel>("findOutcome")->text(); }

    ViewerWindow m_viewer;
};

TEST_F(ViewerFinding, FieldsAreFoundByTheirNames)
{
    m_viewer.window.Tree().setFocus();
    Look("Latitude");
    EXPECT_TEXT(Current(), "area.coordinate[1].latitude");
    m_viewer.Press(Qt::Key_Return);
    EXPECT_TEXT(Current(), "area.coordinate[2].latitude");
    m_viewer.Press(Qt::Key_Return);
    EXPECT_TEXT(Current(), "area.coordinate[1].latitude");
    m_viewer.Press(Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_TEXT(Current(), "area.coordinate[2].latitude");
    EXPECT_TEXT(m_viewer.MarkedText().left(10), "<Latitude>");
    EXPECT_TEXT(Focus(), "find");
    m_viewer.Press(Qt::Key_Escape);
    EXPECT_TEXT(Focus(), "tree");
    EXPECT_FALSE(m_viewer.Find<QLineEdit>("find")->isVisible());
    m_viewer.Press(Qt::Key_F3);
    EXPECT_TEXT(Current(), "area.coordinate[1].latitude");
    m_viewer.Press(Qt::Key_F3, Qt::ShiftModifier);
    EXPECT_TEXT(Current(), "area.coordinate[2].latitude");
}

TEST_F(ViewerFinding, FieldsAreFoundByTheirValuesAndPaths)
{
    m_viewer.window.Tree().setFocus();
    Look("RICHS");
    EXPECT_TEXT(Current(), "area.name");
    Look("coordinate[2].longitude");
    EXPECT_TEXT(Current(), "area.coordinate[2].longitude");
    EXPECT_TEXT(Outcome(), "");
    // What all of an area have in their paths is found with the area alone.
    Look("Area.co");
    EXPECT_TEXT(Current(), "area.coordinate");
    m_viewer.Press(Qt::Key_Return);
    EXPECT_TEXT(Current(), "area.coordinate");
    Look("coordinate[2].lon");
    EXPECT_TEXT(Current(), "area.coordinate[2].longitude");
    Look("nowhere");
    EXPECT_TEXT(Current(), "area.coordinate[2].longitude");
    EXPECT_TEXT(Outcome(), "Not found");
    // "not set" is no value.
    Look("not set");
    EXPECT_TEXT(Outcome(), "Not found");
    m_viewer.Type("x");
    EXPECT_TEXT(Outcome(), "");
}

TEST_F(ViewerFinding, WithTheKeyboardInTheBytesTheseAreLookedThrough)
{
    m_viewer.Press(Qt::Key_4, Qt::ControlModifier);
    Look("</longitude>");
    EXPECT_TEXT(m_viewer.MarkedText(), "</Longitude>");
    EXPECT_TEXT(Current(), "area.coordinate[1].longitude");
    m_viewer.Press(Qt::Key_Return);
    EXPECT_TEXT(Current(), "area.coordinate[2].longitude");
    m_viewer.Press(Qt::Key_Escape);
    EXPECT_TEXT(Focus(), "text");

    m_viewer.Open(m_viewer.scratch.Write("report", ToolTest::FullPlain()));
    m_viewer.Press(Qt::Key_4, Qt::ControlModifier);
    Look("RICHS");
    EXPECT_TEXT(Current(), "area.name");
    EXPECT_EQ(m_viewer.Marked(), QByteArray("richs"));
}

TEST_F(ViewerFinding, LooksForTheNextOneOnlyWhenThereIsAText)
{
    m_viewer.window.Tree().setFocus();
    const QString before = Current();
    m_viewer.Press(Qt::Key_F3);
    EXPECT_TEXT(Focus(), "find");
    EXPECT_TEXT(Current(), before);
    // The same key once more begins anew with another text.
    m_viewer.Type("use");
    m_viewer.Press(Qt::Key_F, Qt::ControlModifier);
    m_viewer.Type("script");
    EXPECT_TEXT(m_viewer.Find<QLineEdit>("find")->text(), "script");
}

} // namespace
