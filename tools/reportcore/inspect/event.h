#ifndef REPORTCORE_INSPECT_EVENT_H
#define REPORTCORE_INSPECT_EVENT_H

#include <reportcore/inspect/filerange.h>

#include <reportgenerator/reflection/fieldpath.h>

#include <QtCore/QString>

namespace ReportCore {

class Inspector;

/// What an inspector has come to in a file, in whichever form. Positions are those of bytes or, of XML, of units of its
/// text as `DecodeXml` gives it and as Qt's reader counts them.
struct Event
{
    /// What stands there.
    enum class Kind
    {
        // Of binary forms

        Tag,
        Length,
        SizeOfBytes,
        SizeOfUtf8,
        SizeOfUtf16,
        Count,
        Prefix,
        Utf8,
        Utf16,
        Bool,
        Other,

        // Of documents in XML

        DocumentType,
        Surrounding, ///< the start tag of an element outside of reports
        SurroundingEnd,
        AnotherReport, ///< the start tag of a report behind the first; of what stands in it, only entities come up
        AnotherReportEnd,
        Malformed, ///< it is not well-formed from here on
        Entity,    ///< one that nobody knows

        // Of the first report in them

        StartTag,  ///< of the report, of what it holds, and of values
        Attribute, ///< of a field
        Text,      ///< a field that is the text of an object's element, which ends
        EndTag,    ///< of a value or an object; what has come up between the tags is known now
        Open,      ///< an object that has not ended where the document breaks off
        UnknownTag,
        UnknownEnd,
        UnknownAttribute,
        UnknownText, ///< where no field has one
        DividedText  ///< a piece of a text behind another one; of several the last is read
    };

    /// What it is to the report, in whichever form.
    enum class Role
    {
        None,
        Element, ///< begins an element that comes once, in binary forms one of a value
        Size,    ///< of a value that may be empty; else the value follows
        Value,
        Object,
        Unknown ///< begins an element that nobody knows
    };

    const Inspector* inspector = nullptr;
    Kind kind = Kind::Other;
    Role role = Role::None;
    qint64 begin = 0;
    qint64 end = 0;
    int depth = 0; ///< how much is open around it

    bool isInReport = false;      ///< not what stands around the report or behind it
    bool isWithinUnknown = false; ///< stands in an element that nobody knows

    /// Which field or object it belongs to; empty for the report and for what belongs to none. Valid during the visit.
    const FieldPath* path = nullptr;

    /// Of XML: the object of the innermost element, null where that is none.
    const ObjectInfo* object = nullptr;

    /// Of an element, an attribute or an entity; in binary forms for people: what it is, or of which element it is a part.
    QString name = {};

    // Of binary forms

    FileRange bytes = {};
    qint64 number = 0; ///< which of several items of a list, from 1; 0 for what is none

    // Of what has a role

    qint64 place = 0;        ///< where the value, the object or the element begins
    qint64 contentBegin = 0; ///< where what the element holds begins
    qint64 readTo = -1;      ///< how far a reader has got that has just read it; -1 where none stops there
    QString value = {};      ///< as it was found; null of an object
    bool hasReturns = false; ///< a text in which carriage returns stand, which XML doesn't keep

    // Of what isn't as it should be

    const char* fault = ""; ///< name of the problem; empty for what is as it should be
    QString faultText = {}; ///< what is wrong with it

    bool IsFaulty() const { return *fault != '\0'; }

    /// Whether it is the value of a number.
    bool IsNumber() const { return role == Role::Value && path->Last().field->Kind() == FieldKind::Number; }
};

/// Whether it is a number of bytes that follow, with a value that stands for none at all.
bool IsSize(Event::Kind kind);

/// Whether the word is that value.
bool IsNull(Event::Kind kind, quint32 word);

// For people

/// What isn't part of a report as it should be: "element 'Antenna'", "element with tag 0x12345678", "attribute 'Mim'". Of
/// an element of a binary form that is known, the name of its field.
QString Subject(const Event& event);

/// Of a binary form, what a field is, without its kind: "bytes of longitude"; what is wrong with it stands behind: "bytes
/// of longitude: 12 claimed, 8 left".
QString Describe(const Event& event);

/// A faulty field for those who don't see its bytes: "length of longitude: 12 claimed, 8 left".
QString DescribeFault(const Event& event);

} // namespace ReportCore

#endif
