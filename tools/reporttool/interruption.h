#ifndef REPORTTOOL_INTERRUPTION_H
#define REPORTTOOL_INTERRUPTION_H

namespace ReportTool {

/// While it lives, the first Ctrl-C doesn't end the program but is noted. The second one ends it.
class Interruption
{
public:
    Interruption();
    ~Interruption();
    Interruption(const Interruption& other) = delete;
    Interruption& operator=(const Interruption& other) = delete;

    static bool HasCome();
};

} // namespace ReportTool

#endif
