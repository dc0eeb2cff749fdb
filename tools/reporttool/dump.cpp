#include <reporttool/dump.h>

#include <reporttool/textoutput.h>

#include <reportcore/inspect/binaryinspector.h>

#include <reportgenerator/reflection/texts.h>

#include <QtCore/QString>

namespace ReportTool {

using ReportCore::BinaryInspector;
using ReportCore::Describe;
using ReportCore::Event;
using ReportCore::FileRange;
using ReportCore::Printable;
using Kind = ReportCore::Event::Kind;

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
    default:
        break;
    }
    return QLatin1String("bytes");
}

bool IsText(const Event& field)
{
    return field.kind == Kind::Utf8 || field.kind == Kind::Utf16;
}

bool ContinuesCharacter(const FileRange& bytes, qint64 index)
{
    return (bytes.At(index) & UTF8_CONTINUATION_MASK) == UTF8_CONTINUATION;
}

/// How many bytes go on a line; a character is not torn apart unless it is broken anyway.
qint64 LineSize(const Event& field, const FileRange& rest)
{
    if (!rest.Has(BYTES_PER_LINE + 1))
        return rest.Size();
    qint64 size = BYTES_PER_LINE;
    while (field.kind == Kind::Utf8 && size > 0 && ContinuesCharacter(rest, size))
        --size;
    return size > 0 ? size : BYTES_PER_LINE;
}

QString Meaning(const Event& field, const FileRange& line, bool isFirst)
{
    const QString kind = isFirst ? KindText(field.kind) + QLatin1String(field.IsFaulty() ? "!: " : ": ")
                                 : QStringLiteral("... ");
    if (IsText(field)) {
        const QString text = field.kind == Kind::Utf8 ? line.Utf8() : line.Utf16();
        return kind + QLatin1Char('"') + Printable(text) + QLatin1Char('"');
    }
    return isFirst ? kind + Printable(Describe(field)) : QStringLiteral("...");
}

QString Line(const FileRange& bytes, int depth, const QString& meaning)
{
    const QString hex = QString::fromLatin1(bytes.Bytes().toHex(' '));
    return QStringLiteral("%1  %2  ")
               .arg(bytes.Offset(), OFFSET_DIGITS, HEXADECIMAL, QLatin1Char('0'))
               .arg(hex, -BYTES_WIDTH) +
           QString(depth * INDENT, QLatin1Char(' ')) + meaning;
}

void WriteField(const Event& field, TextOutput& output)
{
    FileRange rest = field.bytes;
    bool isFirst = true;
    do {
        const FileRange line = rest.Take(LineSize(field, rest));
        output.Line(Line(line, field.depth, Meaning(field, line, isFirst)));
        isFirst = false;
    } while (!rest.IsEmpty());
}

} // namespace

void Dump(const QByteArray& bytes, bool isBinaryFile, TextOutput& output)
{
    BinaryInspector inspector(bytes, isBinaryFile,
                              [&output](const Event& field) { WriteField(field, output); });
    inspector.Envelope();
    if (!inspector.IsCompressed()) {
        inspector.Body();
        inspector.End();
        return;
    }
    inspector.End();
    output.Line(QStringLiteral("# uncompressed"));
    inspector.Body();
}

} // namespace ReportTool
