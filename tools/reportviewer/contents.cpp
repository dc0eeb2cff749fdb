#include <reportviewer/contents.h>

#include <reportviewer/losing.h>

#include <reportcore/inspect/binaryinspector.h>
#include <reportcore/lint.h>
#include <reportcore/losses.h>
#include <reportcore/reportwriting.h>

#include <algorithm>

namespace ReportViewer {

using ReportCore::Event;

namespace {

// How far reading has come when a step begins, in percent. Reading the file itself comes before.

constexpr int READING = 20;
constexpr int LINTING = 45;
constexpr int MAPPING = 60;
constexpr int DRAWING = 95;

/// Tells how far the finding of fields has got, not for each of them.
class MappingSteps
{
public:
    MappingSteps(const ReadingSteps& steps, qint64 size) : m_steps(&steps), m_size(std::max<qint64>(size, 1))
    {
    }

    void Reach(qint64 place)
    {
        constexpr int PIECES = 4096;
        if (m_pieces++ % PIECES == 0)
            (*m_steps)(QStringLiteral("Finding the fields"),
                       MAPPING + static_cast<int>((DRAWING - MAPPING) * std::min(place, m_size) / m_size));
    }

private:
    const ReadingSteps* m_steps;
    qint64 m_size;
    int m_pieces = 0;
};

/// Whether an event is about a field, or what holds fields, as a whole.
bool IsOfFields(const Event& event)
{
    using Kind = Event::Kind;
    switch (event.kind) {
    case Kind::Entity:
    case Kind::UnknownTag:
    case Kind::UnknownEnd:
    case Kind::UnknownAttribute:
    case Kind::UnknownText:
    case Kind::DividedText:
        return false;
    default:
        // What lacks its bytes has no place.
        return event.isInReport && !(event.IsFaulty() && event.begin == event.end);
    }
}

/// Finds the fields in the text, in what was unpacked, or in the bytes.
void MapFields(Contents& contents, const ReadingSteps& steps)
{
    MappingSteps reached(steps, contents.bytes.size());
    const auto take = [&](const Event& event) {
        reached.Reach(event.begin);
        if (IsOfFields(event))
            contents.fields.Take(*event.path, {event.begin, event.end});
    };
    if (contents.IsText()) {
        const auto inspector = ReportCore::Inspector::OfXml(contents.bytes, take);
        contents.text = inspector->Text();
        contents.rows = TextRows(contents.text);
        reached = MappingSteps(steps, contents.text.size());
        inspector->Run();
        return;
    }
    ReportCore::BinaryInspector inspector(contents.bytes, contents.file.form.isBinaryFile, take);
    inspector.Envelope();
    if (inspector.IsCompressed()) {
        const QByteArray body = inspector.BodyBytes();
        contents.unpacked = QByteArray(body.constData(), body.size());
        reached = MappingSteps(steps, body.size());
    }
    inspector.Body();
}

void MarkProblems(Contents& contents)
{
    for (const ReportCore::Problem& problem : contents.file.problems)
        contents.marks.Take(problem, false);
    for (const ReportCore::Problem& warning : contents.lint)
        contents.marks.Take(warning, true);
    for (const ReportCore::Problem& loss : contents.listedLosses)
        contents.marks.Take(loss, true);
}

/// All but the report, which is there already, and what is lost of its file.
void Complete(Contents& contents, const ReadingSteps& steps)
{
    steps(QStringLiteral("Looking for doubts"), LINTING);
    contents.lint = ReportCore::FindLint(contents.bytes, contents.file, ReportCore::Look::Thorough);
    contents.listedLosses = LossesToList(contents.losses, contents.file.problems, contents.lint);
    MarkProblems(contents);
    steps(QStringLiteral("Finding the fields"), MAPPING);
    if (contents.file.form.form != ReportCore::Form::Unknown)
        MapFields(contents, steps);
    steps(QStringLiteral("Drawing the area"), DRAWING);
    contents.outline = OutlineOf(contents.file.report);
}

} // namespace

ContentsPointer ReadContents(const QByteArray& bytes, const ReadingSteps& steps)
{
    const auto contents = std::make_shared<Contents>();
    contents->bytes = bytes;
    steps(QStringLiteral("Reading the report"), READING);
    contents->file = ReportCore::ReadReport(bytes);
    contents->losses = ReportCore::FindLosses(bytes, contents->file);
    Complete(*contents, steps);
    return contents;
}

ContentsPointer DraftContents(const REPORTGENERATOR::ReportBase& report, const ReportCore::FileForm& form,
                              const ContentsPointer& file, const ReadingSteps& steps)
{
    const auto contents = std::make_shared<Contents>();
    steps(QStringLiteral("Checking the report"), READING);
    contents->bytes = ReportCore::WriteUnchecked(report, form, -1);
    contents->file = ReportCore::CheckReport(report, contents->bytes);
    if (file)
        contents->losses = LossesLeft(*file, report);
    // They stand in other bytes.
    for (ReportCore::Problem& loss : contents->losses)
        loss.place = {};
    Complete(*contents, steps);
    return contents;
}

} // namespace ReportViewer
