#ifndef REPORTCORE_INSPECT_EVENT_H
#define REPORTCORE_INSPECT_EVENT_H

#include <reportgenerator/reflection/fieldpath.h>

#include <QtCore/QString>

namespace ReportCore {

/// What an inspector has come to in a file, in whichever form. Positions are those of bytes or, of XML, of units of its
/// text as `DecodeXml` gives it and as Qt's reader counts them.
struct Event
{
    /// What it is to the report.
    enum class Role
    {
        None,
        Value,
        Object,
        Unknown ///< an element that nobody knows
    };

    qint64 begin = 0;
    qint64 end = 0;
    int depth = 0; ///< how much is open around it

    /// Which field or object it belongs to; empty for the report and for what belongs to none. Valid during the visit.
    const FieldPath* path = nullptr;

    Role role = Role::None;

    // Of what has a role

    qint64 place = 0;   ///< where the value, the object or the element begins
    qint64 readTo = -1; ///< how far a reader has got that has just read it; -1 where none stops there
    QString value = {}; ///< as it was found; null of an object

    // Of what isn't as it should be

    const char* fault = ""; ///< name of the problem; empty for what is as it should be
    QString faultText = {}; ///< what is wrong with it

    bool IsFaulty() const { return *fault != '\0'; }

    /// Whether it belongs to a field that holds a value.
    bool IsOfValue() const { return path && !path->IsEmpty() && !path->Last().field->HasObjects(); }
};

} // namespace ReportCore

#endif
