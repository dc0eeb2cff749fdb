#ifndef VERSION_UPGRADE_MISSIONCONVERTER_H
#define VERSION_UPGRADE_MISSIONCONVERTER_H

#include <reportgenerator/reportbase/ixmlconverter.h>

/// Turns complete missions of the versions 1.0 and 2.0 into one another. It has no fields, since the proxy
/// that owns it does not destroy them.
class MissionConverter final : public REPORTGENERATOR::IXmlConverter
{
public:
    /// Fills a mission of version 2.0 from one of version 1.0; the priority becomes the one in the middle.
    bool Upgrade(const REPORTGENERATOR::IRGObject* from, REPORTGENERATOR::IRGObject* to) override;

    /// Fills a mission of version 1.0 from one of version 2.0; the priority is lost.
    bool Downgrade(const REPORTGENERATOR::IRGObject* from, REPORTGENERATOR::IRGObject* to) override;
};

static_assert(REPORTGENERATOR::IsSafeToInject<MissionConverter>);

#endif
