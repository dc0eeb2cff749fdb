#include <reportgenerator/reportbase/versionconverterproxy.h>

#include <reportgenerator/reportbase/forms/numbers.h>
#include <reportgenerator/reportbase/forms/xmltools.h>
#include <reportgenerator/reportbase/messages_p.h>
#include <reportgenerator/reportbase/rgexception.h>

#include <QtCore/QFile>
#include <QtCore/QXmlStreamReader>

#include <utility>

namespace REPORTGENERATOR {

/// The time in which a registered object loads the file. The object may read as far as it likes: the search
/// for further root classes goes on where it stood.
class VersionConverterProxy::Loading
{
public:
    Loading(VersionConverterProxy& proxy, QFile* file)
        : m_proxy(proxy), m_file(file), m_outerFile(proxy.m_loadingFile), m_searchPosition(file->pos())
    {
        m_proxy.m_loadingFile = file;
    }
    ~Loading()
    {
        m_file->seek(m_searchPosition);
        m_proxy.m_loadingFile = m_outerFile;
    }
    Loading(const Loading& other) = delete;
    Loading& operator=(const Loading& other) = delete;

private:
    VersionConverterProxy& m_proxy;
    QFile* m_file;
    QFile* m_outerFile;
    qint64 m_searchPosition;
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
    file->QIODevice::reset();
    QXmlStreamReader reader(file);
    bool canUse = false;
    for (auto root = m_rootClasses.cbegin(); root != m_rootClasses.cend() && !canUse; ++root) {
        if (!ReadXmlUntil(reader, root.key()))
            continue;
        m_rootClass = root.key();
        m_version = xmltools::VersionAttribute(reader);
        const auto registered = root->constFind(m_version);
        canUse = registered != root->constEnd() && *registered != target;
    }
    file->QIODevice::reset();
    // A registered object that has the proxy too is asking: it has to read the file itself.
    return canUse && file != m_loadingFile;
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
    // The object of an earlier load stays until another load succeeds.
    m_errors.clear();
    bool loaded = false;
    try {
        file->QIODevice::reset();
        QXmlStreamReader reader(file);
        for (auto root = m_rootClasses.cbegin(); root != m_rootClasses.cend(); ++root) {
            if (!ReadXmlUntil(reader, root.key()))
                continue;
            m_rootClass = root.key();
            m_version = xmltools::VersionAttribute(reader);
            const auto registered = root->constFind(m_version);
            if (registered != root->constEnd())
                loaded = LoadRegistered(file, *registered, loaded);
        }
        return Convert(m_rootClass, m_loadedObject, m_version);
    } catch (const RGException&) {
        // A converter's exception ends like malformed XML: what was loaded before still counts.
        m_version.clear();
        m_rootClass.clear();
        m_loadedObject = nullptr;
        return loaded;
    }
}

/// The result of the last root counts, also when it takes an earlier success back.
bool VersionConverterProxy::LoadRegistered(QFile* file, IRGObject* object, bool loadedBefore)
{
    const Loading loading(*this, file);
    try {
        file->QIODevice::reset();
        const bool loaded = object->LoadXml(file);
        if (loaded)
            m_loadedObject = object;
        return loaded;
    } catch (const RGException& exception) {
        m_errors.append(messages::ConvertingFailed(m_rootClass, m_version, exception.GetErrorText()));
        return loadedBefore;
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
        // The first other version in the order of the texts; of two registered versions it is the other one.
        target = *other;
        targetVersion = numbers::FromText(other.key());
        break;
    }
    // Without another version the converter is asked to downgrade into nothing.
    if (targetVersion > fileVersion)
        return Upgrade(loaded, target);
    if (fileVersion > targetVersion)
        return Downgrade(loaded, target);
    return false;
}

bool VersionConverterProxy::Upgrade(const IRGObject* from, IRGObject* to)
{
    return m_converter && m_converter->Upgrade(from, to);
}

bool VersionConverterProxy::Downgrade(const IRGObject* from, IRGObject* to)
{
    return m_converter && m_converter->Downgrade(from, to);
}

} // namespace REPORTGENERATOR
