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
    std::signal(SIGINT, Note);
}

Interruption::~Interruption()
{
    std::signal(SIGINT, SIG_DFL);
}

bool Interruption::HasCome()
{
    return g_hasCome != 0;
}

} // namespace ReportTool
