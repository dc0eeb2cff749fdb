#include "reporttool/samples.h"
#include "reporttool/toolrun.h"

#include <gtest/gtest.h>

#include <QtGui/QImage>

namespace {

using ToolTest::Scratch;
using ToolTest::ToolRun;

ToolRun RunViewer(const QStringList& arguments)
{
    return ToolTest::RunProgram(QStringLiteral(REPORTGENERATOR_TEST_REPORTVIEWER), arguments,
                                ToolTest::PlainLocale());
}

TEST(ViewerProgram, TellsItsVersion)
{
    const ToolRun run = RunViewer({QStringLiteral("--version")});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_TEXT(run.Output(), "reportviewer " REPORTGENERATOR_TEST_VERSION "\n");
}

TEST(ViewerProgram, ExplainsItself)
{
    const ToolRun run = RunViewer({QStringLiteral("--help")});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_TRUE(run.Output().contains(QStringLiteral("Shows reports in any form")));
    EXPECT_TRUE(run.Output().contains(QStringLiteral("[FILE...]")));
    EXPECT_TRUE(run.Output().contains(QStringLiteral("--field <path>")));
}

TEST(ViewerProgram, RefusesWhatItDoesNotKnow)
{
    const ToolRun run = RunViewer({QStringLiteral("--colour")});
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_TEXT(run.Output(), "");
    EXPECT_TRUE(run.Errors().contains(QStringLiteral("reportviewer: Unknown option 'colour'.")))
        << run.errors.constData();
}

TEST(ViewerProgram, OpensItsArgument)
{
    const Scratch scratch;
    const QString name = scratch.Write("\u00FC.xml", ToolTest::FullXml());
    const ToolRun run =
        ToolTest::RunProgram(QStringLiteral(REPORTGENERATOR_TEST_REPORTVIEWER),
                             {QStringLiteral("--field"), QStringLiteral("area.coordinate[2].latitude"),
                              QStringLiteral("--screenshot"), scratch.Path("out.png"), name},
                             {{}, {}, QStringLiteral("C.UTF-8")});
    EXPECT_EQ(run.exitCode, 0) << run.errors.constData();
    EXPECT_FALSE(QImage::fromData(scratch.Read("out.png"), "PNG").isNull());
}

#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
TEST(ViewerProgram, OpensAFileWhoseNameIsNoUtf8)
{
    const Scratch scratch;
    scratch.Write("report.xml", ToolTest::FullXml());
    const ToolRun run = ToolTest::RunProgram(
        QStringLiteral("sh"),
        {QStringLiteral("-c"),
         QStringLiteral(
             "name=$(printf 'Z\\374rich\\303\\274.xml') && mv report.xml \"$name\" && \"$0\" --screenshot "
             "out.png \"$name\"; code=$?; rm \"$name\"; exit $code"),
         QStringLiteral(REPORTGENERATOR_TEST_REPORTVIEWER)},
        {{}, scratch.Folder(), QStringLiteral("C.UTF-8")});
    EXPECT_EQ(run.exitCode, 0) << run.errors.constData();
    EXPECT_FALSE(QImage::fromData(scratch.Read("out.png"), "PNG").isNull());
}
#endif

TEST(ViewerProgram, SaysWhichFileCannotBeOpened)
{
    const Scratch scratch;
    const ToolRun run =
        RunViewer({QStringLiteral("--screenshot"), scratch.Path("out.png"), scratch.Path("missing")});
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_TRUE(run.Errors().contains(scratch.Path("missing") + QStringLiteral(": no such file")))
        << run.errors.constData();
}

} // namespace
