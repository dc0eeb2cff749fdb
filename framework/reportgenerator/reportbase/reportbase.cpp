#include <reportgenerator/reportbase/reportbase.h>

#include <reportgenerator/reportbase/areareading_p.h>
#include <reportgenerator/reportbase/records/recordobject_p.h>
#include <reportgenerator/reportbase/schema/reportbaseschema.h>

namespace REPORTGENERATOR {

template const ObjectIdentity& ClassIdentity<ReportBaseData>();
template class RecordObject<ReportBaseData, SharedRecord<ReportBaseData>>;

namespace {

using Fields = Schema<ReportBaseData>;

void ReadChild(ReportBase& report, QXmlStreamReader& reader)
{
    if (!ReadXmlChild(report, reader))
        xmltools::SkipElement(reader);
}

} // namespace

ReportBase::ReportBase() = default;

ReportBase::ReportBase(const ReportBase& other) = default;

ReportBase& ReportBase::operator=(const ReportBase& other) = default;

ReportBase::~ReportBase() = default;

bool ReportBase::operator==(const ReportBase& other) const
{
    return IsRecordEqual(*this, other);
}

bool ReportBase::operator!=(const ReportBase& other) const
{
    return !IsRecordEqual(*this, other);
}

bool ReportBase::AnyData() const
{
    return HoldsAnyData(m_record.Get(), Fields::FIELDS);
}

bool ReportBase::HasData() const
{
    return true;
}

const Frequency& ReportBase::GetFrequency() const
{
    InitData();
    return m_record.Get()->frequency;
}

Frequency& ReportBase::GetFrequency()
{
    InitData();
    SetFlag(m_record.Own(), Fields::FREQUENCY.setBy);
    return m_record.Own().frequency;
}

void ReportBase::SetFrequency(const Frequency& frequency)
{
    InitData();
    Fields::FREQUENCY.In(m_record.Own()) = frequency;
    SetFlag(m_record.Own(), Fields::FREQUENCY.setBy);
}

bool ReportBase::IsFrequencySet() const
{
    return IsFieldSet(m_record.Get(), Fields::FREQUENCY);
}

void ReportBase::ResetFrequency()
{
    ResetField(*this, Fields::FREQUENCY);
}

bool ReportBase::IsValidFrequency(const Frequency& /*frequency*/) const
{
    return true;
}

const IFBandwidth& ReportBase::GetIFBandwidth() const
{
    InitData();
    return m_record.Get()->bandwidth;
}

IFBandwidth& ReportBase::GetIFBandwidth()
{
    InitData();
    SetFlag(m_record.Own(), Fields::IF_BANDWIDTH.setBy);
    return m_record.Own().bandwidth;
}

void ReportBase::SetIFBandwidth(const IFBandwidth& bandwidth)
{
    InitData();
    Fields::IF_BANDWIDTH.In(m_record.Own()) = bandwidth;
    SetFlag(m_record.Own(), Fields::IF_BANDWIDTH.setBy);
}

bool ReportBase::IsIFBandwidthSet() const
{
    return IsFieldSet(m_record.Get(), Fields::IF_BANDWIDTH);
}

void ReportBase::ResetIFBandwidth()
{
    ResetField(*this, Fields::IF_BANDWIDTH);
}

bool ReportBase::IsValidIFBandwidth(const IFBandwidth& /*bandwidth*/) const
{
    return true;
}

const Area& ReportBase::GetArea() const
{
    InitData();
    return m_record.Get()->area;
}

Area& ReportBase::GetArea()
{
    InitData();
    SetFlag(m_record.Own(), Fields::AREA.setBy);
    return m_record.Own().area;
}

void ReportBase::SetArea(const Area& area)
{
    InitData();
    Fields::AREA.In(m_record.Own()) = area;
    SetFlag(m_record.Own(), Fields::AREA.setBy);
}

bool ReportBase::IsAreaSet() const
{
    return IsFieldSet(m_record.Get(), Fields::AREA);
}

void ReportBase::ResetArea()
{
    ResetField(*this, Fields::AREA);
}

bool ReportBase::IsValidArea(const Area& /*area*/) const
{
    return true;
}

void ReportBase::ProcessXml(QXmlStreamReader& reader)
{
    InitData();
    // A logger may give the report another record.
    const auto record = RecordAccess::Hold(*this);
    const Area::Settled settledArea(m_record.Own().area, Area::Settled::Of::Report);
    if (!ObjectAccess::FastPathOf(*this)) {
        IRGObject::ProcessXml(reader);
        return;
    }
    // Once for all children, unless a logger gives the report another record meanwhile: an area passes its
    // settings on to what it reads.
    const ReportBaseData* settled = nullptr;
    xmltools::ForEachChild(reader, [&] {
        if (m_record.Get() != settled) {
            ReapplySettings();
            InitData();
            settled = m_record.Get();
        }
        ReadChild(*this, reader);
    });
    ObjectAccess::ReportXmlError(*this, reader);
}

void ReportBase::ProcessXmlStartElement(QXmlStreamReader& reader)
{
    ReapplySettings();
    InitData();
    ReadChild(*this, reader);
}

} // namespace REPORTGENERATOR
