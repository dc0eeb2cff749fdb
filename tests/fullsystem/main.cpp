#include <reportgenerator/reportbase/ellipse.h>
#include <reportgenerator/reportbase/invalidxmlexception.h>
#include <reportgenerator/reportbase/settingsnotifier.h>

/// Makes the notifier trace.
int main()
{
    auto* center = new REPORTGENERATOR::RegisterCenter;
    center->RegisterInterface(new REPORTGENERATOR::Ellipse);
    REPORTGENERATOR::SettingsNotifier notifier;
    notifier.NotifyOnChanged(center);
    try {
        notifier.SetSettings(QString::fromLatin1("<Ellipse><Step/></Ellipse>"), true);
    } catch (const InvalidXmlException&) {
        return 0;
    }
    return 1;
}
