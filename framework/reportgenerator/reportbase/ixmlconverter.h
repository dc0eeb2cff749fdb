#ifndef REPORTGENERATOR_IXMLCONVERTER_H
#define REPORTGENERATOR_IXMLCONVERTER_H

#include <reportgenerator/reportbase/reportbase_export.h>

namespace REPORTGENERATOR {

class IRGObject;

/// Copies the contents of an object of one version into an object of another version.
///
/// Applications derive from it and hand it to a `VersionConverterProxy`. The destructor is not virtual, since
/// the order of the virtual operations is fixed without one: the proxy destroys its converter as an
/// `IXmlConverter`, so a converter must not rely on its own destructor and should have no fields that need
/// one.
class REPORTBASE_EXPORT IXmlConverter
{
public:
    IXmlConverter();
    IXmlConverter(const IXmlConverter& other);
    IXmlConverter& operator=(const IXmlConverter& other);
    ~IXmlConverter();

    /// Fills `to`, the newer object, from `from`. Returns whether that was possible; this body returns false.
    virtual bool Upgrade(const IRGObject* from, IRGObject* to);

    /// Fills `to`, the older object, from `from`. Returns whether that was possible; this body returns false.
    virtual bool Downgrade(const IRGObject* from, IRGObject* to);
};

} // namespace REPORTGENERATOR

#endif
