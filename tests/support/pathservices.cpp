// The ways of support/pathforms.h on which a service hands the input to objects.

#include "support/pathforms.h"
#include "support/scratchfile.h"

#include <reportgenerator/reportbase/ixmlconverter.h>
#include <reportgenerator/reportbase/registercenter.h>
#include <reportgenerator/reportbase/settingsnotifier.h>
#include <reportgenerator/reportbase/versionconverterproxy.h>

#include <QtCore/QFile>
#include <QtCore/QObject>

#include <algorithm>
#include <utility>
#include <vector>

namespace Support {
namespace {

using REPORTGENERATOR::IRGObject;
using REPORTGENERATOR::RegisterCenter;
using REPORTGENERATOR::SettingsNotifier;
using REPORTGENERATOR::VersionConverterProxy;

/// A converter is deleted without its destructor, so that it has no fields: the path stands here meanwhile.
CodePath* g_convertingPath = nullptr;

class LayingOver : public REPORTGENERATOR::IXmlConverter
{
public:
    bool Upgrade(const IRGObject* from, IRGObject* to) override { return LayOver("upgrade", from, to); }
    bool Downgrade(const IRGObject* from, IRGObject* to) override { return LayOver("downgrade", from, to); }

private:
    static bool LayOver(const char* what, const IRGObject* from, IRGObject* to)
    {
        g_convertingPath->Transcript().Heading(what);
        g_convertingPath->Note("from", from != nullptr);
        g_convertingPath->Note("to", to != nullptr);
        return from != nullptr && to != nullptr && to->MergeRGObject(*from);
    }
};

} // namespace

void ReadByConverter(CodePath& codePath, Traveller& traveller, const QByteArray& file, Choices choices)
{
    g_convertingPath = &codePath;
    const std::unique_ptr<Traveller> other = traveller.New();
    other->Object().SetLogger(codePath.Logger(1));
    other->Object().SetValidate(choices.Below(2) == 0);
    const auto proxy = std::make_shared<VersionConverterProxy>();
    const QString name = traveller.Object().GetObjectName();
    // A class without a version attribute is of the version "".
    proxy->RegisterRootClass(name, choices.Of({QStringLiteral("1.0"), QStringLiteral("0.9"), QString()}),
                             &other->Object());
    proxy->RegisterRootClass(name, choices.Of({QStringLiteral("2.0"), QStringLiteral("1.0")}),
                             &traveller.Object());
    if (choices.OneIn(4))
        other->Object().InjectVersionConverter(proxy);
    proxy->InjectXmlConverter(std::make_unique<LayingOver>());
    traveller.Object().InjectVersionConverter(proxy);

    WriteScratch(file);
    QFile device(ScratchPath());
    device.open(choices.Below(2) == 0 ? QIODevice::ReadOnly : QIODevice::ReadOnly | QIODevice::Text);
    codePath.Attempt("load", [&] { codePath.Note("loaded", traveller.Object().LoadXml(&device)); });
    codePath.Note("position", device.pos());
    traveller.Object().InjectVersionConverter(nullptr);
    other->Object().InjectVersionConverter(nullptr);
    codePath.Transcript().Heading("the other object");
    other->NoteState(codePath.Transcript());
    g_convertingPath = nullptr;
}

void ReadByNotifier(CodePath& codePath, const QString& settings, bool checkRoot, Choices choices)
{
    SettingsNotifier notifier;
    std::vector<std::pair<const IRGObject*, Kind>> objects;
    for (const Kind kind : ALL_KINDS) {
        std::unique_ptr<IRGObject> object = codePath.NewObject(kind);
        object->SetLogger(codePath.Logger(0));
        object->SetValidate(choices.Below(2) == 0);
        objects.emplace_back(object.get(), kind);
        auto center = std::make_unique<RegisterCenter>();
        center->RegisterInterface(object.release());
        notifier.NotifyOnChanged(center.release());
    }
    QObject::connect(&notifier, QOverload<IRGObject*>::of(&SettingsNotifier::SettingsChanged), &notifier,
                     [&](IRGObject* object) {
                         codePath.Transcript().Heading("an object has changed");
                         const auto isMeant = [object](const auto& entry) { return entry.first == object; };
                         const auto entry = std::find_if(objects.begin(), objects.end(), isMeant);
                         NoteState(codePath.Transcript(), *object, entry->second);
                     });
    QObject::connect(&notifier, QOverload<RegisterCenter*>::of(&SettingsNotifier::SettingsChanged), &notifier,
                     [&](RegisterCenter* center) {
                         codePath.Note("center", static_cast<qint64>(center->GetInterfaceId()));
                     });
    codePath.Attempt("set", [&] { notifier.SetSettings(settings, checkRoot); });
    for (const auto& [object, kind] : objects)
        NoteState(codePath.Transcript(), *object, kind);
}

} // namespace Support
