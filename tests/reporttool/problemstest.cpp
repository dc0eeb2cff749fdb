// The example folder that shows every kind of problem.

#include "toolrun.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QRegularExpression>
#include <QtCore/QSet>

#include <gtest/gtest.h>

namespace {

using ToolTest::RunTool;
using ToolTest::Scratch;
using ToolTest::ToolRun;

const QString& Folder()
{
    static const QString folder = QStringLiteral(REPORTGENERATOR_TEST_EXAMPLES "/problems");
    return folder;
}

QString TextOf(const QString& path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return QString::fromUtf8(file.readAll());
}

/// The files of the folder.
QStringList Stored()
{
    return QDir(Folder() + QStringLiteral("/files")).entryList(QDir::Files);
}

QStringList Matches(const QString& text, const char* pattern)
{
    QStringList found;
    QRegularExpressionMatchIterator matches =
        QRegularExpression(QLatin1String(pattern), QRegularExpression::MultilineOption).globalMatch(text);
    while (matches.hasNext())
        found << matches.next().captured(1);
    return found;
}

QStringList NamesIn(const QString& told)
{
    return Matches(told, "^\\S+: (\\w+): ");
}

/// The names in the first column of the tables on problems and on warnings: those are at the places 0 and 1 among tables
/// that begin so.
QStringList NamesOfTable(int place)
{
    const QString page = TextOf(QStringLiteral(REPORTGENERATOR_TEST_EXAMPLES "/../docs/reporttool.md"));
    const QStringList tables = page.split(QLatin1String("| name | meaning |\n"));
    EXPECT_EQ(tables.size(), 3);
    return Matches(tables.value(place + 1).section(QLatin1String("\n\n"), 0, 0), "^\\| (\\w+) \\|");
}

TEST(ToolProblems, TheFolderShowsEachThatThePageNames)
{
    const QStringList told = NamesIn(TextOf(Folder() + QStringLiteral("/told.txt")));
    const QStringList problems = NamesOfTable(0);
    const QStringList warnings = NamesOfTable(1);
    EXPECT_EQ(problems.size(), 6);
    EXPECT_EQ(warnings.size(), 9);
    for (const QString& name : problems + warnings)
        EXPECT_TRUE(told.contains(name)) << name.toStdString();
    for (const char* name :
         {"BinaryParsingException", "InvalidXmlException", "OutOfRangeException", "RGException"})
        EXPECT_TRUE(told.contains(QLatin1String(name))) << name;
}

TEST(ToolProblems, OnlyThoseOfTheSecondTableAreWarningsOtherwise)
{
    const QStringList warnings = NamesOfTable(1);
    for (const QString& file : Stored()) {
        const QString name = Matches(file, "^(\\w+)").value(0);
        const ToolRun run = RunTool({"check", "--no-warnings", Folder() + QStringLiteral("/files/") + file});
        EXPECT_EQ(run.exitCode, warnings.contains(name) ? 0 : 1) << file.toStdString();
    }
}

#ifndef Q_OS_WIN

/// The folder with what is made there.
class Copy
{
public:
    Copy()
    {
        for (const char* folder : {"files", "made"})
            QDir(m_scratch.Folder()).mkdir(QLatin1String(folder));
        for (const QString& name : Stored())
            EXPECT_TRUE(QFile::copy(Folder() + QStringLiteral("/files/") + name, Path(name)));
        const ToolRun made = ToolTest::RunProgram(
            QStringLiteral("sh"), {Folder() + QStringLiteral("/make.sh"), QStringLiteral("made")},
            {{}, m_scratch.Folder(), {}});
        EXPECT_EQ(made.exitCode, 0) << made.errors.toStdString();
    }

    QStringList Made() const { return QDir(Place() + QStringLiteral("/made")).entryList(QDir::Files); }

    QString Path(const QString& name) const { return Place() + QStringLiteral("/files/") + name; }

    QString Place() const { return m_scratch.Folder(); }

private:
    Scratch m_scratch;
};

TEST(ToolProblems, AreToldAsTheListHasThem)
{
    const Copy copy;
    const QString large = QStringLiteral("TooLarge.bin");
    ASSERT_TRUE(QFile::copy(copy.Place() + QStringLiteral("/made/") + large, copy.Path(large)));
    const ToolRun run = RunTool({"check", "--strict", "-r", "files"}, {{}, copy.Place(), {}});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TEXT(run.Output(), TextOf(Folder() + QStringLiteral("/told.txt")));
    EXPECT_TEXT(run.Errors(), "25 files: 0 good, 25 invalid, 0 unreadable\n");
}

TEST(ToolProblems, BinaryFilesAreWhatTheScriptWrites)
{
    const Copy copy;
    EXPECT_EQ(copy.Made().size(), 9);
    for (const QString& name : copy.Made()) {
        if (name == QLatin1String("TooLarge.bin"))
            continue;
        QFile made(copy.Place() + QStringLiteral("/made/") + name);
        QFile stored(copy.Path(name));
        ASSERT_TRUE(made.open(QIODevice::ReadOnly) && stored.open(QIODevice::ReadOnly)) << name.toStdString();
        EXPECT_EQ(made.readAll(), stored.readAll()) << name.toStdString();
    }
}

#endif

} // namespace
