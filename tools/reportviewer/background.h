#ifndef REPORTVIEWER_BACKGROUND_H
#define REPORTVIEWER_BACKGROUND_H

#include <QtCore/QObject>
#include <QtCore/QString>

#include <functional>
#include <memory>

namespace ReportViewer {

/// Thrown through work that nobody waits for any more.
struct Cancelled
{
};

/// Does works in other threads, of which only the latest counts. What it has come to, or why it has come to nothing, is
/// handed over in the thread in which the object lives; a work that was cancelled hands over nothing, and runs on only
/// until it tells its next step. The next one doesn't wait for that.
class Background : public QObject
{
    Q_OBJECT

public:
    /// Called in the work's thread.
    using Steps = std::function<void(const QString& step, int percent)>;

    /// Called in the object's thread.
    using Outcome = std::function<void()>;
    using Work = std::function<Outcome(const Steps& steps)>;

    /// Called in the object's thread with what the work has thrown, in words.
    using Failure = std::function<void(const QString& text)>;

    explicit Background(QObject* parent = nullptr);
    ~Background() override;

    /// Cancels the work under way and begins another.
    void Start(const Work& work, const Failure& failed);
    void Cancel();
    bool IsBusy() const { return m_link != nullptr; }

Q_SIGNALS:
    void Progressed(const QString& step, int percent);

protected:
    bool event(QEvent* event) override;

private:
    struct Link;

    static void Run(const std::shared_ptr<Link>& link, const Work& work, const Failure& failed);
    void Take(const std::shared_ptr<Link>& link, const Outcome& outcome);

    std::shared_ptr<Link> m_link;
};

} // namespace ReportViewer

#endif
