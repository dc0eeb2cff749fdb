#ifndef REPORTTOOL_INTERRUPTION_H
#define REPORTTOOL_INTERRUPTION_H

namespace ReportTool {

/// While it lives, the first Ctrl-C doesn't end the program but is noted. The second one ends it. A program that was
/// started to ignore it goes on ignoring it.
class Interruption
{
public:
    Interruption();
    ~Interruption();
    Interruption(const Interruption& other) = delete;
    Interruption& operator=(const Interruption& other) = delete;

    static bool HasCome();

private:
    void (*m_before)(int) = nullptr; ///< what was done with the signal
};

} // namespace ReportTool

#endif
