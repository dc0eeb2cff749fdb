#include <reportcore/inspect/inspector.h>

#include <reportcore/inspect/binaryinspector.h>

#include <iterator>
#include <utility>

namespace ReportCore {

std::unique_ptr<Inspector> Inspector::Of(const QByteArray& bytes, const FileForm& form, Visitor visit)
{
    if (form.IsBinary())
        return std::make_unique<BinaryInspector>(bytes, form.isBinaryFile, std::move(visit));
    return OfXml(bytes, std::move(visit));
}

Inspector::Inspector(Visitor visit) : m_visit(std::move(visit)) {}

Inspector::~Inspector() = default;

const FieldPath& Inspector::NoPath()
{
    static const FieldPath NONE;
    return NONE;
}

Event Inspector::EventOf(Event::Kind kind, qint64 begin, qint64 end) const
{
    Event event;
    event.inspector = this;
    event.kind = kind;
    event.begin = begin;
    event.end = end;
    event.path = &NoPath();
    event.place = begin;
    event.contentBegin = begin;
    return event;
}

void Inspector::Empty(const FieldPath& object)
{
    for (auto count = m_counts.begin(); count != m_counts.end();)
        count = object.IsAbove(count->first) ? m_counts.erase(count) : std::next(count);
}

void Inspector::TakeVersion(const FieldPath& object, const Field& version, const QString& text)
{
    if (version.Empties(text))
        Empty(object);
}

Problem ProblemOf(const Event& event, const char* name, const QString& text, const QString& value)
{
    return {QLatin1String(name), text, event.inspector->PlaceOf(event.begin), event.path->Text(), value};
}

} // namespace ReportCore
