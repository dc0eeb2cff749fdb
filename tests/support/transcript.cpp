#include "support/transcript.h"

#include <algorithm>
#include <cstring>
#include <string_view>
#include <vector>

namespace Support {
namespace {

constexpr char FIRST_PRINTABLE = ' ';
constexpr char LAST_PRINTABLE = '~';
constexpr int LINES_SHOWN_BEFORE = 12;

/// A line of which more isn't shown.
constexpr std::size_t LONGEST_LINE = 2000;

Transcript* g_listening = nullptr;

void Listen(QtMsgType /*type*/, const QMessageLogContext& /*context*/, const QString& message)
{
    if (g_listening != nullptr)
        g_listening->Note("Qt says", message);
}

std::vector<std::string_view> LinesOf(const std::string& text)
{
    std::vector<std::string_view> lines;
    std::size_t begin = 0;
    while (begin < text.size()) {
        const std::size_t end = std::min(text.find('\n', begin), text.size());
        lines.push_back(std::string_view(text).substr(begin, end - begin));
        begin = end + 1;
    }
    return lines;
}

/// A line shortened to what stands around the place `at`.
std::string Shown(std::string_view line, std::size_t at)
{
    if (line.size() <= LONGEST_LINE)
        return std::string(line);
    const std::size_t begin = at > LONGEST_LINE / 2 ? at - LONGEST_LINE / 2 : 0;
    return "... " + std::string(line.substr(begin, LONGEST_LINE)) + " ...";
}

} // namespace

void Transcript::Begin(const char* what)
{
    m_text += what;
    m_text += ": ";
}

void Transcript::Note(const char* what, bool value)
{
    Begin(what);
    m_text += value ? "true\n" : "false\n";
}

void Transcript::Note(const char* what, qint64 value)
{
    Begin(what);
    m_text += std::to_string(value);
    m_text += '\n';
}

void Transcript::Note(const char* what, double value)
{
    constexpr int HEXADECIMAL = 16;
    constexpr int ALL_DIGITS = 17;
    quint64 bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    Begin(what);
    m_text += QByteArray::number(bits, HEXADECIMAL).constData();
    m_text += ' ';
    m_text += QByteArray::number(value, 'g', ALL_DIGITS).constData();
    m_text += '\n';
}

void Transcript::Note(const char* what, const char* value)
{
    Begin(what);
    m_text += value;
    m_text += '\n';
}

void Transcript::Note(const char* what, const QString& value)
{
    Begin(what);
    if (value.isNull())
        m_text += "null";
    m_text += '"';
    for (const QChar character : value) {
        const auto unit = character.unicode();
        if (unit >= FIRST_PRINTABLE && unit <= LAST_PRINTABLE) {
            m_text += static_cast<char>(unit);
        } else {
            constexpr int HEXADECIMAL = 16;
            m_text += '\\';
            m_text += QByteArray::number(unit, HEXADECIMAL).constData();
            m_text += ';';
        }
    }
    m_text += "\"\n";
}

void Transcript::Note(const char* what, const QByteArray& value)
{
    Begin(what);
    m_text += value.isNull() ? "null" : value.toHex().constData();
    m_text += '\n';
}

void Transcript::Heading(const char* what)
{
    m_text += "--- ";
    m_text += what;
    m_text += '\n';
}

std::string DifferenceOf(const std::string& left, const std::string& right)
{
    if (left == right)
        return {};
    const std::vector<std::string_view> leftLines = LinesOf(left);
    const std::vector<std::string_view> rightLines = LinesOf(right);
    const std::size_t shorter = std::min(leftLines.size(), rightLines.size());
    std::size_t line = 0;
    while (line < shorter && leftLines[line] == rightLines[line])
        ++line;
    const std::string_view nothing = "(nothing more)";
    const std::string_view leftLine = line < leftLines.size() ? leftLines[line] : nothing;
    const std::string_view rightLine = line < rightLines.size() ? rightLines[line] : nothing;
    std::size_t column = 0;
    while (column < std::min(leftLine.size(), rightLine.size()) && leftLine[column] == rightLine[column])
        ++column;

    std::string text;
    for (std::size_t before = line > LINES_SHOWN_BEFORE ? line - LINES_SHOWN_BEFORE : 0; before < line;
         ++before)
        text += "  " + Shown(leftLines[before], 0) + "\n";
    text += "- " + Shown(leftLine, column) + "\n";
    text += "+ " + Shown(rightLine, column) + "\n";
    return text;
}

QtMessages::QtMessages(Transcript& transcript) : m_previous(qInstallMessageHandler(Listen))
{
    g_listening = &transcript;
}

QtMessages::~QtMessages()
{
    g_listening = nullptr;
    qInstallMessageHandler(m_previous);
}

} // namespace Support
