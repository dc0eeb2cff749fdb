#include "reporttool/samples.h"
#include "reporttool/toolrun.h"

#include <gtest/gtest.h>

#include <QtCore/QFile>
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

TEST(ViewerProgram, AnswersWithoutAScreen)
{
    // Of this name there is no screen.
    const auto run = [](const QString& argument) {
        return ToolTest::RunProgram(QStringLiteral("env"),
                                    {QStringLiteral("QT_QPA_PLATFORM=none-of-these"),
                                     QStringLiteral(REPORTGENERATOR_TEST_REPORTVIEWER), argument},
                                    ToolTest::PlainLocale());
    };
    EXPECT_EQ(run(QStringLiteral("--help")).exitCode, 0);
    EXPECT_EQ(run(QStringLiteral("--version")).exitCode, 0);
    EXPECT_EQ(run(QStringLiteral("--nonsense")).exitCode, 2);
    EXPECT_EQ(run(QStringLiteral("--screenshot=out.png")).exitCode, 2);
}

TEST(ViewerProgram, TakesTheOptionsOfQt)
{
    const Scratch scratch;
    const ToolRun run =
        RunViewer({QStringLiteral("-style"), QStringLiteral("fusion"), QStringLiteral("--screenshot"),
                   scratch.Path("out.png"), scratch.Write("report.xml", ToolTest::FullXml())});
    EXPECT_EQ(run.exitCode, 0) << run.errors.constData();
}

TEST(ViewerProgram, APictureIsOfOneFile)
{
    const Scratch scratch;
    const QString name = scratch.Write("report.xml", ToolTest::FullXml());
    for (const QStringList& files :
         {QStringList(), QStringList(scratch.Folder()), QStringList({name, name})}) {
        const ToolRun run =
            RunViewer(QStringList({QStringLiteral("--screenshot"), scratch.Path("out.png")}) + files);
        EXPECT_EQ(run.exitCode, 2) << files.size();
        EXPECT_TRUE(run.Errors().endsWith(
            QStringLiteral("reportviewer: --screenshot takes the name of a picture, and one report file.\n")))
            << run.errors.constData();
    }
}

TEST(ViewerProgram, SaysWhichFieldIsNotThere)
{
    const Scratch scratch;
    const QString name = scratch.Write("report.xml", ToolTest::FullXml());
    const auto run = [&](const char* field) {
        return RunViewer({QStringLiteral("--field"), QLatin1String(field), QStringLiteral("--screenshot"),
                          scratch.Path("out.png"), name});
    };
    // The area has two points.
    const ToolRun missing = run("area.coordinate[3].latitude");
    EXPECT_EQ(missing.exitCode, 2);
    EXPECT_TRUE(missing.Errors().endsWith(
        QStringLiteral("reportviewer: the report has no area.coordinate[3].latitude\n")))
        << missing.errors.constData();
    const ToolRun unknown = run("area.colour");
    EXPECT_EQ(unknown.exitCode, 2);
    EXPECT_TRUE(unknown.Errors().contains(QStringLiteral("reportviewer: --field: ")))
        << unknown.errors.constData();
}

TEST(ViewerProgram, AFileOfAPictureIsNotRemembered)
{
    const Scratch scratch;
    const ToolRun run = RunViewer({QStringLiteral("--screenshot"), scratch.Path("out.png"),
                                   scratch.Write("not-to-be-remembered.xml", ToolTest::FullXml())});
    EXPECT_EQ(run.exitCode, 0) << run.errors.constData();
    QFile settings(qEnvironmentVariable("XDG_CONFIG_HOME") +
                   QStringLiteral("/reportgenerator/reportviewer.conf"));
    EXPECT_FALSE(settings.open(QIODevice::ReadOnly) && settings.readAll().contains("not-to-be-remembered"));
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
