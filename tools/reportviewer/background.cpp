#include <reportviewer/background.h>

#include <reportgenerator/reportbase/reportexception.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QEvent>
#include <QtCore/QThreadPool>

#include <algorithm>
#include <exception>
#include <mutex>
#include <new>
#include <utility>

namespace ReportViewer {

namespace {

/// One each that loads, follows changes and lists a folder, and one that doesn't know yet that it was cancelled.
constexpr int FEWEST_THREADS = 4;

/// What has been thrown, for people. To be called where it is caught.
QString TextOfWhatWasThrown()
{
    try {
        throw;
    } catch (const ReportException& exception) {
        return exception.GetErrorText();
    } catch (const std::bad_alloc&) {
        return QStringLiteral("out of memory");
    } catch (const std::exception& exception) {
        return QString::fromLocal8Bit(exception.what());
    } catch (...) {
        return QStringLiteral("unknown error");
    }
}

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

Background::Background(QObject* parent) : QObject(parent)
{
    // There may be a single processor.
    QThreadPool& pool = *QThreadPool::globalInstance();
    pool.setMaxThreadCount(std::max(pool.maxThreadCount(), FEWEST_THREADS));
}

Background::~Background()
{
    Cancel();
}

void Background::Start(const Work& work, const Failure& failed)
{
    Cancel();
    const auto link = std::make_shared<Link>();
    link->owner = this;
    m_link = link;
    QThreadPool::globalInstance()->start([link, work, failed] { Run(link, work, failed); });
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

void Background::Run(const std::shared_ptr<Link>& link, const Work& work, const Failure& failed)
{
    const Steps steps = [&link](const QString& step, int percent) {
        Link::Post(link, [step, percent](Background& owner) { Q_EMIT owner.Progressed(step, percent); });
    };
    const auto outcomeOf = [&]() -> Outcome {
        try {
            return work(steps);
        } catch (const Cancelled&) {
            throw;
        } catch (...) {
            return [failed, text = TextOfWhatWasThrown()] { failed(text); };
        }
    };
    try {
        const Outcome outcome = outcomeOf();
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
