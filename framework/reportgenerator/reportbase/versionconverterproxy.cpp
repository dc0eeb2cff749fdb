#include <reportgenerator/reportbase/versionconverterproxy.h>

#include <reportgenerator/reportbase/codec/numbers.h>
#include <reportgenerator/reportbase/codec/scannedxml.h>
#include <reportgenerator/reportbase/codec/xmltools.h>
#include <reportgenerator/reportbase/messages_p.h>
#include <reportgenerator/reportbase/rgexception.h>

#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QPointer>
#include <QtCore/QScopeGuard>
#include <QtCore/QXmlStreamReader>

#include <memory>
#include <optional>
#include <utility>

namespace REPORTGENERATOR {

/// A search for registered root classes through a file. The proxy takes over what was found when the search
/// ends, however it ends: searches in between are none of its business.
class VersionConverterProxy::Search
{
public:
    Search(VersionConverterProxy& proxy, QFile* file)
        : rootClass(proxy.m_rootClass), version(proxy.m_version), m_proxy(proxy), m_file(file),
          m_scanned(*file), m_reader(&m_scanned)
    {
        file->QIODevice::reset();
    }
    ~Search()
    {
        m_proxy.m_rootClass = rootClass;
        m_proxy.m_version = version;
    }
    Search(const Search& other) = delete;
    Search& operator=(const Search& other) = delete;

    /// Moves on to the next element called `name`, whose version is then known.
    bool Find(const QString& name)
    {
        if (!Resume() || !m_proxy.ReadXmlUntil(m_reader, name))
            return false;
        rootClass = name;
        version = xmltools::VersionAttribute(m_reader);
        return true;
    }

    /// Leaves the file to somebody else, who may do with it as he likes.
    void Interrupt()
    {
        m_name = m_file->fileName();
        m_position = m_file->pos();
    }

    QString rootClass;
    QString version;

private:
    /// Goes back to where the search was interrupted. A file that is closed or has gone since holds nothing
    /// more to be found.
    bool Resume()
    {
        if (!m_position)
            return true;
        if (!m_file || !m_file->isReadable() || m_file->fileName() != m_name || !m_file->seek(*m_position))
            return false;
        m_position.reset();
        return true;
    }

    VersionConverterProxy& m_proxy;
    QPointer<QFile> m_file;
    scannedxml::ScannedDevice m_scanned;
    QXmlStreamReader m_reader;
    QString m_name;
    std::optional<qint64> m_position;
};

/// The time in which a registered object loads a file for the proxy. It may load others through the proxy
/// meanwhile, so that there may be several.
class VersionConverterProxy::Loading
{
public:
    Loading(VersionConverterProxy& proxy, QFile* file)
        : m_proxy(proxy), m_outer(proxy.m_loading), m_file(file), m_name(file->fileName()),
          m_path(QFileInfo(*file).absoluteFilePath())
    {
        m_proxy.m_loading = this;
    }
    ~Loading() { m_proxy.m_loading = m_outer; }
    Loading(const Loading& other) = delete;
    Loading& operator=(const Loading& other) = delete;

    /// Whether the file is loaded here or around here.
    bool Concerns(const QFile& file) const { return IsSame(file) || (m_outer && m_outer->Concerns(file)); }

private:
    /// The object may have opened the file anew, or another one in its place.
    bool IsSame(const QFile& file) const
    {
        const QString name = file.fileName();
        return (m_file == &file && m_name == name) ||
               (!name.isEmpty() && m_path == QFileInfo(name).absoluteFilePath());
    }

    VersionConverterProxy& m_proxy;
    const Loading* m_outer;
    QPointer<QFile> m_file;
    QString m_name;
    QString m_path;
};

VersionConverterProxy::VersionConverterProxy() = default;

VersionConverterProxy::~VersionConverterProxy() = default;

void VersionConverterProxy::RegisterRootClass(const QString& name, const QString& version, IRGObject* object)
{
    Versions& versions = m_rootClasses[name];
    if (!versions.contains(version))
        versions.insert(version, object);
}

IRGObject* VersionConverterProxy::GetRegisteredRootClass(const QString& name, const QString& version) const
{
    return m_rootClasses.value(name).value(version, nullptr);
}

void VersionConverterProxy::InjectXmlConverter(std::unique_ptr<IXmlConverter> converter)
{
    m_converter = std::move(converter);
}

bool VersionConverterProxy::CanUseProxy(QFile* file, IRGObject* target)
{
    // A registered object that has the proxy too is asking: it has to read the file itself.
    if (m_loading && m_loading->Concerns(*file))
        return false;
    bool canUse = false;
    Search search(*this, file);
    for (auto root = m_rootClasses.cbegin(); root != m_rootClasses.cend() && !canUse; ++root) {
        if (!search.Find(root.key()))
            continue;
        const auto registered = root->constFind(search.version);
        canUse = registered != root->constEnd() && *registered != target;
    }
    file->QIODevice::reset();
    return canUse;
}

bool VersionConverterProxy::HasData() const
{
    return false;
}

void VersionConverterProxy::Reset() {}

void VersionConverterProxy::Check() const {}

void VersionConverterProxy::GetXml(QXmlStreamWriter& /*writer*/) const {}

bool VersionConverterProxy::SetXmlString(const QString& /*xml*/, bool /*checkRoot*/)
{
    return false;
}

QString VersionConverterProxy::GetXmlString() const
{
    return QString();
}

bool VersionConverterProxy::LoadXml(QFile* file)
{
    bool loaded = false;
    try {
        LoadRegistered(file, loaded);
        return Convert(m_rootClass, m_loadedObject, m_version);
    } catch (const RGException&) {
        // A converter's exception ends like malformed XML: what was loaded before still counts.
        m_version.clear();
        m_rootClass.clear();
        m_loadedObject = nullptr;
        return loaded;
    }
}

/// Has each root class that the file holds loaded by the object that is registered for its version. The
/// result of the last one counts, also when it takes an earlier success back.
void VersionConverterProxy::LoadRegistered(QFile* file, bool& loaded)
{
    // The object of an earlier load stays until another load succeeds: the converter may still need it. Loads
    // in between don't count.
    IRGObject* loadedObject = m_loadedObject;
    const auto publish = qScopeGuard([&] { m_loadedObject = loadedObject; });
    m_errors.clear();
    Search search(*this, file);
    for (auto root = m_rootClasses.cbegin(); root != m_rootClasses.cend(); ++root) {
        if (!search.Find(root.key()))
            continue;
        const auto registered = root->constFind(search.version);
        if (registered == root->constEnd())
            continue;
        IRGObject* object = *registered;
        search.Interrupt();
        const Loading loading(*this, file);
        try {
            file->QIODevice::reset();
            loaded = object->LoadXml(file);
            if (loaded)
                loadedObject = object;
        } catch (const RGException& exception) {
            m_errors.append(
                messages::ConvertingFailed(search.rootClass, search.version, exception.GetErrorText()));
        }
    }
}

bool VersionConverterProxy::Convert(const QString& name, IRGObject* loaded, const QString& version)
{
    const double fileVersion = numbers::FromText(version);
    IRGObject* target = nullptr;
    double targetVersion = -1.0;
    const Versions versions = m_rootClasses.value(name);
    for (auto other = versions.cbegin(); other != versions.cend(); ++other) {
        if (other.key() == version)
            continue;
        // The first other version is the right one: two versions are registered for a root class.
        target = *other;
        targetVersion = numbers::FromText(other.key());
        break;
    }
    // Without another version the converter is asked to downgrade into nothing and has to refuse that itself.
    if (targetVersion > fileVersion)
        return Upgrade(loaded, target);
    if (fileVersion > targetVersion)
        return Downgrade(loaded, target);
    return false;
}

// A converter may inject another one in its own place; it is held until it has returned.

bool VersionConverterProxy::Upgrade(const IRGObject* from, IRGObject* to)
{
    const std::shared_ptr<IXmlConverter> converter = m_converter;
    return converter && converter->Upgrade(from, to);
}

bool VersionConverterProxy::Downgrade(const IRGObject* from, IRGObject* to)
{
    const std::shared_ptr<IXmlConverter> converter = m_converter;
    return converter && converter->Downgrade(from, to);
}

} // namespace REPORTGENERATOR
