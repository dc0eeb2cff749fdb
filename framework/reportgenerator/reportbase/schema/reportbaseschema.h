#ifndef REPORTGENERATOR_SCHEMA_REPORTBASESCHEMA_H
#define REPORTGENERATOR_SCHEMA_REPORTBASESCHEMA_H

#include <reportgenerator/reportbase/reportbase.h>
#include <reportgenerator/reportbase/schema/areaschema.h>
#include <reportgenerator/reportbase/schema/frequencyschema.h>
#include <reportgenerator/reportbase/schema/ifbandwidthschema.h>

namespace REPORTGENERATOR {

struct ReportBaseData : Record
{
    Frequency frequency;
    IFBandwidth bandwidth;
    Area area;
};

template <>
struct Schema<ReportBaseData>
{
    using Object = ReportBase;

    static constexpr long long ID = 0x06C20B85;
    static constexpr Name NAME = wire::REPORT;

    static constexpr Member<ReportBaseData, Frequency> FREQUENCY = {&ReportBaseData::frequency,
                                                                    PresenceBit{0, wire::Tag(0xCF452ADA)}};
    static constexpr Member<ReportBaseData, IFBandwidth> IF_BANDWIDTH = {
        &ReportBaseData::bandwidth, PresenceBit{1, wire::Tag(0xCA8F8C7C)}};
    static constexpr Member<ReportBaseData, Area> AREA = {&ReportBaseData::area,
                                                          PresenceBit{2, wire::Tag(0xA838BE37)}};
    static constexpr auto FIELDS = std::make_tuple(FREQUENCY, IF_BANDWIDTH, AREA);
};

extern template const ObjectIdentity& ClassIdentity<ReportBaseData>();

} // namespace REPORTGENERATOR

#endif
