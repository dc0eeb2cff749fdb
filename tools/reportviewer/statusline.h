#ifndef REPORTVIEWER_STATUSLINE_H
#define REPORTVIEWER_STATUSLINE_H

#include <QtCore/QObject>
#include <QtCore/QString>

class QLabel;
class QProgressBar;
class QStatusBar;
class QToolButton;

namespace ReportViewer {

/// What stands in the status bar: how far loading has got, whether map, problems and bytes are behind the report, the
/// coordinates under the pointer, the place in the bytes, and what file is shown.
class StatusLine : public QObject
{
    Q_OBJECT

public:
    explicit StatusLine(QStatusBar& bar);

    void ShowProgress(const QString& step, int percent);
    void EndProgress();

    /// Map, problems and bytes are behind the report, and on their way; it cannot be cancelled.
    void ShowUpdate(int percent);

    /// They are behind it and stay so, for this reason.
    void ShowOutdated(const QString& reason);
    void EndUpdate();

    void ShowCoordinates(const QString& text);
    void ShowPlace(const QString& text);
    void ShowFile(const QString& text);

Q_SIGNALS:
    void LoadingCancelled();

private:
    QLabel* MakeLabel(const char* name, const QString& accessibleName);
    void TellUpdate(const QString& text);

    QStatusBar& m_bar;
    QLabel* m_step;
    QProgressBar* m_progress;
    QToolButton* m_cancel;
    QLabel* m_update;
    QLabel* m_coordinates;
    QLabel* m_place;
    QLabel* m_file;
};

} // namespace ReportViewer

#endif
