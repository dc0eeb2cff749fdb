// Files that can't be read to their end: reading XML ends with the reader's error, wherever it stops.

#include "support/expect.h"
#include "support/files.h"
#include "support/paths.h"

#include <reportgenerator/reportbase/ellipse.h>
#include <reportgenerator/reportbase/reportbase.h>
#include <reportgenerator/reportbase/versionconverterproxy.h>

#include <gtest/gtest.h>

#include <QtCore/QByteArray>
#include <QtCore/QFile>
#include <QtCore/QString>

#include <algorithm>
#include <utility>

namespace {

using REPORTGENERATOR::Ellipse;
using REPORTGENERATOR::ReportBase;
using REPORTGENERATOR::VersionConverterProxy;
using Support::StreamPathOnly;
using Support::TemporaryFolder;

const char* const PREMATURE = "Premature end of document.";

/// What a file does when it has given the first so many bytes.
enum class Fault : int
{
    Error,  ///< -1
    Nothing ///< 0, though it isn't at its end
};

/// Gives the first so many bytes of a file and fails then, without calling that its end.
class FailingFile : private TemporaryFolder, public QFile
{
public:
    FailingFile(const QByteArray& content, qint64 good, Fault fault)
        : QFile(TemporaryFolder::Write("failing", content)), m_good(good), m_fault(fault)
    {
        EXPECT_TRUE(open(QIODevice::ReadOnly));
    }

    bool seek(qint64 position) override
    {
        m_given = position;
        return QFile::seek(position);
    }

protected:
    qint64 readData(char* data, qint64 size) override
    {
        const qint64 count = std::min(size, m_good - m_given);
        if (count <= 0)
            return m_fault == Fault::Error ? -1 : 0;
        m_given += QFile::readData(data, count);
        return count;
    }

private:
    qint64 m_good;
    qint64 m_given = 0;
    Fault m_fault;
};

/// Doesn't go back to where it was.
class OneWayFile : private TemporaryFolder, public QFile
{
public:
    explicit OneWayFile(const QByteArray& content) : QFile(TemporaryFolder::Write("oneway", content))
    {
        EXPECT_TRUE(open(QIODevice::ReadOnly));
    }

    bool seek(qint64 /*position*/) override { return false; }
};

/// Children of every kind, an unknown one and text in pieces among them.
const QByteArray DOCUMENT =
    "<?xml version=\"1.0\"?><Other><ReportBase><Unknown><a>text</a></Unknown><Frequency>1.0<!-- -->2.0"
    "</Frequency><Area Version=\"0.9\"><Foreign>x</Foreign><Name>N</Name><Coordinate><Longitude>1</Longitude>"
    "<Latitude>2</Latitude></Coordinate></Area></ReportBase>";

template <class Object>
void ExpectErrorWhereverItFails(Fault fault, int step)
{
    for (int good = 0; good < DOCUMENT.size(); good += step) {
        SCOPED_TRACE(good);
        FailingFile file(DOCUMENT, good, fault);
        Object report;
        EXPECT_RG_THROW(static_cast<REPORTGENERATOR::IRGObject&>(report).LoadXml(&file), "RGException",
                        PREMATURE);
    }
}

TEST(FailingFile, EndsWithTheErrorOfTheReaderWhereverItFails)
{
    ExpectErrorWhereverItFails<ReportBase>(Fault::Error, 1);
    ExpectErrorWhereverItFails<StreamPathOnly<ReportBase>>(Fault::Error, 7);
    ExpectErrorWhereverItFails<ReportBase>(Fault::Nothing, 7);
    ExpectErrorWhereverItFails<StreamPathOnly<ReportBase>>(Fault::Nothing, 7);
}

TEST(FailingFile, IsReadWhenTheElementHasEndedBefore)
{
    FailingFile file(DOCUMENT + "<More/></Other>", DOCUMENT.size(), Fault::Error);
    ReportBase report;
    EXPECT_TRUE(report.LoadXml(&file));
    EXPECT_EQ(report.GetFrequency().GetValue(), 2.0);
}

TEST(FailingFile, EndsWithTheErrorOfTheReaderBehindItsFirstBlocksToo)
{
    const QByteArray large = "<ReportBase><Area Version=\"1.0\"><Name>" + QByteArray(100000, 'n') + "</Name>";
    for (const int good : {8192, 8193, 50000}) {
        FailingFile file(large, good, Fault::Error);
        ReportBase report;
        EXPECT_RG_THROW(report.LoadXml(&file), "RGException", PREMATURE);
    }
}

TEST(FailingFile, PlainClassesEndWithTheErrorToo)
{
    for (const char* const cut : {"<Ellipse>", "<Ellipse><!-- ", "<Other><Ellip"}) {
        SCOPED_TRACE(cut);
        FailingFile file(QByteArray(cut) + "</Ellipse>", static_cast<int>(qstrlen(cut)), Fault::Nothing);
        Ellipse ellipse;
        EXPECT_RG_THROW(ellipse.LoadXml(&file), "RGException", PREMATURE);
    }
}

TEST(FailingFile, AFileThatIsOpenForAppendingOnlyIsAnError)
{
    const TemporaryFolder folder;
    QFile file(folder.Write("append.xml", "<ReportBase/>"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Append));
    ReportBase report;
    EXPECT_RG_THROW(report.LoadXml(&file), "RGException", PREMATURE);
    StreamPathOnly<ReportBase> derived;
    EXPECT_RG_THROW(static_cast<REPORTGENERATOR::IRGObject&>(derived).LoadXml(&file), "RGException",
                    PREMATURE);
}

TEST(FailingFile, AVersionConverterPassesTheErrorOnWhenAskedAndHasLoadedNothing)
{
    VersionConverterProxy proxy;
    ReportBase older;
    proxy.RegisterRootClass(QStringLiteral("ReportBase"), QStringLiteral("0.9"), &older);
    FailingFile asked(DOCUMENT, 30, Fault::Error);
    EXPECT_RG_THROW(proxy.CanUseProxy(&asked, nullptr), "RGException", PREMATURE);
    FailingFile loaded(DOCUMENT, 30, Fault::Error);
    EXPECT_FALSE(proxy.LoadXml(&loaded));
}

TEST(FailingFile, AFileThatDoesNotGoBackIsReadAllTheSame)
{
    const QByteArray xml = "<ReportBase><!-- comment --><Frequency>5</Frequency></ReportBase>";
    OneWayFile file(xml);
    ReportBase report;
    EXPECT_TRUE(report.LoadXml(&file));
    EXPECT_EQ(report.GetFrequency().GetValue(), 5.0);

    OneWayFile other(xml);
    StreamPathOnly<ReportBase> derived;
    EXPECT_TRUE(static_cast<REPORTGENERATOR::IRGObject&>(derived).LoadXml(&other));
    EXPECT_TRUE(derived == report);

    OneWayFile malformed(xml + "</Other>");
    ReportBase second;
    EXPECT_TRUE(second.LoadXml(&malformed));
    OneWayFile incomplete("<ReportBase><Frequency>");
    EXPECT_RG_THROW(second.LoadXml(&incomplete), "RGException", PREMATURE);
}

/// A reader takes 8192 bytes at a time, and none behind the element's end.
template <class Object>
void ExpectPositionBehind(int size, int expected)
{
    SCOPED_TRACE(size);
    const QByteArray start = "<ReportBase>";
    const QByteArray end = "<Frequency>5</Frequency></ReportBase>\n";
    const TemporaryFolder folder;
    QFile file(folder.Write("report.xml", start + QByteArray(size - start.size() - end.size(), ' ') + end));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    Object report;
    EXPECT_TRUE(static_cast<REPORTGENERATOR::IRGObject&>(report).LoadXml(&file));
    EXPECT_EQ(report.GetFrequency().GetValue(), 5.0);
    EXPECT_EQ(file.pos(), expected);
}

TEST(ReadFile, StandsBehindTheBlockInWhichTheElementEnds)
{
    for (const auto& [size, expected] : {std::pair(8192, 8192), {8193, 8192}, {8194, 8194}, {16385, 16384}}) {
        ExpectPositionBehind<ReportBase>(size, expected);
        ExpectPositionBehind<StreamPathOnly<ReportBase>>(size, expected);
    }
}

} // namespace
