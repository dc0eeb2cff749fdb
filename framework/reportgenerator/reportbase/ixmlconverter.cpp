#include <reportgenerator/reportbase/ixmlconverter.h>

namespace REPORTGENERATOR {

IXmlConverter::IXmlConverter() = default;

IXmlConverter::IXmlConverter(const IXmlConverter& other) = default;

IXmlConverter& IXmlConverter::operator=(const IXmlConverter& /*other*/) = default;

IXmlConverter::~IXmlConverter() = default;

bool IXmlConverter::Upgrade(const IRGObject* /*from*/, IRGObject* /*to*/)
{
    return false;
}

bool IXmlConverter::Downgrade(const IRGObject* /*from*/, IRGObject* /*to*/)
{
    return false;
}

} // namespace REPORTGENERATOR
