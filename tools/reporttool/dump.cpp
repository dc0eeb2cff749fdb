#include <reporttool/dump.h>

#include <reporttool/textoutput.h>

#include <reportcore/walk.h>

#include <reportgenerator/reflection/texts.h>

#include <QtCore/QString>

namespace ReportTool {

using ReportCore::ByteRange;
using ReportCore::Describe;
using ReportCore::Kind;
using ReportCore::Printable;
using ReportCore::Walk;
using ReportCore::WireField;

namespace {

constexpr qint64 BYTES_PER_LINE = 16;
constexpr int OFFSET_DIGITS = 4;
constexpr int BYTES_WIDTH = 47; ///< of as many bytes as fit into a line
constexpr int INDENT = 2;
constexpr int HEXADECIMAL = 16;
constexpr quint8 UTF8_CONTINUATION_MASK = 0xC0;
constexpr quint8 UTF8_CONTINUATION = 0x80;

QLatin1String KindText(Kind kind)
{
    switch (kind) {
    case Kind::Tag:
        return QLatin1String("tag");
    case Kind::Length:
        return QLatin1String("length");
    case Kind::SizeOfBytes:
    case Kind::SizeOfUtf8:
    case Kind::SizeOfUtf16:
        return QLatin1String("size");
    case Kind::Count:
        return QLatin1String("count");
    case Kind::Prefix:
        return QLatin1String("prefix");
    case Kind::Utf8:
    case Kind::Utf16:
        return QLatin1String("text");
    case Kind::Bool:
        return QLatin1String("bool");
    case Kind::Other:
        break;
    }
    return QLatin1String("bytes");
}

bool IsText(const WireField& field)
{
    return field.kind == Kind::Utf8 || field.kind == Kind::Utf16;
}

bool ContinuesCharacter(const ByteRange& bytes, qint64 index)
{
    return (bytes.At(index) & UTF8_CONTINUATION_MASK) == UTF8_CONTINUATION;
}

/// How many bytes go on a line; a character is not torn apart unless it is broken anyway.
qint64 LineSize(const WireField& field, const ByteRange& rest)
{
    if (!rest.Has(BYTES_PER_LINE + 1))
        return rest.Size();
    qint64 size = BYTES_PER_LINE;
    while (field.kind == Kind::Utf8 && size > 0 && ContinuesCharacter(rest, size))
        --size;
    return size > 0 ? size : BYTES_PER_LINE;
}

QString Meaning(const WireField& field, const ByteRange& line, bool isFirst)
{
    const QString kind = isFirst ? KindText(field.kind) + QLatin1String(field.IsFaulty() ? "!: " : ": ")
                                 : QStringLiteral("... ");
    if (IsText(field)) {
        const QString text = field.kind == Kind::Utf8 ? line.Utf8() : line.Utf16();
        return kind + QLatin1Char('"') + Printable(text) + QLatin1Char('"');
    }
    return isFirst ? kind + Printable(Describe(field)) : QStringLiteral("...");
}

QString Line(const ByteRange& bytes, int depth, const QString& meaning)
{
    const QString hex = QString::fromLatin1(bytes.Bytes().toHex(' '));
    return QStringLiteral("%1  %2  ")
               .arg(bytes.Offset(), OFFSET_DIGITS, HEXADECIMAL, QLatin1Char('0'))
               .arg(hex, -BYTES_WIDTH) +
           QString(depth * INDENT, QLatin1Char(' ')) + meaning;
}

void WriteField(const WireField& field, TextOutput& output)
{
    ByteRange rest = field.bytes;
    bool isFirst = true;
    do {
        const ByteRange line = rest.Take(LineSize(field, rest));
        output.Line(Line(line, field.depth, Meaning(field, line, isFirst)));
        isFirst = false;
    } while (!rest.IsEmpty());
}

} // namespace

void Dump(const QByteArray& bytes, bool isBinaryFile, TextOutput& output)
{
    Walk walk(bytes, isBinaryFile, [&output](const WireField& field) { WriteField(field, output); });
    walk.Frame();
    if (!walk.IsCompressed()) {
        walk.Body();
        walk.End();
        return;
    }
    walk.End();
    output.Line(QStringLiteral("# uncompressed"));
    walk.Body();
}

} // namespace ReportTool
