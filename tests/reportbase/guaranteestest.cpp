// The pages that promise something name the tests that hold it.

#include "support/expect.h"

#include <gtest/gtest.h>

#include <QtCore/QFile>
#include <QtCore/QRegularExpression>
#include <QtCore/QString>
#include <QtCore/QStringList>

namespace {

using Support::Text;

/// "Suite.Test" of all tests of this program, each by its name in the sources: without the names of its values
/// and types.
QStringList TestNames()
{
    QStringList names;
    const testing::UnitTest& program = *testing::UnitTest::GetInstance();
    for (int i = 0; i < program.total_test_suite_count(); ++i) {
        const testing::TestSuite& suite = *program.GetTestSuite(i);
        const QStringList parts = QString::fromUtf8(suite.name()).split(QLatin1Char('/'));
        // "Inputs/Suite" has a test for each value, "Suite/0" for a type.
        const QString suiteName = suite.type_param() ? parts.first() : parts.last();
        for (int j = 0; j < suite.total_test_count(); ++j) {
            const QString test = QString::fromUtf8(suite.GetTestInfo(j)->name());
            names << suiteName + Text(".") + test.section(QLatin1Char('/'), 0, 0);
        }
    }
    return names;
}

/// The tests that a row of a table names in its last column; "*" stands for anything.
QStringList NamedIn(const QString& row)
{
    QStringList names;
    static const QRegularExpression quoted(Text("`([A-Za-z0-9_.*]+)`"));
    auto matches = quoted.globalMatch(row.section(QLatin1Char('|'), 2, 2));
    while (matches.hasNext())
        names << matches.next().captured(1);
    return names;
}

/// Each row of the tables of a page that name tests has such as exist. Returns how many rows there are.
int CheckedRows(const char* path)
{
    QFile page(Text(REPORTGENERATOR_TEST_VECTORS "/../../") + Text(path));
    if (!page.open(QIODevice::ReadOnly | QIODevice::Text))
        return 0;
    const QStringList tests = TestNames();
    int rows = 0;
    bool namesTests = false;
    for (const QString& line : QString::fromUtf8(page.readAll()).split(QLatin1Char('\n'))) {
        if (!line.startsWith(Text("| ")) || line.endsWith(Text("| tests |"))) {
            namesTests = line.endsWith(Text("| tests |")) || (namesTests && line.startsWith(Text("|-")));
            continue;
        }
        if (!namesTests)
            continue;
        ++rows;
        const QStringList names = NamedIn(line);
        EXPECT_FALSE(names.isEmpty()) << line.toStdString();
        for (QString name : names) {
            const QRegularExpression pattern(
                Text("^") +
                name.replace(QLatin1Char('.'), Text("[.]")).replace(QLatin1Char('*'), Text(".*")) +
                Text("$"));
            EXPECT_FALSE(tests.filter(pattern).isEmpty()) << name.toStdString() << " doesn't exist";
        }
    }
    return rows;
}

TEST(Guarantees, NameTestsThatExist)
{
    EXPECT_GT(CheckedRows("docs/guarantees.md"), 10);
}

TEST(Guarantees, OfOlderReleasesNameTestsThatExist)
{
    EXPECT_EQ(CheckedRows("docs/compatibility.md"), 10);
}

} // namespace
