#include "support/vectors.h"

#include <QtCore/QDir>
#include <QtCore/QDirIterator>
#include <QtCore/QFile>

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

namespace Support {
namespace {

constexpr std::size_t OFFSET_DIGITS = 4;
constexpr std::size_t BYTES_COLUMN = 6;
constexpr std::size_t MEANING_COLUMN = 55;
constexpr std::size_t BYTES_PER_LINE = 16;
constexpr std::size_t INDENT = 2;
constexpr std::size_t NUMBER_WIDTH = 4;
constexpr unsigned NULL_SIZE = 0xffffffff;
constexpr std::string_view CONTINUED = "...";

constexpr std::array<std::string_view, 12> KINDS = {"tag",  "length", "size",   "count", "prefix", "text",
                                                    "bool", "flags",  "double", "bytes", "zlib",   "check"};

struct Line
{
    std::size_t offset = 0;
    std::string bytes;
    std::string meaning;
    int depth = 0;
};

[[noreturn]] void Refuse(const QString& path, int lineNumber, const std::string& problem)
{
    throw VectorError(path.toStdString() + ":" + std::to_string(lineNumber) + ": " + problem);
}

bool IsNumberKind(const std::string& kind)
{
    return kind == "tag" || kind == "length" || kind == "size" || kind == "count" || kind == "prefix";
}

bool IsKind(const std::string& kind)
{
    return std::find(KINDS.begin(), KINDS.end(), kind) != KINDS.end();
}

int HexDigit(char digit)
{
    if (digit >= '0' && digit <= '9')
        return digit - '0';
    if (digit >= 'a' && digit <= 'f')
        return digit - 'a' + 10;
    return -1;
}

/// The number of `digits`, -1 when one of them is no digit.
int HexNumber(std::string_view digits)
{
    int number = 0;
    for (const char digit : digits) {
        const int value = HexDigit(digit);
        if (value < 0)
            return -1;
        number = number * 16 + value;
    }
    return number;
}

std::string_view WithoutTrailingBlanks(std::string_view text)
{
    while (!text.empty() && text.back() == ' ')
        text.remove_suffix(1);
    return text;
}

/// Pairs of digits with one blank between them; empty when it is anything else.
std::string PairsOfDigits(std::string_view column)
{
    const std::string_view pairs = WithoutTrailingBlanks(column);
    std::string bytes;
    for (std::size_t i = 0; i < pairs.size(); i += 3) {
        const int byte = i + 2 <= pairs.size() ? HexNumber(pairs.substr(i, 2)) : -1;
        const bool isSeparated = i + 2 == pairs.size() || (i + 3 < pairs.size() && pairs[i + 2] == ' ');
        if (byte < 0 || !isSeparated)
            return {};
        bytes += static_cast<char>(byte);
    }
    return bytes;
}

Line ParseLine(const std::string& text, const QString& path, int lineNumber)
{
    if (text.size() <= MEANING_COLUMN)
        Refuse(path, lineNumber, "no meaning in column " + std::to_string(MEANING_COLUMN + 1));
    const std::string_view view = text;
    const int offset = HexNumber(view.substr(0, OFFSET_DIGITS));
    if (offset < 0 || view.substr(OFFSET_DIGITS, BYTES_COLUMN - OFFSET_DIGITS) != "  ")
        Refuse(path, lineNumber, "no offset of four lower-case hex digits");
    if (view.substr(MEANING_COLUMN - 2, 2) != "  ")
        Refuse(path, lineNumber, "the bytes reach into the meaning");

    Line line;
    line.offset = static_cast<std::size_t>(offset);
    line.bytes = PairsOfDigits(view.substr(BYTES_COLUMN, MEANING_COLUMN - BYTES_COLUMN));
    if (line.bytes.empty() || line.bytes.size() > BYTES_PER_LINE)
        Refuse(path, lineNumber, "no 1 to 16 bytes of two lower-case hex digits");

    const std::size_t begin = view.find_first_not_of(' ', MEANING_COLUMN);
    if (begin == std::string_view::npos || (begin - MEANING_COLUMN) % INDENT != 0)
        Refuse(path, lineNumber, "the meaning is not indented by a multiple of two blanks");
    line.depth = static_cast<int>((begin - MEANING_COLUMN) / INDENT);
    line.meaning = view.substr(begin);
    return line;
}

Field ParseField(const Line& line, const QString& path, int lineNumber)
{
    const std::size_t colon = line.meaning.find(": ");
    if (colon == std::string::npos || colon + 2 == line.meaning.size())
        Refuse(path, lineNumber, "the meaning is not 'kind: what it is'");

    Field field;
    field.offset = static_cast<int>(line.offset);
    field.bytes = line.bytes;
    field.kind = line.meaning.substr(0, colon);
    field.wrongOnPurpose = field.kind.back() == '!';
    if (field.wrongOnPurpose)
        field.kind.pop_back();
    field.meaning = line.meaning.substr(colon + 2);
    field.depth = line.depth;
    if (!IsKind(field.kind))
        Refuse(path, lineNumber, "unknown kind '" + field.kind + "'");
    if (IsNumberKind(field.kind) && field.bytes.size() != NUMBER_WIDTH)
        Refuse(path, lineNumber, "a " + field.kind + " takes four bytes");
    return field;
}

std::size_t End(const std::vector<Field>& fields, std::size_t index)
{
    std::size_t end = index + 1;
    while (end < fields.size() && fields[end].depth > fields[index].depth)
        ++end;
    return end;
}

std::size_t BytesBelow(const std::vector<Field>& fields, std::size_t index)
{
    std::size_t bytes = 0;
    for (std::size_t i = index + 1, end = End(fields, index); i < end; ++i)
        bytes += fields[i].bytes.size();
    return bytes;
}

/// Bodies start with their length, raw forms with their flags.
std::size_t EntriesBelow(const std::vector<Field>& fields, std::size_t index)
{
    std::size_t entries = 0;
    for (std::size_t i = index + 1, end = End(fields, index); i < end; ++i) {
        if (fields[i].depth == fields[index].depth + 1 &&
            (fields[i].kind == "length" || fields[i].kind == "flags"))
            ++entries;
    }
    return entries;
}

/// The prefix of compressed data counts what the zlib fields frame.
std::size_t StoredBytes(const std::vector<Field>& fields, std::size_t index)
{
    std::size_t bytes = 0;
    for (std::size_t i = index + 1; i < fields.size(); ++i) {
        if (fields[i].kind != "zlib" && fields[i].kind != "check")
            bytes += fields[i].bytes.size();
    }
    return bytes;
}

void CheckNumber(const Vector& vector, std::size_t index)
{
    const Field& field = vector.fields[index];
    std::size_t real = 0;
    if (field.kind == "length" || field.kind == "size")
        real = BytesBelow(vector.fields, index);
    else if (field.kind == "count")
        real = EntriesBelow(vector.fields, index);
    else if (field.kind == "prefix")
        real = StoredBytes(vector.fields, index);
    else
        return;

    const bool isNull = field.kind == "size" && field.Number() == NULL_SIZE && real == 0;
    const bool isRight = isNull || field.Number() == real;
    if (isRight != field.wrongOnPurpose)
        return;
    throw VectorError(vector.path.toStdString() + ": the " + field.kind + " at offset " +
                      std::to_string(field.offset) + " is " + std::to_string(field.Number()) +
                      ", there are " + std::to_string(real) + (isRight ? ", but it is marked as wrong" : ""));
}

QByteArray ReadFile(const QString& path)
{
    QFile file(QStringLiteral(REPORTGENERATOR_TEST_VECTORS) + QLatin1Char('/') + path);
    if (!file.open(QIODevice::ReadOnly))
        throw VectorError(path.toStdString() + ": " + file.errorString().toStdString());
    return file.readAll();
}

QByteArray WithoutLastLineFeed(const QByteArray& file, const QString& path)
{
    if (file.contains('\r'))
        throw VectorError(path.toStdString() + ": holds a carriage return");
    if (!file.endsWith('\n'))
        throw VectorError(path.toStdString() + ": does not end with a line feed");
    return file.left(file.size() - 1);
}

QString FromUtf8(const QByteArray& bytes, const QString& path)
{
    const QString text = QString::fromUtf8(bytes);
    if (text.toUtf8() != bytes)
        throw VectorError(path.toStdString() + ": is not well-formed UTF-8");
    return text;
}

} // namespace

unsigned Field::Number() const
{
    unsigned number = 0;
    for (const char byte : bytes)
        number = number << 8 | static_cast<unsigned char>(byte);
    return number;
}

QByteArray Vector::Data() const
{
    std::string bytes;
    for (const Field& field : fields)
        bytes += field.bytes;
    return QByteArray(bytes.data(), static_cast<int>(bytes.size()));
}

Bytes Vector::ToBytes() const
{
    Bytes bytes;
    for (const Field& field : fields)
        bytes += Bytes(field.bytes, field.kind + ": " + field.meaning, field.depth);
    return bytes;
}

Vector ParseVector(const QByteArray& file, const QString& path)
{
    Vector vector;
    vector.path = path;
    std::size_t offset = 0;
    int lineNumber = 0;
    for (const QByteArray& text : WithoutLastLineFeed(file, path).split('\n')) {
        ++lineNumber;
        if (text.isEmpty() || text.startsWith('#'))
            continue;
        const Line line = ParseLine(text.toStdString(), path, lineNumber);
        if (line.offset != offset)
            Refuse(path, lineNumber, "the offset should be " + std::to_string(offset));
        offset += line.bytes.size();

        if (std::string_view(line.meaning).substr(0, CONTINUED.size()) != CONTINUED) {
            vector.fields.push_back(ParseField(line, path, lineNumber));
            continue;
        }
        if (vector.fields.empty() || vector.fields.back().depth != line.depth)
            Refuse(path, lineNumber, "nothing that this line could continue");
        vector.fields.back().bytes += line.bytes;
    }
    if (vector.fields.empty())
        throw VectorError(path.toStdString() + ": holds no bytes");
    for (std::size_t i = 0; i < vector.fields.size(); ++i)
        CheckNumber(vector, i);
    return vector;
}

QString ParseXmlVector(const QByteArray& file, const QString& path)
{
    return FromUtf8(WithoutLastLineFeed(file, path), path);
}

ExpectedError ParseError(const QByteArray& file, const QString& path)
{
    const QStringList lines = FromUtf8(WithoutLastLineFeed(file, path), path).split(QLatin1Char('\n'));
    if (lines.size() != 2 || lines[0].isEmpty() || lines[1].isEmpty())
        throw VectorError(path.toStdString() + ": is not a line with a name and a line with a text");
    return {lines[0], lines[1]};
}

Vector LoadVector(const QString& path)
{
    return ParseVector(ReadFile(path), path);
}

QString LoadXmlVector(const QString& path)
{
    return ParseXmlVector(ReadFile(path), path);
}

ExpectedError LoadError(const QString& path)
{
    return ParseError(ReadFile(path), path);
}

QStringList VectorFiles()
{
    const QDir root(QStringLiteral(REPORTGENERATOR_TEST_VECTORS));
    QStringList files;
    for (const QString& folder : root.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        QDirIterator file(root.filePath(folder), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
        while (file.hasNext())
            files << root.relativeFilePath(file.next());
    }
    files.sort();
    return files;
}

} // namespace Support
