#ifndef REPORTPAGES_MANPAGE_H
#define REPORTPAGES_MANPAGE_H

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QStringList>

namespace ReportPages {

/// What a manual page says beside the help of its program.
struct PageFacts
{
    QString name;        ///< of the page: "reporttool-check"
    QString summary;     ///< one line
    QString source;      ///< program and version
    QStringList seeAlso; ///< names of other pages
};

/// A manual page of section 1, made of a help as `QCommandLineParser` writes it. In the description a paragraph that
/// begins with "Exit codes", "Environment:", "Forms:" or "Formats:" becomes a section, and indented lines become a list.
/// Text behind the title "Examples:" is commands, each followed by its purpose, indented further. The page holds no
/// date, so that every build makes the same.
QByteArray ManPageOf(const PageFacts& facts, const QString& help);

} // namespace ReportPages

#endif
