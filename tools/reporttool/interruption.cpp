#include <reporttool/interruption.h>

#include <csignal>

namespace ReportTool {

namespace {

volatile std::sig_atomic_t g_hasCome = 0;

void Note(int signal)
{
    g_hasCome = 1;
    std::signal(signal, SIG_DFL);
}

} // namespace

Interruption::Interruption()
{
    g_hasCome = 0;
    m_before = std::signal(SIGINT, Note);
    if (m_before != SIG_IGN)
        return;
    std::signal(SIGINT, SIG_IGN);
    // One may have come in between.
    g_hasCome = 0;
}

Interruption::~Interruption()
{
    if (m_before != SIG_ERR)
        std::signal(SIGINT, m_before);
}

bool Interruption::HasCome()
{
    return g_hasCome != 0;
}

} // namespace ReportTool
