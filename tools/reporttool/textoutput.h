#ifndef REPORTTOOL_TEXTOUTPUT_H
#define REPORTTOOL_TEXTOUTPUT_H

#include <QtCore/QByteArray>
#include <QtCore/QString>

class QIODevice;

namespace ReportTool {

/// Text for people, as UTF-8 whatever the locale.
class TextOutput
{
public:
    /// The device must be open for writing and outlive this; `name` is for messages.
    TextOutput(QIODevice& device, const QString& name);

    /// Of one that waits for another: who looks at that looks at this.
    TextOutput(QIODevice& device, const TextOutput& other);

    /// Throws `UnusableFile` when the device takes no more.
    void Line(const QString& text);
    void Text(const QString& text);
    void Bytes(const QByteArray& bytes);

    /// The name of a file, for people. Programs get its own bytes; within a line, without line breaks and the like.
    void FileName(const QString& file);
    void FileNameInLine(const QString& file);

    /// Whether people look at it.
    bool IsTerminal() const { return m_isTerminal; }

    /// Hands on what is still kept back. Throws as `Line`.
    void Flush();

private:
    QIODevice& m_device;
    QString m_name;
    bool m_isTerminal;
    QByteArray m_pending;
};

} // namespace ReportTool

#endif
