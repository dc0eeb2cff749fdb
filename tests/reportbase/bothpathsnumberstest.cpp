// Numbers near ties and near the middle between two doubles, through whole forms: the library's own classes
// and their subclasses write and read the same ones.

#include "support/expect.h"
#include "support/oddvalues.h"
#include "support/pathforms.h"
#include "support/paths.h"
#include "support/records.h"

#include <reportgenerator/reportbase/area.h>
#include <reportgenerator/reportbase/frequency.h>
#include <reportgenerator/reportbase/ifbandwidth.h>

#include <gtest/gtest.h>

#include <QtCore/QDataStream>
#include <QtCore/QIODevice>

#include <cmath>
#include <functional>
#include <string>
#include <vector>

namespace {

using REPORTGENERATOR::Area;
using REPORTGENERATOR::Coordinate;
using REPORTGENERATOR::Frequency;
using REPORTGENERATOR::IFBandwidth;
using Support::Choices;
using Support::CodePath;
using Support::Kind;
using Support::Traveller;
using Support::Writing;

constexpr int MANY = 400;
constexpr int DOCUMENTS = 400;

QVector<Coordinate> Points(const std::function<double(Choices&)>& number, Choices choices)
{
    QVector<Coordinate> points;
    for (int i = 0; i < MANY; ++i) {
        Coordinate point;
        point.SetValidate(false);
        point.SetLongitude(number(choices));
        point.SetLatitude(number(choices));
        points.append(point);
    }
    return points;
}

std::string WritingDifference(const std::function<double(Choices&)>& number, quint64 seed)
{
    return Support::Difference(Kind::Area, [&](CodePath& codePath, Traveller& traveller) {
        auto& area = dynamic_cast<Area&>(traveller.Object());
        area.SetValidate(false);
        area.SetName(QStringLiteral("numbers"));
        area.SetCoordinate(Points(number, Choices(seed)));
        for (const Writing writing : {Writing::XmlString, Writing::XmlFile, Writing::PlainArray,
                                      Writing::Body, Writing::CompressedArray, Writing::Raw})
            Support::Write(writing, codePath, traveller, Choices(QByteArray()));
        Support::Write(Writing::XmlWriter, codePath, traveller, Choices(seed));
    });
}

template <class Object>
void SetNumbers(Traveller& traveller, Choices choices)
{
    auto& object = dynamic_cast<Object&>(traveller.Object());
    object.SetValue(Support::NumberNearTie(choices));
    object.SetMin(Support::NumberNearTie(choices));
    object.SetMax(Support::AnyNumber(choices));
}

TEST(BothPathsNumbers, AreWrittenTheSameNearTies)
{
    for (quint64 seed = 0; seed < 10; ++seed)
        ASSERT_EQ(WritingDifference(Support::NumberNearTie, seed), "") << "seed " << seed;
}

TEST(BothPathsNumbers, AreWrittenTheSameWhateverTheyAre)
{
    for (quint64 seed = 0; seed < 10; ++seed)
        ASSERT_EQ(WritingDifference(Support::AnyNumber, seed), "") << "seed " << seed;
}

TEST(BothPathsNumbers, OfBoundsAreWrittenTheSame)
{
    for (const Kind kind : {Kind::Frequency, Kind::Bandwidth}) {
        for (quint64 seed = 0; seed < 4 * quint64(MANY); ++seed) {
            const std::string difference =
                Support::Difference(kind, [&](CodePath& codePath, Traveller& traveller) {
                    if (kind == Kind::Frequency)
                        SetNumbers<Frequency>(traveller, Choices(seed));
                    else
                        SetNumbers<IFBandwidth>(traveller, Choices(seed));
                    Support::WriteMainForms(codePath, traveller);
                });
            ASSERT_EQ(difference, "") << "seed " << seed;
        }
    }
}

// --- Reading

/// Texts in the form that the library writes, of finite numbers.
QString OwnText(Choices& choices, int decimals)
{
    const double number =
        choices.Below(2) == 0 ? Support::NumberNearTie(choices) : Support::AnyNumber(choices);
    return QString::number(std::isfinite(number) ? number : 0.0, 'f', decimals);
}

QString DegreesText(Choices& choices)
{
    constexpr int DECIMALS = 6;
    return OwnText(choices, DECIMALS);
}

QString HundredthsText(Choices& choices)
{
    constexpr int DECIMALS = 2;
    return OwnText(choices, DECIMALS);
}

/// A few digits more or less than the library writes.
QString RoughText(Choices& choices)
{
    return OwnText(choices, choices.Below(20));
}

using NumberTextOf = std::function<QString(Choices&)>;

/// An area in the library's own form but for its numbers.
QString AreaXml(const NumberTextOf& text, Choices choices)
{
    QString xml = QStringLiteral("\n<Area Version=\"1.0\">\n    <Name>numbers</Name>\n");
    for (int i = 0; i < 3; ++i) {
        xml += QLatin1String("    <Coordinate>\n        <Longitude>") + text(choices);
        xml += QLatin1String("</Longitude>\n        <Latitude>") + text(choices);
        xml += QLatin1String("</Latitude>\n    </Coordinate>\n");
    }
    return xml + QLatin1String("</Area>");
}

QString FrequencyXml(const NumberTextOf& text, Choices choices)
{
    QString xml = QLatin1String("\n<Frequency Min=\"") + text(choices);
    xml += QLatin1String("\" Max=\"") + text(choices);
    return xml + QLatin1String("\">") + text(choices) + QLatin1String("</Frequency>");
}

/// Elements of a coordinate.
QByteArray PointElements(const NumberTextOf& text, Choices choices)
{
    return Support::Written([&](QDataStream& stream) {
        for (const long long tag : {Support::Tag::COORDINATE_LONGITUDE, Support::Tag::COORDINATE_LATITUDE}) {
            const QByteArray number = text(choices).toUtf8();
            stream << static_cast<qint32>(tag) << static_cast<qint32>(number.size() + 4) << number;
        }
    });
}

/// The elements of an area that holds the coordinate once.
QByteArray AreaElements(const QByteArray& point)
{
    return Support::Written([&](QDataStream& stream) {
        const auto size = static_cast<qint32>(point.size());
        stream << static_cast<qint32>(Support::Tag::AREA_COORDINATES) << size + 8 << 1 << size;
        stream.writeRawData(point.constData(), size);
    });
}

std::string ReadingDifference(Kind kind, const QString& xml)
{
    return Support::Difference(kind, [&](CodePath& codePath, Traveller& traveller) {
        traveller.Object().SetValidate(false);
        traveller.Object().SetLogger(codePath.Logger(0));
        Support::ReadXmlString(codePath, traveller, xml, false);
        traveller.NoteState(codePath.Transcript());
        Support::ReadByReader(codePath, traveller, xml, Choices(QByteArray()));
    });
}

std::string BodyDifference(Kind kind, const QByteArray& elements)
{
    return Support::Difference(kind, [&](CodePath& codePath, Traveller& traveller) {
        traveller.Object().SetValidate(false);
        traveller.Object().SetLogger(codePath.Logger(0));
        Support::ReadBody(codePath, traveller, elements, static_cast<int>(elements.size()),
                          Choices(QByteArray()));
    });
}

void ExpectReadTheSame(const NumberTextOf& text)
{
    for (quint64 seed = 0; seed < DOCUMENTS; ++seed) {
        const Choices choices(seed);
        ASSERT_EQ(ReadingDifference(Kind::Area, AreaXml(text, choices)), "") << "seed " << seed;
        ASSERT_EQ(ReadingDifference(Kind::Frequency, FrequencyXml(text, choices)), "") << "seed " << seed;
        const QByteArray point = PointElements(text, choices);
        ASSERT_EQ(BodyDifference(Kind::Coordinate, point), "") << "seed " << seed;
        ASSERT_EQ(BodyDifference(Kind::Area, AreaElements(point)), "") << "seed " << seed;
    }
}

TEST(BothPathsNumbers, AreReadTheSameInTheOwnForm)
{
    ExpectReadTheSame(DegreesText);
    ExpectReadTheSame(HundredthsText);
}

TEST(BothPathsNumbers, AreReadTheSameWithMoreOrFewerDigits)
{
    ExpectReadTheSame(RoughText);
}

TEST(BothPathsNumbers, AreReadTheSameNearTheMiddleOfTwoDoubles)
{
    ExpectReadTheSame(Support::DigitsNearMiddle);
}

} // namespace
