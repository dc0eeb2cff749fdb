#include <reportcore/form.h>

#include <reportcore/inspect/filerange.h>

#include <reportgenerator/reportbase/codec/wireformat.h>

#include <QtCore/QXmlStreamReader>

#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
#    include <QtCore/QTextCodec>
#else
#    include <QtCore/QStringDecoder>
#endif

#include <algorithm>
#include <iterator>

namespace ReportCore {

namespace {

namespace wire = REPORTGENERATOR::wire;

constexpr QChar BYTE_ORDER_MARK(0xFEFF);

bool BeginsWithMarker(FileRange range, const REPORTGENERATOR::Name& marker)
{
    if (!range.Has(wire::WORD_SIZE))
        return false;
    const qint64 size = range.Take(wire::WORD_SIZE).Word();
    return range.Has(size) && range.Take(size).Utf16() == marker;
}

Form FormOfRepresentation(const FileRange& range)
{
    if (BeginsWithMarker(range, wire::PLAIN_MARKER))
        return Form::Plain;
    return BeginsWithMarker(range, wire::COMPRESSED_MARKER) ? Form::Compressed : Form::Unknown;
}

/// One of the ways in which XML may be encoded, as far as its first character shows it.
struct Encoding
{
    const char* name;
    const char* byteOrderMark;
    qint64 markSize;
    qint64 unitSize;
    qint64 lowestByte; ///< which byte of a unit counts for ASCII characters
};

constexpr Encoding ENCODINGS[] = {{"UTF-8", "\xEF\xBB\xBF", 3, 1, 0},
                                  {"UTF-32LE", "\xFF\xFE\x00\x00", 4, 4, 0},
                                  {"UTF-32BE", "\x00\x00\xFE\xFF", 4, 4, 3},
                                  {"UTF-16LE", "\xFF\xFE", 2, 2, 0},
                                  {"UTF-16BE", "\xFE\xFF", 2, 2, 1}};

/// The first character of the range if it is an ASCII character, else NUL.
char AsciiAt(const FileRange& range, const Encoding& encoding)
{
    for (qint64 i = 0; i < encoding.unitSize; ++i) {
        if (i != encoding.lowestByte && range.At(i) != 0)
            return '\0';
    }
    return static_cast<char>(range.At(encoding.lowestByte));
}

QByteArray MarkOf(const Encoding& encoding)
{
    return QByteArray(encoding.byteOrderMark, static_cast<int>(encoding.markSize));
}

bool LooksLikeXml(FileRange range, const Encoding& encoding)
{
    FileRange start = range;
    if (start.Take(encoding.markSize).Bytes() == MarkOf(encoding))
        range = start;
    while (range.Has(encoding.unitSize)) {
        const char character = AsciiAt(range, encoding);
        range.Take(encoding.unitSize);
        if (IsXmlBlank(character))
            continue;
        // A NUL behind it, which XML doesn't have, is the rest of a wider character.
        const bool isWhole = encoding.unitSize > 1 || range.IsEmpty() || range.At(0) != 0;
        return character == '<' && isWhole;
    }
    return false;
}

/// The encoding in which the bytes look like XML; null for none.
const Encoding* FindEncoding(const FileRange& range)
{
    const auto* const found =
        std::find_if(std::begin(ENCODINGS), std::end(ENCODINGS),
                     [&range](const Encoding& encoding) { return LooksLikeXml(range, encoding); });
    return found == std::end(ENCODINGS) ? nullptr : found;
}

/// The encoding that an XML declaration names, or else the default.
QByteArray DeclaredEncoding(const QByteArray& bytes)
{
    QXmlStreamReader reader(bytes);
    reader.readNext();
    const QString name = reader.documentEncoding().toString();
    return name.isEmpty() ? QByteArrayLiteral("UTF-8") : name.toLatin1();
}

QString Decode(const QByteArray& bytes, const QByteArray& encoding)
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    const QTextCodec* const codec = QTextCodec::codecForName(encoding);
    return codec ? codec->toUnicode(bytes) : QString::fromUtf8(bytes.constData(), bytes.size());
#else
    QStringDecoder decoder(encoding.constData());
    return decoder.isValid() ? QString(decoder(bytes)) : QString::fromUtf8(bytes);
#endif
}

/// How many bytes a character takes.
qint64 SizeOf(uint character, qint64 unitSize)
{
    constexpr uint FIRST_OF_TWO = 0x80;
    constexpr uint FIRST_OF_THREE = 0x800;
    constexpr uint FIRST_OF_FOUR = 0x10000;
    if (unitSize == 4)
        return unitSize;
    if (unitSize == 2)
        return character < FIRST_OF_FOUR ? 2 : 4;
    if (character < FIRST_OF_THREE)
        return character < FIRST_OF_TWO ? 1 : 2;
    return character < FIRST_OF_FOUR ? 3 : 4;
}

/// The character that stands for what is none, as it is written by somebody who means it.
QByteArray WrittenReplacement(const Encoding& encoding)
{
    if (encoding.unitSize == 1)
        return QByteArrayLiteral("\xEF\xBF\xBD");
    QByteArray unit(static_cast<int>(encoding.unitSize), '\0');
    const int low = static_cast<int>(encoding.lowestByte);
    unit[low] = '\xFD';
    unit[low == 0 ? 1 : low - 1] = '\xFF';
    return unit;
}

} // namespace

QLatin1String WordFor(const FileForm& form)
{
    if (form.isBinaryFile)
        return QLatin1String("file");
    switch (form.form) {
    case Form::Xml:
        return QLatin1String("xml");
    case Form::Plain:
        return QLatin1String("plain");
    case Form::Compressed:
        return QLatin1String("compressed");
    case Form::Unknown:
        break;
    }
    return QLatin1String("unknown");
}

FileForm Recognise(const QByteArray& bytes)
{
    const FileRange range(bytes);
    if (const Form form = FormOfRepresentation(range); form != Form::Unknown)
        return {form, false};
    FileRange content = range;
    content.Take(wire::WORD_SIZE);
    if (const Form form = FormOfRepresentation(content); form != Form::Unknown)
        return {form, true};
    return {FindEncoding(range) ? Form::Xml : Form::Unknown, false};
}

QByteArray ForXmlReader(const QByteArray& bytes)
{
    const auto* const found = FindEncoding(FileRange(bytes));
    const bool lacksMark = found && found->unitSize > 1 && !bytes.startsWith(MarkOf(*found));
    return lacksMark ? MarkOf(*found) + bytes : bytes;
}

QString DecodeXml(const QByteArray& bytes)
{
    const auto* const found = FindEncoding(FileRange(bytes));
    const bool isOfBytes = !found || found->unitSize == 1;
    QString text = Decode(bytes, isOfBytes ? DeclaredEncoding(bytes) : QByteArray(found->name));
    if (text.startsWith(BYTE_ORDER_MARK))
        text.remove(0, 1);
    return text;
}

qint64 FindUndecodable(const QByteArray& bytes)
{
    constexpr QChar REPLACEMENT(QChar::ReplacementCharacter);
    const QString text = DecodeXml(bytes);
    const auto* const found = FindEncoding(FileRange(bytes));
    if (!found || (found->unitSize == 1 && DeclaredEncoding(bytes).toUpper() != "UTF-8"))
        return text.indexOf(REPLACEMENT);
    const QByteArray written = WrittenReplacement(*found);
    qint64 offset = bytes.startsWith(MarkOf(*found)) ? found->markSize : 0;
    for (int i = 0; i < text.size(); ++i) {
        const bool isPair =
            text.at(i).isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate();
        const uint character =
            isPair ? QChar::surrogateToUcs4(text.at(i), text.at(i + 1)) : text.at(i).unicode();
        const bool isNone =
            text.at(i) == REPLACEMENT && bytes.mid(static_cast<int>(offset), written.size()) != written;
        if (isNone || (text.at(i).isSurrogate() && !isPair))
            return i;
        offset += SizeOf(character, found->unitSize);
        i += isPair ? 1 : 0;
    }
    return -1;
}

} // namespace ReportCore
