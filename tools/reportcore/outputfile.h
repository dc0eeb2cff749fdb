#ifndef REPORTCORE_OUTPUTFILE_H
#define REPORTCORE_OUTPUTFILE_H

#include <reportcore/files.h>
#include <reportcore/platform.h>

#include <QtCore/QByteArray>
#include <QtCore/QIODevice>
#include <QtCore/QString>

#include <memory>
#include <optional>

namespace ReportCore {

/// A file, or standard output, that is written piece by piece. Until `Commit` the pieces stand in a temporary file
/// beside the old one, which then takes its place; without `Commit` the old file stays as it is. Only devices and
/// pipes are written to directly. Everything throws `UnusableFile`.
class OutputFile
{
public:
    /// Opens it.
    explicit OutputFile(const QString& name, Terminals terminals = Terminals::Taken);
    ~OutputFile();
    OutputFile(const OutputFile& other) = delete;
    OutputFile& operator=(const OutputFile& other) = delete;

    void Write(const QByteArray& bytes);
    void Commit();

private:
    QString m_name;
    std::optional<FileBeingReplaced> m_isBeingReplaced;
    std::unique_ptr<QIODevice> m_file;
};

} // namespace ReportCore

#endif
