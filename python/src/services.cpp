// What the services in Python ask the library for: they themselves keep the objects of a program, and one thread at a time uses
// them.

#include "classes.h"
#include "errors.h"
#include "foreignobject.h"
#include "signed.h"

#include <reportcore/files.h>

#include <reportgenerator/reportbase/rgexception.h>
#include <reportgenerator/reportbase/settingsnotifier.h>
#include <reportgenerator/reportbase/versionconverterproxy.h>

#include <pybind11/stl.h>

#include <QtCore/QFile>
#include <QtCore/QXmlStreamReader>
#include <QtCore/QXmlStreamWriter>

#include <memory>
#include <optional>
#include <vector>

namespace Python {

namespace py = pybind11;

using REPORTGENERATOR::IRGObject;
using REPORTGENERATOR::RegisterCenter;

namespace {

QString TextOf(const py::object& value)
{
    QString text;
    FromPython(value, text);
    return text;
}

// --- Settings

class Notifier : public REPORTGENERATOR::SettingsNotifier
{
public:
    Notifier()
    {
        // Returns true whatever a receiver raises, which is no exception to go through Qt.
        const auto tell = [this](IRGObject* object) {
            m_counterpart.Ask("_changed", static_cast<const ForeignObject*>(object)->Key());
        };
        connect(this, qOverload<IRGObject*>(&SettingsNotifier::SettingsChanged), this, tell);
    }

    /// Under the id of the object, which is returned.
    long long Register(const py::object& object)
    {
        auto center = std::make_unique<RegisterCenter>();
        center->RegisterInterface(new ForeignObject(m_counterpart, object));
        NotifyOnChanged(center.get());
        return center.release()->GetInterfaceId();
    }

    using SettingsNotifier::UnRegister;

    void Set(const py::object& self, const QString& xml, bool checkRoot)
    {
        const Counterpart::Running running(m_counterpart, self);
        const py::gil_scoped_release released;
        SetSettings(xml, checkRoot);
    }

private:
    Counterpart m_counterpart;
};

/// Refuses an object whose kind has no name.
void CheckInterface(const py::object& object, int type)
{
    const Counterpart nobody;
    auto interface = std::make_unique<ForeignObject>(nobody, object);
    RegisterCenter center;
    center.RegisterInterface(interface.get(), static_cast<REPORTGENERATOR::ObjectTypes>(type));
    interface.release();
}

// --- Files of other versions

/// Of no object.
constexpr long long NOBODY = -1;

long long KeyOf(const IRGObject* object)
{
    return object ? static_cast<const ForeignObject*>(object)->Key() : NOBODY;
}

class Converter final : public REPORTGENERATOR::IXmlConverter
{
public:
    explicit Converter(const Counterpart* counterpart) : m_counterpart(counterpart) {}

    bool Upgrade(const IRGObject* from, IRGObject* to) override
    {
        return m_counterpart->Ask("_convert", "upgrade", KeyOf(from), KeyOf(to));
    }
    bool Downgrade(const IRGObject* from, IRGObject* to) override
    {
        return m_counterpart->Ask("_convert", "downgrade", KeyOf(from), KeyOf(to));
    }

private:
    const Counterpart* m_counterpart;
};

static_assert(REPORTGENERATOR::IsSafeToInject<Converter, const Counterpart*>);

class Proxy
{
public:
    Proxy() { m_proxy.InjectXmlConverter(std::make_unique<Converter>(&m_counterpart)); }

    /// Objects are numbered in the order in which they come. False when there is one already.
    bool Register(const py::object& name, const py::object& version, std::size_t key)
    {
        while (m_objects.size() <= key)
            m_objects.push_back(
                std::make_unique<ForeignObject>(m_counterpart, static_cast<long long>(m_objects.size())));
        const bool isFree = Registered(name, version) == NOBODY;
        m_proxy.RegisterRootClass(TextOf(name), TextOf(version), m_objects[key].get());
        return isFree;
    }

    long long Registered(const py::object& name, const py::object& version) const
    {
        return KeyOf(m_proxy.GetRegisteredRootClass(TextOf(name), TextOf(version)));
    }

    bool CanUse(const py::object& self, const QString& path, std::optional<std::size_t> key)
    {
        return WithFile(self, path, [&](QFile& file) {
            return m_proxy.CanUseProxy(&file, key ? m_objects[*key].get() : nullptr);
        });
    }

    bool Load(const py::object& self, const QString& path)
    {
        return WithFile(self, path, [&](QFile& file) { return m_proxy.LoadXml(&file); });
    }

private:
    template <class Work>
    bool WithFile(const py::object& self, const QString& path, Work&& work)
    {
        const Counterpart::Running running(m_counterpart, self);
        const py::gil_scoped_release released;
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
            throw ReportCore::UnusableFile{path, file.errorString()};
        return work(file);
    }

    Counterpart m_counterpart;
    std::vector<std::unique_ptr<ForeignObject>> m_objects;
    REPORTGENERATOR::VersionConverterProxy m_proxy;
};

// --- Elements of programs' own objects

/// Looks for an element, as every object looks for its own.
class ElementFinder : public IRGObject
{
public:
    explicit ElementFinder(const QString& name) { SetObjectName(name); }

    /// Of the element that was found.
    const QString& Text() const { return m_text; }

    bool HasData() const override { return !m_text.isEmpty(); }
    void Reset() override { m_text.clear(); }
    using IRGObject::Check;
    void Check() const override {}
    void GetXml(QXmlStreamWriter& /*writer*/) const override {}

    void ProcessXml(QXmlStreamReader& reader) override
    {
        QXmlStreamWriter writer(&m_text);
        int depth = 0;
        do {
            if (reader.isStartElement())
                ++depth;
            else if (reader.isEndElement())
                --depth;
            if (reader.isStartElement() || reader.isEndElement() || reader.isCharacters())
                writer.writeCurrentToken(reader);
        } while (depth > 0 && !reader.atEnd() && reader.readNext() != QXmlStreamReader::Invalid);
        if (reader.hasError())
            throw RGException(reader.errorString());
    }

private:
    QString m_text;
};

/// None where it isn't.
template <class Find>
py::object FindElement(const QString& name, Find&& find)
{
    ElementFinder finder(name);
    bool isFound = false;
    {
        const py::gil_scoped_release released;
        isFound = find(finder);
    }
    return isFound ? ToPython(finder.Text()) : py::none();
}

void BindElements(py::module_& module)
{
    module.def(
        "element_of_text",
        [](const py::object& name, const py::object& text, bool checkRoot) {
            return FindElement(TextOf(name), [xml = TextOf(text), checkRoot](IRGObject& finder) {
                return finder.SetXmlString(xml, checkRoot);
            });
        },
        py::arg("name"), py::arg("text"), py::arg("check_root"),
        Signed("element_of_text", "(name, text, check_root)", "").c_str());
    module.def(
        "element_of_file",
        [](const py::object& name, const py::object& path) {
            return FindElement(TextOf(name),
                               [path = TextOf(path)](IRGObject& finder) { return finder.LoadXml(path); });
        },
        py::arg("name"), py::arg("path"), Signed("element_of_file", "(name, path)", "").c_str());
}

} // namespace

void BindServices(py::module_& module)
{
    module.def("check_interface", &CheckInterface, py::arg("interface"), py::arg("type"),
               Signed("check_interface", "(interface, type)", "").c_str());
    BindElements(module);
    py::class_<Notifier>(module, "Notifier")
        .def(py::init<>())
        .def("register", &Notifier::Register, py::arg("interface"),
             Signed("register", "(self, interface)", "").c_str())
        .def("unregister", &Notifier::UnRegister, py::arg("id"),
             Signed("unregister", "(self, id)", "").c_str())
        .def(
            "set_settings",
            [](Notifier& self, const py::object& counterpart, const py::object& xml, bool checkRoot) {
                self.Set(counterpart, TextOf(xml), checkRoot);
            },
            py::arg("counterpart"), py::arg("xml"), py::arg("check_root"),
            Signed("set_settings", "(self, counterpart, xml, check_root)", "").c_str());
    py::class_<Proxy>(module, "Proxy")
        .def(py::init<>())
        .def("register", &Proxy::Register, py::arg("name"), py::arg("version"), py::arg("key"),
             Signed("register", "(self, name, version, key)", "").c_str())
        .def("registered", &Proxy::Registered, py::arg("name"), py::arg("version"),
             Signed("registered", "(self, name, version)", "").c_str())
        .def(
            "can_use",
            [](Proxy& self, const py::object& counterpart, const py::object& path,
               std::optional<std::size_t> key) { return self.CanUse(counterpart, TextOf(path), key); },
            py::arg("counterpart"), py::arg("path"), py::arg("key"),
            Signed("can_use", "(self, counterpart, path, key)", "").c_str())
        .def(
            "load",
            [](Proxy& self, const py::object& counterpart, const py::object& path) {
                return self.Load(counterpart, TextOf(path));
            },
            py::arg("counterpart"), py::arg("path"), Signed("load", "(self, counterpart, path)", "").c_str());
}

} // namespace Python
