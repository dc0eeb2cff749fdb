#include "viewerwindow.h"

#include "support/expect.h"

#include <reportviewer/problemlooks.h>
#include <reportviewer/problemmarks.h>

#include <gtest/gtest.h>

#include <QtGui/QTextDocumentFragment>
#include <QtWidgets/QApplication>

#include <algorithm>
#include <cmath>

namespace {

using ReportViewer::ProblemMarks;
using ViewerTest::ViewerWindow;

/// The second latitude is out of its range, the first longitude is no number.
constexpr char BAD[] =
    "<ReportBase><Area Version=\"1.0\"><Name>a</Name>\n"
    "<Coordinate><Longitude>east</Longitude><Latitude>47</Latitude></Coordinate>\n"
    "<Coordinate><Longitude>9</Longitude><Latitude>97</Latitude></Coordinate>\n"
    "<Coordinate><Longitude>9</Longitude><Latitude>48</Latitude></Coordinate>\n"
    "<Coordinate><Longitude>10</Longitude><Latitude>47</Latitude></Coordinate></Area></ReportBase>";

class ViewerMarks : public testing::Test
{
protected:
    ViewerMarks() { m_viewer.Open(m_viewer.scratch.Write("bad.xml", BAD)); }

    QVariant Data(const char* path, int role, int column = 0) { return m_viewer.At(path, column).data(role); }

    bool HasIcon(const char* path) { return Data(path, Qt::DecorationRole).isValid(); }

    QColor Colour(const char* path) { return Data(path, Qt::ForegroundRole).value<QColor>(); }

    QString ToolTip(const char* path)
    {
        return QTextDocumentFragment::fromHtml(Data(path, Qt::ToolTipRole).toString()).toPlainText();
    }

    ViewerWindow m_viewer;
};

TEST_F(ViewerMarks, RowsWithProblemsHaveIconColourAndText)
{
    EXPECT_TRUE(HasIcon("area.coordinate[2].latitude"));
    EXPECT_EQ(Colour("area.coordinate[2].latitude"), ReportViewer::ColourOf(false));
    EXPECT_TEXT(ToolTip("area.coordinate[2].latitude"),
                "Parameters for m_latitude are not set within range (-90, 90) in 'Coordinate'.\n"
                "area.coordinate[2].latitude = \"97\"\n"
                "OutOfRangeException, line 3, column 47");
    EXPECT_TEXT(Data("area.coordinate[2].latitude", Qt::AccessibleDescriptionRole).toString(),
                ToolTip("area.coordinate[2].latitude"));
    EXPECT_TRUE(HasIcon("area.coordinate[1].longitude"));
    EXPECT_EQ(Colour("area.coordinate[1].longitude"), ReportViewer::ColourOf(true));
    EXPECT_TRUE(ToolTip("area.coordinate[1].longitude").startsWith(QLatin1String("longitude is no number")))
        << ToolTip("area.coordinate[1].longitude").toStdString();
    for (const char* const path : {"area.coordinate[3].latitude", "area.coordinate[3]", "frequency"}) {
        EXPECT_FALSE(HasIcon(path)) << path;
        EXPECT_FALSE(Colour(path).isValid()) << path;
        EXPECT_TEXT(ToolTip(path), "");
    }
    // The value has the colour, too, and no second icon.
    EXPECT_TRUE(Data("area.coordinate[2].latitude", Qt::ForegroundRole, 1).isValid());
    EXPECT_FALSE(Data("area.coordinate[2].latitude", Qt::DecorationRole, 1).isValid());
}

TEST_F(ViewerMarks, WhatHoldsSuchARowHasTheIconAndSaysHowManyThereAre)
{
    for (const char* const path : {"area", "area.coordinate"}) {
        EXPECT_TRUE(HasIcon(path)) << path;
        EXPECT_FALSE(Colour(path).isValid()) << path;
        EXPECT_TRUE(ToolTip(path).endsWith(QLatin1String("Below: 1 problem, 1 warning")))
            << ToolTip(path).toStdString();
    }
    EXPECT_TEXT(ToolTip("area.coordinate[1]"), "Below: 1 warning");
}

TEST_F(ViewerMarks, MarksFollowChanges)
{
    EXPECT_TRUE(m_viewer.Set("area.coordinate[2].latitude", "48.5"));
    m_viewer.Settle();
    EXPECT_FALSE(HasIcon("area.coordinate[2].latitude"));
    EXPECT_TRUE(m_viewer.window.Model().Unset(m_viewer.At("area.name")));
    m_viewer.Settle();
    EXPECT_TRUE(HasIcon("area.name"));
    // What a view shows when it is told of nothing: marks are no changes of the report.
    m_viewer.window.ReportChanges().Stack().undo();
    m_viewer.window.ReportChanges().Stack().undo();
    EXPECT_FALSE(m_viewer.window.isWindowModified());
}

TEST(ProblemMarks, ManyProblemsOfAFieldAreCounted)
{
    ProblemMarks marks;
    EXPECT_TRUE(marks.IsEmpty());
    for (int i = 1; i <= 7; ++i)
        marks.Take({QStringLiteral("Odd"), QString::number(i), {}, QStringLiteral("area.name")}, i > 1);
    marks.Take({QStringLiteral("Odd"), QStringLiteral("of the file")}, false);
    const ProblemMarks::Mark* const name = marks.At(QStringLiteral("area.name"));
    ASSERT_NE(name, nullptr);
    EXPECT_EQ(name->problems, 1);
    EXPECT_EQ(name->warnings, 6);
    EXPECT_TEXT(name->Text(), "1\narea.name\nOdd\n\n2\narea.name\nOdd\n\n3\narea.name\nOdd\n\n"
                              "4\narea.name\nOdd\n\n5\narea.name\nOdd\n\nand 2 more");
    EXPECT_TEXT(marks.At(QStringLiteral("area"))->Text(), "Below: 1 problem, 6 warnings");
    EXPECT_EQ(marks.At(QStringLiteral("frequency")), nullptr);
}

/// How bright a colour is to people, from 0 to 1.
double Luminance(const QColor& colour)
{
    const auto linear = [](double part) {
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

TEST(ProblemLooks, ColoursAreReadOnLightAndDark)
{
    const QPalette usual = QApplication::palette();
    for (const QColor& background : {QColor(Qt::white), QColor(30, 30, 32)}) {
        QPalette palette = usual;
        palette.setColor(QPalette::Base, background);
        QApplication::setPalette(palette);
        for (const bool isWarning : {false, true}) {
            const double one = Luminance(ReportViewer::ColourOf(isWarning)) + 0.05;
            const double other = Luminance(background) + 0.05;
            EXPECT_GE(std::max(one, other) / std::min(one, other), 4.5) << isWarning;
        }
    }
    QApplication::setPalette(usual);
}

} // namespace
