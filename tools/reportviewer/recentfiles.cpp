#include <reportviewer/recentfiles.h>

namespace ReportViewer {

namespace {

QString Key()
{
    return QStringLiteral("recentFiles");
}

} // namespace

QStringList RecentFiles::Names() const
{
    return m_settings.value(Key()).toStringList().mid(0, MOST);
}

void RecentFiles::Add(const QString& name)
{
    if (!m_takesMore)
        return;
    QStringList names = Names();
    names.removeAll(name);
    names.prepend(name);
    m_settings.setValue(Key(), QStringList(names.mid(0, MOST)));
}

void RecentFiles::Remove(const QString& name)
{
    QStringList names = Names();
    names.removeAll(name);
    m_settings.setValue(Key(), names);
}

void RecentFiles::Clear()
{
    m_settings.remove(Key());
}

} // namespace ReportViewer
