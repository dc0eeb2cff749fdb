#include "support/paths.h"

#include <reportgenerator/reportbase/area.h>
#include <reportgenerator/reportbase/coordinate.h>
#include <reportgenerator/reportbase/frequency.h>
#include <reportgenerator/reportbase/ifbandwidth.h>
#include <reportgenerator/reportbase/reportbase.h>
#include <reportgenerator/reportbase/reportexception.h>

#include <QtCore/QDataStream>

#include <exception>
#include <typeinfo>
#include <utility>

namespace Support {
namespace {

using REPORTGENERATOR::Area;
using REPORTGENERATOR::Coordinate;
using REPORTGENERATOR::Frequency;
using REPORTGENERATOR::IFBandwidth;
using REPORTGENERATOR::IRGObject;
using REPORTGENERATOR::ReportBase;

constexpr std::array<const char*, CodePath::LOGGERS> LABELS = {"logger A", "logger B", "logger C"};

/// `Class` is T or a subclass of it.
template <class T, class Class>
class TravellerOf : public Traveller
{
public:
    TravellerOf() = default;
    explicit TravellerOf(const T& other) : m_object(other) {}
    explicit TravellerOf(T&& other) : m_object(std::move(other)) {}

    IRGObject& Object() override { return m_object; }
    const IRGObject& Object() const override { return m_object; }

    void NoteState(Transcript& transcript) const override { Support::NoteState(transcript, Plain()); }
    void NoteFlags(Transcript& transcript) const override { Support::NoteFlags(transcript, Plain()); }
    std::array<const void*, 3> Places() const override { return PlacesIn(Plain()); }

    bool Equals(const Traveller& other) const override
    {
        const T& object = dynamic_cast<const T&>(other.Object());
        return Plain() == object && !(Plain() != object);
    }

    void WriteRaw(QDataStream& stream) const override
    {
        m_object.GetVersionSpecificBinaryWithoutValidation(stream);
    }
    void ReadRaw(QDataStream& stream) override { m_object.SetVersionSpecificBinaryWithoutValidation(stream); }

    std::unique_ptr<Traveller> New() const override { return std::make_unique<TravellerOf>(); }
    std::unique_ptr<Traveller> Copy() const override { return std::make_unique<TravellerOf>(Plain()); }
    void Assign(const Traveller& other) override
    {
        static_cast<T&>(m_object) = dynamic_cast<const T&>(other.Object());
    }

    std::unique_ptr<Traveller> Move() override
    {
        return std::make_unique<TravellerOf>(static_cast<T&&>(m_object));
    }
    void MoveFrom(Traveller& other) override
    {
        static_cast<T&>(m_object) = std::move(dynamic_cast<T&>(other.Object()));
    }
    void Swap(Traveller& other) override
    {
        std::swap(static_cast<T&>(m_object), dynamic_cast<T&>(other.Object()));
    }

    void Fill(Choices& choices) override { Support::Fill(static_cast<T&>(m_object), choices); }
    void Disturb(CodePath& codePath, Choices& choices) override
    {
        Support::Disturb(static_cast<T&>(m_object), codePath, choices);
    }
    void DisturbSettings(CodePath& codePath, Choices& choices) override
    {
        Support::DisturbSettings(static_cast<T&>(m_object), codePath, choices);
    }

private:
    const T& Plain() const { return m_object; }

    Class m_object;
};

template <class T>
std::unique_ptr<Traveller> NewTraveller(Way way)
{
    if (way == Way::Direct)
        return std::make_unique<TravellerOf<T, T>>();
    return std::make_unique<TravellerOf<T, StreamPathOnly<T>>>();
}

template <class T>
std::unique_ptr<IRGObject> NewObjectOf(Way way)
{
    if (way == Way::Direct)
        return std::make_unique<T>();
    return std::make_unique<StreamPathOnly<T>>();
}

/// What one way came to.
struct Arrival
{
    explicit Arrival(Way way, Kind kind) : codePath(way), traveller(codePath.New(kind)) {}

    CodePath codePath;
    std::unique_ptr<Traveller> traveller;
};

void Travel(Arrival& arrival, const Journey& journey)
{
    const QtMessages messages(arrival.codePath.Transcript());
    journey(arrival.codePath, *arrival.traveller);
    arrival.codePath.Transcript().Heading("arrived");
    arrival.traveller->NoteState(arrival.codePath.Transcript());
}

/// The copy is made before anything is compared: a comparison may make records.
std::string DifferenceByComparison(Arrival& direct, Arrival& plain)
{
    const std::unique_ptr<Traveller> copy = plain.traveller->Copy();
    const bool isEqual = plain.traveller->Equals(*copy);
    if (direct.traveller->Equals(*plain.traveller) == isEqual &&
        plain.traveller->Equals(*direct.traveller) == isEqual && direct.traveller->Equals(*copy) == isEqual)
        return {};
    return "operator== tells the two objects apart\n";
}

} // namespace

QString NameOf(Kind kind)
{
    switch (kind) {
    case Kind::Report:
        return QStringLiteral("ReportBase");
    case Kind::Area:
        return QStringLiteral("Area");
    case Kind::Coordinate:
        return QStringLiteral("Coordinate");
    case Kind::Frequency:
        return QStringLiteral("Frequency");
    case Kind::Bandwidth:
        break;
    }
    return QStringLiteral("IFBandwidth");
}

bool KindOfFolder(const QString& folder, Kind& kind)
{
    for (const Kind candidate : ALL_KINDS) {
        if (folder != NameOf(candidate).toLower())
            continue;
        kind = candidate;
        return true;
    }
    return false;
}

// --- Logger

RecordingLogger::RecordingLogger(const char* label, Support::Transcript& transcript)
    : Logger(REPORTGENERATOR::INFO), m_label(label), m_transcript(transcript)
{
}

void RecordingLogger::Trace(REPORTGENERATOR::LogLevel level, const ReportException& exception, bool fatal)
{
    Note("exception logged", level, fatal,
         exception.GetErrorName() + QLatin1String(": ") + exception.GetErrorText());
}

void RecordingLogger::Trace(REPORTGENERATOR::LogLevel level, const QString& text, bool fatal)
{
    Note("text logged", level, fatal, text);
}

void RecordingLogger::Note(const char* what, REPORTGENERATOR::LogLevel level, bool fatal, const QString& text)
{
    m_transcript.Note("by", m_label);
    m_transcript.Note("level", static_cast<int>(level));
    m_transcript.Note("fatal", fatal);
    m_transcript.Note(what, text);
    if (m_watch)
        m_watch();
}

// --- CodePath

CodePath::CodePath(Way way) : m_way(way)
{
    for (std::size_t i = 0; i < m_loggers.size(); ++i)
        m_loggers[i] = std::make_shared<RecordingLogger>(LABELS[i], m_transcript);
}

std::unique_ptr<Traveller> CodePath::New(Kind kind) const
{
    switch (kind) {
    case Kind::Report:
        return NewTraveller<ReportBase>(m_way);
    case Kind::Area:
        return NewTraveller<Area>(m_way);
    case Kind::Coordinate:
        return NewTraveller<Coordinate>(m_way);
    case Kind::Frequency:
        return NewTraveller<Frequency>(m_way);
    case Kind::Bandwidth:
        break;
    }
    return NewTraveller<IFBandwidth>(m_way);
}

std::unique_ptr<IRGObject> CodePath::NewObject(Kind kind) const
{
    switch (kind) {
    case Kind::Report:
        return NewObjectOf<ReportBase>(m_way);
    case Kind::Area:
        return NewObjectOf<Area>(m_way);
    case Kind::Coordinate:
        return NewObjectOf<Coordinate>(m_way);
    case Kind::Frequency:
        return NewObjectOf<Frequency>(m_way);
    case Kind::Bandwidth:
        break;
    }
    return NewObjectOf<IFBandwidth>(m_way);
}

void CodePath::Attempt(const char* what, const std::function<void()>& call)
{
    m_transcript.Heading(what);
    try {
        call();
    } catch (const ReportException& exception) {
        m_transcript.Note("thrown", typeid(exception).name());
        m_transcript.Note("error name", exception.GetErrorName());
        m_transcript.Note("error text", exception.GetErrorText());
    } catch (const std::exception& exception) {
        m_transcript.Note("thrown", typeid(exception).name());
        m_transcript.Note("what", exception.what());
    }
}

std::shared_ptr<RecordingLogger> CodePath::Logger(int number) const
{
    return number < 0 ? nullptr : m_loggers.at(static_cast<std::size_t>(number));
}

Traveller::~Traveller() = default;

// --- Comparison

std::string Difference(Kind kind, const Journey& journey)
{
    Arrival direct(Way::Direct, kind);
    Arrival plain(Way::Plain, kind);
    Travel(plain, journey);
    Travel(direct, journey);
    // The line with "-" is the subclass's, the one with "+" the library's own class's.
    const std::string difference =
        DifferenceOf(plain.codePath.Transcript().Text(), direct.codePath.Transcript().Text());
    if (!difference.empty())
        return NameOf(kind).toStdString() + "\n" + difference;
    return DifferenceByComparison(direct, plain);
}

} // namespace Support
