#include "support/expect.h"

#include <reportgenerator/reportbase/converters.h>

#include <gtest/gtest.h>

#include <QtCore/QDate>
#include <QtCore/QDateTime>
#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QLocale>
#include <QtCore/QString>
#include <QtCore/QTime>

#include <future>
#include <type_traits>
#include <utility>
#include <vector>

namespace {

// The types that callers were compiled with.
static_assert(std::is_same_v<decltype(&Converters::ToString), QString (*)(const QDateTime&)>);
static_assert(std::is_same_v<decltype(&Converters::GetFormatedCurrentDateTime), QString (*)()>);
static_assert(std::is_same_v<decltype(&Converters::ToDateTime), QDateTime (*)(const QString&)>);
static_assert(std::is_same_v<decltype(&Converters::ToValidXmlString), QString (*)(const QString&)>);
static_assert(std::is_same_v<decltype(static_cast<QString (*)(const QString&)>(&Converters::ToUrl)),
                             QString (*)(const QString&)>);
static_assert(std::is_same_v<decltype(static_cast<QString (*)(const QFileInfo&)>(&Converters::ToUrl)),
                             QString (*)(const QFileInfo&)>);

QDateTime Utc(const QDate& date, const QTime& time)
{
    return QDateTime(date, time, Qt::UTC);
}

QDateTime AtOffset(const QDate& date, const QTime& time, int seconds)
{
    return QDateTime(date, time, Qt::OffsetFromUTC, seconds);
}

/// The local date-time of a moment, counted in milliseconds from the start of 1970 in UTC.
QDateTime Local(qint64 milliseconds)
{
    return QDateTime::fromMSecsSinceEpoch(milliseconds);
}

QString Url(const char* path)
{
    return Converters::ToUrl(Support::Text(path));
}

/// The text from the UTF-16 units themselves, also those that no UTF-8 literal can hold.
QString Units(const std::vector<ushort>& units)
{
    QString text;
    for (const ushort unit : units)
        text.append(QChar(unit));
    return text;
}

class DefaultLocale
{
public:
    explicit DefaultLocale(const QLocale& locale) { QLocale::setDefault(locale); }
    ~DefaultLocale() { QLocale::setDefault(m_before); }

private:
    Q_DISABLE_COPY(DefaultLocale)

    QLocale m_before;
};

class CurrentFolder
{
public:
    explicit CurrentFolder(const QString& path) { QDir::setCurrent(path); }
    ~CurrentFolder() { QDir::setCurrent(m_before); }

private:
    Q_DISABLE_COPY(CurrentFolder)

    QString m_before = QDir::currentPath();
};

// An absolute path and the start of its URL.
#ifdef Q_OS_WIN
const QString ROOT = QStringLiteral("C:/");
const QString ROOT_URL = QStringLiteral("file:///C:/");
#else
const QString ROOT = QStringLiteral("/");
const QString ROOT_URL = QStringLiteral("file:///");
#endif

} // namespace

// --- Date-times as text -----------------------------------------------------------------------------------

TEST(Converters, DateTimeInUtcIsWrittenWithMillisecondsAndZ)
{
    EXPECT_TEXT(Converters::ToString(Utc(QDate(2014, 7, 3), QTime(8, 5, 9, 120))),
                "2014-07-03T08:05:09.120Z");
    EXPECT_TEXT(Converters::ToString(Utc(QDate(1999, 12, 31), QTime(23, 59, 59, 999))),
                "1999-12-31T23:59:59.999Z");
    EXPECT_TEXT(Converters::ToString(Utc(QDate(2016, 2, 29), QTime(0, 0))), "2016-02-29T00:00:00.000Z");
    EXPECT_TEXT(Converters::ToString(Utc(QDate(2016, 2, 29), QTime(12, 0, 0, 7))),
                "2016-02-29T12:00:00.007Z");
}

TEST(Converters, DateTimeAtAnOffsetIsShiftedToUtc)
{
    EXPECT_TEXT(Converters::ToString(AtOffset(QDate(2014, 7, 3), QTime(10, 5, 9, 120), 2 * 3600)),
                "2014-07-03T08:05:09.120Z");
    EXPECT_TEXT(Converters::ToString(AtOffset(QDate(2014, 1, 1), QTime(0, 30), 3600)),
                "2013-12-31T23:30:00.000Z");
    EXPECT_TEXT(Converters::ToString(AtOffset(QDate(2014, 12, 31), QTime(21, 0), -(3 * 3600 + 1800))),
                "2015-01-01T00:30:00.000Z");
}

TEST(Converters, LocalDateTimeIsShiftedToUtc)
{
    const QDateTime spring = Local(1400000000123);
    ASSERT_EQ(spring.timeSpec(), Qt::LocalTime);
    EXPECT_TEXT(Converters::ToString(spring), "2014-05-13T16:53:20.123Z");
    EXPECT_TEXT(Converters::ToString(Local(0)), "1970-01-01T00:00:00.000Z");
    EXPECT_TEXT(Converters::ToString(Local(-1)), "1969-12-31T23:59:59.999Z");
}

TEST(Converters, WritingADateTimeLeavesItAsItWas)
{
    const QDateTime dateTime = AtOffset(QDate(2014, 7, 3), QTime(10, 5, 9, 120), 7200);
    Converters::ToString(dateTime);
    EXPECT_EQ(dateTime.timeSpec(), Qt::OffsetFromUTC);
    EXPECT_EQ(dateTime.time(), QTime(10, 5, 9, 120));
}

TEST(Converters, YearsHaveAtLeastFourDigits)
{
    EXPECT_TEXT(Converters::ToString(Utc(QDate(99, 7, 3), QTime(8, 5))), "0099-07-03T08:05:00.000Z");
    EXPECT_TEXT(Converters::ToString(Utc(QDate(9999, 12, 31), QTime(23, 59))), "9999-12-31T23:59:00.000Z");
}

TEST(Converters, DateTimeHasPlainDigitsWhateverTheDefaultLocale)
{
    const DefaultLocale arabic(QLocale(QLocale::Arabic, QLocale::Egypt));
    ASSERT_NE(QLocale().toString(12), QStringLiteral("12"));
    EXPECT_TEXT(Converters::ToString(Utc(QDate(2014, 7, 3), QTime(8, 5, 9, 120))),
                "2014-07-03T08:05:09.120Z");
}

TEST(Converters, NullOrInvalidDateTimeGivesAnEmptyText)
{
    EXPECT_TRUE(Converters::ToString(QDateTime()).isEmpty());
    EXPECT_TRUE(Converters::ToString(Utc(QDate(2014, 2, 30), QTime(8, 5))).isEmpty());
}

TEST(Converters, CurrentDateTimeIsThePresentMomentInTheSameForm)
{
    const QDateTime before = QDateTime::currentDateTimeUtc();
    const QString text = Converters::GetFormatedCurrentDateTime();
    const QDateTime after = QDateTime::currentDateTimeUtc();

    const QDateTime read = Converters::ToDateTime(text);
    ASSERT_TRUE(read.isValid()) << ::testing::PrintToString(text);
    EXPECT_LE(before, read);
    EXPECT_LE(read, after);
    EXPECT_TEXT(text, Converters::ToString(read));
}

// --- Date-times from text ---------------------------------------------------------------------------------

TEST(Converters, TextWithZIsReadAsUtc)
{
    const QDateTime dateTime = Converters::ToDateTime(QStringLiteral("2014-07-03T08:05:09.120Z"));
    EXPECT_EQ(dateTime.timeSpec(), Qt::UTC);
    EXPECT_EQ(dateTime.date(), QDate(2014, 7, 3));
    EXPECT_EQ(dateTime.time(), QTime(8, 5, 9, 120));
}

TEST(Converters, TextWithAnOffsetIsReadAtThatOffset)
{
    const QDateTime dateTime = Converters::ToDateTime(QStringLiteral("2014-07-03T08:05:09.120-03:30"));
    EXPECT_EQ(dateTime.timeSpec(), Qt::OffsetFromUTC);
    EXPECT_EQ(dateTime.offsetFromUtc(), -12600);
    EXPECT_EQ(dateTime.time(), QTime(8, 5, 9, 120));
}

TEST(Converters, TextWithoutOffsetIsReadAsLocalTime)
{
    const QDateTime dateTime = Converters::ToDateTime(QStringLiteral("2014-07-03T08:05:09.120"));
    EXPECT_EQ(dateTime.timeSpec(), Qt::LocalTime);
    EXPECT_EQ(dateTime.date(), QDate(2014, 7, 3));
    EXPECT_EQ(dateTime.time(), QTime(8, 5, 9, 120));
}

TEST(Converters, SecondsAndMillisecondsMayBeMissing)
{
    EXPECT_EQ(Converters::ToDateTime(QStringLiteral("2014-07-03T08:05:09Z")),
              Utc(QDate(2014, 7, 3), QTime(8, 5, 9)));
    EXPECT_EQ(Converters::ToDateTime(QStringLiteral("2014-07-03T08:05Z")),
              Utc(QDate(2014, 7, 3), QTime(8, 5)));
}

TEST(Converters, DateAloneIsItsMidnightInLocalTime)
{
    const QDateTime dateTime = Converters::ToDateTime(QStringLiteral("2014-07-03"));
    EXPECT_EQ(dateTime.timeSpec(), Qt::LocalTime);
    EXPECT_EQ(dateTime.date(), QDate(2014, 7, 3));
    EXPECT_EQ(dateTime.time(), QTime(0, 0));
}

TEST(Converters, TextWithoutADateTimeGivesAnInvalidOne)
{
    EXPECT_FALSE(Converters::ToDateTime(QString()).isValid());
    for (const char* text :
         {"", "now", "03.07.2014 08:05:09", "2014-13-01T00:00:00Z", "2014-02-30T00:00:00Z",
          "2014-07-03T25:00:00Z", "2014-07-03T08:60:00Z", "2014-07", "2014-07-03T08:05:09.120X"})
        EXPECT_FALSE(Converters::ToDateTime(Support::Text(text)).isValid()) << text;
}

TEST(Converters, WrittenDateTimesAreReadBackToTheMillisecond)
{
    for (const qint64 milliseconds : {qint64(0), qint64(-1), qint64(1400000000123), qint64(4102444799999)}) {
        const QDateTime read = Converters::ToDateTime(Converters::ToString(Local(milliseconds)));
        EXPECT_EQ(read.toMSecsSinceEpoch(), milliseconds);
        EXPECT_EQ(read.timeSpec(), Qt::UTC);
    }
}

// --- URLs -------------------------------------------------------------------------------------------------

TEST(Converters, EmptyPathStaysEmpty)
{
    EXPECT_TEXT(Url(""), "");
    EXPECT_TRUE(Converters::ToUrl(QString()).isEmpty());
}

TEST(Converters, DrivePathBecomesAFileUrlWithSlashes)
{
    EXPECT_TEXT(Url("C:\\data\\a.xml"), "file:///C:/data/a.xml");
    EXPECT_TEXT(Url("C:/data/a.xml"), "file:///C:/data/a.xml");
    EXPECT_TEXT(Url("C:\\data/b\\a.xml"), "file:///C:/data/b/a.xml");
}

TEST(Converters, NetworkPathBecomesAFileUrlWithItsHost)
{
    EXPECT_TEXT(Url("\\\\host\\share\\a.xml"), "file://host/share/a.xml");
    EXPECT_TEXT(Url("//host/share/a.xml"), "file://host/share/a.xml");
    EXPECT_TEXT(Url("\\/host/share"), "file://host/share");
    EXPECT_TEXT(Url("\\\\"), "file://");
    EXPECT_TEXT(Url("///a"), "file:///a");
}

TEST(Converters, RelativePathStaysRelative)
{
    EXPECT_TEXT(Url("a/b"), "file:///a/b");
    EXPECT_TEXT(Url("a\\b"), "file:///a/b");
    EXPECT_TEXT(Url("a.xml"), "file:///a.xml");
    EXPECT_TEXT(Url("../a.xml"), "file:///../a.xml");
}

TEST(Converters, PathThatStartsWithOneSlashKeepsItBehindTheScheme)
{
    EXPECT_TEXT(Url("/data/a.xml"), "file:////data/a.xml");
    EXPECT_TEXT(Url("\\"), "file:////");
}

TEST(Converters, TextWithASchemeComesBackUnchanged)
{
    for (const char* url :
         {"http://host/a.xml", "file:///C:/data/a.xml", "ftp://host", "x://", "://", "a/b://c"})
        EXPECT_TEXT(Url(url), url);
}

TEST(Converters, TextWithASchemeStillGetsSlashes)
{
    EXPECT_TEXT(Url("http://host\\a\\b.xml"), "http://host/a/b.xml");
}

TEST(Converters, DriveWithTwoBackslashesIsTakenForAScheme)
{
    EXPECT_TEXT(Url("C:\\\\data\\a.xml"), "C://data/a.xml");
}

TEST(Converters, NetworkPathThatHoldsASchemeStillGetsTheFileScheme)
{
    EXPECT_TEXT(Url("\\\\host\\a://b"), "file://host/a://b");
}

TEST(Converters, OwnSchemeComesBackUnchanged)
{
    EXPECT_TEXT(Url("vemox:/report/7"), "vemox:/report/7");
    EXPECT_TEXT(Url("vemox:/"), "vemox:/");
    EXPECT_TEXT(Url("vemox://report"), "vemox://report");
    EXPECT_TEXT(Url("vemox:\\report\\7"), "vemox:/report/7");
}

TEST(Converters, OwnSchemeCountsOnlyAtTheStartInLowerCaseAndWithItsSlash)
{
    EXPECT_TEXT(Url("VEMOX:/report"), "file:///VEMOX:/report");
    EXPECT_TEXT(Url("Vemox:/report"), "file:///Vemox:/report");
    EXPECT_TEXT(Url("vemox:report"), "file:///vemox:report");
    EXPECT_TEXT(Url("vemox"), "file:///vemox");
    EXPECT_TEXT(Url("a/vemox:/report"), "file:///a/vemox:/report");
    EXPECT_TEXT(Url(" vemox:/report"), "file:/// vemox:/report");
}

TEST(Converters, SchemeWithoutTwoSlashesIsTakenForAPath)
{
    EXPECT_TEXT(Url("mailto:a@b"), "file:///mailto:a@b");
    EXPECT_TEXT(Url("http:/host"), "file:///http:/host");
}

TEST(Converters, PathIsNotEncoded)
{
    EXPECT_TEXT(Url("a b/\xc3\xbc#?%20.xml"), "file:///a b/\xc3\xbc#?%20.xml");
}

TEST(Converters, FileInfoGivesTheUrlOfItsAbsolutePath)
{
    EXPECT_TEXT(Converters::ToUrl(QFileInfo(ROOT + QStringLiteral("data/a.xml"))),
                ROOT_URL + QStringLiteral("data/a.xml"));
}

TEST(Converters, RelativeFileInfoIsMadeAbsolute)
{
    const CurrentFolder root(ROOT);
    EXPECT_TEXT(Converters::ToUrl(QFileInfo(QStringLiteral("a/b.xml"))),
                ROOT_URL + QStringLiteral("a/b.xml"));
}

TEST(Converters, FileInfoEncodesOnlyWhatAUrlNeedsEncoded)
{
    EXPECT_TEXT(Converters::ToUrl(QFileInfo(ROOT + Support::Text("a b/\xc3\xbc.xml"))),
                ROOT_URL + Support::Text("a b/\xc3\xbc.xml"));
    EXPECT_TEXT(Converters::ToUrl(QFileInfo(ROOT + QStringLiteral("a#b%20c.xml"))),
                ROOT_URL + QStringLiteral("a%23b%2520c.xml"));
}

TEST(Converters, FileInfoOfNoFileGivesAnEmptyText)
{
    EXPECT_TRUE(Converters::ToUrl(QFileInfo()).isEmpty());
}

// --- Text for XML -----------------------------------------------------------------------------------------

TEST(Converters, BellVerticalTabAndFormFeedAreRemovedWhereverTheyStand)
{
    EXPECT_TEXT(Converters::ToValidXmlString(QStringLiteral("\a"
                                                            "a\v"
                                                            "b\f")),
                "ab");
    EXPECT_TEXT(Converters::ToValidXmlString(QStringLiteral("a\a\a\v\f\f\vb")), "ab");
    EXPECT_TEXT(Converters::ToValidXmlString(QStringLiteral("\a\v\f\a")), "");
}

TEST(Converters, TabsLineFeedsAndCarriageReturnsAreKept)
{
    EXPECT_TEXT(Converters::ToValidXmlString(QStringLiteral("\ta\r\nb\n\tc\r")), "\ta\r\nb\n\tc\r");
}

TEST(Converters, EveryOtherCharacterIsKept)
{
    std::vector<ushort> all;
    std::vector<ushort> kept;
    for (int unit = 0; unit <= 0xffff; ++unit) {
        all.push_back(static_cast<ushort>(unit));
        if (unit != 0x07 && unit != 0x0b && unit != 0x0c)
            kept.push_back(static_cast<ushort>(unit));
    }
    ASSERT_EQ(kept.size(), 0x10000u - 3u);
    EXPECT_TRUE(Converters::ToValidXmlString(Units(all)) == Units(kept));
}

TEST(Converters, LettersAndBackslashesAreNoControlCharacters)
{
    EXPECT_TEXT(Converters::ToValidXmlString(QStringLiteral("\\a\\f\\v [afv]")), "\\a\\f\\v [afv]");
}

TEST(Converters, EmptyAndNullTextsStayEmpty)
{
    EXPECT_TEXT(Converters::ToValidXmlString(QStringLiteral("")), "");
    EXPECT_TEXT(Converters::ToValidXmlString(QString()), "");
}

TEST(Converters, CleaningLeavesTheTextThatWasGiven)
{
    const QString text = QStringLiteral("a\ab");
    const QString copy = text;
    Converters::ToValidXmlString(copy);
    EXPECT_EQ(copy.size(), 3);
    EXPECT_EQ(text.size(), 3);
}

// --- Threads ----------------------------------------------------------------------------------------------

TEST(Converters, AnswerTheSameOnSeveralThreadsAtOnce)
{
    const auto convert = [] {
        std::vector<QString> results;
        for (int i = 0; i < 100; ++i) {
            results.push_back(Converters::ToString(Local(1400000000123 + i)));
            results.push_back(Converters::ToString(Converters::ToDateTime(results.back())));
            results.push_back(Url("C:\\data\\a.xml"));
            results.push_back(Converters::ToValidXmlString(QStringLiteral("a\ab")));
        }
        return results;
    };
    const std::vector<QString> expected = convert();
    std::vector<std::future<std::vector<QString>>> threads;
    for (int i = 0; i < 4; ++i)
        threads.push_back(std::async(std::launch::async, convert));
    for (auto& thread : threads)
        EXPECT_EQ(thread.get(), expected);
}
