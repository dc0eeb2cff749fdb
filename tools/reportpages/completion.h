#ifndef REPORTPAGES_COMPLETION_H
#define REPORTPAGES_COMPLETION_H

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <utility>
#include <vector>

namespace ReportPages {

// What shells complete the command line of reporttool by: its commands, their options and arguments, and the words that
// can stand there. `program` is the name that it is called by.

QByteArray BashCompletion(const QString& program);
QByteArray ZshCompletion(const QString& program);
QByteArray FishCompletion(const QString& program);

/// The paths of all fields of a report, lists with their first item.
QStringList FieldPaths();

/// Those that can be set, with the sign behind them: "frequency.value=". Switches come with both their values.
QStringList Assignments();

/// The program's name as a part of a function's name.
QString FunctionName(const QString& program);

/// In single quotes of a shell.
QString Quoted(const QString& text);

/// Each in single quotes, with blanks between them.
QString QuotedList(const QStringList& texts);

/// The script with texts in the places of @THEIR_NAMES@.
QByteArray Filled(const char* script, const std::vector<std::pair<const char*, QString>>& texts);

/// A long option with its dashes, or one of a letter with its dash.
QString Dashed(const QString& optionName);

} // namespace ReportPages

#endif
