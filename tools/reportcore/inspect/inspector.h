#ifndef REPORTCORE_INSPECT_INSPECTOR_H
#define REPORTCORE_INSPECT_INSPECTOR_H

#include <reportcore/form.h>
#include <reportcore/inspect/event.h>
#include <reportcore/problem.h>

#include <QtCore/QByteArray>

#include <functional>
#include <memory>

namespace ReportCore {

/// Goes through a file as the library reads it, and hands what it comes to to the visitor. It tells what stands there; what
/// that means to a report is the library's to say.
class Inspector
{
public:
    using Visitor = std::function<void(const Event& event)>;

    /// How far it goes in XML; binary forms hold one report.
    enum class Extent
    {
        FirstReport, ///< up to its end
        Document
    };

    /// The one for the form. The bytes must outlive it.
    static std::unique_ptr<Inspector> Of(const QByteArray& bytes, const FileForm& form, Visitor visit,
                                         Extent extent = Extent::FirstReport);

    virtual ~Inspector();
    Inspector(const Inspector& other) = delete;
    Inspector& operator=(const Inspector& other) = delete;

    virtual void Run() = 0;

    /// The place of a position in the report.
    virtual FilePlace PlaceOf(qint64 position) const = 0;

protected:
    explicit Inspector(Visitor visit);

    void Visit(const Event& event) { m_visit(event); }

private:
    Visitor m_visit;
};

} // namespace ReportCore

#endif
