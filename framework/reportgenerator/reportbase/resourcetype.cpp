#include <reportgenerator/reportbase/resourcetype.h>

#include <reportgenerator/reportbase/codec/nametable.h>

#include <QtCore/QtGlobal>

#include <initializer_list>

namespace REPORTGENERATOR::ResourceType {

namespace {

constexpr NamedNumber<ResourceTypeValue> RESOURCE_TYPES[] = {
    {BaseIPCVoiceHF, REPORTBASE_NAME("Base IPC Voice HF")},
    {BaseIPCDataTransmissionHF, REPORTBASE_NAME("Base IPC Data Transmission HF")},
    {BaseIPCClassifierHF, REPORTBASE_NAME("Base IPC Classifier HF")},
    {BaseIPCTunerHF, REPORTBASE_NAME("Base IPC Tuner HF")},
    {BaseIPCTunerHFWB, REPORTBASE_NAME("Base IPC Tuner HF WB")},
    {BaseIPCVoiceVUHF, REPORTBASE_NAME("Base IPC Voice VUHF")},
    {BaseIPCDataTransmissionVUHF, REPORTBASE_NAME("Base IPC Data Transmission VUHF")},
    {BaseIPCClassifierVUHF, REPORTBASE_NAME("Base IPC Classifier VUHF")},
    {BaseIPCTunerVUHF, REPORTBASE_NAME("Base IPC Tuner VUHF")},
    {BaseIPCTunerVUHFWB, REPORTBASE_NAME("Base IPC Tuner VUHF WB")},
    {DDCIPCDetectionConventionalHF, REPORTBASE_NAME("DDC IPC Detection Conventional HF")},
    {DDCIPCDetectionConventionalVUHF, REPORTBASE_NAME("DDC IPC Detection Conventional VUHF")},
    {DDCIPCDetectionShortHF, REPORTBASE_NAME("DDC IPC Detection Short HF")},
    {DDCIPCDetectionShortVUHF, REPORTBASE_NAME("DDC IPC Detection Short VUHF")},
    {DDCIPCVoiceHF, REPORTBASE_NAME("DDC IPC Voice HF")},
    {DDCIPCVoiceVUHF, REPORTBASE_NAME("DDC IPC Voice VUHF")},
    {DDCIPCDataTransmissionHF, REPORTBASE_NAME("DDC IPC Data Transmission HF")},
    {DDCIPCDataTransmissionVUHF, REPORTBASE_NAME("DDC IPC Data Transmission VUHF")},
    {DDCIPCClassifierHF, REPORTBASE_NAME("DDC IPC Classifier HF")},
    {DDCIPCClassifierVUHF, REPORTBASE_NAME("DDC IPC Classifier VUHF")},
    {DDCIPCWBClassifierVUHF, REPORTBASE_NAME("DDC IPC WB Classifier VUHF")},
    {DirectionFinder, REPORTBASE_NAME("Direction Finder")},
    {SpectralZoomHF, REPORTBASE_NAME("Spectral Zoom HF")},
    {SpectralZoomVUHF, REPORTBASE_NAME("Spectral Zoom VUHF")},
    {BaseMemoryScanDataHF, REPORTBASE_NAME("Base Memory Scan Data HF")},
    {BaseMemoryScanDataVUHF, REPORTBASE_NAME("Base Memory Scan Data VUHF")},
    {BaseMemoryScanHF, REPORTBASE_NAME("Base Memory Scan HF")},
    {BaseMemoryScanVUHF, REPORTBASE_NAME("Base Memory Scan VUHF")},
    {Receiver, REPORTBASE_NAME("Receiver")},
    {Sonvia, REPORTBASE_NAME("Sonvia")},
    {DFLocate, REPORTBASE_NAME("DF Locate")},
    {SurveillancePostprocessing, REPORTBASE_NAME("Surveillance Postprocessing")},
    {SignalTracking, REPORTBASE_NAME("Signal Tracking")},
    {KTx60, REPORTBASE_NAME("KTx60")},
    {HV210, REPORTBASE_NAME("HV210")},
    {KT120, REPORTBASE_NAME("KT120")},
    {LW300, REPORTBASE_NAME("LW300")},
    {NRQ2, REPORTBASE_NAME("NRQ2")},
    {NRQ3, REPORTBASE_NAME("NRQ3")},
    {NRQ4, REPORTBASE_NAME("NRQ4")},
    {GPX270, REPORTBASE_NAME("GPX270")},
    {LW600, REPORTBASE_NAME("LW600")},
    {NRQ6, REPORTBASE_NAME("NRQ6")},
    {GPX580, REPORTBASE_NAME("GPX580")},
    {Raywatch, REPORTBASE_NAME("Raywatch")},
    {ExciterHF, REPORTBASE_NAME("Exciter HF")},
    {ExciterVUHF, REPORTBASE_NAME("Exciter VUHF")},
    {KT530, REPORTBASE_NAME("KT530")},
    {KT560, REPORTBASE_NAME("KT560")},
    {Antenna, REPORTBASE_NAME("Antenna")},
    {TZ418, REPORTBASE_NAME("TZ418")},
};
static_assert(IsAscending(RESOURCE_TYPES));

// Names that task definitions may also use. None of them is a full name, so it does not matter which are
// asked first.
constexpr NamedNumber<ResourceTypeValue> SHORT_NAMES[] = {
    {BaseIPCDataTransmissionHF, REPORTBASE_NAME("Base IPC Data HF")},
    {BaseIPCClassifierHF, REPORTBASE_NAME("Base IPC Class HF")},
    {BaseIPCDataTransmissionVUHF, REPORTBASE_NAME("Base IPC Data VUHF")},
    {BaseIPCClassifierVUHF, REPORTBASE_NAME("Base IPC Class VUHF")},
    {DDCIPCDetectionConventionalHF, REPORTBASE_NAME("DDC IPC Det Conv HF")},
    {DDCIPCDetectionConventionalVUHF, REPORTBASE_NAME("DDC IPC Det Conv VUHF")},
    {DDCIPCDetectionShortHF, REPORTBASE_NAME("DDC IPC Det Short HF")},
    {DDCIPCDetectionShortVUHF, REPORTBASE_NAME("DDC IPC Det Short VUHF")},
    {DDCIPCDataTransmissionHF, REPORTBASE_NAME("DDC IPC Data HF")},
    {DDCIPCDataTransmissionVUHF, REPORTBASE_NAME("DDC IPC Data VUHF")},
    {DDCIPCClassifierHF, REPORTBASE_NAME("DDC IPC Class HF")},
    {DDCIPCClassifierVUHF, REPORTBASE_NAME("DDC IPC Class VUHF")},
};
static_assert(IsAscending(SHORT_NAMES));

// One bit for each number of the enumeration; a number that has no bit fails to compile.
class ResourceSet
{
public:
    constexpr ResourceSet(std::initializer_list<ResourceTypeValue> members)
    {
        for (const ResourceTypeValue member : members)
            m_bits |= quint64(1) << member;
    }

    constexpr ResourceSet operator|(const ResourceSet& other) const
    {
        return ResourceSet(m_bits | other.m_bits);
    }

    constexpr bool Contains(ResourceTypeValue type) const
    {
        return type >= 0 && type < BIT_COUNT && (m_bits >> type & 1) != 0;
    }

private:
    static constexpr int BIT_COUNT = 64;

    constexpr explicit ResourceSet(quint64 bits) : m_bits(bits) {}

    quint64 m_bits = 0;
};

constexpr ResourceSet BASE_HF = {BaseIPCVoiceHF, BaseIPCDataTransmissionHF, BaseIPCClassifierHF,
                                 BaseIPCTunerHF, BaseMemoryScanDataHF,      BaseMemoryScanHF};
constexpr ResourceSet BASE_VUHF = {BaseIPCVoiceVUHF, BaseIPCDataTransmissionVUHF, BaseIPCClassifierVUHF,
                                   BaseIPCTunerVUHF, BaseMemoryScanDataVUHF,      BaseMemoryScanVUHF};

// The wideband tuners are no base channels.
constexpr ResourceSet WB_HF = {BaseIPCTunerHFWB};
constexpr ResourceSet WB_VUHF = {BaseIPCTunerVUHFWB};

// Spectral zoom counts as a down-converter, although its name doesn't say DDC.
constexpr ResourceSet DDC_HF = {DDCIPCDetectionConventionalHF, DDCIPCDetectionShortHF, DDCIPCVoiceHF,
                                DDCIPCDataTransmissionHF,      DDCIPCClassifierHF,     SpectralZoomHF};
// The wideband classifier has no HF counterpart.
constexpr ResourceSet DDC_VUHF = {DDCIPCDetectionConventionalVUHF,
                                  DDCIPCDetectionShortVUHF,
                                  DDCIPCVoiceVUHF,
                                  DDCIPCDataTransmissionVUHF,
                                  DDCIPCClassifierVUHF,
                                  DDCIPCWBClassifierVUHF,
                                  SpectralZoomVUHF};

constexpr ResourceSet DETECTION_CONVENTIONAL = {DDCIPCDetectionConventionalHF,
                                                DDCIPCDetectionConventionalVUHF};
constexpr ResourceSet DETECTION_SHORTTIME = {DDCIPCDetectionShortHF, DDCIPCDetectionShortVUHF};

// The wideband classifier is not among them.
constexpr ResourceSet CONNECTABLE = {
    DDCIPCVoiceHF,      DDCIPCVoiceVUHF,     DDCIPCDataTransmissionHF, DDCIPCDataTransmissionVUHF,
    DDCIPCClassifierHF, DDCIPCClassifierVUHF};

// KTx60, LW300, NRQ3 and Raywatch are no box receivers.
constexpr ResourceSet BOX_HF = {KT530};
constexpr ResourceSet BOX_VUHF = {HV210, KT120, NRQ2, NRQ4, GPX270, LW600, NRQ6, GPX580, KT560};
constexpr ResourceSet BOX = BOX_HF | BOX_VUHF;

// Receiver belongs to HF. What is in none of these sets, like the direction finders, belongs to no range.
constexpr ResourceSet HF = BASE_HF | WB_HF | DDC_HF | BOX_HF | ResourceSet{Receiver, ExciterHF};
constexpr ResourceSet VUHF = BASE_VUHF | WB_VUHF | DDC_VUHF | BOX_VUHF | ResourceSet{ExciterVUHF};

// Without memory scan and wideband tuners, and of the box receivers only these.
constexpr ResourceSet PRODUCTION_SC = {BaseIPCVoiceHF,
                                       BaseIPCDataTransmissionHF,
                                       BaseIPCClassifierHF,
                                       BaseIPCTunerHF,
                                       BaseIPCVoiceVUHF,
                                       BaseIPCDataTransmissionVUHF,
                                       BaseIPCClassifierVUHF,
                                       BaseIPCTunerVUHF,
                                       Receiver,
                                       KT120,
                                       NRQ2,
                                       NRQ4,
                                       GPX270,
                                       KT530,
                                       KT560};

} // namespace

ResourceTypeValue GetInvalidResourceType()
{
    return static_cast<ResourceTypeValue>(-1);
}

bool IsValidResourceType(ResourceTypeValue type)
{
    return FindNumber(RESOURCE_TYPES, type) != nullptr;
}

QString ResourceTypeToName(ResourceTypeValue type)
{
    const auto* row = FindNumber(RESOURCE_TYPES, type);
    return row ? row->name.Text() : UNDEFINED.Text();
}

ResourceTypeValue NameToResourceType(const QString& name)
{
    const auto* row = FindName(RESOURCE_TYPES, name);
    if (!row)
        row = FindName(SHORT_NAMES, name);
    return row ? row->number : GetInvalidResourceType();
}

bool IsBaseResourceHF(const ResourceTypeValue& type)
{
    return BASE_HF.Contains(type);
}

bool IsBaseResourceVUHF(const ResourceTypeValue& type)
{
    return BASE_VUHF.Contains(type);
}

bool IsWBResourceHF(const ResourceTypeValue& type)
{
    return WB_HF.Contains(type);
}

bool IsWBResourceVUHF(const ResourceTypeValue& type)
{
    return WB_VUHF.Contains(type);
}

bool IsDDCResourceHF(const ResourceTypeValue& type)
{
    return DDC_HF.Contains(type);
}

bool IsDDCResourceVUHF(const ResourceTypeValue& type)
{
    return DDC_VUHF.Contains(type);
}

bool IsDetectionConventionalResource(const ResourceTypeValue& type)
{
    return DETECTION_CONVENTIONAL.Contains(type);
}

bool IsDetectionShorttime(const ResourceTypeValue& type)
{
    return DETECTION_SHORTTIME.Contains(type);
}

bool IsConnectableResource(const ResourceTypeValue& type)
{
    return CONNECTABLE.Contains(type);
}

bool IsBoxReceiver(const ResourceTypeValue& type)
{
    return BOX.Contains(type);
}

bool IsBoxReceiverHF(const ResourceTypeValue& type)
{
    return BOX_HF.Contains(type);
}

bool IsBoxReceiverVUHF(const ResourceTypeValue& type)
{
    return BOX_VUHF.Contains(type);
}

bool IsHFResource(const ResourceTypeValue& type)
{
    return HF.Contains(type);
}

bool IsVUHFResource(const ResourceTypeValue& type)
{
    return VUHF.Contains(type);
}

bool IsProductionSC(const ResourceTypeValue& type)
{
    return PRODUCTION_SC.Contains(type);
}

} // namespace REPORTGENERATOR::ResourceType
