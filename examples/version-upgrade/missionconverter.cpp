#include "missionconverter.h"

#include "mission.h"

using REPORTGENERATOR::IRGObject;

namespace {

constexpr double HERTZ_PER_KILOHERTZ = 1000.0;
constexpr int MIDDLE_PRIORITY = 5;

} // namespace

// After a file that could not be read the proxy still offers the object of the file before, which by then may
// hold half of a mission.

bool MissionConverter::Upgrade(const IRGObject* from, IRGObject* to)
{
    const auto* older = dynamic_cast<const Mission10*>(from);
    auto* newer = dynamic_cast<Mission20*>(to);
    if (older == nullptr || newer == nullptr || !older->HasData())
        return false;
    newer->SetTitle(older->GetTitle());
    newer->SetFrequencyHertz(older->GetFrequencyKilohertz() * HERTZ_PER_KILOHERTZ);
    newer->SetPriority(MIDDLE_PRIORITY);
    return true;
}

bool MissionConverter::Downgrade(const IRGObject* from, IRGObject* to)
{
    const auto* newer = dynamic_cast<const Mission20*>(from);
    auto* older = dynamic_cast<Mission10*>(to);
    if (newer == nullptr || older == nullptr || !newer->HasData())
        return false;
    older->SetTitle(newer->GetTitle());
    older->SetFrequencyKilohertz(newer->GetFrequencyHertz() / HERTZ_PER_KILOHERTZ);
    return true;
}
