#include <reportviewer/background.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QEvent>
#include <QtCore/QThreadPool>

#include <mutex>
#include <utility>

namespace ReportViewer {

namespace {

/// A function on its way to the thread in which it is called.
class Handover : public QEvent
{
public:
    explicit Handover(std::function<void()> function) : QEvent(QEvent::User), m_function(std::move(function))
    {
    }

    void Call() const { m_function(); }

private:
    std::function<void()> m_function;
};

} // namespace

/// Between a work in its thread and the object that waits for it, which may be gone before.
struct Background::Link
{
    std::mutex mutex;
    Background* owner = nullptr; ///< null when nobody waits any more

    /// Has the owner's thread call the function, if the owner still waits then.
    template <class Function>
    static void Post(const std::shared_ptr<Link>& link, const Function& function)
    {
        const std::lock_guard<std::mutex> lock(link->mutex);
        if (!link->owner)
            throw Cancelled();
        Background* const owner = link->owner;
        QCoreApplication::postEvent(owner, new Handover([owner, link, function] {
                                        if (owner->m_link == link)
                                            function(*owner);
                                    }));
    }
};

Background::Background(QObject* parent) : QObject(parent) {}

Background::~Background()
{
    Cancel();
}

void Background::Start(const Work& work)
{
    Cancel();
    const auto link = std::make_shared<Link>();
    link->owner = this;
    m_link = link;
    QThreadPool::globalInstance()->start([link, work] { Run(link, work); });
}

void Background::Cancel()
{
    const std::shared_ptr<Link> link = std::move(m_link);
    m_link.reset();
    if (!link)
        return;
    const std::lock_guard<std::mutex> lock(link->mutex);
    link->owner = nullptr;
}

bool Background::event(QEvent* event)
{
    if (event->type() != QEvent::User)
        return QObject::event(event);
    static_cast<const Handover*>(event)->Call();
    return true;
}

void Background::Run(const std::shared_ptr<Link>& link, const Work& work)
{
    try {
        const Outcome outcome = work([&link](const QString& step, int percent) {
            Link::Post(link, [step, percent](Background& owner) { Q_EMIT owner.Progressed(step, percent); });
        });
        Link::Post(link, [link, outcome](Background& owner) { owner.Take(link, outcome); });
    } catch (const Cancelled&) {
        // Nobody waits for it.
    }
}

void Background::Take(const std::shared_ptr<Link>& link, const Outcome& outcome)
{
    {
        const std::lock_guard<std::mutex> lock(link->mutex);
        link->owner = nullptr;
    }
    m_link.reset();
    outcome();
}

} // namespace ReportViewer
