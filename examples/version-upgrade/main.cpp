// Loads mission files of two versions into objects of both versions, through a converter where the versions
// differ, and shows what was loaded and what the log says.
//
//     version-upgrade MISSION.xml...
//
// Ends with 0 when each file could be loaded into both versions, 1 when not, 2 when no file is named.

#include "mission.h"
#include "missionconverter.h"

#include <reportgenerator/reportbase/listlogger.h>
#include <reportgenerator/reportbase/rgexception.h>
#include <reportgenerator/reportbase/versionconverterproxy.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QStringList>
#include <QtCore/QTextStream>

#include <cstdio>
#include <memory>

using REPORTGENERATOR::ListLogger;
using REPORTGENERATOR::VersionConverterProxy;

namespace {

constexpr int ALL_LOADED = 0;
constexpr int FAILED = 1;
constexpr int USAGE = 2;

/// A line begins with the time; what was said stands behind the first " - ".
void PrintLog(QTextStream& out, ListLogger& logger)
{
    const QString separator = QStringLiteral(" - ");
    for (const QString& line : logger.GetLogEntryList())
        out << "    log: " << line.mid(line.indexOf(separator) + separator.size()) << "\n";
    logger.Reset(true);
}

bool Load(QTextStream& out, Mission& mission, const QString& path, ListLogger& logger)
{
    out << "== " << path << " as " << mission.GetObjectName() << " " << mission.GetVersion() << "\n";
    bool isLoaded = false;
    try {
        isLoaded = mission.LoadXml(path);
        out << (isLoaded ? mission.GetXmlString().trimmed() : QStringLiteral("not loaded")) << "\n";
    } catch (const RGException& exception) {
        out << "not loaded: " << exception.GetErrorText() << "\n";
    }
    PrintLog(out, logger);
    return isLoaded;
}

} // namespace

int main(int argc, char** argv)
{
    // Qt knows the arguments in whatever characters the system has them.
    const QCoreApplication application(argc, argv);
    const QStringList paths = QCoreApplication::arguments().mid(1);
    if (paths.isEmpty()) {
        std::fprintf(stderr, "Usage: version-upgrade MISSION.xml...\n");
        return USAGE;
    }
    QTextStream out(stdout);
    const auto logger = std::make_shared<ListLogger>(REPORTGENERATOR::INFO);

    // The two objects are what is loaded into, and what the proxy loads files of their version into.
    Mission10 older;
    Mission20 newer;
    const auto proxy = std::make_shared<VersionConverterProxy>();
    proxy->InjectXmlConverter(std::make_unique<MissionConverter>());
    for (Mission* mission : {static_cast<Mission*>(&older), static_cast<Mission*>(&newer)}) {
        proxy->RegisterRootClass(mission->GetObjectName(), mission->GetVersion(), mission);
        mission->SetLogger(logger);
        mission->InjectVersionConverter(proxy);
    }
    PrintLog(out, *logger);

    bool allLoaded = true;
    for (const QString& path : paths) {
        allLoaded = Load(out, older, path, *logger) && allLoaded;
        allLoaded = Load(out, newer, path, *logger) && allLoaded;
    }
    return allLoaded ? ALL_LOADED : FAILED;
}
