#include <reportgenerator/reportbase/reportbase.h>

#include <reportgenerator/reportbase/forms/taggedelements.h>
#include <reportgenerator/reportbase/forms/xmltools.h>
#include <reportgenerator/reportbase/records/recordobject.h>

#include <QtCore/QXmlStreamReader>
#include <QtCore/QXmlStreamWriter>

namespace REPORTGENERATOR {

struct ReportBaseData : Record
{
    Frequency frequency;
    IFBandwidth bandwidth;
    Area area;
};

namespace {

/// A member object of the report. Its element bears its own object name.
template <class T>
struct Member
{
    int bit;
    T ReportBaseData::*member;
    qint32 tag;

    constexpr quint8 Mask() const { return static_cast<quint8>(1U << bit); }
    bool IsSetIn(const ReportBaseData& data) const { return (data.flags & Mask()) != 0; }
};

constexpr Member<Frequency> FREQUENCY = {0, &ReportBaseData::frequency, elements::Tag(0xCF452ADA)};
constexpr Member<IFBandwidth> IF_BANDWIDTH = {1, &ReportBaseData::bandwidth, elements::Tag(0xCA8F8C7C)};
constexpr Member<Area> AREA = {2, &ReportBaseData::area, elements::Tag(0xA838BE37)};

} // namespace

template <>
struct Description<ReportBaseData>
{
    static constexpr long long ID = 0x06C20B85;
    static constexpr Name NAME = REPORTBASE_NAME("ReportBase");
    static constexpr auto FIELDS = std::make_tuple(FREQUENCY, IF_BANDWIDTH, AREA);
};

template class RecordObject<ReportBaseData>;

namespace {

constexpr auto& MEMBERS = Description<ReportBaseData>::FIELDS;

/// Calls `visit` with each member that the report carries.
template <class Visit>
void ForEachCarried(ReportBaseData& data, Visit&& visit)
{
    ForEachField(MEMBERS, [&](const auto& member) {
        if (member.IsSetIn(data))
            visit(member, data.*(member.member));
    });
}

} // namespace

ReportBase::ReportBase() = default;

ReportBase::ReportBase(const ReportBase& other) : RecordObject(other)
{
    ReportBase::SetValidate(other.GetValidate());
}

ReportBase& ReportBase::operator=(const ReportBase& other) = default;

ReportBase::~ReportBase() = default;

bool ReportBase::operator==(const ReportBase& other) const
{
    return HasEqualRecord(other);
}

bool ReportBase::operator!=(const ReportBase& other) const
{
    return !HasEqualRecord(other);
}

bool ReportBase::AnyData() const
{
    const ReportBaseData* data = m_data.constData();
    return data && (data->frequency.AnyData() || data->bandwidth.AnyData() || data->area.AnyData());
}

bool ReportBase::HasData() const
{
    return true;
}

const Frequency& ReportBase::GetFrequency() const
{
    InitData();
    return m_data->frequency;
}

Frequency& ReportBase::GetFrequency()
{
    InitData();
    SetFlag(*m_data, FREQUENCY.Mask());
    return m_data->frequency;
}

void ReportBase::SetFrequency(const Frequency& frequency)
{
    InitData();
    StoreField(*m_data, FREQUENCY, frequency);
}

bool ReportBase::IsFrequencySet() const
{
    return IsSet(m_data, FREQUENCY);
}

void ReportBase::ResetFrequency()
{
    ResetField(m_data, FREQUENCY);
}

bool ReportBase::IsValidFrequency(const Frequency& /*frequency*/) const
{
    return true;
}

const IFBandwidth& ReportBase::GetIFBandwidth() const
{
    InitData();
    return m_data->bandwidth;
}

IFBandwidth& ReportBase::GetIFBandwidth()
{
    InitData();
    SetFlag(*m_data, IF_BANDWIDTH.Mask());
    return m_data->bandwidth;
}

void ReportBase::SetIFBandwidth(const IFBandwidth& bandwidth)
{
    InitData();
    StoreField(*m_data, IF_BANDWIDTH, bandwidth);
}

bool ReportBase::IsIFBandwidthSet() const
{
    return IsSet(m_data, IF_BANDWIDTH);
}

void ReportBase::ResetIFBandwidth()
{
    ResetField(m_data, IF_BANDWIDTH);
}

bool ReportBase::IsValidIFBandwidth(const IFBandwidth& /*bandwidth*/) const
{
    return true;
}

const Area& ReportBase::GetArea() const
{
    InitData();
    return m_data->area;
}

Area& ReportBase::GetArea()
{
    InitData();
    SetFlag(*m_data, AREA.Mask());
    return m_data->area;
}

void ReportBase::SetArea(const Area& area)
{
    InitData();
    StoreField(*m_data, AREA, area);
}

bool ReportBase::IsAreaSet() const
{
    return IsSet(m_data, AREA);
}

void ReportBase::ResetArea()
{
    ResetField(m_data, AREA);
}

bool ReportBase::IsValidArea(const Area& /*area*/) const
{
    return true;
}

void ReportBase::Check(bool logOnly) const
{
    ReapplySettings();
    InitData();
    ForEachCarried(*m_data, [logOnly](const auto& /*member*/, const auto& object) { object.Check(logOnly); });
}

void ReportBase::GetXml(QXmlStreamWriter& writer) const
{
    if (!PrepareToWrite())
        return;
    InitData();
    writer.writeStartElement(GetObjectName());
    ForEachCarried(*m_data, [&writer](const auto& /*member*/, const auto& object) { object.GetXml(writer); });
    writer.writeEndElement();
}

bool ReportBase::GetBinary(QDataStream& stream, int tag, bool withTag) const
{
    if (!PrepareToWrite())
        return false;
    InitData();
    elements::WriteBody(stream, tag, withTag, [&] {
        ForEachCarried(*m_data, [&stream](const auto& member, const auto& object) {
            object.GetBinary(stream, member.tag, true);
        });
    });
    return true;
}

void ReportBase::SetBinary(QDataStream& stream, int length)
{
    ReapplySettings();
    InitData();
    RecordObject::Reset();
    elements::ReadBody(*this, stream, length, [&](qint32 tag, qint32 memberLength) {
        bool isMember = false;
        ForEachField(MEMBERS, [&](const auto& member) {
            if (member.tag != tag)
                return;
            ((*m_data).*(member.member)).SetBinary(stream, memberLength);
            SetFlag(*m_data, member.Mask());
            isMember = true;
        });
        return isMember;
    });
}

void ReportBase::ProcessXml(QXmlStreamReader& reader)
{
    InitData();
    // Once for all children: an area passes its settings on to what it reads.
    ReapplySettings();
    IRGObject::ProcessXml(reader);
}

void ReportBase::ProcessXmlStartElement(QXmlStreamReader& reader)
{
    InitData();
    bool isMember = false;
    ForEachField(MEMBERS, [&](const auto& member) {
        auto& object = (*m_data).*(member.member);
        if (isMember || reader.name() != object.GetObjectName())
            return;
        object.ProcessXml(reader);
        SetFlag(*m_data, member.Mask());
        isMember = true;
    });
    if (!isMember)
        xmltools::SkipElement(reader);
}

void ReportBase::SetValidate(bool validate) const
{
    RecordObject::SetValidate(validate);
    if (!IsInitialized())
        return;
    ForEachField(MEMBERS, [&](const auto& member) { ((*m_data).*(member.member)).SetValidate(validate); });
}

void ReportBase::SetLogger(std::shared_ptr<Logger> logger) const
{
    RecordObject::SetLogger(logger);
    if (!IsInitialized())
        return;
    ForEachField(MEMBERS, [&](const auto& member) { ((*m_data).*(member.member)).SetLogger(logger); });
}

void ReportBase::GetVersionSpecificBinaryWithoutValidation(QDataStream& stream) const
{
    InitData();
    stream << m_data->flags;
    ForEachCarried(*m_data, [&stream](const auto& /*member*/, const auto& object) {
        object.GetVersionSpecificBinaryWithoutValidation(stream);
    });
}

void ReportBase::SetVersionSpecificBinaryWithoutValidation(QDataStream& stream)
{
    InitData();
    stream >> m_data->flags;
    ForEachCarried(*m_data, [&stream](const auto& /*member*/, auto& object) {
        object.SetVersionSpecificBinaryWithoutValidation(stream);
    });
}

} // namespace REPORTGENERATOR
