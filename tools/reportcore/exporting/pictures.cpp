#include <reportcore/exporting/pictures.h>

namespace ReportCore {

namespace {

Painters& Own()
{
    static Painters painters;
    return painters;
}

} // namespace

const Painters& OwnPainters()
{
    return Own();
}

void SetOwnPainters(const Painters& painters)
{
    Own() = painters;
}

} // namespace ReportCore
