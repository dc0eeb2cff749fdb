// Makes the compiler lay out the virtual tables that other programs call by number.

#include <reportgenerator/reportbase/irgobject.h>
#include <reportgenerator/reportbase/ixmlconverter.h>
#include <reportgenerator/reportbase/listlogger.h>
#include <reportgenerator/reportbase/reportexception.h>

REPORTGENERATOR::IRGObject::~IRGObject() = default;
REPORTGENERATOR::Logger::~Logger() = default;
REPORTGENERATOR::ListLogger::~ListLogger() = default;
ReportException::~ReportException() = default;

bool REPORTGENERATOR::IXmlConverter::Upgrade(const IRGObject*, IRGObject*)
{
    return false;
}

void LayOut(REPORTGENERATOR::IXmlConverter& converter)
{
    REPORTGENERATOR::IXmlConverter copy(converter);
    copy.Upgrade(nullptr, nullptr);
}
