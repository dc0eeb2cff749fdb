#ifndef REPORTCORE_JSONREADING_H
#define REPORTCORE_JSONREADING_H

#include <reportgenerator/reflection/field.h>

#include <QtCore/QByteArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QString>

namespace ReportCore {

/// JSON that doesn't stand for an object; the text is for people and begins with the path of the field.
struct JsonError
{
    QString text;
};

/// What `QJsonDocument::fromJson` makes of the bytes, with the byte order marks at the start of texts, which Qt takes away.
QJsonDocument ParseJson(const QByteArray& bytes, QJsonParseError& error);

/// Sets the fields of an object as `FieldsToJson` gives them, through the checks of their setters. What is null or missing
/// stays as it is, and the version of the format is not set. Throws `JsonError` for a key that is no field's and for a
/// value that is refused; the object is of no use then.
void SetFromJson(REPORTGENERATOR::IRGObject& object, const ObjectInfo& info, const QJsonObject& json);

} // namespace ReportCore

#endif
