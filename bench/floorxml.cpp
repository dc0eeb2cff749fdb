#include "floor.h"
#include "floorbuffers.h"
#include "floornumbers.h"
#include "peerwire.h"

#include <array>
#include <cstring>
#include <stdexcept>

namespace Bench::Floor {

namespace {

/// The characters of a literal as a text of `Char` holds them.
template <class Char, std::size_t SIZE>
constexpr std::array<Char, SIZE - 1> Widened(const char (&literal)[SIZE])
{
    std::array<Char, SIZE - 1> characters{};
    for (std::size_t i = 0; i < SIZE - 1; ++i)
        characters[i] = static_cast<Char>(literal[i]);
    return characters;
}

template <class Char>
constexpr auto ROOT_BEGIN = Widened<Char>("\n<ReportBase>\n");
template <class Char>
constexpr auto FREQUENCY_MIN = Widened<Char>("    <Frequency Min=\"");
template <class Char>
constexpr auto FREQUENCY_MAX = Widened<Char>("\" Max=\"");
template <class Char>
constexpr auto FREQUENCY_USED = Widened<Char>("\" Use=\"true\">");
template <class Char>
constexpr auto FREQUENCY_UNUSED = Widened<Char>("\" Use=\"false\">");
template <class Char>
constexpr auto BANDWIDTH_MIN = Widened<Char>("</Frequency>\n    <IFBandwidth Min=\"");
template <class Char>
constexpr auto BANDWIDTH_VALUE = Widened<Char>("\">");
template <class Char>
constexpr auto BANDWIDTH_END = Widened<Char>("</IFBandwidth>\n");
template <class Char>
constexpr auto AREA_NAME = Widened<Char>("    <Area Version=\"1.0\">\n        <Name>");
template <class Char>
constexpr auto AREA_NAME_END = Widened<Char>("</Name>\n");
template <class Char>
constexpr auto LONGITUDE = Widened<Char>("        <Coordinate>\n            <Longitude>");
template <class Char>
constexpr auto LATITUDE = Widened<Char>("</Longitude>\n            <Latitude>");
template <class Char>
constexpr auto COORDINATE_END = Widened<Char>("</Latitude>\n        </Coordinate>\n");
template <class Char>
constexpr auto AREA_END = Widened<Char>("    </Area>\n");
template <class Char>
constexpr auto ROOT_END = Widened<Char>("</ReportBase>");

template <class Char, std::size_t SIZE>
Char* Put(Char* out, const std::array<Char, SIZE>& text)
{
    std::memcpy(out, text.data(), sizeof(text));
    return out + SIZE;
}

template <class Char, std::size_t SIZE>
bool StartsWith(const Char* in, const std::array<Char, SIZE>& text)
{
    return std::memcmp(in, text.data(), sizeof(text)) == 0;
}

template <class Char, std::size_t SIZE>
void Take(const Char*& in, const std::array<Char, SIZE>& text)
{
    if (!StartsWith(in, text))
        throw std::runtime_error("another text");
    in += SIZE;
}

// --- The two kinds of text

struct Utf16
{
    using Text = QString;
    using Char = char16_t;
    static const Char* Begin(const Text& text) { return reinterpret_cast<const Char*>(text.utf16()); }
    static Text FromName(const QString& name) { return name; }
    static QString ToName(const Char* begin, const Char* end)
    {
        return QString::fromUtf16(begin, static_cast<int>(end - begin));
    }
};

struct Utf8
{
    using Text = QByteArray;
    using Char = char;
    static const Char* Begin(const Text& text) { return text.constData(); }
    static Text FromName(const QString& name) { return name.toUtf8(); }
    static QString ToName(const Char* begin, const Char* end)
    {
        return QString::fromUtf8(begin, static_cast<int>(end - begin));
    }
};

// --- Writing

constexpr int MOST_AROUND_COORDINATES = 512;
constexpr int MOST_PER_COORDINATE = 160;

template <class Char>
Char* PutPoint(Char* out, const Point& point)
{
    out = Put(out, LONGITUDE<Char>);
    out = PutNumber<COORDINATE_DECIMALS>(out, point.longitude);
    out = Put(out, LATITUDE<Char>);
    out = PutNumber<COORDINATE_DECIMALS>(out, point.latitude);
    return Put(out, COORDINATE_END<Char>);
}

template <class Kind>
auto PutArea(typename Kind::Char* out, const PlainReport& report)
{
    using Char = typename Kind::Char;
    out = Put(out, AREA_NAME<Char>);
    const typename Kind::Text name = Kind::FromName(report.areaName);
    std::memcpy(out, Kind::Begin(name), static_cast<std::size_t>(name.size()) * sizeof(*out));
    out += name.size();
    out = Put(out, AREA_NAME_END<Char>);
    for (const Point& point : report.points)
        out = PutPoint(out, point);
    return Put(out, AREA_END<Char>);
}

template <class Char>
Char* PutFrequencyAndBandwidth(Char* out, const PlainReport& report)
{
    out = Put(out, FREQUENCY_MIN<Char>);
    out = PutNumber<VALUE_DECIMALS>(out, report.frequencyMin);
    out = Put(out, FREQUENCY_MAX<Char>);
    out = PutNumber<VALUE_DECIMALS>(out, report.frequencyMax);
    out = report.frequencyUse ? Put(out, FREQUENCY_USED<Char>) : Put(out, FREQUENCY_UNUSED<Char>);
    out = PutNumber<VALUE_DECIMALS>(out, report.frequency);
    out = Put(out, BANDWIDTH_MIN<Char>);
    out = PutNumber<VALUE_DECIMALS>(out, report.bandwidthMin);
    out = Put(out, BANDWIDTH_VALUE<Char>);
    out = PutNumber<VALUE_DECIMALS>(out, report.bandwidth);
    return Put(out, BANDWIDTH_END<Char>);
}

template <class Kind>
typename Kind::Text Xml(const PlainReport& report)
{
    using Char = typename Kind::Char;
    typename Kind::Text text(Most(report, MOST_PER_COORDINATE, MOST_AROUND_COORDINATES), Qt::Uninitialized);
    Char* const begin = CharactersOf(text);
    Char* out = Put(begin, ROOT_BEGIN<Char>);
    out = PutFrequencyAndBandwidth(out, report);
    if (report.HasArea())
        out = PutArea<Kind>(out, report);
    out = Put(out, ROOT_END<Char>);
    text.resize(static_cast<int>(out - begin));
    return text;
}

// --- Reading

template <class Char>
void TakeFrequencyAndBandwidth(const Char*& in, PlainReport& report)
{
    Take(in, FREQUENCY_MIN<Char>);
    report.frequencyMin = TakeNumber<VALUE_DECIMALS>(in);
    Take(in, FREQUENCY_MAX<Char>);
    report.frequencyMax = TakeNumber<VALUE_DECIMALS>(in);
    report.frequencyUse = StartsWith(in, FREQUENCY_USED<Char>);
    if (report.frequencyUse)
        Take(in, FREQUENCY_USED<Char>);
    else
        Take(in, FREQUENCY_UNUSED<Char>);
    report.frequency = TakeNumber<VALUE_DECIMALS>(in);
    Take(in, BANDWIDTH_MIN<Char>);
    report.bandwidthMin = TakeNumber<VALUE_DECIMALS>(in);
    Take(in, BANDWIDTH_VALUE<Char>);
    report.bandwidth = TakeNumber<VALUE_DECIMALS>(in);
    Take(in, BANDWIDTH_END<Char>);
}

template <class Char>
Point TakePoint(const Char*& in)
{
    Point point;
    Take(in, LONGITUDE<Char>);
    point.longitude = TakeNumber<COORDINATE_DECIMALS>(in);
    Take(in, LATITUDE<Char>);
    point.latitude = TakeNumber<COORDINATE_DECIMALS>(in);
    Take(in, COORDINATE_END<Char>);
    return point;
}

template <class Kind>
void TakeArea(const typename Kind::Char*& in, PlainReport& report)
{
    using Char = typename Kind::Char;
    Take(in, AREA_NAME<Char>);
    const Char* const name = in;
    while (*in != '<')
        ++in;
    report.areaName = Kind::ToName(name, in);
    Take(in, AREA_NAME_END<Char>);
    while (!StartsWith(in, AREA_END<Char>))
        report.points.append(TakePoint(in));
    Take(in, AREA_END<Char>);
}

template <class Kind>
PlainReport FromXmlOf(const typename Kind::Text& text)
{
    using Char = typename Kind::Char;
    PlainReport report;
    const Char* in = Kind::Begin(text);
    Take(in, ROOT_BEGIN<Char>);
    TakeFrequencyAndBandwidth(in, report);
    if (!StartsWith(in, ROOT_END<Char>))
        TakeArea<Kind>(in, report);
    Take(in, ROOT_END<Char>);
    return report;
}

} // namespace

QString XmlText(const PlainReport& report)
{
    return Xml<Utf16>(report);
}

QByteArray XmlBytes(const PlainReport& report)
{
    return Xml<Utf8>(report);
}

PlainReport FromXml(const QString& text)
{
    return FromXmlOf<Utf16>(text);
}

PlainReport FromXml(const QByteArray& bytes)
{
    return FromXmlOf<Utf8>(bytes);
}

} // namespace Bench::Floor
