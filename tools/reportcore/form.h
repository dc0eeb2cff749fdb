#ifndef REPORTCORE_FORM_H
#define REPORTCORE_FORM_H

#include <QtCore/QByteArray>
#include <QtCore/QLatin1String>
#include <QtCore/QString>

namespace ReportCore {

/// How a report is written down.
enum class Form
{
    Unknown,
    Xml,
    Plain,
    Compressed
};

/// What the bytes of a file look like.
struct FileForm
{
    Form form = Form::Unknown;

    /// Whether the representation stands in a binary file, behind its size.
    bool isBinaryFile = false;

    bool IsBinary() const { return form == Form::Plain || form == Form::Compressed; }
};

/// The word for a form in options, in JSON and at the end of files' names: "xml", "plain", "compressed", or "file" for a
/// binary file, whatever it holds. What is in none of them is "unknown".
QLatin1String WordFor(const FileForm& form);

/// Recognises the form by the content alone.
FileForm Recognise(const QByteArray& bytes);

/// Whether a byte or a unit of UTF-16 is a blank of XML.
template <class Unit>
constexpr bool IsXmlBlank(Unit unit)
{
    return unit == ' ' || unit == '\t' || unit == '\r' || unit == '\n';
}

/// XML as Qt's reader is to get it: UTF-16 and UTF-32 have a byte order mark. Without one the reader doesn't know the order
/// of the bytes, or counts those of a character as characters.
QByteArray ForXmlReader(const QByteArray& bytes);

/// The text of XML in whichever encoding, without byte order mark.
QString DecodeXml(const QByteArray& bytes);

/// Where bytes stand that are no character in the encoding of the XML, in its text; -1 when there are none. Of encodings
/// that aren't of Unicode, only bytes that they know to be none.
qint64 FindUndecodable(const QByteArray& bytes);

} // namespace ReportCore

#endif
