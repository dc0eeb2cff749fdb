#ifndef REPORTTOOL_PROGRESS_H
#define REPORTTOOL_PROGRESS_H

#include <QtCore/QElapsedTimer>
#include <QtCore/QString>

namespace ReportTool {

class TextOutput;

/// How far something has got, in one line for people: "1234 of 100000 (1 %), 20567/s, 5 s left".
QString ProgressText(qint64 done, qint64 total, qint64 milliseconds);

/// A line that tells how far something has got, if that is written to a terminal.
class Progress
{
public:
    Progress(TextOutput& terminal, qint64 total);
    ~Progress();
    Progress(const Progress& other) = delete;
    Progress& operator=(const Progress& other) = delete;

    /// Now and then shows the line anew.
    void Show(qint64 done);

    /// Takes the line away, so that something else can be written.
    void Clear();

private:
    TextOutput& m_terminal;
    const bool m_isTerminal;
    const qint64 m_total;
    bool m_isShown = false;
    qint64 m_next;
    QElapsedTimer m_clock;
};

} // namespace ReportTool

#endif
