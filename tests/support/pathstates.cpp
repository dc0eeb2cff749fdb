// What can be seen of an object: `NoteState`, `NoteFlags` and `PlacesIn` of support/paths.h.

#include "support/paths.h"

#include <reportgenerator/reportbase/area.h>
#include <reportgenerator/reportbase/coordinate.h>
#include <reportgenerator/reportbase/frequency.h>
#include <reportgenerator/reportbase/ifbandwidth.h>
#include <reportgenerator/reportbase/reportbase.h>

namespace Support {
namespace {

using REPORTGENERATOR::Area;
using REPORTGENERATOR::Coordinate;
using REPORTGENERATOR::Frequency;
using REPORTGENERATOR::IFBandwidth;
using REPORTGENERATOR::IRGObject;
using REPORTGENERATOR::ReportBase;

template <class Object>
void NoteBoundFlags(Transcript& transcript, const Object& object)
{
    transcript.Note("has record", object.IsInitialized());
    transcript.Note("any data", object.AnyData());
    transcript.Note("has data", object.HasData());
    transcript.Note("value is set", object.IsValueSet());
    transcript.Note("min is set", object.IsMinSet());
    transcript.Note("max is set", object.IsMaxSet());
}

/// What unset fields have left behind counts too: the raw form may bring it out again.
template <class Object>
void NoteBounds(Transcript& transcript, const Object& object)
{
    transcript.Note("value", object.GetValue());
    transcript.Note("min", object.GetMin());
    transcript.Note("max", object.GetMax());
}

} // namespace

void NoteSettings(Transcript& transcript, const IRGObject& object)
{
    transcript.Note("object", object.GetObjectName());
    transcript.Note("kind", static_cast<int>(object.GetObjectType()));
    transcript.Note("id", static_cast<qint64>(object.GetObjectId()));
    transcript.Note("validates", object.GetValidate());
    const std::shared_ptr<REPORTGENERATOR::Logger> logger = object.GetLogger();
    const auto* recording = dynamic_cast<const RecordingLogger*>(logger.get());
    transcript.Note("logger", recording != nullptr ? recording->Label() : logger ? "another" : "none");
}

// --- Flags

void NoteFlags(Transcript& transcript, const Frequency& frequency)
{
    NoteBoundFlags(transcript, frequency);
    transcript.Note("use is set", frequency.IsUseSet());
}

void NoteFlags(Transcript& transcript, const IFBandwidth& bandwidth)
{
    NoteBoundFlags(transcript, bandwidth);
}

void NoteFlags(Transcript& transcript, const Coordinate& coordinate)
{
    transcript.Note("has record", coordinate.IsInitialized());
    transcript.Note("any data", coordinate.AnyData());
    transcript.Note("has data", coordinate.HasData());
    transcript.Note("longitude is set", coordinate.IsLongitudeSet());
    transcript.Note("latitude is set", coordinate.IsLatitudeSet());
}

void NoteFlags(Transcript& transcript, const Area& area)
{
    transcript.Note("has record", area.IsInitialized());
    transcript.Note("any data", area.AnyData());
    transcript.Note("has data", area.HasData());
    transcript.Note("name is set", area.IsNameSet());
    transcript.Note("coordinates are set", area.IsCoordinateSet());
    transcript.Note("script identifier is set", area.IsScriptIDSet());
}

void NoteFlags(Transcript& transcript, const ReportBase& report)
{
    transcript.Note("has record", report.IsInitialized());
    transcript.Note("any data", report.AnyData());
    transcript.Note("has data", report.HasData());
    transcript.Note("frequency is set", report.IsFrequencySet());
    transcript.Note("IF bandwidth is set", report.IsIFBandwidthSet());
    transcript.Note("area is set", report.IsAreaSet());
}

// --- State. A getter makes the record, so that an object without one is asked for no more.

void NoteState(Transcript& transcript, const Frequency& frequency)
{
    NoteSettings(transcript, frequency);
    NoteFlags(transcript, frequency);
    if (!frequency.IsInitialized())
        return;
    NoteBounds(transcript, frequency);
    transcript.Note("use", frequency.GetUse());
}

void NoteState(Transcript& transcript, const IFBandwidth& bandwidth)
{
    NoteSettings(transcript, bandwidth);
    NoteFlags(transcript, bandwidth);
    if (bandwidth.IsInitialized())
        NoteBounds(transcript, bandwidth);
}

void NoteState(Transcript& transcript, const Coordinate& coordinate)
{
    NoteSettings(transcript, coordinate);
    NoteFlags(transcript, coordinate);
    if (!coordinate.IsInitialized())
        return;
    transcript.Note("longitude", coordinate.GetLongitude());
    transcript.Note("latitude", coordinate.GetLatitude());
}

void NoteState(Transcript& transcript, const Area& area)
{
    NoteSettings(transcript, area);
    NoteFlags(transcript, area);
    if (!area.IsInitialized())
        return;
    transcript.Note("name", area.GetName());
    transcript.Note("script identifier", area.GetScriptID());
    transcript.Note("version", area.GetVersion());
    transcript.Note("initial version", area.GetInitialVersionLoaded());
    transcript.Note("coordinates", static_cast<qint64>(area.GetCoordinate().size()));
    for (const Coordinate& coordinate : area.GetCoordinate())
        NoteState(transcript, coordinate);
}

void NoteState(Transcript& transcript, const ReportBase& report)
{
    NoteSettings(transcript, report);
    NoteFlags(transcript, report);
    if (!report.IsInitialized())
        return;
    NoteState(transcript, report.GetFrequency());
    NoteState(transcript, report.GetIFBandwidth());
    NoteState(transcript, report.GetArea());
}

void NoteState(Transcript& transcript, const IRGObject& object, Kind kind)
{
    switch (kind) {
    case Kind::Report:
        NoteState(transcript, dynamic_cast<const ReportBase&>(object));
        break;
    case Kind::Area:
        NoteState(transcript, dynamic_cast<const Area&>(object));
        break;
    case Kind::Coordinate:
        NoteState(transcript, dynamic_cast<const Coordinate&>(object));
        break;
    case Kind::Frequency:
        NoteState(transcript, dynamic_cast<const Frequency&>(object));
        break;
    case Kind::Bandwidth:
        NoteState(transcript, dynamic_cast<const IFBandwidth&>(object));
        break;
    }
}

// --- Places

std::array<const void*, 3> PlacesIn(const ReportBase& report)
{
    if (!report.IsInitialized())
        return {};
    return {&report.GetFrequency(), &report.GetIFBandwidth(), &report.GetArea()};
}

std::array<const void*, 3> PlacesIn(const Area& area)
{
    if (!area.IsInitialized())
        return {};
    return {&area.GetCoordinate(), nullptr, nullptr};
}

std::array<const void*, 3> PlacesIn(const IRGObject& /*leaf*/)
{
    return {};
}

} // namespace Support
