#include <reportgenerator/reportbase/converters.h>

#include <reportgenerator/reportbase/codec/name.h>

#include <QtCore/QFileInfo>
#include <QtCore/QLocale>
#include <QtCore/QUrl>

namespace {

constexpr REPORTGENERATOR::Name NETWORK_PATH_START = REPORTBASE_NAME("//");
constexpr REPORTGENERATOR::Name SCHEME_END = REPORTBASE_NAME("://");
constexpr REPORTGENERATOR::Name OWN_SCHEME_START = REPORTBASE_NAME("vemox:/");
constexpr REPORTGENERATOR::Name FILE_SCHEME = REPORTBASE_NAME("file:");
constexpr REPORTGENERATOR::Name LOCAL_FILE_START = REPORTBASE_NAME("file:///");

constexpr QLatin1Char CHARACTERS_NOT_FOR_XML[] = {QLatin1Char('\a'), QLatin1Char('\f'), QLatin1Char('\v')};

} // namespace

QString Converters::ToString(const QDateTime& dateTime)
{
    return QLocale::c().toString(dateTime.toUTC(), QStringLiteral("yyyy-MM-ddThh:mm:ss.zzzZ"));
}

QString Converters::GetFormatedCurrentDateTime()
{
    return ToString(QDateTime::currentDateTime());
}

QDateTime Converters::ToDateTime(const QString& text)
{
    return QDateTime::fromString(text, Qt::ISODate);
}

QString Converters::ToUrl(const QString& path)
{
    if (path.isEmpty())
        return path;

    QString url = path;
    url.replace(QLatin1Char('\\'), QLatin1Char('/'));
    if (url.startsWith(NETWORK_PATH_START.Latin1()))
        url.prepend(FILE_SCHEME.Latin1());
    // The own scheme has a single slash, so it would not be known by the end of its name.
    if (!url.contains(SCHEME_END.Latin1()) && !url.startsWith(OWN_SCHEME_START.Latin1()))
        url.prepend(LOCAL_FILE_START.Latin1());
    return url;
}

QString Converters::ToUrl(const QFileInfo& info)
{
    return QUrl::fromLocalFile(info.absoluteFilePath()).toString();
}

QString Converters::ToValidXmlString(const QString& text)
{
    QString result = text;
    for (const QLatin1Char character : CHARACTERS_NOT_FOR_XML)
        result.remove(character);
    return result;
}
