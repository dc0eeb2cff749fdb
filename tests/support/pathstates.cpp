// What can be seen of an object: `NoteState`, `NoteFlags` and `PlacesIn` of support/paths.h.

#include "support/paths.h"

#include <reportgenerator/qt/optional.h>

#include <string>

namespace Support {
namespace {

using REPORTGENERATOR::Area;
using REPORTGENERATOR::Coordinate;
using REPORTGENERATOR::Frequency;
using REPORTGENERATOR::IFBandwidth;
using REPORTGENERATOR::IRGObject;
using REPORTGENERATOR::ReportBase;
using REPORTGENERATOR::detail::Field;
using REPORTGENERATOR::detail::ForEachField;
using REPORTGENERATOR::detail::PointsField;

template <class Object, class Base, class Value>
void NoteFlag(Transcript& transcript, const Object& object, const Field<Base, Value>& field)
{
    transcript.Note((std::string(field.name) + " is set").c_str(), field.IsSetIn(object));
}

void NoteFlag(Transcript& transcript, const Area& area, const PointsField& /*field*/)
{
    transcript.Note("coordinates are set", area.IsCoordinateSet());
}

template <class Object>
void NoteFlagsOf(Transcript& transcript, const Object& object)
{
    transcript.Note("has record", object.IsInitialized());
    transcript.Note("any data", object.AnyData());
    transcript.Note("has data", object.HasData());
    ForEachField(object, [&](const auto& field) { NoteFlag(transcript, object, field); });
}

/// What unset fields have left behind counts too: the raw form may bring it out again.
template <class Object, class Base, class Value>
void NoteValue(Transcript& transcript, const Object& object, const Field<Base, Value>& field)
{
    transcript.Note(field.name, field.In(object));
}

void NoteValue(Transcript& transcript, const Area& area, const PointsField& /*field*/)
{
    transcript.Note("coordinates", static_cast<qint64>(area.GetCoordinate().size()));
    for (const Coordinate& coordinate : area.GetCoordinate())
        NoteState(transcript, coordinate);
}

/// A getter makes the record, so that an object without one is asked for no more.
template <class Object>
void NoteStateOf(Transcript& transcript, const Object& object)
{
    NoteSettings(transcript, object);
    NoteFlagsOf(transcript, object);
    if (object.IsInitialized())
        ForEachField(object, [&](const auto& field) { NoteValue(transcript, object, field); });
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
    NoteFlagsOf(transcript, frequency);
}

void NoteFlags(Transcript& transcript, const IFBandwidth& bandwidth)
{
    NoteFlagsOf(transcript, bandwidth);
}

void NoteFlags(Transcript& transcript, const Coordinate& coordinate)
{
    NoteFlagsOf(transcript, coordinate);
}

void NoteFlags(Transcript& transcript, const Area& area)
{
    NoteFlagsOf(transcript, area);
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

// --- State

void NoteState(Transcript& transcript, const Frequency& frequency)
{
    NoteStateOf(transcript, frequency);
}

void NoteState(Transcript& transcript, const IFBandwidth& bandwidth)
{
    NoteStateOf(transcript, bandwidth);
}

void NoteState(Transcript& transcript, const Coordinate& coordinate)
{
    NoteStateOf(transcript, coordinate);
}

void NoteState(Transcript& transcript, const Area& area)
{
    NoteStateOf(transcript, area);
    if (!area.IsInitialized())
        return;
    transcript.Note("version", area.GetVersion());
    transcript.Note("initial version", area.GetInitialVersionLoaded());
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
