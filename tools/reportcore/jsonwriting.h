#ifndef REPORTCORE_JSONWRITING_H
#define REPORTCORE_JSONWRITING_H

#include <QtCore/QByteArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QString>

namespace ReportCore {

/// JSON that every reader takes, whatever texts are in it: half of a surrogate pair, which UTF-8 cannot hold and many
/// refuse as an escape, becomes U+FFFD.
QByteArray JsonBytes(const QJsonDocument& json, QJsonDocument::JsonFormat format = QJsonDocument::Indented);

/// What stands behind the key of a name for the key of its bytes.
constexpr char BASE64_SUFFIX[] = "Base64";

/// The name of a file under that key. One that is no UTF-8 has U+FFFD there, and its bytes in Base64 under a second key.
void InsertFileName(QJsonObject& json, const QString& key, const QString& name);

} // namespace ReportCore

#endif
