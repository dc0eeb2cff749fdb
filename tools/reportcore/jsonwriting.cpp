#include <reportcore/jsonwriting.h>

#include <reportcore/filenames.h>

#include <reportgenerator/reflection/texts.h>

namespace ReportCore {

namespace {

constexpr int ESCAPE_SIZE = 6; ///< of "\ud800"
constexpr char REPLACEMENT[] = "\\ufffd";

/// Qt escapes no surrogates but those without the other half.
bool IsSurrogate(const QByteArray& json, int escape)
{
    return json.size() - escape >= ESCAPE_SIZE && json.at(escape + 1) == 'u' &&
           (json.at(escape + 2) | 0x20) == 'd' && json.at(escape + 3) >= '8';
}

} // namespace

QByteArray JsonBytes(const QJsonDocument& json, QJsonDocument::JsonFormat format)
{
    QByteArray bytes = json.toJson(format);
    for (int escape = static_cast<int>(bytes.indexOf('\\')); escape >= 0;
         escape = static_cast<int>(bytes.indexOf('\\', escape + 2))) {
        if (IsSurrogate(bytes, escape))
            bytes.replace(escape, ESCAPE_SIZE, REPLACEMENT);
    }
    return bytes;
}

void InsertFileName(QJsonObject& json, const QString& key, const QString& name)
{
    const QString text = WellFormed(name);
    json.insert(key, text);
    if (text != name)
        json.insert(key + QLatin1String(BASE64_SUFFIX), QString::fromLatin1(FileNameBytes(name).toBase64()));
}

} // namespace ReportCore
