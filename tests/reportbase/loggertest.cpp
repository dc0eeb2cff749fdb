#include "support/expect.h"

#include <reportgenerator/reportbase/listlogger.h>
#include <reportgenerator/reportbase/logger.h>
#include <reportgenerator/reportbase/outofrangeexception.h>
#include <reportgenerator/reportbase/reportexception.h>
#include <reportgenerator/reportbase/rgexception.h>

#include <gtest/gtest.h>

#include <QtCore/QDateTime>
#include <QtCore/QLocale>
#include <QtCore/QRegularExpression>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <memory>
#include <type_traits>
#include <vector>

namespace {

using REPORTGENERATOR::ListLogger;
using REPORTGENERATOR::Logger;
using REPORTGENERATOR::LogLevel;
using Support::Text;

LogLevel Level(int number)
{
    return static_cast<LogLevel>(number);
}

/// A logger that keeps what it is given, and lets the protected members out.
class KeepingLogger : public Logger
{
public:
    struct Call
    {
        LogLevel level;
        QString text;
        bool fatal;
    };

    explicit KeepingLogger(LogLevel level) : Logger(level) {}

    using Logger::GetLogLevel;
    using Logger::GetNowString;
    using Logger::Trace;

    void Trace(LogLevel level, const QString& text, bool fatal) override
    {
        calls.push_back({level, text, fatal});
    }
    bool HasErrors() const override { return false; }
    void Reset(bool) override {}

    std::vector<Call> calls;
};

/// An exception with a name of its own making.
class RenamedException : public RGException
{
public:
    using RGException::RGException;
    const QString& GetErrorName() const override { return m_name; }

private:
    QString m_name = Text("Renamed");
};

/// "dd.MM.yyyy hh:mm:ss.zzz" in an order that sorts by time.
QString Sortable(const QString& time)
{
    return time.mid(6, 4) + time.mid(3, 2) + time.mid(0, 2) + time.mid(10);
}

bool HasTimeShape(const QString& text)
{
    const QRegularExpression shape(
        QStringLiteral("^[0-9]{2}\\.[0-9]{2}\\.[0-9]{4} [0-9]{2}:[0-9]{2}:[0-9]{2}\\.[0-9]{3}$"));
    return shape.match(text).hasMatch();
}

/// Makes another locale Qt's default as long as a test runs.
class DefaultLocale
{
public:
    explicit DefaultLocale(const QLocale& locale) { QLocale::setDefault(locale); }
    ~DefaultLocale() { QLocale::setDefault(m_before); }

private:
    QLocale m_before = QLocale();
};

} // namespace

// --- LogLevel ----------------------------------------------------------------------------------------------

TEST(LogLevel, IsAnUnscopedEnumerationOfInts)
{
    static_assert(std::is_same_v<std::underlying_type_t<LogLevel>, int>);
    static_assert(std::is_convertible_v<LogLevel, int>);
    EXPECT_EQ(static_cast<int>(REPORTGENERATOR::ERROR), 0);
    EXPECT_EQ(static_cast<int>(REPORTGENERATOR::WARNING), 1);
    EXPECT_EQ(static_cast<int>(REPORTGENERATOR::INFO), 2);
    EXPECT_EQ(REPORTGENERATOR::LogLevel::ERROR, REPORTGENERATOR::ERROR);
    EXPECT_EQ(REPORTGENERATOR::LogLevel::WARNING, REPORTGENERATOR::WARNING);
    EXPECT_EQ(REPORTGENERATOR::LogLevel::INFO, REPORTGENERATOR::INFO);
}

// --- Logger ------------------------------------------------------------------------------------------------

TEST(Logger, IsAbstractAndCannotBeCopied)
{
    static_assert(std::is_abstract_v<Logger>);
    static_assert(std::has_virtual_destructor_v<Logger>);
    static_assert(!std::is_copy_constructible_v<KeepingLogger>);
    static_assert(!std::is_copy_assignable_v<KeepingLogger>);
    static_assert(!std::is_copy_assignable_v<Logger>);
}

TEST(Logger, KeepsTheLevelGivenAtConstruction)
{
    for (const int number : {0, 1, 2, -1, 17})
        EXPECT_EQ(KeepingLogger(Level(number)).GetLogLevel(), Level(number));
}

TEST(Logger, ExceptionIsPassedOnAsNameColonText)
{
    KeepingLogger logger(REPORTGENERATOR::ERROR);
    for (const int number : {0, 1, 2, 5}) {
        for (const bool fatal : {true, false}) {
            logger.calls.clear();
            logger.Trace(Level(number), RGException(Text("T")), fatal);
            ASSERT_EQ(logger.calls.size(), 1u);
            EXPECT_EQ(logger.calls[0].level, Level(number));
            EXPECT_TEXT(logger.calls[0].text, "RGException: T");
            EXPECT_EQ(logger.calls[0].fatal, fatal);
        }
    }
}

TEST(Logger, ExceptionIsAskedForItsNameAndText)
{
    KeepingLogger logger(REPORTGENERATOR::INFO);
    logger.Trace(REPORTGENERATOR::ERROR, ReportException(), false);
    logger.Trace(REPORTGENERATOR::ERROR, OutOfRangeException(Text("100%1 %2")), false);
    logger.Trace(REPORTGENERATOR::ERROR, RenamedException(Text("text")), false);
    logger.Trace(REPORTGENERATOR::ERROR, RGException(QString()), false);
    ASSERT_EQ(logger.calls.size(), 4u);
    EXPECT_TEXT(logger.calls[0].text, "ReportException: unknown error");
    EXPECT_TEXT(logger.calls[1].text, "OutOfRangeException: 100%1 %2");
    EXPECT_TEXT(logger.calls[2].text, "Renamed: text");
    EXPECT_TEXT(logger.calls[3].text, "RGException: ");
}

TEST(Logger, NowStringIsTheLocalTimeWithMilliseconds)
{
    const QString format = Text("dd.MM.yyyy hh:mm:ss.zzz");
    const KeepingLogger logger(REPORTGENERATOR::INFO);
    const QString before = QLocale::c().toString(QDateTime::currentDateTime(), format);
    const QString now = logger.GetNowString();
    const QString after = QLocale::c().toString(QDateTime::currentDateTime(), format);
    EXPECT_TRUE(HasTimeShape(now)) << now.toStdString();
    EXPECT_LE(Sortable(before), Sortable(now));
    EXPECT_LE(Sortable(now), Sortable(after));
}

TEST(Logger, NowStringIsIndependentOfTheLocale)
{
    const QLocale locales[] = {
        QLocale(QLocale::Arabic, QLocale::Egypt),  QLocale(QLocale::Persian, QLocale::Iran),
        QLocale(QLocale::Hindi, QLocale::India),   QLocale(QLocale::German, QLocale::Germany),
        QLocale(QLocale::Thai, QLocale::Thailand),
    };
    for (const QLocale& locale : locales) {
        SCOPED_TRACE(locale.name().toStdString());
        const DefaultLocale changed(locale);
        const QString now = KeepingLogger(REPORTGENERATOR::INFO).GetNowString();
        EXPECT_TRUE(HasTimeShape(now)) << now.toStdString();
        EXPECT_EQ(now.mid(6, 2), Text("20"));

        ListLogger logger(REPORTGENERATOR::INFO);
        logger.Trace(REPORTGENERATOR::ERROR, Text("text 1.5"), true);
        EXPECT_LOG(logger, {"FATAL ERROR: text 1.5"});
    }
}

// --- ListLogger --------------------------------------------------------------------------------------------

TEST(ListLogger, CannotBeCopied)
{
    static_assert(std::is_base_of_v<Logger, ListLogger>);
    static_assert(!std::is_copy_constructible_v<ListLogger>);
    static_assert(!std::is_copy_assignable_v<ListLogger>);
    static_assert(std::is_constructible_v<ListLogger, LogLevel>);
}

TEST(ListLogger, StartsEmptyAndWithoutErrors)
{
    ListLogger logger(REPORTGENERATOR::INFO);
    EXPECT_FALSE(logger.HasErrors());
    EXPECT_TRUE(logger.GetLogEntryList().isEmpty());
}

TEST(ListLogger, LineIsTimeFatalLevelAndText)
{
    ListLogger logger(REPORTGENERATOR::INFO);
    logger.Trace(REPORTGENERATOR::ERROR, Text("T"), true);
    logger.Trace(REPORTGENERATOR::ERROR, Text("T"), false);
    logger.Trace(REPORTGENERATOR::WARNING, Text("T"), true);
    logger.Trace(REPORTGENERATOR::INFO, Text("T"), false);
    const QStringList& lines = logger.GetLogEntryList();
    ASSERT_EQ(lines.size(), 4);
    const char* ends[] = {" - FATAL ERROR: T", " - ERROR: T", " - FATAL WARNING: T", " - INFO: T"};
    for (int i = 0; i < 4; ++i) {
        EXPECT_TRUE(HasTimeShape(lines[i].left(23))) << lines[i].toStdString();
        EXPECT_TEXT(lines[i].mid(23), ends[i]);
    }
}

TEST(ListLogger, TextMayHoldAnything)
{
    ListLogger logger(REPORTGENERATOR::INFO);
    logger.Trace(REPORTGENERATOR::INFO, Text("%1 %2 %3 %4 %L1 100%"), false);
    logger.Trace(REPORTGENERATOR::INFO, QString(), false);
    logger.Trace(REPORTGENERATOR::INFO, Text("two\nlines"), false);
    logger.Trace(REPORTGENERATOR::INFO, Text("Zürich € 😀"), false);
    EXPECT_LOG(logger, {"INFO: %1 %2 %3 %4 %L1 100%", "INFO: ", "INFO: two\nlines", "INFO: Zürich € 😀"});
}

TEST(ListLogger, DropsWhatIsLessSevereThanItsOwnLevel)
{
    struct Row
    {
        int level;
        std::vector<int> recorded;
    };
    const Row rows[] = {
        {0, {0}}, {1, {0, 1}}, {2, {0, 1, 2}}, {-1, {}}, {7, {0, 1, 2}},
    };
    const char* lines[] = {"ERROR: T", "WARNING: T", "INFO: T"};
    for (const Row& row : rows) {
        SCOPED_TRACE(row.level);
        ListLogger logger(Level(row.level));
        QStringList expected;
        for (const int number : row.recorded)
            expected << Text(lines[number]);
        for (const int number : {0, 1, 2})
            logger.Trace(Level(number), Text("T"), false);
        EXPECT_LOG(logger, expected);
        EXPECT_EQ(logger.HasErrors(), !row.recorded.empty());
    }
}

TEST(ListLogger, OnlyRecordedErrorsSetTheErrorFlag)
{
    for (const bool fatal : {true, false}) {
        ListLogger logger(REPORTGENERATOR::INFO);
        logger.Trace(REPORTGENERATOR::INFO, Text("T"), fatal);
        logger.Trace(REPORTGENERATOR::WARNING, Text("T"), fatal);
        EXPECT_FALSE(logger.HasErrors());
        logger.Trace(REPORTGENERATOR::ERROR, Text("T"), fatal);
        EXPECT_TRUE(logger.HasErrors());
        logger.Trace(REPORTGENERATOR::INFO, Text("T"), fatal);
        EXPECT_TRUE(logger.HasErrors());
    }
    ListLogger deaf(Level(-1));
    deaf.Trace(REPORTGENERATOR::ERROR, Text("T"), true);
    EXPECT_FALSE(deaf.HasErrors());
    EXPECT_TRUE(deaf.GetLogEntryList().isEmpty());
}

TEST(ListLogger, LevelsOutsideTheListAreComparedByTheirNumber)
{
    ListLogger logger(REPORTGENERATOR::INFO);
    logger.Trace(Level(3), Text("less severe"), false);
    EXPECT_TRUE(logger.GetLogEntryList().isEmpty());

    // Such a level has no name; its line is kept all the same, and it is no ERROR.
    logger.Trace(Level(-1), Text("more severe"), true);
    ListLogger patient(Level(9));
    patient.Trace(Level(8), Text("hardly of interest"), false);
    ASSERT_EQ(logger.GetLogEntryList().size(), 1);
    ASSERT_EQ(patient.GetLogEntryList().size(), 1);
    EXPECT_TRUE(logger.GetLogEntryList()[0].endsWith(Text(": more severe")));
    EXPECT_TRUE(patient.GetLogEntryList()[0].endsWith(Text(": hardly of interest")));
    EXPECT_FALSE(logger.HasErrors());
}

TEST(ListLogger, ExceptionsAreRecordedWithNameAndText)
{
    ListLogger logger(REPORTGENERATOR::WARNING);
    logger.Trace(REPORTGENERATOR::ERROR, RGException(Text("T")), true);
    logger.Trace(REPORTGENERATOR::WARNING, OutOfRangeException(Text("T")), false);
    logger.Trace(REPORTGENERATOR::INFO, RGException(Text("dropped")), true);
    EXPECT_LOG(logger, {"FATAL ERROR: RGException: T", "WARNING: OutOfRangeException: T"});
    EXPECT_TRUE(logger.HasErrors());
}

TEST(ListLogger, ResetClearsTheFlagAndTheLinesOnlyWhenAsked)
{
    ListLogger logger(REPORTGENERATOR::INFO);
    logger.Trace(REPORTGENERATOR::ERROR, Text("T"), false);
    logger.Reset(false);
    EXPECT_FALSE(logger.HasErrors());
    EXPECT_LOG(logger, {"ERROR: T"});

    logger.Trace(REPORTGENERATOR::ERROR, Text("U"), false);
    EXPECT_TRUE(logger.HasErrors());
    EXPECT_LOG(logger, {"ERROR: T", "ERROR: U"});

    logger.Reset(true);
    EXPECT_FALSE(logger.HasErrors());
    EXPECT_LOG(logger, {});

    logger.Trace(REPORTGENERATOR::INFO, Text("V"), false);
    EXPECT_LOG(logger, {"INFO: V"});
}

TEST(ListLogger, HandsOutTheListItself)
{
    ListLogger logger(REPORTGENERATOR::INFO);
    QStringList& list = logger.GetLogEntryList();
    logger.Trace(REPORTGENERATOR::ERROR, Text("first"), false);
    ASSERT_EQ(list.size(), 1);

    list.clear();
    list << Text("of the caller");
    logger.Trace(REPORTGENERATOR::INFO, Text("second"), false);
    EXPECT_EQ(&logger.GetLogEntryList(), &list);
    ASSERT_EQ(list.size(), 2);
    EXPECT_TEXT(list[0], "of the caller");
    EXPECT_TRUE(logger.HasErrors());

    logger.Reset(true);
    EXPECT_TRUE(list.isEmpty());
}

TEST(ListLogger, KeepsTheOrderAndAllLines)
{
    constexpr int COUNT = 5000;
    ListLogger logger(REPORTGENERATOR::INFO);
    for (int i = 0; i < COUNT; ++i)
        logger.Trace(REPORTGENERATOR::INFO, QString::number(i), false);
    const QStringList& lines = logger.GetLogEntryList();
    ASSERT_EQ(lines.size(), COUNT);
    for (int i = 0; i < COUNT; ++i)
        EXPECT_TEXT(lines[i].mid(26), Text("INFO: ") + QString::number(i));
}

TEST(ListLogger, IsUsableThroughItsBase)
{
    const std::unique_ptr<Logger> logger = std::make_unique<ListLogger>(REPORTGENERATOR::WARNING);
    logger->Trace(REPORTGENERATOR::ERROR, Text("T"), false);
    EXPECT_TRUE(logger->HasErrors());
    logger->Reset(false);
    EXPECT_FALSE(logger->HasErrors());
}
