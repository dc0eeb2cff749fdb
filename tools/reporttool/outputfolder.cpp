#include <reporttool/outputfolder.h>

#include <reporttool/parser.h>

#include <reportcore/files.h>

#include <QtCore/QDir>
#include <QtCore/QFileInfo>

namespace ReportTool {

QHash<QString, QString> OutputsIn(const QString& folder, const QStringList& inputs,
                                  const std::function<QString(const QString& input)>& nameOf)
{
    if (!QFileInfo(folder).isDir())
        throw ReportCore::UnusableFile{folder, QStringLiteral("no such folder")};
    QHash<QString, QString> outputs;
    QHash<QString, QString> sources;
    for (const QString& input : inputs) {
        if (ReportCore::IsStandardStream(input))
            throw UsageError{QStringLiteral("standard input has no name for a file in a folder")};
        const QString output = QDir(folder).filePath(nameOf(input));
        if (sources.contains(output))
            throw UsageError{
                QStringLiteral("%1 and %2 would both become %3").arg(sources.value(output), input, output)};
        sources.insert(output, input);
        outputs.insert(input, output);
    }
    return outputs;
}

} // namespace ReportTool
