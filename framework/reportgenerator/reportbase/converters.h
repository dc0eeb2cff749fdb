#ifndef REPORTGENERATOR_CONVERTERS_H
#define REPORTGENERATOR_CONVERTERS_H

#include <reportgenerator/reportbase/reportbase_export.h>

#include <QtCore/QDateTime>
#include <QtCore/QString>

class QFileInfo;

/// Turns dates, file paths and free text into the forms that stand in report files.
///
///     Converters::ToString(start);                                  // "2014-07-03T08:05:09.120Z"
///     Converters::ToUrl(QStringLiteral("C:\\data\\a.xml"));         // "file:///C:/data/a.xml"
///     Converters::ToValidXmlString(remark);                         // without bell, form feed, vertical tab
///
/// All functions are static and keep no state. They may be called from any thread, do not depend on the
/// locale, and throw nothing.
class REPORTBASE_EXPORT Converters
{
public:
    Converters() = delete;

    /// The moment in UTC as "yyyy-MM-ddThh:mm:ss.zzzZ", in digits 0 to 9 whatever the locale; the T and the Z
    /// stand for themselves. Empty for a null date-time. A local time that the change of the clocks skips is
    /// invalid but not null; its digits come out as they are, as if it were in UTC.
    static QString ToString(const QDateTime& dateTime);

    /// The present moment in the form of `ToString`. The name keeps its single t.
    static QString GetFormatedCurrentDateTime();

    /// The date-time that a text in ISO 8601 form holds: in UTC when it ends in Z, at its offset when it has
    /// one, else in local time. Seconds and milliseconds may be missing, and a date alone stands for its
    /// midnight. Null when the text holds none; invalid, but not null, for a local time that the change of
    /// the clocks skips.
    static QDateTime ToDateTime(const QString& text);

    /// The URL of a file reference. Nothing is looked up or encoded, and a relative path stays relative.
    ///
    /// Backslashes become slashes. A network path (`//host/share`) gets "file:" in front. A text is taken for
    /// a URL when it then holds "://" anywhere, or when it starts with the system's own scheme "vemox:/"; any
    /// other text gets "file:///" in front. Upper and lower case are told apart. An empty text stays empty.
    static QString ToUrl(const QString& path);

    /// The URL of the file's absolute path; empty when there is no file name. Only the characters are encoded
    /// that would change its meaning ("%23" for #, "%25" for %); blanks and letters of any script stay.
    static QString ToUrl(const QFileInfo& info);

    /// The text without bell (U+0007), vertical tab (U+000B) and form feed (U+000C), which XML 1.0 does not
    /// allow. Everything else is kept: tabs, line feeds and carriage returns, and also the other control
    /// characters.
    static QString ToValidXmlString(const QString& text);
};

#endif
