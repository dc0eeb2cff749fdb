// The numbers in the texts and elements of the objects: what Qt prints and reads, whatever the locale.

#include "support/bytes.h"
#include "support/expect.h"
#include "support/records.h"

#include <reportgenerator/reportbase/area.h>
#include <reportgenerator/reportbase/coordinate.h>
#include <reportgenerator/reportbase/frequency.h>

#include <gtest/gtest.h>

#include <QtCore/QByteArray>
#include <QtCore/QLocale>
#include <QtCore/QString>

#include <clocale>
#include <cmath>
#include <cstring>
#include <limits>
#include <locale>
#include <memory>
#include <string>
#include <vector>

namespace {

using REPORTGENERATOR::Area;
using REPORTGENERATOR::Coordinate;
using REPORTGENERATOR::Frequency;
using Support::BitsOf;
using Support::ByteArray;
using Support::Bytes;
using Support::ReadElements;
using Support::Text;
namespace Tag = Support::Tag;

using Limits = std::numeric_limits<double>;

constexpr int RANDOM_NUMBERS = 2000;

// --- Numbers ----------------------------------------------------------------------------------------------

double FromBits(quint64 bits)
{
    double number = 0.0;
    static_assert(sizeof number == sizeof bits);
    std::memcpy(&number, &bits, sizeof number);
    return number;
}

/// Random bits that are the same in each run (splitmix64).
class RandomBits
{
public:
    quint64 Next()
    {
        m_state += Q_UINT64_C(0x9e3779b97f4a7c15);
        quint64 bits = m_state;
        bits = (bits ^ (bits >> 30)) * Q_UINT64_C(0xbf58476d1ce4e5b9);
        bits = (bits ^ (bits >> 27)) * Q_UINT64_C(0x94d049bb133111eb);
        return bits ^ (bits >> 31);
    }

private:
    quint64 m_state = 2017;
};

/// The number, its neighbours, and all three with the other sign.
void AddWithNeighbours(std::vector<double>& numbers, double number)
{
    for (const double neighbour :
         {number, std::nextafter(number, Limits::infinity()), std::nextafter(number, -Limits::infinity())}) {
        numbers.push_back(neighbour);
        numbers.push_back(-neighbour);
    }
}

std::vector<double> ManyNumbers()
{
    std::vector<double> numbers;
    for (const Support::NamedNumber& odd : Support::OddNumbers())
        AddWithNeighbours(numbers, odd.value);
    numbers.push_back(-Limits::quiet_NaN());
    numbers.push_back(FromBits(Q_UINT64_C(0x7ff8000000000001)));
    numbers.push_back(FromBits(Q_UINT64_C(0xffffffffffffffff)));

    for (int exponent = -1074; exponent <= 1023; ++exponent)
        numbers.push_back(std::ldexp(exponent % 2 == 0 ? 1.0 : -1.0, exponent));
    for (int exponent = -323; exponent <= 308; ++exponent)
        numbers.push_back(QStringLiteral("1e%1").arg(exponent).toDouble());
    for (int exponent = -30; exponent <= 60; ++exponent)
        AddWithNeighbours(numbers, std::ldexp(1.0, exponent));
    for (int exponent = -10; exponent <= 22; ++exponent)
        AddWithNeighbours(numbers, QStringLiteral("1e%1").arg(exponent).toDouble());

    // Ties: odd multiples of 1/8 for two decimals, of 1/128 for six.
    for (int odd = 1; odd < 400; odd += 2) {
        AddWithNeighbours(numbers, odd / 8.0);
        AddWithNeighbours(numbers, odd / 128.0);
        AddWithNeighbours(numbers, 1e6 * odd + odd / 8.0);
        AddWithNeighbours(numbers, 4503599627370496.0 / 8.0 - odd / 8.0);
    }
    // What looks like a tie as a text and is none as a number.
    for (int half = 1; half < 300; half += 2) {
        AddWithNeighbours(numbers, half / 200.0);
        AddWithNeighbours(numbers, half / 2000000.0);
        AddWithNeighbours(numbers, 1000.0 + half / 200.0);
    }
    // Where a carry runs through all digits.
    for (int digits = 1; digits <= 15; ++digits) {
        AddWithNeighbours(numbers, std::pow(10.0, digits) - 0.005);
        AddWithNeighbours(numbers, std::pow(10.0, digits) - 0.0000005);
        AddWithNeighbours(numbers, std::pow(10.0, digits) - 0.01);
    }

    RandomBits random;
    for (int i = 0; i < RANDOM_NUMBERS; ++i) {
        const quint64 bits = random.Next();
        numbers.push_back(FromBits(bits));                                               // of any size
        numbers.push_back(FromBits(bits & Q_UINT64_C(0x800fffffffffffff)));              // denormal
        numbers.push_back(static_cast<double>(bits >> 11) / 1e7);                        // as frequencies are
        numbers.push_back(std::remainder(static_cast<double>(bits >> 12) / 1e9, 180.0)); // as angles are
    }
    return numbers;
}

/// Every `step`-th of them.
std::vector<double> SomeNumbers(std::size_t step)
{
    const std::vector<double> all = ManyNumbers();
    std::vector<double> numbers;
    for (std::size_t i = 0; i < all.size(); i += step)
        numbers.push_back(all[i]);
    return numbers;
}

/// What Qt prints.
QString Fixed(double number, int decimals, int width = 0)
{
    return QStringLiteral("%1").arg(number, width, 'f', decimals, QLatin1Char(' '));
}

// --- Surroundings -----------------------------------------------------------------------------------------

class CommaPunctuation : public std::numpunct<char>
{
protected:
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

/// While it lives, Qt, the C++ library and, where the system has such a locale, the C library write 1,5.
class CommaLocale
{
public:
    CommaLocale() : m_cLocale(std::setlocale(LC_ALL, nullptr))
    {
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
        std::locale::global(std::locale(std::locale::classic(), new CommaPunctuation));
        for (const char* name :
             {"de_DE.UTF-8", "de_DE.utf8", "de_DE", "fr_FR.UTF-8", "German_Germany.1252"}) {
            if (std::setlocale(LC_ALL, name) != nullptr)
                break;
        }
    }
    CommaLocale(const CommaLocale&) = delete;
    CommaLocale& operator=(const CommaLocale&) = delete;

    ~CommaLocale()
    {
        QLocale::setDefault(m_qtLocale);
        std::locale::global(m_cppLocale);
        std::setlocale(LC_ALL, m_cLocale.c_str());
    }

private:
    std::string m_cLocale;
    std::locale m_cppLocale; // begins as the global one
    QLocale m_qtLocale;
};

/// Runs each test in the plain surroundings and where numbers have a comma.
class Numbers : public ::testing::TestWithParam<bool>
{
protected:
    Numbers()
    {
        if (GetParam())
            m_locale = std::make_unique<CommaLocale>();
    }

    void SetUp() override
    {
        if (GetParam()) {
            ASSERT_TRUE(QLocale().toString(1.5) == QLatin1String("1,5"));
            ASSERT_EQ(std::use_facet<std::numpunct<char>>(std::locale()).decimal_point(), ',');
        }
    }

private:
    std::unique_ptr<CommaLocale> m_locale;
};

INSTANTIATE_TEST_SUITE_P(Locales, Numbers, ::testing::Bool(), [](const ::testing::TestParamInfo<bool>& row) {
    return row.param ? "WithComma" : "WithPoint";
});

Frequency FrequencyOf(double value, double min, double max)
{
    Frequency frequency;
    frequency.SetValue(value);
    frequency.SetMin(min);
    frequency.SetMax(max);
    return frequency;
}

Coordinate CoordinateOf(double longitude, double latitude)
{
    Coordinate coordinate;
    coordinate.SetValidate(false);
    coordinate.SetLongitude(longitude);
    coordinate.SetLatitude(latitude);
    return coordinate;
}

std::string Shown(double number)
{
    return QStringLiteral("0x%1").arg(BitsOf(number), 16, 16, QLatin1Char('0')).toStdString();
}

Bytes TextElement(long long tag, const QString& text)
{
    return Element(tag, ByteArray(text.toStdString()));
}

} // namespace

// --- Writing ----------------------------------------------------------------------------------------------

TEST_P(Numbers, TwoDecimalsAreTheExactValueRoundedHalfAwayFromZero)
{
    struct Row
    {
        double number;
        const char* text;
    };
    const Row rows[] = {
        {0.125, "0.13"},
        {0.375, "0.38"},
        {0.625, "0.63"},
        {-0.125, "-0.13"},
        {1000000.125, "1000000.13"},
        {0.045, "0.04"},    // 0.04499999999999999833…
        {2.675, "2.67"},    // 2.67499999999999982236…
        {0.015, "0.01"},    // 0.01499999999999999944…
        {0.995, "0.99"},    // 0.99499999999999999555…
        {1.005, "1.00"},    // 1.00499999999999989341…
        {0.005, "0.01"},    // 0.00500000000000000010…
        {99.995, "100.00"}, // 99.99500000000000454…
        {0.0, "0.00"},
        {-0.0, "0.00"},
        {-0.001, "-0.00"},
        {-0.005, "-0.01"},
        {5e-324, "0.00"},
        {-5e-324, "-0.00"},
        {9007199254740992.0, "9007199254740992.00"},
        {2251799813685249.5, "2251799813685249.50"},
        {123456789012345.675, "123456789012345.67"}, // …345.671875
        {1e23, "99999999999999991611392.00"},
        {Limits::max(), "17976931348623157081452742373170435679807056752584499659891747680315726078002853"
                        "87605895586327668781715404589535143824642343213268894641827684675467035375169860"
                        "49910576551282076245490090389328944075868508455133942304583236903222948165808559"
                        "332123348274797826204144723168738177180919299881250404026184124858368.00"},
        {Limits::quiet_NaN(), "nan"},
        {-Limits::quiet_NaN(), "nan"},
        {Limits::infinity(), "inf"},
        {-Limits::infinity(), "-inf"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_XML(FrequencyOf(row.number, row.number, row.number),
                   QStringLiteral("\n<Frequency Min=\"%1\" Max=\"%1\">%1</Frequency>").arg(Text(row.text)));
    }
}

TEST_P(Numbers, ManyNumbersHaveTheTextsOfQtInFrequencies)
{
    // Where numbers have a comma, every fifth will do: what goes wrong there goes wrong for all.
    const std::vector<double> numbers = SomeNumbers(GetParam() ? 5 : 1);
    for (std::size_t i = 0; i < numbers.size(); i += 3) {
        const double value = numbers[i];
        const double min = numbers[(i + 1) % numbers.size()];
        const double max = numbers[(i + 2) % numbers.size()];
        const Frequency frequency = FrequencyOf(value, min, max);
        ASSERT_TRUE(frequency.GetXmlString() ==
                    QStringLiteral("\n<Frequency Min=\"%1\" Max=\"%2\">%3</Frequency>")
                        .arg(Fixed(min, 2), Fixed(max, 2), Fixed(value, 2)))
            << Shown(value) << " " << Shown(min) << " " << Shown(max) << "\n"
            << frequency.GetXmlString().toStdString();
        ASSERT_BYTES(Support::BodyOf(frequency),
                     Element(1, TextElement(Tag::FREQUENCY_MIN, Fixed(min, 2)) +
                                    TextElement(Tag::FREQUENCY_MAX, Fixed(max, 2)) +
                                    TextElement(Tag::FREQUENCY_VALUE, Fixed(value, 2))));
    }
}

TEST_P(Numbers, ManyNumbersHaveTheTextsOfQtInCoordinates)
{
    const std::vector<double> numbers = SomeNumbers(GetParam() ? 5 : 1);
    for (std::size_t i = 0; i < numbers.size(); i += 2) {
        const double longitude = numbers[i];
        const double latitude = numbers[(i + 1) % numbers.size()];
        const Coordinate coordinate = CoordinateOf(longitude, latitude);
        ASSERT_TRUE(
            Support::UnindentedXmlOf(coordinate) ==
            QStringLiteral("<Coordinate><Longitude>%1</Longitude><Latitude>%2</Latitude></Coordinate>")
                .arg(Fixed(longitude, 6, 4), Fixed(latitude, 6, 3)))
            << Shown(longitude) << " " << Shown(latitude) << "\n"
            << Support::UnindentedXmlOf(coordinate).toStdString();
        ASSERT_BYTES(Support::BodyOf(coordinate),
                     Element(1, TextElement(Tag::COORDINATE_LONGITUDE, Fixed(longitude, 6, 4)) +
                                    TextElement(Tag::COORDINATE_LATITUDE, Fixed(latitude, 6, 3))));
    }
}

TEST_P(Numbers, BothWaysOfWritingXmlGiveTheSameTexts)
{
    const std::vector<double> numbers = SomeNumbers(50);
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        Area area;
        area.SetValidate(false);
        area.SetCoordinate({CoordinateOf(numbers[i], numbers[(i + 1) % numbers.size()])});
        ASSERT_TRUE(area.GetXmlString().remove(QStringLiteral("\n")).remove(QStringLiteral("    ")) ==
                    Support::UnindentedXmlOf(area))
            << Shown(numbers[i]);
    }
}

// --- Reading ----------------------------------------------------------------------------------------------

TEST_P(Numbers, TextsOfManyNumbersReadAsQtReadsThem)
{
    for (const double number : SomeNumbers(7)) {
        const QString shortest = QString::number(number, 'g', QLocale::FloatingPointShortest);
        const QString rounded = Fixed(number, 6);
        const QString exponent = QString::number(number, 'E', 20);
        Frequency frequency;
        ASSERT_TRUE(frequency.SetXmlString(QStringLiteral("<Frequency Min=\"%1\" Max=\"%2\">%3</Frequency>")
                                               .arg(shortest, rounded, exponent),
                                           true));
        ASSERT_EQ(BitsOf(frequency.GetMin()), BitsOf(shortest.toDouble())) << shortest.toStdString();
        ASSERT_EQ(BitsOf(frequency.GetMax()), BitsOf(rounded.toDouble())) << rounded.toStdString();
        ASSERT_EQ(BitsOf(frequency.GetValue()), BitsOf(exponent.toDouble())) << exponent.toStdString();
        ASSERT_EQ(ReadElements(frequency, TextElement(Tag::FREQUENCY_VALUE, shortest) +
                                              TextElement(Tag::FREQUENCY_MIN, rounded) +
                                              TextElement(Tag::FREQUENCY_MAX, exponent)),
                  0);
        ASSERT_EQ(BitsOf(frequency.GetValue()), BitsOf(shortest.toDouble())) << shortest.toStdString();
        ASSERT_EQ(BitsOf(frequency.GetMin()), BitsOf(rounded.toDouble())) << rounded.toStdString();
        ASSERT_EQ(BitsOf(frequency.GetMax()), BitsOf(exponent.toDouble())) << exponent.toStdString();
    }
}

TEST_P(Numbers, OddTextsReadAsQtReadsThem)
{
    const char* const texts[] = {
        "1e400",
        "-1e400",
        "1e-400",
        "-1e-400",
        "1e99999999999",
        "1.7976931348623159e308",
        "2.4703282292062327e-324",
        "0.1",
        "0.30000000000000004",
        "1.00499999999999989341858963598497211933135986",
        "123456789012345678901234567890",
        "0000000000000000000000000000001",
        "-0",
        "-0.0",
        "+0",
        "+",
        "e",
        "1e",
        "1e+",
        "e5",
        "1E5",
        "1d5",
        "1.e5",
        ".e5",
        "0x1p3",
        "1_000",
        "1'000",
        "1.000,5",
        "1.000.000",
        "1 000",
        ("1\xc2\xa0"
         "000"),
        ("\xc2\xa0"
         "5"),
        "5\xc2\xa0",
        ("\xe2\x80\x89"
         "5"),
        ("\xe2\x88\x92"
         "5"),
        "\xef\xbc\x95",
        "\xd9\xa5",
        "5\xe2\x82\xac",
        "nan",
        "NaN",
        "NAN",
        "-nan",
        "+nan",
        "nan(1)",
        "inf",
        "Inf",
        "INF",
        "+inf",
        "-inf",
        "infinity",
        "Infinity",
        "1.5f",
        "1.5L",
        "true",
        "null",
        "12 34",
        "--5",
        "+-5",
        "5-",
        "1e5.5",
        "0b1",
        "1;5",
        "1/2",
        "\t5\t",
        "5\n",
        " 5 ",
        "1.5.",
        "..5",
    };
    for (const char* bytes : texts) {
        SCOPED_TRACE(bytes);
        const QString text = Text(bytes);
        Frequency frequency;
        ASSERT_TRUE(frequency.SetXmlString(QStringLiteral("<Frequency>%1</Frequency>").arg(text), true));
        EXPECT_EQ(BitsOf(frequency.GetValue()), BitsOf(text.toDouble())) << frequency.GetValue();
        EXPECT_EQ(ReadElements(frequency, TextElement(Tag::FREQUENCY_VALUE, text)), 0);
        EXPECT_EQ(BitsOf(frequency.GetValue()), BitsOf(text.toDouble())) << frequency.GetValue();

        Coordinate coordinate;
        coordinate.SetValidate(false);
        EXPECT_TRUE(coordinate.SetXmlString(
            QStringLiteral("<Coordinate><Longitude>%1</Longitude><Latitude>%1</Latitude></Coordinate>")
                .arg(text),
            true));
        EXPECT_EQ(BitsOf(coordinate.GetLongitude()), BitsOf(text.toDouble()));
        EXPECT_EQ(BitsOf(coordinate.GetLatitude()), BitsOf(text.toDouble()));
    }
}

TEST_P(Numbers, ACommaIsNoDecimalPoint)
{
    Frequency frequency;
    EXPECT_TRUE(
        frequency.SetXmlString(QStringLiteral("<Frequency Min=\"1.5\" Max=\"1,5\">2.5</Frequency>"), true));
    EXPECT_EQ(frequency.GetMin(), 1.5);
    EXPECT_EQ(frequency.GetMax(), 0.0);
    EXPECT_EQ(frequency.GetValue(), 2.5);
    EXPECT_EQ(ReadElements(frequency, Element(Tag::FREQUENCY_VALUE, ByteArray("1,5")) +
                                          Element(Tag::FREQUENCY_MIN, ByteArray("1.5"))),
              0);
    EXPECT_EQ(frequency.GetValue(), 0.0);
    EXPECT_EQ(frequency.GetMin(), 1.5);
}

TEST_P(Numbers, WhatIsWrittenReadsAsTheRoundedNumber)
{
    for (const double number : SomeNumbers(11)) {
        Frequency frequency;
        frequency.SetValue(number);
        const double rounded = Fixed(number, 2).toDouble();
        Frequency read;
        ASSERT_TRUE(read.SetXmlString(frequency.GetXmlString(), true));
        ASSERT_EQ(BitsOf(read.GetValue()), BitsOf(rounded)) << Shown(number);
        QByteArray bytes = frequency.GetBinaryRepresentationAsQByteArray();
        ASSERT_TRUE(read.SetBinaryRepresentation(bytes));
        ASSERT_EQ(BitsOf(read.GetValue()), BitsOf(rounded)) << Shown(number);

        ASSERT_EQ(Support::ReadRawForm(read, Support::RawFormOf(frequency)), 0);
        ASSERT_EQ(BitsOf(read.GetValue()), BitsOf(number)) << Shown(number);
    }
}

// --- Other numbers in texts -------------------------------------------------------------------------------

TEST_P(Numbers, VersionsAreComparedWithAPoint)
{
    for (const bool isOlder : {true, false}) {
        Area area;
        area.SetScriptID(QStringLiteral("S"));
        Support::ReadElement(area, QStringLiteral("<Area Version=\"%1\"/>")
                                       .arg(isOlder ? QStringLiteral("1,5") : QStringLiteral("1.5")));
        EXPECT_EQ(area.IsScriptIDSet(), !isOlder);
    }
}

TEST_P(Numbers, BoundsInMessagesAreTheShortestTexts)
{
    Coordinate coordinate;
    EXPECT_RG_THROW(coordinate.SetLongitude(181.0), "OutOfRangeException",
                    "Parameters for m_longitude are not set within range (-180, 180) in 'Coordinate'.");
    EXPECT_RG_THROW(coordinate.SetLatitude(91.0), "OutOfRangeException",
                    "Parameters for m_latitude are not set within range (-90, 90) in 'Coordinate'.");
}

TEST_P(Numbers, LogLinesHaveTheSameTimeStamp)
{
    const auto logger = Support::NewLogger();
    const Frequency frequency = FrequencyOf(1.0, 2.0, 3.0);
    frequency.SetLogger(logger);
    frequency.GetXmlString();
    EXPECT_LOG(logger, {"INFO: Frequency: Generating xml string."});
}
