#include <reporttool/progress.h>

#include <reporttool/textoutput.h>

#include <reportcore/files.h>

#include <algorithm>

namespace ReportTool {

namespace {

constexpr qint64 FIRST_AFTER_MS = 500;
constexpr qint64 EVERY_MS = 200;
constexpr qint64 MS_PER_SECOND = 1000;
constexpr qint64 PERCENT = 100;

/// Back to the start of the line, and the line empty.
constexpr char CLEAR_LINE[] = "\r\x1B[K";

} // namespace

QString ProgressText(qint64 done, qint64 total, qint64 milliseconds)
{
    QString text = QStringLiteral("%1 of %2 (%3 %)")
                       .arg(done)
                       .arg(total)
                       .arg(done * PERCENT / std::max<qint64>(total, 1));
    if (done == 0 || milliseconds == 0)
        return text;
    const qint64 left = (total - done) * milliseconds / done;
    return text + QStringLiteral(", %1/s, %2 s left")
                      .arg(done * MS_PER_SECOND / milliseconds)
                      .arg((left + MS_PER_SECOND - 1) / MS_PER_SECOND);
}

Progress::Progress(TextOutput& terminal, qint64 total)
    : m_terminal(terminal), m_isTerminal(terminal.IsTerminal()), m_total(total), m_next(FIRST_AFTER_MS)
{
    m_clock.start();
}

Progress::~Progress()
{
    try {
        Clear();
    } catch (const ReportCore::UnusableFile&) {
        // There is nobody who looks at it.
    }
}

void Progress::Show(qint64 done)
{
    const qint64 now = m_clock.elapsed();
    if (!m_isTerminal || now < m_next)
        return;
    m_next = now + EVERY_MS;
    m_isShown = true;
    m_terminal.Text(QLatin1String(CLEAR_LINE) + ProgressText(done, m_total, now));
    m_terminal.Flush();
}

void Progress::Clear()
{
    if (!m_isShown)
        return;
    m_isShown = false;
    m_terminal.Text(QLatin1String(CLEAR_LINE));
    m_terminal.Flush();
}

} // namespace ReportTool
