#ifndef REPORTCORE_INSPECT_INSPECTOR_H
#define REPORTCORE_INSPECT_INSPECTOR_H

#include <reportcore/form.h>
#include <reportcore/inspect/event.h>
#include <reportcore/problem.h>

#include <QtCore/QByteArray>

#include <functional>
#include <memory>
#include <unordered_map>

namespace ReportCore {

/// Goes through a file as the library reads it, and hands what it comes to to the visitor. It tells what stands there; what
/// that means to a report is the library's to say.
class Inspector
{
public:
    using Visitor = std::function<void(const Event& event)>;

    /// The one for the form. The bytes must outlive it.
    static std::unique_ptr<Inspector> Of(const QByteArray& bytes, const FileForm& form, Visitor visit);

    /// Of a document in whichever encoding.
    static std::unique_ptr<Inspector> OfXml(const QByteArray& bytes, Visitor visit);

    virtual ~Inspector();
    Inspector(const Inspector& other) = delete;
    Inspector& operator=(const Inspector& other) = delete;

    virtual void Run() = 0;

    /// The place of a position in the report.
    virtual FilePlace PlaceOf(qint64 position) const = 0;

    /// Of XML.
    virtual QString Text() const { return {}; }

protected:
    explicit Inspector(Visitor visit);

    static const FieldPath& NoPath();

    /// One that belongs to nothing.
    Event EventOf(Event::Kind kind, qint64 begin, qint64 end) const;

    void Visit(const Event& event) { m_visit(event); }

    /// The index of the next item of the list. A list may come several times: its items go on where they had got to, unless
    /// the object that holds it is emptied in between.
    int NextItem(const FieldPath& list) { return m_counts[list]++; }

    /// The object holds no items any more.
    void Empty(const FieldPath& object);

    /// The object has read this version of the format: one older than its own empties it.
    void TakeVersion(const FieldPath& object, const Field& version, const QString& text);

private:
    Visitor m_visit;
    std::unordered_map<FieldPath, int, FieldPathHash> m_counts;
};

/// A problem that is about an event and its field or object. It stands where the event begins.
Problem ProblemOf(const Event& event, const char* name, const QString& text, const QString& value = {});

} // namespace ReportCore

#endif
