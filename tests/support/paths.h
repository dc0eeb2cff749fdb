#ifndef TESTS_SUPPORT_PATHS_H
#define TESTS_SUPPORT_PATHS_H

// The library's own classes may write and read by a shorter way than a class that a user derives from them.
// Both ways have to come to the same, whatever the object holds and whatever it is given. Here an object of
// the class itself and one of a subclass that changes nothing are put through the same operations, and
// everything that a caller can see of it is written down and compared.
//
//     const std::string difference = Difference(Kind::Area, [](CodePath& path, Traveller& traveller) {
//         path.Attempt("read", [&] { path.Note("took", traveller.Object().SetXmlString(xml, false)); });
//         traveller.NoteState(path.Transcript());
//     });
//     EXPECT_EQ(difference, "");
//
// Nothing here asserts: the fuzz targets are made of it as well as the tests.

#include "support/choices.h"
#include "support/transcript.h"

#include <reportgenerator/reportbase/irgobject.h>
#include <reportgenerator/reportbase/logger.h>

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <array>
#include <functional>
#include <memory>
#include <string>
#include <utility>

class QDataStream;

namespace REPORTGENERATOR {
class Area;
class Coordinate;
class Frequency;
class IFBandwidth;
class ReportBase;
} // namespace REPORTGENERATOR

namespace Support {

/// A user's subclass that changes nothing.
template <class T>
struct StreamPathOnly : T
{
    StreamPathOnly() = default;
    explicit StreamPathOnly(const T& other) : T(other) {}
    explicit StreamPathOnly(T&& other) : T(std::move(other)) {}
};

enum class Kind : int
{
    Report,
    Area,
    Coordinate,
    Frequency,
    Bandwidth
};

constexpr std::array<Kind, 5> ALL_KINDS = {Kind::Report, Kind::Area, Kind::Coordinate, Kind::Frequency,
                                           Kind::Bandwidth};

/// The name that objects of the kind bear.
QString NameOf(Kind kind);

/// The kind whose vectors stand in the folder of tests/vectors; false for another folder.
bool KindOfFolder(const QString& folder, Kind& kind);

enum class Way : int
{
    Direct, ///< objects of the library's own classes
    Plain   ///< objects of a subclass
};

/// Notes every message: by which overload it came, level, text and flag.
class RecordingLogger : public REPORTGENERATOR::Logger
{
public:
    RecordingLogger(const char* label, Support::Transcript& transcript);

    const char* Label() const { return m_label; }

    /// Called after each message is noted.
    void Watch(std::function<void()> watch) { m_watch = std::move(watch); }

    void Trace(REPORTGENERATOR::LogLevel level, const ReportException& exception, bool fatal) override;
    void Trace(REPORTGENERATOR::LogLevel level, const QString& text, bool fatal) override;
    bool HasErrors() const override { return false; }
    void Reset(bool) override {}

private:
    void Note(const char* what, REPORTGENERATOR::LogLevel level, bool fatal, const QString& text);

    const char* m_label;
    Support::Transcript& m_transcript;
    std::function<void()> m_watch;
};

class Traveller;

/// One of the two ways, with the notes that are taken on it.
class CodePath
{
public:
    explicit CodePath(Way way);

    /// An object of the kind, of the class that goes this way.
    std::unique_ptr<Traveller> New(Kind kind) const;

    /// The same for a holder that deletes its objects.
    std::unique_ptr<REPORTGENERATOR::IRGObject> NewObject(Kind kind) const;

    Support::Transcript& Transcript() { return m_transcript; }
    const Support::Transcript& Transcript() const { return m_transcript; }

    template <class Value>
    void Note(const char* what, const Value& value)
    {
        m_transcript.Note(what, value);
    }

    /// Runs the call and notes the exception that it ends with.
    void Attempt(const char* what, const std::function<void()>& call);

    static constexpr int LOGGERS = 3;

    /// One of the loggers; none for a number below 0.
    std::shared_ptr<RecordingLogger> Logger(int number) const;

private:
    Way m_way;
    Support::Transcript m_transcript;
    std::array<std::shared_ptr<RecordingLogger>, LOGGERS> m_loggers;
};

/// An object of any class with what all classes can do.
class Traveller
{
public:
    Traveller() = default;
    virtual ~Traveller();
    Traveller(const Traveller&) = delete;
    Traveller& operator=(const Traveller&) = delete;

    virtual REPORTGENERATOR::IRGObject& Object() = 0;
    virtual const REPORTGENERATOR::IRGObject& Object() const = 0;

    /// Everything that the getters say of the object and of what it holds, settings included.
    virtual void NoteState(Transcript& transcript) const = 0;

    /// What is set, asked in such a way that the object stays as it is.
    virtual void NoteFlags(Transcript& transcript) const = 0;

    /// Where the members stand, so that a reference to one of them can be told to be still good.
    virtual std::array<const void*, 3> Places() const = 0;

    virtual bool Equals(const Traveller& other) const = 0;
    virtual void WriteRaw(QDataStream& stream) const = 0;
    virtual void ReadRaw(QDataStream& stream) = 0;

    /// Another object of the same class: a fresh one, or one made by the copy constructor.
    virtual std::unique_ptr<Traveller> New() const = 0;
    virtual std::unique_ptr<Traveller> Copy() const = 0;
    virtual void Assign(const Traveller& other) = 0;

    /// The same by moving: what is moved from stays an object.
    virtual std::unique_ptr<Traveller> Move() = 0;
    virtual void MoveFrom(Traveller& other) = 0;
    virtual void Swap(Traveller& other) = 0;

    /// Fills the object with something that passes every check, apart from rare values.
    virtual void Fill(Choices& choices) = 0;

    /// Something that a user may do to the object, good or bad.
    virtual void Disturb(CodePath& codePath, Choices& choices) = 0;

    /// Settings of the members that differ from the object's own.
    virtual void DisturbSettings(CodePath& codePath, Choices& choices) = 0;
};

/// Fills, disturbs and sets the object up as the choices have it: used or fresh, validating or not, with and
/// without loggers.
void Arrange(CodePath& codePath, Traveller& traveller, Choices& choices);

/// Settings of the object and, rarely, other ones of its members.
void ArrangeSettings(CodePath& codePath, Traveller& traveller, Choices& choices);

using Journey = std::function<void(CodePath& codePath, Traveller& traveller)>;

/// Sends an object of the kind on the journey by either way. Empty when nothing differs; otherwise the first
/// difference. Compares the two objects by operator== too.
std::string Difference(Kind kind, const Journey& journey);

// What the travellers are made of.

void NoteSettings(Transcript& transcript, const REPORTGENERATOR::IRGObject& object);
void NoteState(Transcript& transcript, const REPORTGENERATOR::ReportBase& report);
void NoteState(Transcript& transcript, const REPORTGENERATOR::Area& area);
void NoteState(Transcript& transcript, const REPORTGENERATOR::Coordinate& coordinate);
void NoteState(Transcript& transcript, const REPORTGENERATOR::Frequency& frequency);
void NoteState(Transcript& transcript, const REPORTGENERATOR::IFBandwidth& bandwidth);

/// The state of an object whose kind is known by its name only.
void NoteState(Transcript& transcript, const REPORTGENERATOR::IRGObject& object, Kind kind);

void NoteFlags(Transcript& transcript, const REPORTGENERATOR::ReportBase& report);
void NoteFlags(Transcript& transcript, const REPORTGENERATOR::Area& area);
void NoteFlags(Transcript& transcript, const REPORTGENERATOR::Coordinate& coordinate);
void NoteFlags(Transcript& transcript, const REPORTGENERATOR::Frequency& frequency);
void NoteFlags(Transcript& transcript, const REPORTGENERATOR::IFBandwidth& bandwidth);

std::array<const void*, 3> PlacesIn(const REPORTGENERATOR::ReportBase& report);
std::array<const void*, 3> PlacesIn(const REPORTGENERATOR::Area& area);
std::array<const void*, 3> PlacesIn(const REPORTGENERATOR::IRGObject& leaf);

void Fill(REPORTGENERATOR::ReportBase& report, Choices& choices);
void Fill(REPORTGENERATOR::Area& area, Choices& choices);
void Fill(REPORTGENERATOR::Coordinate& coordinate, Choices& choices);
void Fill(REPORTGENERATOR::Frequency& frequency, Choices& choices);
void Fill(REPORTGENERATOR::IFBandwidth& bandwidth, Choices& choices);

void Disturb(REPORTGENERATOR::ReportBase& report, CodePath& codePath, Choices& choices);
void Disturb(REPORTGENERATOR::Area& area, CodePath& codePath, Choices& choices);
void Disturb(REPORTGENERATOR::Coordinate& coordinate, CodePath& codePath, Choices& choices);
void Disturb(REPORTGENERATOR::Frequency& frequency, CodePath& codePath, Choices& choices);
void Disturb(REPORTGENERATOR::IFBandwidth& bandwidth, CodePath& codePath, Choices& choices);

void DisturbSettings(REPORTGENERATOR::ReportBase& report, CodePath& codePath, Choices& choices);
void DisturbSettings(REPORTGENERATOR::Area& area, CodePath& codePath, Choices& choices);
void DisturbSettings(REPORTGENERATOR::IRGObject& leaf, CodePath& codePath, Choices& choices);

} // namespace Support

#endif
