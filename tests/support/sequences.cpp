#include "support/sequences.h"

#include "support/composedinput.h"
#include "support/journeys.h"
#include "support/oddvalues.h"
#include "support/pathforms.h"

#include <QtCore/QBuffer>
#include <QtCore/QDataStream>
#include <QtCore/QXmlStreamReader>
#include <QtCore/QXmlStreamWriter>

#include <algorithm>
#include <array>
#include <iterator>
#include <memory>
#include <utility>

namespace Support {
namespace {

constexpr int OBJECTS = 3;
constexpr int LONGEST = 12;

/// What a row of operations works on.
class Company
{
public:
    Company(CodePath& codePath, Traveller& first, Kind kind);

    void Take(Choices choices);

    static const char* NameOfStep(Choices choices);

private:
    struct Step
    {
        const char* name;
        void (Company::*take)(Choices&);
    };
    static const Step STEPS[];

    static const Step& ChosenStep(Choices& choices);

    Traveller& Chosen(Choices& choices) { return *m_objects[Number(choices)]; }
    static std::size_t Number(Choices& choices) { return static_cast<std::size_t>(choices.Below(OBJECTS)); }
    void Replace(std::size_t number, std::unique_ptr<Traveller> traveller);

    void Fill(Choices& choices);
    void Disturb(Choices& choices);
    void DisturbSettings(Choices& choices);
    void Set(Choices& choices);
    void Reset(Choices& choices);
    void MakeAnew(Choices& choices);
    void Copy(Choices& choices);
    void Assign(Choices& choices);
    void Move(Choices& choices);
    void MoveAssign(Choices& choices);
    void Swap(Choices& choices);
    void Compare(Choices& choices);
    void Merge(Choices& choices);
    void WriteSomewhere(Choices& choices);
    void ReadComposed(Choices& choices);
    void PassOn(Choices& choices);
    void SetStream(Choices& choices);
    void WriteOnStream(Choices& choices);
    void ReadFromStream(Choices& choices);
    void WriteByWriter(Choices& choices);
    void StartReader(Choices& choices);
    void ReadByReader(Choices& choices);

    void NoteStream();
    void NoteReader();

    CodePath& m_path;
    Kind m_kind;
    std::unique_ptr<Traveller> m_others[OBJECTS - 1];
    std::array<Traveller*, OBJECTS> m_objects;
    QBuffer m_buffer;
    QDataStream m_stream;
    QString m_text;
    QXmlStreamWriter m_writer;
    QXmlStreamReader m_reader;
};

const Company::Step Company::STEPS[] = {
    {"fill", &Company::Fill},
    {"disturb", &Company::Disturb},
    {"disturb settings", &Company::DisturbSettings},
    {"set validating and logger", &Company::Set},
    {"reset", &Company::Reset},
    {"make anew", &Company::MakeAnew},
    {"copy", &Company::Copy},
    {"assign", &Company::Assign},
    {"move", &Company::Move},
    {"assign by moving", &Company::MoveAssign},
    {"swap", &Company::Swap},
    {"compare", &Company::Compare},
    {"merge", &Company::Merge},
    {"write somewhere", &Company::WriteSomewhere},
    {"read what was composed", &Company::ReadComposed},
    {"pass on", &Company::PassOn},
    {"set the stream", &Company::SetStream},
    {"write on the stream", &Company::WriteOnStream},
    {"read from the stream", &Company::ReadFromStream},
    {"write by the writer", &Company::WriteByWriter},
    {"start the reader", &Company::StartReader},
    {"read by the reader", &Company::ReadByReader},
};

Company::Company(CodePath& codePath, Traveller& first, Kind kind)
    : m_path(codePath), m_kind(kind), m_objects{&first}, m_writer(&m_text)
{
    for (std::size_t i = 1; i < m_objects.size(); ++i)
        Replace(i, codePath.New(kind));
    m_buffer.open(QIODevice::ReadWrite);
    m_stream.setDevice(&m_buffer);
    m_writer.setAutoFormatting(true);
}

void Company::Replace(std::size_t number, std::unique_ptr<Traveller> traveller)
{
    m_others[number - 1] = std::move(traveller);
    m_objects[number] = m_others[number - 1].get();
}

const Company::Step& Company::ChosenStep(Choices& choices)
{
    return STEPS[choices.Below(static_cast<int>(std::size(STEPS)))];
}

const char* Company::NameOfStep(Choices choices)
{
    return ChosenStep(choices).name;
}

void Company::Take(Choices choices)
{
    const Step& step = ChosenStep(choices);
    // Looking at an object makes its record and what it remembers about its members.
    const bool isLookedAt = choices.Below(2) == 0;
    m_path.Transcript().Heading("step");
    m_path.Attempt(step.name, [&] { (this->*step.take)(choices); });
    for (const Traveller* object : m_objects) {
        if (isLookedAt)
            object->NoteState(m_path.Transcript());
        else
            object->NoteFlags(m_path.Transcript());
    }
}

// --- Objects

void Company::Fill(Choices& choices)
{
    Chosen(choices).Fill(choices);
}

void Company::Disturb(Choices& choices)
{
    Chosen(choices).Disturb(m_path, choices);
}

void Company::DisturbSettings(Choices& choices)
{
    Chosen(choices).DisturbSettings(m_path, choices);
}

void Company::Set(Choices& choices)
{
    const REPORTGENERATOR::IRGObject& object = Chosen(choices).Object();
    switch (choices.Below(3)) {
    case 0:
        object.SetValidate(choices.Below(2) == 1);
        break;
    case 1:
        object.SetLogger(m_path.Logger(choices.Below(CodePath::LOGGERS + 1) - 1));
        break;
    default:
        object.ResetLogger();
        break;
    }
}

void Company::Reset(Choices& choices)
{
    Chosen(choices).Object().Reset();
}

void Company::MakeAnew(Choices& choices)
{
    Replace(1 + static_cast<std::size_t>(choices.Below(OBJECTS - 1)), m_path.New(m_kind));
}

void Company::Copy(Choices& choices)
{
    const Traveller& source = Chosen(choices);
    Replace(1 + static_cast<std::size_t>(choices.Below(OBJECTS - 1)), source.Copy());
}

void Company::Assign(Choices& choices)
{
    Traveller& target = Chosen(choices);
    target.Assign(Chosen(choices));
}

void Company::Move(Choices& choices)
{
    Traveller& source = Chosen(choices);
    Replace(1 + static_cast<std::size_t>(choices.Below(OBJECTS - 1)), source.Move());
}

void Company::MoveAssign(Choices& choices)
{
    const std::size_t target = Number(choices);
    const std::size_t source = Number(choices);
    if (target != source)
        m_objects[target]->MoveFrom(*m_objects[source]);
}

void Company::Swap(Choices& choices)
{
    const std::size_t left = Number(choices);
    const std::size_t right = Number(choices);
    if (left != right)
        m_objects[left]->Swap(*m_objects[right]);
}

void Company::Compare(Choices& choices)
{
    const Traveller& left = Chosen(choices);
    m_path.Note("equal", left.Equals(Chosen(choices)));
}

// --- Forms

void Company::Merge(Choices& choices)
{
    Traveller& target = Chosen(choices);
    m_path.Note("merged", target.Object().MergeRGObject(Chosen(choices).Object()));
}

void Company::WriteSomewhere(Choices& choices)
{
    Traveller& object = Chosen(choices);
    Write(static_cast<Writing>(choices.Below(WRITINGS)), m_path, object, choices);
}

void Company::ReadComposed(Choices& choices)
{
    Traveller& object = Chosen(choices);
    const auto form = static_cast<Form>(choices.Below(FORMS));
    const Trip trip = {Choices(QByteArray()), choices.Apart()};
    const Input input = ComposeInput(form, m_kind, trip, choices);
    WithCompanions(m_path, object, choices.Apart(), [&] { Read(form, m_path, object, input, trip.offer); });
}

/// What one object writes another one reads, whole or damaged.
void Company::PassOn(Choices& choices)
{
    const REPORTGENERATOR::IRGObject& source = Chosen(choices).Object();
    Traveller& target = Chosen(choices);
    const bool isDamaged = choices.OneIn(3);
    Input input;
    const Form form = choices.Of({Form::XmlString, Form::PlainArray, Form::CompressedArray});
    if (form == Form::XmlString)
        input.text = source.GetXmlString();
    else if (form == Form::PlainArray)
        input.bytes = source.GetBinaryRepresentationAsQByteArray();
    else
        input.bytes = source.GetCompressedBinaryRepresentationAsQByteArray(1);
    if (isDamaged && form == Form::XmlString)
        input.text = Mutated(input.text, choices);
    else if (isDamaged)
        input.bytes = Mutated(input.bytes, choices);
    Read(form, m_path, target, input, choices);
}

// --- The stream, which stays where a step has left it

void Company::NoteStream()
{
    m_path.Note("stream status", static_cast<int>(m_stream.status()));
    m_path.Note("stream version", m_stream.version());
    m_path.Note("position", m_buffer.pos());
    m_path.Note("content", m_buffer.data());
}

void Company::SetStream(Choices& choices)
{
    const auto size = static_cast<int>(m_buffer.size());
    switch (choices.Below(6)) {
    case 0:
        m_buffer.seek(0);
        break;
    case 1:
        m_buffer.seek(choices.Below(size + 1));
        break;
    case 2:
        m_stream.setVersion(AnyStreamVersion(choices));
        break;
    case 3:
        m_stream.setByteOrder(choices.Of({QDataStream::LittleEndian, QDataStream::BigEndian}));
        break;
    case 4:
        m_stream.setFloatingPointPrecision(
            choices.Of({QDataStream::SinglePrecision, QDataStream::DoublePrecision}));
        break;
    default:
        m_stream.resetStatus();
        if (choices.OneIn(4))
            m_stream.setStatus(choices.Of({QDataStream::ReadPastEnd, QDataStream::ReadCorruptData}));
        break;
    }
    NoteStream();
}

void Company::WriteOnStream(Choices& choices)
{
    Traveller& object = Chosen(choices);
    m_path.Attempt("write", [&] {
        switch (choices.Below(4)) {
        case 0:
            object.Object().GetBinaryRepresentation(m_stream);
            break;
        case 1:
            m_path.Note("written", object.Object().GetBinary(m_stream, 1, choices.Below(2) == 0));
            break;
        case 2:
            object.WriteRaw(m_stream);
            break;
        default:
            object.Object().GetCompressedBinaryRepresentation(m_stream, choices.Of({1, -1, 0}));
            break;
        }
    });
    NoteStream();
}

void Company::ReadFromStream(Choices& choices)
{
    Traveller& object = Chosen(choices);
    m_path.Attempt("read", [&] {
        switch (choices.Below(3)) {
        case 0:
            m_path.Note("taken", object.Object().SetBinaryRepresentation(m_stream));
            break;
        case 1: {
            qint32 length = 0;
            m_stream >> length;
            object.Object().SetBinary(m_stream, length);
            break;
        }
        default:
            object.ReadRaw(m_stream);
            break;
        }
    });
    NoteStream();
}

// --- Writer and reader

void Company::WriteByWriter(Choices& choices)
{
    const REPORTGENERATOR::IRGObject& object = Chosen(choices).Object();
    switch (choices.Below(6)) {
    case 3:
        m_writer.writeStartElement(QStringLiteral("Root"));
        break;
    case 4:
        m_writer.writeEndElement();
        break;
    case 5:
        m_writer.writeCharacters(PlainText(choices));
        break;
    default:
        m_path.Attempt("write", [&] { object.GetXml(m_writer); });
        break;
    }
    m_path.Note("text", m_text);
}

void Company::NoteReader()
{
    m_path.Note("token", static_cast<int>(m_reader.tokenType()));
    m_path.Note("name", m_reader.qualifiedName().toString());
    m_path.Note("offset", static_cast<qint64>(m_reader.characterOffset()));
    m_path.Note("error", m_reader.errorString());
}

/// On what was written or composed.
void Company::StartReader(Choices& choices)
{
    m_reader.clear();
    m_reader.addData(choices.Below(2) == 0 ? m_text : ComposeXml(m_kind, choices));
    NoteReader();
}

void Company::ReadByReader(Choices& choices)
{
    Traveller& object = Chosen(choices);
    if (choices.Below(2) == 0) {
        while (!m_reader.atEnd() && m_reader.readNext() != QXmlStreamReader::StartElement) {
        }
    } else {
        for (int i = choices.Below(LONGEST); i > 0 && !m_reader.atEnd(); --i)
            m_reader.readNext();
    }
    NoteReader();
    m_path.Attempt("read", [&] { object.Object().ProcessXml(m_reader); });
    NoteReader();
}

std::string DifferenceAfter(Kind kind, const Steps& steps, std::size_t count)
{
    return Difference(kind, [&](CodePath& codePath, Traveller& traveller) {
        Company company(codePath, traveller, kind);
        std::for_each_n(steps.begin(), count, [&](const Choices& step) { company.Take(step); });
    });
}

} // namespace

Steps SequenceOfSeed(quint64 seed)
{
    Choices choices(seed);
    Steps steps;
    for (int i = choices.Below(LONGEST) + 1; i > 0; --i)
        steps.push_back(choices.Apart());
    return steps;
}

Steps SequenceOfBytes(const QByteArray& bytes)
{
    Steps steps;
    for (int begin = 0; begin < bytes.size(); begin += STEP_SIZE)
        steps.emplace_back(bytes.mid(begin, STEP_SIZE));
    return steps;
}

std::string SequenceDifference(Kind kind, const Steps& steps)
{
    if (DifferenceAfter(kind, steps, steps.size()).empty())
        return {};
    std::size_t count = 0;
    std::string difference;
    std::string names;
    while (difference.empty() && count < steps.size()) {
        names += std::to_string(count + 1) + ". " + Company::NameOfStep(steps[count]) + '\n';
        difference = DifferenceAfter(kind, steps, ++count);
    }
    return names + difference;
}

} // namespace Support
