// What the library's fast path has read whole has nothing odd in it, as the walk that looks at each byte finds too.

#include "reporttool/samples.h"

#include "support/recordelements.h"
#include "support/records.h"

#include <reportcore/inspect/binaryinspector.h>
#include <reportcore/linting/linting.h>
#include <reportcore/losses.h>
#include <reportcore/reportfile.h>

#include <gtest/gtest.h>

#include <QtCore/QVector>

namespace {

using ReportCore::BinaryInspector;
using ReportCore::Event;
using ReportCore::ReadReport;
using ReportCore::ReportFile;
using Support::Element;
using ToolTest::Plain;
namespace Tag = Support::Tag;

/// Whether the walk finds all lengths of a plain representation as they should be.
bool IsSound(const QByteArray& representation)
{
    bool hasFault = false;
    BinaryInspector inspector(representation, false,
                              [&hasFault](const Event& event) { hasFault = hasFault || event.IsFaulty(); });
    inspector.Envelope();
    EXPECT_FALSE(hasFault);
    inspector.Body();
    return !hasFault;
}

/// What is read whole is sound, and nothing can be said of it but what its fields say.
void ExpectNothingOdd(const QByteArray& representation)
{
    ReportFile file = ReadReport(representation);
    if (!file.wasReadWhole)
        return;
    SCOPED_TRACE(::testing::PrintToString(representation));
    EXPECT_TRUE(IsSound(representation));
    EXPECT_TRUE(ReportCore::FindDocumentLint(representation, file.form).empty());
    file.wasReadWhole = false;
    EXPECT_TRUE(ReportCore::FindLosses(representation, file).empty());
}

int SizeOfFrame(const QByteArray& representation)
{
    BinaryInspector inspector(representation, false, [](const Event&) {});
    inspector.Envelope();
    return static_cast<int>(inspector.BodyOffset());
}

/// Sound ones that have all that a body can consist of: every kind of field, null and empty texts, an object and a list
/// without anything in them, elements that nobody knows or that come twice.
QVector<QByteArray> Samples()
{
    const Support::Bytes unknown = Element(7, Support::Raw("\x01\x02"));
    return {ToolTest::FullPlain(), Plain({}),
            Plain(unknown + Element(Tag::REPORT_FREQUENCY, {}) +
                  Support::AreaElement(Support::NullName() + Support::ScriptID("") +
                                       Support::Coordinates(0, {}))),
            Plain(Element(Tag::REPORT_IF_BANDWIDTH,
                          Support::Value("") + Support::Value("1e3") + unknown + Support::Use(true)) +
                  Support::AreaElement(Element(Tag::AREA_VERSION, Support::NullString()) +
                                       Support::Coordinates(2, Support::Body({}) + Support::Body(unknown)) +
                                       Support::Coordinates(1, Support::Point("8.5", "47"))))};
}

TEST(WholeReading, TakesWhatTheLibraryWrites)
{
    EXPECT_TRUE(ReadReport(ToolTest::FullPlain()).wasReadWhole);
    EXPECT_TRUE(ReadReport(ToolTest::FullCompressed()).wasReadWhole);
    EXPECT_TRUE(ReadReport(ToolTest::InFile(ToolTest::FullPlain())).wasReadWhole);
    EXPECT_TRUE(ReadReport(ToolTest::InFile(ToolTest::FullCompressed())).wasReadWhole);
}

TEST(WholeReading, LeavesWhatIsSoundAndOdd)
{
    const QVector<QByteArray> samples = Samples();
    for (const QByteArray& sample : samples) {
        EXPECT_TRUE(IsSound(sample));
        EXPECT_EQ(ReadReport(sample).wasReadWhole, sample == samples.front() || sample == Plain({}));
    }
}

TEST(WholeReading, LeavesAVersionThatComesTwice)
{
    const auto version = Support::Version(u"1.0");
    const auto points = Support::Coordinates(1, Support::Point("8.500000", "47.250000"));
    const auto report = [&points](const Support::Bytes& versions) {
        return ReadReport(Plain(Support::AreaElement(versions + Support::Name("Lake") + points)));
    };
    EXPECT_TRUE(report(version).wasReadWhole);
    EXPECT_FALSE(report(version + version).wasReadWhole);
}

TEST(WholeReading, LeavesTextsThatAreNotReadAsTheyStand)
{
    const auto isWhole = [](std::string_view name) {
        return ReadReport(Plain(ToolTest::NamedArea(name))).wasReadWhole;
    };
    EXPECT_TRUE(isWhole("L\xC3\xA4ke"));
    EXPECT_FALSE(isWhole("L\xE4ke"));
    EXPECT_FALSE(isWhole(std::string_view("La\0ke", 5)));
    EXPECT_FALSE(isWhole("\xEF\xBB\xBFLake"));
}

TEST(WholeReading, LeavesEachTruncation)
{
    for (const QByteArray& sample : Samples()) {
        for (int size = 0; size < sample.size(); ++size)
            EXPECT_FALSE(ReadReport(sample.left(size)).wasReadWhole) << size;
    }
}

TEST(WholeReading, FindsNothingOddInWhatItTakesOfFlippedBits)
{
    for (const QByteArray& sample : Samples()) {
        for (int bit = SizeOfFrame(sample) * 8; bit < sample.size() * 8; ++bit) {
            QByteArray damaged = sample;
            damaged[bit / 8] = static_cast<char>(static_cast<uchar>(damaged.at(bit / 8)) ^ (1U << (bit % 8)));
            SCOPED_TRACE(bit);
            ExpectNothingOdd(damaged);
        }
    }
}

TEST(WholeReading, LeavesWhatSomethingStandsBehind)
{
    EXPECT_FALSE(ReadReport(ToolTest::FullPlain() + '\0').wasReadWhole);
    EXPECT_FALSE(ReadReport(ToolTest::FullCompressed() + '\0').wasReadWhole);
    EXPECT_FALSE(ReadReport(ToolTest::InFile(ToolTest::FullPlain()) + '\0').wasReadWhole);
}

} // namespace
