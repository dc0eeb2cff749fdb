#ifndef REPORTGENERATOR_VERSIONCONVERTERPROXY_H
#define REPORTGENERATOR_VERSIONCONVERTERPROXY_H

#include <reportgenerator/reportbase/irgobject.h>
#include <reportgenerator/reportbase/ixmlconverter.h>

#include <QtCore/QMap>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <memory>

namespace REPORTGENERATOR {

/// Lets a root object load XML files that another version of its class has written.
///
/// The application registers one prototype object for each root tag and version that it can read, injects an
/// `IXmlConverter`, and injects the proxy into the root object. When that object loads a file of another
/// version, the proxy loads the file into the prototype of the file's version and has the converter copy it
/// into the prototype of the other version, which usually is the root object itself.
///
///     auto proxy = std::make_shared<REPORTGENERATOR::VersionConverterProxy>();
///     proxy->RegisterRootClass(QStringLiteral("Task"), QStringLiteral("1.0"), &oldTask);
///     proxy->RegisterRootClass(QStringLiteral("Task"), QStringLiteral("2.0"), &task);
///     proxy->InjectXmlConverter(std::make_unique<TaskConverter>());
///     task.InjectVersionConverter(proxy);
///     task.LoadXml(path);
///
/// The registered objects belong to the application and must outlive the proxy. They may have the proxy too,
/// and while they load a file for it they may load others through it. The proxy writes nothing and holds no
/// report data.
///
/// Whoever calls `CanUseProxy` or `LoadXml` keeps the proxy alive until it has returned, as
/// `IRGObject::LoadXml` does.
class REPORTBASE_EXPORT VersionConverterProxy : public IXmlConverter, public IRGObject
{
public:
    VersionConverterProxy();
    ~VersionConverterProxy() override;

    /// Registers `object` as the reader of root elements `name` with the attribute "Version" equal to
    /// `version`. The first registration of a pair counts; later ones are ignored. Versions are matched as
    /// texts.
    void RegisterRootClass(const QString& name, const QString& version, IRGObject* object);

    /// The object registered for the pair, or null.
    IRGObject* GetRegisteredRootClass(const QString& name, const QString& version) const;

    /// Takes the converter over; one injected earlier is destroyed (see `IXmlConverter` for its destructor),
    /// or, while it is converting, when it has come to its end.
    void InjectXmlConverter(std::unique_ptr<IXmlConverter> converter);

    /// Whether the file names a registered root class in a registered version whose object is not `target`.
    /// Reads the file from its start and rewinds it. Throws `RGException` with the XML reader's text for
    /// malformed XML.
    ///
    /// While a registered object is loading the file for the proxy, also by opening it anew, the answer is
    /// false, and the file is not touched.
    bool CanUseProxy(QFile* file, IRGObject* target);

    bool HasData() const override;
    void Reset() override;
    using IRGObject::Check;
    void Check() const override;
    void GetXml(QXmlStreamWriter& writer) const override;
    bool SetXmlString(const QString& xml, bool checkRoot) override;
    QString GetXmlString() const override;
    using IRGObject::LoadXml;

    /// Loads the file into the object registered for its version and converts that object into the first one
    /// that is registered for another version of the same root class. Returns what the converter returns,
    /// false without a converter. Failures of registered objects and malformed XML are not passed on.
    ///
    /// Every registered root class is looked for, in the order of the names, behind the one before; the last
    /// one that is found is converted. A registered object that closes the file ends the search. The file
    /// stands where the last object has left it.
    bool LoadXml(QFile* file) override;

protected:
    /// Converts `loaded`, which holds a file of `version`, into the first object in the order of the version
    /// texts that is registered under `name` for another version: by `Upgrade` when that version is the
    /// greater number, by `Downgrade` when it is the smaller one. Returns false when the numbers are equal.
    bool Convert(const QString& name, IRGObject* loaded, const QString& version);

    /// Forward to the injected converter; false without one.
    bool Upgrade(const IRGObject* from, IRGObject* to) override;
    bool Downgrade(const IRGObject* from, IRGObject* to) override;

private:
    VersionConverterProxy(const VersionConverterProxy& other) = delete;
    VersionConverterProxy& operator=(const VersionConverterProxy& other) = delete;

    using Versions = QMap<QString, IRGObject*>;
    class Search;
    class Loading;

    Q_DECL_HIDDEN void LoadRegistered(QFile* file, bool& loaded);

    QString m_version;
    QString m_rootClass;
    IRGObject* m_loadedObject = nullptr;
    QStringList m_errors;
    QMap<QString, Versions> m_rootClasses;
    std::shared_ptr<IXmlConverter> m_converter; ///< shared with the conversion that runs
    const Loading* m_loading = nullptr;
};

} // namespace REPORTGENERATOR

#endif
