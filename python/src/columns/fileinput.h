#ifndef REPORTCOLUMNS_FILEINPUT_H
#define REPORTCOLUMNS_FILEINPUT_H

#include <QtCore/QByteArray>

#include <string>

namespace ReportColumns {

/// A file that cannot be read; the text is for people.
struct UnreadableFile
{
    std::string text;
};

/// What a regular file holds. Its name is taken as it is, in UTF-8 where the system wants characters: other than Qt, which names
/// files by the locale, this reads what the caller has found. Throws `UnreadableFile`, also for more than
/// `ReportCore::Ceiling()` bytes.
QByteArray ReadFile(const std::string& path);

} // namespace ReportColumns

#endif
