// The pages show commands with what they print:
//
//     $ reporttool check lake.xml
//     lake.xml:6:13: ...
//
// Each is run in a folder that holds the examples, one after the other as they stand on the page. Fenced SQL or Python that
// begins with the name of a file, "-- report.sql" or "# map.py", is written to it in its turn.

#include "toolrun.h"

#include <QtCore/QDir>
#include <QtCore/QDirIterator>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QProcess>

#include <gtest/gtest.h>

#include <algorithm>
#include <initializer_list>
#include <utility>
#include <vector>

#ifndef Q_OS_WIN

namespace {

using ToolTest::Scratch;

struct Shown
{
    QString command;
    QString output;
    int line = 0; ///< of the page
};

constexpr int INDENT = 4;

bool IsCode(const QString& line)
{
    return line.startsWith(QString(INDENT, QLatin1Char(' ')));
}

/// The file that the text behind a fence is to be written to; empty where it names none.
QString FileOf(const QString& fence, const QString& first)
{
    for (const auto& [language, mark] : {std::pair("```sql", "-- "), std::pair("```python", "# ")}) {
        if (fence == QLatin1String(language) && first.startsWith(QLatin1String(mark)))
            return first.section(QLatin1Char(' '), 1);
    }
    return QString();
}

/// Writes the text that begins in the line behind a fence.
Shown WritingOf(const QStringList& lines, int first)
{
    const QString end = QStringLiteral("```");
    const QString file = FileOf(lines.at(first - 1), lines.at(first));
    const QStringList text = lines.mid(first, lines.indexOf(end, first) - first);
    return {QStringLiteral("cat >%1 <<'%2'\n%3\n%2").arg(file, end, text.join(QLatin1Char('\n'))), {}, first};
}

/// The commands in indented blocks that begin with one. Blocks between fences are of other languages.
std::vector<Shown> CommandsOf(const QString& page)
{
    std::vector<Shown> commands;
    const QStringList lines = page.split(QLatin1Char('\n'));
    bool isInBlock = false;
    bool isFenced = false;
    for (int i = 0; i < lines.size(); ++i) {
        const QString& line = lines.at(i);
        if (line.startsWith(QLatin1String("```")))
            isFenced = !isFenced;
        if (!FileOf(line, lines.value(i + 1)).isEmpty())
            commands.push_back(WritingOf(lines, i + 1));
        if (isFenced)
            continue;
        const QString code = line.mid(INDENT);
        // An empty line belongs to a block that goes on behind it.
        const bool isEmptyWithin = isInBlock && line.isEmpty() && IsCode(lines.value(i + 1));
        if (!IsCode(line) && !isEmptyWithin) {
            isInBlock = false;
        } else if (IsCode(line) && code.startsWith(QLatin1String("$ "))) {
            isInBlock = true;
            commands.push_back({code.mid(2), {}, i + 1});
        } else if (isInBlock) {
            commands.back().output += code + QLatin1Char('\n');
        }
    }
    return commands;
}

/// tests/databases/ sets it, where they are all there.
bool HasDatabases()
{
    return qEnvironmentVariableIsSet("REPORTGENERATOR_TEST_DATABASES");
}

/// A folder with the examples and the program.
class PageFolder
{
public:
    PageFolder()
    {
        const QString examples = QStringLiteral(REPORTGENERATOR_TEST_EXAMPLES);
        QDirIterator files(examples, QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            const QString file = files.next();
            const QString copy = m_scratch.Folder() + QStringLiteral("/examples") + file.mid(examples.size());
            EXPECT_TRUE(QDir().mkpath(QFileInfo(copy).path()) && QFile::copy(file, copy))
                << copy.toStdString();
        }
        EXPECT_TRUE(
            QFile::link(QStringLiteral(REPORTGENERATOR_TEST_REPORTTOOL), m_programs.Path("reporttool")));
        // A server reads reports there, as its own user.
        QFile::Permissions permissions = QFile::permissions(m_scratch.Folder());
        if (HasDatabases())
            permissions |= QFile::ReadOther | QFile::ExeOther;
        EXPECT_TRUE(QFile::setPermissions(m_scratch.Folder(), permissions));
    }

    /// Runs a command behind one that ended with the exit code before; output and errors are one.
    int Run(const QString& command, int before, QString& output) const
    {
        QProcess process;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("PATH"), m_programs.Folder() + QLatin1Char(':') +
                                                       environment.value(QStringLiteral("PATH")));
        environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
        process.setProcessEnvironment(environment);
        process.setWorkingDirectory(m_scratch.Folder());
        process.setProcessChannelMode(QProcess::MergedChannels);
        process.start(QStringLiteral("sh"),
                      {QStringLiteral("-c"), QStringLiteral("(exit %1)\n%2").arg(before).arg(command)});
        process.closeWriteChannel();
        EXPECT_TRUE(process.waitForFinished()) << command.toStdString();
        output = QString::fromUtf8(process.readAllStandardOutput());
        return process.exitCode();
    }

private:
    Scratch m_scratch;
    Scratch m_programs;
};

bool IsOfOneOf(const QString& command, std::initializer_list<const char*> programs)
{
    return std::any_of(programs.begin(), programs.end(), [&command](const char* program) {
        return command.startsWith(QLatin1String(program) + QLatin1Char(' '));
    });
}

/// Whether a test can run it: the page names other programs too, and not every build draws pictures.
bool CanRun(const QString& command)
{
    if (IsOfOneOf(command, {"file", "man"}))
        return false;
    if (!HasDatabases() &&
        IsOfOneOf(command, {"createdb", "duckdb", "ogr2ogr", "ogrinfo", "psql", "/usr/bin/python3"}))
        return false;
#    ifndef REPORTGENERATOR_TEST_DRAWS
    if (command.contains(QLatin1String("--to png")))
        return false;
#    endif
    return true;
}

void ExpectPageIsTrue(const char* name, std::size_t fewest)
{
    QFile file(QStringLiteral(REPORTGENERATOR_TEST_EXAMPLES "/../") + QLatin1String(name));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << name;
    const std::vector<Shown> commands = CommandsOf(QString::fromUtf8(file.readAll()));
    EXPECT_GE(commands.size(), fewest);
    const PageFolder folder;
    int exitCode = 0;
    for (const Shown& shown : commands) {
        if (!CanRun(shown.command))
            continue;
        QString output;
        exitCode = folder.Run(shown.command, exitCode, output);
        EXPECT_EQ(output.toStdString(), shown.output.toStdString())
            << name << ":" << shown.line << ": " << shown.command.toStdString();
    }
}

TEST(ToolPages, TheCommandsOfTheToolsPagePrintWhatItShows)
{
    ExpectPageIsTrue("docs/reporttool.md", 40);
}

TEST(ToolPages, TheCommandsOfThePageOnDatabasesPrintWhatItShows)
{
    ExpectPageIsTrue("docs/spatial-databases.md", 30);
}

TEST(ToolPages, TheCommandsOfThePageOnGdalPrintWhatItShows)
{
    if (!HasDatabases())
        GTEST_SKIP() << "./dev databases runs it";
    ExpectPageIsTrue("docs/gdal.md", 15);
}

} // namespace

#endif
