#include <reportcore/filenames.h>

#include <reportgenerator/reflection/texts.h>

#include <QtCore/QFile>
#include <QtCore/QtGlobal>

#if defined(Q_OS_UNIX) && QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
#    define REPORTCORE_HAS_CODECS
#endif

#ifdef REPORTCORE_HAS_CODECS
#    include <QtCore/QTextCodec>

#    include <algorithm>
#endif

namespace ReportCore {

#ifdef REPORTCORE_HAS_CODECS

namespace {

constexpr int UTF8_MIB = 106;

/// Of an identifier that no codec has.
constexpr int OWN_MIB = -106;

constexpr ushort FIRST_STAND_IN = 0xDC80;
constexpr ushort LAST_STAND_IN = 0xDCFF;
constexpr ushort STAND_INS = 0xDC00;

/// How many bytes the character takes that begins with this one by its own account; 1 where it begins none.
int ClaimedSize(uchar first)
{
    if (first >= 0xF0)
        return 4;
    if (first >= 0xE0)
        return 3;
    return first >= 0xC0 ? 2 : 1;
}

/// UTF-8 in which a byte that is none becomes half of a surrogate pair, which no text has alone, and back.
class Utf8WithOddBytes : public QTextCodec
{
public:
    explicit Utf8WithOddBytes(const QTextCodec& utf8) : m_utf8(utf8) {}

    QByteArray name() const override { return "UTF-8 with odd bytes"; }
    int mibEnum() const override { return OWN_MIB; }

protected:
    QString convertToUnicode(const char* bytes, int size, ConverterState* /*state*/) const override
    {
        ConverterState whole(IgnoreHeader);
        QString text = m_utf8.toUnicode(bytes, size, &whole);
        if (whole.invalidChars == 0 && whole.remainingChars == 0)
            return text;
        text.clear();
        for (int i = 0; i < size;) {
            const int count = std::min(ClaimedSize(static_cast<uchar>(bytes[i])), size - i);
            ConverterState state(IgnoreHeader);
            const QString character = m_utf8.toUnicode(bytes + i, count, &state);
            if (state.invalidChars == 0 && state.remainingChars == 0) {
                text += character;
                i += count;
            } else {
                text += QChar(static_cast<ushort>(STAND_INS + static_cast<uchar>(bytes[i])));
                ++i;
            }
        }
        return text;
    }

    QByteArray convertFromUnicode(const QChar* characters, int size, ConverterState* /*state*/) const override
    {
        QByteArray bytes;
        int begin = 0;
        for (int i = 0; i <= size; ++i) {
            const bool isStandIn = i < size && characters[i].unicode() >= FIRST_STAND_IN &&
                                   characters[i].unicode() <= LAST_STAND_IN &&
                                   (i == 0 || !characters[i - 1].isHighSurrogate());
            if (i < size && !isStandIn)
                continue;
            bytes += QString(characters + begin, i - begin).toUtf8();
            if (isStandIn)
                bytes += static_cast<char>(characters[i].unicode() - STAND_INS);
            begin = i + 1;
        }
        return bytes;
    }

private:
    const QTextCodec& m_utf8; ///< finding it for each name would take as long as the rest of reading a folder
};

} // namespace

void KeepOddFileNames()
{
    const QTextCodec* const codec = QTextCodec::codecForLocale();
    // Qt owns it.
    if (codec && codec->mibEnum() == UTF8_MIB)
        QTextCodec::setCodecForLocale(new Utf8WithOddBytes(*codec));
}

#else

void KeepOddFileNames() {}

#endif

QByteArray FileNameInLine(const QString& name)
{
    QString visible;
    int begin = 0;
    for (int i = 0; i < name.size(); ++i) {
        // A half of a pair stands for a byte, or is refused by whoever encodes it.
        const bool isHalf = name.at(i).isLowSurrogate() && (i == 0 || !name.at(i - 1).isHighSurrogate());
        if (!isHalf)
            continue;
        visible += Printable(name.mid(begin, i - begin)) + name.at(i);
        begin = i + 1;
    }
    return FileNameBytes(visible + Printable(name.mid(begin)));
}

#ifdef Q_OS_WIN

QByteArray FileNameBytes(const QString& name)
{
    return ToUtf8(name);
}

QString FileNameOf(const QByteArray& bytes)
{
    const QString name = QString::fromUtf8(bytes);
    return name.toUtf8() == bytes ? name : QFile::decodeName(bytes);
}

#else

QByteArray FileNameBytes(const QString& name)
{
    return QFile::encodeName(name);
}

QString FileNameOf(const QByteArray& bytes)
{
    return QFile::decodeName(bytes);
}

#endif

} // namespace ReportCore
