#ifndef REPORTGENERATOR_RESOURCETYPE_H
#define REPORTGENERATOR_RESOURCETYPE_H

#include <reportgenerator/reportbase/reportbase_export.h>

#include <QtCore/QString>

/// The resources that a monitoring station offers, their names, and the groups that they belong to.
///
/// "Base" are receiver channels of the base equipment, "DDC" those of digital down-converters, "WB" stands
/// for wideband. HF and VUHF are the two frequency ranges.
///
///     const auto type = ResourceType::NameToResourceType(QStringLiteral("DDC IPC Data HF"));
///     if (ResourceType::IsHFResource(type))
///         Offer(ResourceType::ResourceTypeToName(type)); // "DDC IPC Data Transmission HF"
///
/// The functions keep no state and may be called from any thread.
namespace REPORTGENERATOR::ResourceType {

/// The kind of a resource; its name is the enumerator's spelling with blanks between the words.
///
/// A variable may hold a number outside this list: such a number is no valid kind and belongs to no group.
enum ResourceTypeValue : int
{
    BaseIPCVoiceHF = 0,
    BaseIPCDataTransmissionHF = 1,
    BaseIPCClassifierHF = 2,
    BaseIPCTunerHF = 3,
    BaseIPCTunerHFWB = 4,
    BaseIPCVoiceVUHF = 5,
    BaseIPCDataTransmissionVUHF = 6,
    BaseIPCClassifierVUHF = 7,
    BaseIPCTunerVUHF = 8,
    BaseIPCTunerVUHFWB = 9,
    DDCIPCDetectionConventionalHF = 10,
    DDCIPCDetectionConventionalVUHF = 11,
    DDCIPCDetectionShortHF = 12,
    DDCIPCDetectionShortVUHF = 13,
    DDCIPCVoiceHF = 14,
    DDCIPCVoiceVUHF = 15,
    DDCIPCDataTransmissionHF = 16,
    DDCIPCDataTransmissionVUHF = 17,
    DDCIPCClassifierHF = 18,
    DDCIPCClassifierVUHF = 19,
    DDCIPCWBClassifierVUHF = 20,
    DirectionFinder = 21,
    SpectralZoomHF = 22,
    SpectralZoomVUHF = 23,
    BaseMemoryScanDataHF = 24,
    BaseMemoryScanDataVUHF = 25,
    BaseMemoryScanHF = 26,
    BaseMemoryScanVUHF = 27,
    Receiver = 28,
    Sonvia = 29,
    DFLocate = 30,
    SurveillancePostprocessing = 31,
    SignalTracking = 32,
    KTx60 = 33,
    HV210 = 34,
    KT120 = 35,
    LW300 = 36,
    NRQ2 = 37,
    NRQ3 = 38,
    NRQ4 = 39,
    GPX270 = 40,
    LW600 = 41,
    NRQ6 = 42,
    GPX580 = 43,
    Raywatch = 44,
    ExciterHF = 45,
    ExciterVUHF = 46,
    KT530 = 47,
    KT560 = 48,
    Antenna = 49,
    TZ418 = 50
};

/// The number -1, which stands for no kind.
REPORTBASE_EXPORT ResourceTypeValue GetInvalidResourceType();

/// Whether the number is one of the list above, [0, 50].
REPORTBASE_EXPORT bool IsValidResourceType(ResourceTypeValue type);

/// The full name of a kind, "undefined" when the number is no valid kind.
REPORTBASE_EXPORT QString ResourceTypeToName(ResourceTypeValue type);

/// The kind with exactly this full or short name, upper and lower case told apart; `GetInvalidResourceType()`
/// when there is none, as for "undefined". Short names ("Class" for Classifier, "Data" for Data Transmission,
/// "Det Conv" and "Det Short" for the detections) are only read, never written.
REPORTBASE_EXPORT ResourceTypeValue NameToResourceType(const QString& name);

/// Whether it is a channel of the base equipment for HF, memory scan included. The wideband tuner is a group
/// of its own, `IsWBResourceHF`.
REPORTBASE_EXPORT bool IsBaseResourceHF(const ResourceTypeValue& type);

/// The same for VUHF; the wideband tuner is told by `IsWBResourceVUHF`.
REPORTBASE_EXPORT bool IsBaseResourceVUHF(const ResourceTypeValue& type);

/// Whether it is the wideband tuner for HF.
REPORTBASE_EXPORT bool IsWBResourceHF(const ResourceTypeValue& type);

/// Whether it is the wideband tuner for VUHF.
REPORTBASE_EXPORT bool IsWBResourceVUHF(const ResourceTypeValue& type);

/// Whether it is a channel of a digital down-converter for HF; spectral zoom counts as one.
REPORTBASE_EXPORT bool IsDDCResourceHF(const ResourceTypeValue& type);

/// The same for VUHF; the wideband classifier, which only exists there, counts too.
REPORTBASE_EXPORT bool IsDDCResourceVUHF(const ResourceTypeValue& type);

/// Whether it detects conventional emissions, in either range.
REPORTBASE_EXPORT bool IsDetectionConventionalResource(const ResourceTypeValue& type);

/// Whether it detects short-time emissions, in either range.
REPORTBASE_EXPORT bool IsDetectionShorttime(const ResourceTypeValue& type);

/// Whether it is a voice, data transmission or classifier channel of a digital down-converter, in either
/// range. The wideband classifier is not connectable.
REPORTBASE_EXPORT bool IsConnectableResource(const ResourceTypeValue& type);

/// Whether it is a box receiver, of either range. `KTx60`, `LW300`, `NRQ3` and `Raywatch` are none.
REPORTBASE_EXPORT bool IsBoxReceiver(const ResourceTypeValue& type);

/// Whether it is a box receiver for HF: only `KT530`.
REPORTBASE_EXPORT bool IsBoxReceiverHF(const ResourceTypeValue& type);

/// Whether it is a box receiver for VUHF.
REPORTBASE_EXPORT bool IsBoxReceiverVUHF(const ResourceTypeValue& type);

/// Whether it belongs to the HF range: base, wideband, DDC and box receiver channels of that range, the
/// exciter, and `Receiver`. Direction finders and some others belong to neither range.
REPORTBASE_EXPORT bool IsHFResource(const ResourceTypeValue& type);

/// Whether it belongs to the VUHF range: base, wideband, DDC and box receiver channels of that range, and the
/// exciter.
REPORTBASE_EXPORT bool IsVUHFResource(const ResourceTypeValue& type);

/// Whether it is one of the channels of the base equipment except memory scan and wideband tuners,
/// `Receiver`, or one of the box receivers `KT120`, `NRQ2`, `NRQ4`, `GPX270`, `KT530` and `KT560`.
REPORTBASE_EXPORT bool IsProductionSC(const ResourceTypeValue& type);

} // namespace REPORTGENERATOR::ResourceType

#endif
