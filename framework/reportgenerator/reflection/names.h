#ifndef REPORTGENERATOR_REFLECTION_NAMES_H
#define REPORTGENERATOR_REFLECTION_NAMES_H

#include <QtCore/QString>

namespace ReportCore {

// What people and programs call the fields whose names stand in the library's schemas.

/// The name in paths and JSON: "IFBandwidth" is "ifBandwidth", "ScriptID" is "scriptId".
QString KeyOf(const QString& name);

/// The name in sentences: "IFBandwidth" is "IF bandwidth", "ScriptID" is "script ID".
QString LabelOf(const QString& name);

/// The name of its bytes, as the golden vectors are annotated: that of sentences, but for a few.
QString WireLabelOf(const QString& name);

/// More than one of them.
QString PluralOf(const QString& name);

} // namespace ReportCore

#endif
