#ifndef REPORTGENERATOR_DESCRIPTIONS_REPORTBASEDESCRIPTION_H
#define REPORTGENERATOR_DESCRIPTIONS_REPORTBASEDESCRIPTION_H

#include <reportgenerator/reportbase/descriptions/areadescription.h>
#include <reportgenerator/reportbase/descriptions/frequencydescription.h>
#include <reportgenerator/reportbase/descriptions/ifbandwidthdescription.h>
#include <reportgenerator/reportbase/reportbase.h>

namespace REPORTGENERATOR {

struct ReportBaseData : Record
{
    Frequency frequency;
    IFBandwidth bandwidth;
    Area area;
};

template <>
struct Description<ReportBaseData>
{
    using Object = ReportBase;

    static constexpr long long ID = 0x06C20B85;
    static constexpr Name NAME = wire::REPORT;

    static constexpr Member<ReportBaseData, Frequency> FREQUENCY = {&ReportBaseData::frequency,
                                                                    Flagged{0, wire::tag::REPORT_FREQUENCY}};
    static constexpr Member<ReportBaseData, IFBandwidth> IF_BANDWIDTH = {
        &ReportBaseData::bandwidth, Flagged{1, wire::tag::REPORT_IF_BANDWIDTH}};
    static constexpr Member<ReportBaseData, Area> AREA = {&ReportBaseData::area,
                                                          Flagged{2, wire::tag::REPORT_AREA}};
    static constexpr auto ROWS = std::make_tuple(FREQUENCY, IF_BANDWIDTH, AREA);
};

extern template const ObjectIdentity& ClassIdentity<ReportBaseData>();

} // namespace REPORTGENERATOR

#endif
