#ifndef REPORTVIEWER_NOTICEBAR_H
#define REPORTVIEWER_NOTICEBAR_H

#include <QtWidgets/QFrame>

class QLabel;

namespace ReportViewer {

/// A line in the window that says what could not be done. It stays until it is closed or the next one comes.
class NoticeBar : public QFrame
{
    Q_OBJECT

public:
    explicit NoticeBar(QWidget* parent = nullptr);

    void Say(const QString& text);
    void Clear();
    QString Text() const;

private:
    QLabel* m_text;
};

} // namespace ReportViewer

#endif
