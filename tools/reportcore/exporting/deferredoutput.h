#ifndef REPORTCORE_EXPORTING_DEFERREDOUTPUT_H
#define REPORTCORE_EXPORTING_DEFERREDOUTPUT_H

#include <QtCore/QByteArray>
#include <QtCore/QTemporaryFile>

#include <functional>

namespace ReportCore {

/// What has its place in a file only at its end. Much of it is kept in a temporary file. Everything throws
/// `UnusableFile`.
class DeferredOutput
{
public:
    bool IsEmpty() const { return m_size == 0; }
    void Append(const QByteArray& bytes);

    /// Hands over all of it, piece by piece, in the order in which it came.
    void TakeAll(const std::function<void(const QByteArray& bytes)>& take);

private:
    void Store();

    qint64 m_size = 0;
    QByteArray m_latest;
    QTemporaryFile m_file; ///< for what came before these
};

} // namespace ReportCore

#endif
