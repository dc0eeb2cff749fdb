#include "samples.h"
#include "toolrun.h"

#include <gtest/gtest.h>

#include <QtCore/QDir>
#include <QtCore/QFile>

// Where an export goes.

namespace {

using ToolTest::FullXml;
using ToolTest::PlainLocale;
using ToolTest::RunTool;
using ToolTest::Scratch;
using ToolTest::ToolRun;

class ToolExportOutput : public testing::Test
{
protected:
    ToolExportOutput()
    {
        m_scratch.Write("x.xml", FullXml());
        m_scratch.Write("y.xml", FullXml());
    }

    ToolRun Run(ToolTest::Arguments arguments) const
    {
        return RunTool(arguments, PlainLocale({}, m_scratch.Folder()));
    }

    const Scratch m_scratch;
};

TEST_F(ToolExportOutput, ReportIsNotReplacedByWhatBecomesOfIt)
{
    const QString text =
        QStringLiteral("%1 is one of the reports and would be replaced\nTry 'reporttool --help'.");
    EXPECT_UNUSABLE(Run({"export", "y.xml", "x.xml", "--to", "csv", "-o", "x.xml"}),
                    text.arg(QStringLiteral("x.xml")));
    EXPECT_UNUSABLE(Run({"export", "-r", ".", "--to", "wkt", "-o", "./x.xml"}),
                    text.arg(QStringLiteral("./x.xml")));
    EXPECT_BYTES(m_scratch.Read("x.xml"), FullXml());
}

#ifdef Q_OS_UNIX
TEST_F(ToolExportOutput, ReportIsNotReplacedByAnotherNameOfIt)
{
    ASSERT_TRUE(QFile::link(QStringLiteral("x.xml"), m_scratch.Path("z")));
    EXPECT_UNUSABLE(Run({"export", "x.xml", "--to", "csv", "-o", "z"}),
                    "z is one of the reports and would be replaced\nTry 'reporttool --help'.");
    EXPECT_BYTES(m_scratch.Read("x.xml"), FullXml());
}
#endif

TEST_F(ToolExportOutput, AnotherFileIsReplaced)
{
    EXPECT_EQ(Run({"export", "x.xml", "--to", "csv", "-o", "y.xml"}).exitCode, 0);
    EXPECT_TRUE(m_scratch.Read("y.xml").startsWith("file,"));
}

TEST_F(ToolExportOutput, FoldersWithoutFilesAreToldOf)
{
    ASSERT_TRUE(QDir(m_scratch.Folder()).mkdir(QStringLiteral("empty")));
    const ToolRun run = Run({"export", "-r", "empty", "--to", "csv", "-o", "out.csv"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_TEXT(run.Output(), "");
    EXPECT_TEXT(run.Errors(), "reporttool: there are no files, so nothing is written\n");
    EXPECT_EQ(m_scratch.Names().count(QStringLiteral("out.csv")), 0);
}

} // namespace
