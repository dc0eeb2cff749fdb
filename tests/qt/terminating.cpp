// Ends by an exception that nobody catches: `report`, one of the library, or `other`, another one.

#include <reportgenerator/qt/standardexception.h>
#include <reportgenerator/reportbase/rgexception.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <stdexcept>

int main(int argc, char** argv) // NOLINT(bugprone-exception-escape): that is what it is for
{
    std::set_terminate([] {
        std::fputs("the handler from before\n", stderr);
        std::fflush(stderr);
        std::_Exit(EXIT_FAILURE);
    });
    REPORTGENERATOR::InstallTerminateHandler();
    REPORTGENERATOR::InstallTerminateHandler();
    if (argc == 2 && std::strcmp(argv[1], "report") == 0)
        throw RGException(QString::fromUtf8("Z\u00fcrich"));
    throw std::runtime_error("not of the library");
}
