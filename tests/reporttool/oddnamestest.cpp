#include "samples.h"
#include "toolrun.h"

#include <gtest/gtest.h>

#include <QtCore/QtGlobal>

// Qt 6 knows no names but those in UTF-8.
#if defined(Q_OS_LINUX) && QT_VERSION < QT_VERSION_CHECK(6, 0, 0)

namespace {

using ToolTest::FullPlain;
using ToolTest::Scratch;
using ToolTest::ToolRun;

/// Runs a script for the shell in the folder, where $0 is the program and $name the name of a file with a byte that is
/// no UTF-8. Other programs couldn't clear such a name away.
ToolRun RunWithName(const Scratch& scratch, const char* script)
{
    return ToolTest::RunProgram(QStringLiteral("/bin/sh"),
                                {QStringLiteral("-c"),
                                 QStringLiteral("name=$(printf 'Z\\374rich\\303\\274'); ") +
                                     QLatin1String(script) +
                                     QStringLiteral("; code=$?; rm -f \"$name\" \"$name.plain\"; exit $code"),
                                 QStringLiteral(REPORTGENERATOR_TEST_REPORTTOOL)},
                                {{}, scratch.Folder(), QStringLiteral("C.UTF-8")});
}

TEST(ToolOddNames, AreReadAndWrittenByteByByte)
{
    const Scratch scratch;
    scratch.Write("in", FullPlain());
    const ToolRun run =
        RunWithName(scratch, "mv in \"$name\" && \"$0\" check --no-warnings \"$name\" && \"$0\" "
                             "convert \"$name\" \"$name.plain\" --to plain && "
                             "cp \"$name.plain\" out");
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_TEXT(run.Output(), "");
    EXPECT_TEXT(run.Errors(), "");
    EXPECT_BYTES(scratch.Read("out"), FullPlain());
}

TEST(ToolOddNames, AreFoundInFoldersAndTakenFromLists)
{
    const Scratch scratch;
    scratch.Write("in", FullPlain());
    const ToolRun run = RunWithName(scratch, "mv in \"$name\" && \"$0\" check --no-warnings -r . && printf "
                                             "'%s\\n' \"$name\" | \"$0\" check --no-warnings --files-from -");
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_TEXT(run.Output(), "");
    EXPECT_TEXT(run.Errors(), "");
}

/// What is told of an empty file of that name, in bytes.
constexpr char TOLD[] = "Z\xfcrich\xc3\xbc: UnknownForm: not a report in any known form (empty)\n";

TEST(ToolOddNames, FitPatterns)
{
    const Scratch scratch;
    scratch.Write("in", {});
    const ToolRun run = RunWithName(scratch, "mv in \"$name\" && \"$0\" check -r . --pattern 'Z*'");
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.output, QByteArray("./") + TOLD);
}

TEST(ToolOddNames, ArePrintedByteByByteForPrograms)
{
    const Scratch scratch;
    scratch.Write("in", {});
    const ToolRun run = RunWithName(scratch, "mv in \"$name\" && \"$0\" check \"$name\"");
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.output, TOLD);
}

TEST(ToolOddNames, AreShownWithTheirBytesAsEscapesToPeople)
{
    const Scratch scratch;
    scratch.Write("in", {});
    const ToolRun run = RunWithName(scratch, "mv in \"$name\" && \"$0\" convert \"$name\" out --to xml");
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TEXT(run.Errors(), QString::fromUtf8("reporttool: Z\\udcfcrichü: UnknownForm: not a report in any "
                                                "known form (empty)\n"));
}

TEST(ToolOddNames, AreExportedToCsvByteByByte)
{
    const Scratch scratch;
    scratch.Write("in", FullPlain());
    const ToolRun run =
        RunWithName(scratch, "mv in \"$name\" && \"$0\" export --to csv \"$name\" | cut -d, -f1");
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.output, "file\nZ\xfcrich\xc3\xbc\n");
}

TEST(ToolOddNames, HaveTheirBytesInJsonBesideAReplacement)
{
    const Scratch scratch;
    scratch.Write("in", FullPlain());
    const ToolRun run = RunWithName(
        scratch,
        "mv in \"$name\" && \"$0\" list --json \"$name\"; \"$0\" export --to geojsonl \"$name\" | cut -c -70;"
        "\"$0\" show --json \"$name\" >shown.json; \"$0\" convert --from json shown.json out");
    EXPECT_EQ(run.exitCode, 0) << run.errors.constData();
    // 5a fc 72 69 63 68 c3 bc
    const QList<QByteArray> lines = run.output.split('\n');
    EXPECT_TRUE(
        lines.at(0).contains("\"file\":\"Z\xef\xbf\xbdrich\xc3\xbc\",\"fileBase64\":\"WvxyaWNow7w=\""))
        << run.output.constData();
    EXPECT_TRUE(
        lines.at(1).contains("\"properties\":{\"file\":\"Z\xef\xbf\xbdrich\xc3\xbc\",\"fileBase64\":\"Wvx"))
        << run.output.constData();
    EXPECT_BYTES(scratch.Read("out"), FullPlain());
}

/// Makes a folder with a file for each byte that a name may have, alone and between others, and takes it away again.
ToolRun RunWithAllBytes(const Scratch& scratch, const char* script)
{
    return ToolTest::RunProgram(
        QStringLiteral("/bin/sh"),
        {QStringLiteral("-c"),
         QStringLiteral("mkdir all; a=$(printf '\\303'); b=$(printf '\\252'); for i in $(seq 1 255); do "
                        "if test $i != 47; then c=$(printf \"\\\\$(printf %o $i)_\"); "
                        "cp in \"all/${c%_}x\"; cp in \"all/$a${c%_}${b}y\"; fi; done; ") +
             QLatin1String(script) + QStringLiteral("; code=$?; rm -rf all; exit $code"),
         QStringLiteral(REPORTGENERATOR_TEST_REPORTTOOL)},
        {{}, scratch.Folder(), QStringLiteral("C.UTF-8")});
}

TEST(ToolOddNames, GoFromCommandToCommandWhateverTheyAre)
{
    const Scratch scratch;
    scratch.Write("in", "<ReportBase><Frequency>5</Frequency></ReportBase>");
    const ToolRun run = RunWithAllBytes(
        scratch, "\"$0\" grep -0 'frequency.value = 5' -r all | \"$0\" check -0 --files-from -");
    EXPECT_TEXT(run.Errors(), "508 files: 508 good, 0 invalid, 0 unreadable\n");
    EXPECT_EQ(run.exitCode, 0);
}

TEST(ToolOddNames, GoWithoutNulsWhereThereIsNoLineBreak)
{
    const Scratch scratch;
    scratch.Write("in", "<ReportBase><Frequency>5</Frequency></ReportBase>");
    const ToolRun run =
        RunWithAllBytes(scratch, "rm all/\"$(printf '\\nx')\" all/\"$(printf '\\303\\n\\252y')\"; \"$0\" "
                                 "grep 'frequency.value = 5' -r all "
                                 "| \"$0\" check --files-from -");
    EXPECT_TEXT(run.Errors(), "506 files: 506 good, 0 invalid, 0 unreadable\n");
    EXPECT_EQ(run.exitCode, 0);
}

} // namespace

#endif
