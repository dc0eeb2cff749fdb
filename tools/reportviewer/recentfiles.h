#ifndef REPORTVIEWER_RECENTFILES_H
#define REPORTVIEWER_RECENTFILES_H

#include <QtCore/QSettings>
#include <QtCore/QStringList>

namespace ReportViewer {

/// The files that were opened last, the latest first, as the settings of the program keep them.
class RecentFiles
{
public:
    static constexpr int MOST = 10;

    QStringList Names() const;
    void Add(const QString& name);
    void TakeNoMore() { m_takesMore = false; }
    void Remove(const QString& name);
    void Clear();

private:
    QSettings m_settings;
    bool m_takesMore = true;
};

} // namespace ReportViewer

#endif
