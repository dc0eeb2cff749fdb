#include <reportgenerator/reportbase/codec/scannedxml.h>

#include <reportgenerator/reportbase/codec/buffer.h>

#include <QtCore/QXmlStreamReader>

#include <algorithm>
#include <array>
#include <iterator>
#include <string_view>
#include <utility>

namespace REPORTGENERATOR::scannedxml {

namespace {

/// So many characters are looked at together.
constexpr int BLOCK = 1024;

/// Stands for every character that isn't ASCII.
constexpr char OTHER = '\x7f';

constexpr int WIDEST_UNIT = 4;

/// What a document begins with that takes more than one byte for a character of ASCII.
struct WideEncoding
{
    std::string_view start;
    int unitSize;
    int lowestByte;
};

using namespace std::string_view_literals;

constexpr WideEncoding WIDE_ENCODINGS[] = {
    {"\xFF\xFE\0\0"sv, 4, 0}, {"\0\0\xFE\xFF"sv, 4, 3}, {"<\0\0\0"sv, 4, 0}, {"\0\0\0<"sv, 4, 3},
    {"\xFF\xFE"sv, 2, 0},     {"\xFE\xFF"sv, 2, 1},     {"<\0"sv, 2, 0},     {"\0<"sv, 2, 1},
};

} // namespace

MarkupScanner::Excess ExcessIn(const QString& xml)
{
    MarkupScanner scanner;
    std::array<char, BLOCK> block = {};
    const ushort* next = UnitsOf(xml);
    const ushort* const end = next + xml.size();
    bool goesOn = true;
    while (next != end && goesOn) {
        const auto size = std::min<std::ptrdiff_t>(end - next, BLOCK);
        std::transform(next, next + size, block.begin(),
                       [](ushort unit) { return unit < 0x80 ? static_cast<char>(unit) : OTHER; });
        goesOn = scanner.Feed(block.data(), block.data() + size);
        next += size;
    }
    return scanner.Found();
}

bool ByteScanner::Feed(const char* next, const char* end)
{
    if (m_unitSize == 0) {
        m_start.append(next, static_cast<int>(end - next));
        if (m_start.size() < WIDEST_UNIT)
            return true;
        const std::string_view start(m_start.constData(), static_cast<std::size_t>(m_start.size()));
        const auto* const wide = std::find_if(
            std::begin(WIDE_ENCODINGS), std::end(WIDE_ENCODINGS), [start](const WideEncoding& encoding) {
                return start.substr(0, encoding.start.size()) == encoding.start;
            });
        const bool isWide = wide != std::end(WIDE_ENCODINGS);
        m_unitSize = isWide ? wide->unitSize : 1;
        m_lowestByte = isWide ? wide->lowestByte : 0;
        const QByteArray begun = std::exchange(m_start, QByteArray());
        return Feed(begun.constData(), begun.constData() + begun.size());
    }
    return m_unitSize == 1 ? m_scanner.Feed(next, end) : FeedWide(next, end);
}

bool ByteScanner::FeedWide(const char* next, const char* end)
{
    for (; next != end; ++next) {
        if (m_index == m_lowestByte)
            m_low = *next;
        else
            m_isAscii = m_isAscii && *next == '\0';
        if (++m_index < m_unitSize)
            continue;
        const char character = m_isAscii && m_low > 0 ? m_low : OTHER;
        if (!m_scanner.Feed(&character, &character + 1))
            return false;
        m_index = 0;
        m_isAscii = true;
    }
    return true;
}

ScannedDevice::ScannedDevice(QIODevice& device) : m_device(&device)
{
    setOpenMode(QIODevice::ReadOnly | QIODevice::Unbuffered);
}

void ScannedDevice::GiveInstead(const QByteArray& bytes)
{
    m_instead.setData(bytes);
    m_instead.open(QIODevice::ReadOnly);
    m_device = &m_instead;
}

qint64 ScannedDevice::readData(char* data, qint64 size)
{
    const qint64 count = m_device->read(data, size);
    return count > 0 && !m_scanner.Feed(data, data + count) ? -1 : count;
}

qint64 ScannedDevice::writeData(const char* /*data*/, qint64 /*size*/)
{
    return -1;
}

MarkupScanner::Excess ExcessOn(const QXmlStreamReader& reader)
{
    const auto* const device = dynamic_cast<const ScannedDevice*>(reader.device());
    return device ? device->Found() : MarkupScanner::Excess::None;
}

} // namespace REPORTGENERATOR::scannedxml
