#ifndef REPORTTOOL_OUTPUTFOLDER_H
#define REPORTTOOL_OUTPUTFOLDER_H

#include <QtCore/QHash>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <functional>

namespace ReportTool {

/// The file in a folder that each input becomes, by the input's name; `nameOf` calls it without the folder. No two may
/// become the same. Throws `UsageError`, and `UnusableFile` where there is no such folder.
QHash<QString, QString> OutputsIn(const QString& folder, const QStringList& inputs,
                                  const std::function<QString(const QString& input)>& nameOf);

} // namespace ReportTool

#endif
