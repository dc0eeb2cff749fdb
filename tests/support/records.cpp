#include "support/records.h"

#include <QtCore/QBuffer>
#include <QtCore/QXmlStreamReader>
#include <QtCore/QXmlStreamWriter>

#include <cmath>
#include <cstring>
#include <limits>

namespace Support {
namespace {

QString Described(const QXmlStreamReader& reader)
{
    if (reader.hasError())
        return QStringLiteral("error");
    if (reader.isStartElement())
        return QLatin1Char('<') + reader.name().toString() + QLatin1Char('>');
    if (reader.isEndElement())
        return QStringLiteral("</") + reader.name().toString() + QLatin1Char('>');
    if (reader.isCharacters())
        return QStringLiteral("text");
    if (reader.isEndDocument())
        return QStringLiteral("end");
    return QStringLiteral("something else");
}

} // namespace

QByteArray Written(const std::function<void(QDataStream&)>& write)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_4_6);
    write(stream);
    return bytes;
}

QByteArray BodyOf(const REPORTGENERATOR::IRGObject& object, int tag, bool withTag)
{
    return Written([&](QDataStream& stream) { object.GetBinary(stream, tag, withTag); });
}

QString UnindentedXmlOf(const REPORTGENERATOR::IRGObject& object)
{
    QString xml;
    QXmlStreamWriter writer(&xml);
    object.GetXml(writer);
    return xml;
}

int ReadElements(REPORTGENERATOR::IRGObject& object, int length, const Bytes& bytes)
{
    const QByteArray data = bytes.Data();
    QDataStream stream(data);
    stream.setVersion(QDataStream::Qt_4_6);
    object.SetBinary(stream, length);
    return static_cast<int>(stream.device()->bytesAvailable());
}

int ReadElements(REPORTGENERATOR::IRGObject& object, const Bytes& elements)
{
    return ReadElements(object, elements.Size(), elements);
}

QString ReadElement(REPORTGENERATOR::IRGObject& object, const QString& xml)
{
    QXmlStreamReader reader(xml);
    while (!reader.atEnd() && !reader.isStartElement())
        reader.readNext();
    object.ProcessXml(reader);
    return Described(reader);
}

QString XmlErrorOf(const QString& xml)
{
    QXmlStreamReader reader(xml);
    while (!reader.atEnd())
        reader.readNext();
    return reader.errorString();
}

std::vector<NamedNumber> OddNumbers()
{
    using Limits = std::numeric_limits<double>;
    constexpr double UNSET_DOUBLE = -111111.11;
    return {
        {"zero", 0.0},
        {"negative zero", -0.0},
        {"one", 1.0},
        {"minus one", -1.0},
        {"tie", 0.125},
        {"smallest denormal", Limits::denorm_min()},
        {"negative denormal", -Limits::denorm_min()},
        {"smallest normal", Limits::min()},
        {"greatest", Limits::max()},
        {"lowest", Limits::lowest()},
        {"infinity", Limits::infinity()},
        {"negative infinity", -Limits::infinity()},
        {"NaN", Limits::quiet_NaN()},
        {"unset double", UNSET_DOUBLE},
        {"next above the unset double", std::nextafter(UNSET_DOUBLE, Limits::infinity())},
        {"next below the unset double", std::nextafter(UNSET_DOUBLE, -Limits::infinity())},
        {"unset int", -111111.0},
        {"unset float", -1111111.0},
        {"unset unsigned int", 4294967295.0},
    };
}

std::vector<NumberText> NumberTexts()
{
    return {
        {QStringLiteral("0"), 0.0},
        {QStringLiteral("12"), 12.0},
        {QStringLiteral("-12.25"), -12.25},
        {QStringLiteral("+12.25"), 12.25},
        {QStringLiteral("012.50"), 12.5},
        {QStringLiteral(".5"), 0.5},
        {QStringLiteral("5."), 5.0},
        {QStringLiteral("1e3"), 1000.0},
        {QStringLiteral("1E+2"), 100.0},
        {QStringLiteral("25e-2"), 0.25},
        {QStringLiteral(" 7 "), 7.0},
        {QStringLiteral("\n\t7\n"), 7.0},
        {QStringLiteral("-111111.11"), -111111.11},
        {QString(), 0.0},
        {QStringLiteral(" "), 0.0},
        {QStringLiteral("abc"), 0.0},
        {QStringLiteral("12 34"), 0.0},
        {QStringLiteral("12abc"), 0.0},
        {QStringLiteral("1,5"), 0.0},
        {QStringLiteral("1,000"), 0.0},
        {QStringLiteral("1.5e"), 0.0},
        {QStringLiteral("1.2.3"), 0.0},
        {QStringLiteral("--1"), 0.0},
        {QStringLiteral("0x10"), 0.0},
        {QStringLiteral("-"), 0.0},
        {QStringLiteral("."), 0.0},
        {QStringLiteral("true"), 0.0},
    };
}

quint64 BitsOf(double number)
{
    quint64 bits = 0;
    static_assert(sizeof bits == sizeof number);
    std::memcpy(&bits, &number, sizeof bits);
    return bits;
}

} // namespace Support
