#include <reportcore/losing/losing.h>

#include <reportcore/inspect/inspector.h>
#include <reportcore/lint.h>
#include <reportcore/losing/lostvalues.h>

#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

namespace ReportCore {

using Kind = Event::Kind;
using Role = Event::Role;

namespace {

/// The name of what a report doesn't take; null for what it does.
const char* NameOfLoss(const Event& event)
{
    if (event.role == Role::Unknown)
        return UNKNOWN_ELEMENT;
    switch (event.kind) {
    case Kind::UnknownAttribute:
        return UNKNOWN_ATTRIBUTE;
    case Kind::UnknownText:
    case Kind::DividedText:
        return UNKNOWN_TEXT;
    case Kind::Entity:
        return UNRESOLVED_ENTITY;
    default:
        return nullptr;
    }
}

class DocumentLosses
{
public:
    DocumentLosses(const QByteArray& bytes, const ReportFile& file)
        : m_bytes(bytes), m_values(file),
          m_inspector(Inspector::Of(
              bytes, file.form, [this](const Event& event) { Take(event); }, Inspector::Extent::Document))
    {
    }

    Problems Find()
    {
        m_inspector->Run();
        while (!m_around.empty())
            EndAround();
        m_losses.insert(m_losses.end(), m_returns.begin(), m_returns.end());
        const Problems values = m_values.Find(m_bytes);
        m_losses.insert(m_losses.end(), values.begin(), values.end());
        return std::move(m_losses);
    }

private:
    /// An element around or beside the report.
    struct Surrounding
    {
        QString text;
        std::size_t loss = 0; ///< the one that tells of it
        bool holdsReport = false;
    };

    void Take(const Event& event)
    {
        // An unknown element is lost as a whole.
        if (!event.isInReport)
            TakeAround(event);
        else if (!event.isWithinUnknown)
            TakeWithin(event);
    }

    void TakeAround(const Event& event)
    {
        if (event.kind == Kind::Surrounding) {
            m_around.push_back({Subject(event), m_losses.size()});
            Lose(SURROUNDING_ELEMENT, Subject(event) + QStringLiteral(" around the report"), event);
        } else if (event.kind == Kind::SurroundingEnd) {
            EndAround();
        } else if (event.kind == Kind::AnotherReport) {
            MarkAround();
            Lose(SECOND_REPORT, Subject(event), event);
        }
    }

    void MarkAround()
    {
        for (Surrounding& around : m_around)
            around.holdsReport = true;
    }

    /// What is beside the report is lost as a whole.
    void EndAround()
    {
        const Surrounding around = m_around.back();
        m_around.pop_back();
        if (around.holdsReport)
            return;
        m_losses.resize(around.loss + 1);
        m_losses.back().text = around.text;
    }

    void TakeWithin(const Event& event)
    {
        if (event.kind == Kind::StartTag && event.path->IsEmpty())
            MarkAround();
        if (const char* const name = NameOfLoss(event))
            Lose(name, Subject(event), event);
        if (event.role != Role::Value)
            return;
        m_values.Take(event, *m_inspector);
        if (event.hasReturns)
            m_returns.push_back({QLatin1String(CARRIAGE_RETURNS),
                                 QStringLiteral("carriage returns in ") + event.path->Text(),
                                 m_inspector->PlaceOf(event.place), event.path->Text()});
    }

    void Lose(const char* name, const QString& text, const Event& event)
    {
        m_losses.push_back(
            {QLatin1String(name), text, m_inspector->PlaceOf(event.begin), event.path->Text()});
    }

    const QByteArray& m_bytes;
    LostValues m_values;
    std::unique_ptr<Inspector> m_inspector;
    std::vector<Surrounding> m_around;
    Problems m_losses;
    Problems m_returns;
};

} // namespace

Problems FindDocumentLosses(const QByteArray& bytes, const ReportFile& file)
{
    return DocumentLosses(bytes, file).Find();
}

} // namespace ReportCore
