// The look at a body comes to the verdict of the walk that tells what is wrong with it.

#include "reporttool/samples.h"

#include "support/recordelements.h"
#include "support/records.h"

#include <reportcore/reading/soundbody.h>
#include <reportcore/walk.h>

#include <gtest/gtest.h>

#include <QtCore/QVector>

namespace {

using ReportCore::LookAtBody;
using ReportCore::Walk;
using ReportCore::WireField;
using Support::Element;
using ToolTest::Plain;
namespace Tag = Support::Tag;

/// The body of a plain representation, which must outlive it, and what the walk says of it.
struct Walked
{
    QByteArray body;
    bool isSound = false;
};

Walked WalkBody(const QByteArray& representation)
{
    Walk walk(representation, false, [](const WireField&) {});
    walk.Frame();
    EXPECT_FALSE(walk.HasFault());
    walk.Body();
    return {walk.BodyBytes(), !walk.HasFault()};
}

void ExpectVerdict(const QByteArray& representation, bool isSound)
{
    const Walked walked = WalkBody(representation);
    EXPECT_EQ(walked.isSound, isSound) << ::testing::PrintToString(walked.body);
    EXPECT_EQ(LookAtBody(walked.body).isSound, isSound) << ::testing::PrintToString(walked.body);
}

void ExpectSameVerdict(const QByteArray& representation)
{
    const Walked walked = WalkBody(representation);
    EXPECT_EQ(LookAtBody(walked.body).isSound, walked.isSound) << ::testing::PrintToString(walked.body);
}

QByteArray FrameOf(const QByteArray& representation)
{
    return representation.left(representation.size() - WalkBody(representation).body.size());
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

TEST(BodyLook, SamplesAreSound)
{
    for (const QByteArray& sample : Samples())
        ExpectVerdict(sample, true);
}

TEST(BodyLook, LessThanNothingOfAListIsNotSound)
{
    ExpectVerdict(Plain(Support::AreaElement(Support::Coordinates(-1, {}))), false);
    ExpectVerdict(Plain(Support::AreaElement(Support::Coordinates(-2147483648LL, {}))), false);
}

TEST(BodyLook, EachTruncationIsWhatItIsToTheWalk)
{
    for (const QByteArray& sample : Samples()) {
        const int frame = static_cast<int>(FrameOf(sample).size());
        for (int size = frame; size < sample.size(); ++size)
            ExpectVerdict(sample.left(size), false);
    }
}

TEST(BodyLook, EachFlippedBitIsWhatItIsToTheWalk)
{
    for (const QByteArray& sample : Samples()) {
        const int frame = static_cast<int>(FrameOf(sample).size());
        for (int bit = frame * 8; bit < sample.size() * 8; ++bit) {
            QByteArray damaged = sample;
            damaged[bit / 8] = static_cast<char>(static_cast<uchar>(damaged.at(bit / 8)) ^ (1U << (bit % 8)));
            SCOPED_TRACE(bit);
            ExpectSameVerdict(damaged);
        }
    }
}

TEST(BodyLook, WhatStandsBehindIsNotSound)
{
    for (const QByteArray& sample : Samples())
        ExpectVerdict(sample + '\0', false);
}

} // namespace
