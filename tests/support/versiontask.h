#ifndef TESTS_SUPPORT_VERSIONTASK_H
#define TESTS_SUPPORT_VERSIONTASK_H

// A task of two versions with a proxy, and what the tests of the proxy put into it.
//
//     TEST_F(VersionConverterProxy, ...)
//     {
//         Inject(std::make_unique<CopyingConverter>());
//         EXPECT_TRUE(Load(OLD_FILE));
//         EXPECT_EQ(newTask.children, Upgraded());
//         EXPECT_EQ(g_conversions, Conversions({{UPGRADE, &oldTask, &newTask}}));
//     }
//
// The proxy doesn't destroy the fields of its converter: what these converters note is here.

#include "support/expect.h"
#include "support/files.h"
#include "support/plainobject.h"

#include <reportgenerator/reportbase/irgobject.h>
#include <reportgenerator/reportbase/ixmlconverter.h>
#include <reportgenerator/reportbase/reportexception.h>
#include <reportgenerator/reportbase/rgexception.h>
#include <reportgenerator/reportbase/versionconverterproxy.h>

#include <gtest/gtest.h>

#include <QtCore/QByteArray>
#include <QtCore/QFile>
#include <QtCore/QIODevice>
#include <QtCore/QString>
#include <QtCore/QVector>

#include <functional>
#include <memory>
#include <ostream>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace Support {

struct Conversion
{
    const char* operation;
    const REPORTGENERATOR::IRGObject* from;
    const REPORTGENERATOR::IRGObject* to;

    friend bool operator==(const Conversion& left, const Conversion& right)
    {
        return std::string(left.operation) == right.operation && left.from == right.from &&
               left.to == right.to;
    }
    friend std::ostream& operator<<(std::ostream& stream, const Conversion& conversion)
    {
        return stream << conversion.operation << " from " << conversion.from << " to " << conversion.to;
    }
};

inline std::vector<Conversion> g_conversions;
inline int g_convertersDestroyed = 0;

inline constexpr const char* UPGRADE = "Upgrade";
inline constexpr const char* DOWNGRADE = "Downgrade";

/// Copies the children; fails without objects.
inline bool Copy(const REPORTGENERATOR::IRGObject* from, REPORTGENERATOR::IRGObject* to,
                 const char* operation)
{
    g_conversions.push_back({operation, from, to});
    const auto* source = dynamic_cast<const PlainObject*>(from);
    auto* target = dynamic_cast<PlainObject*>(to);
    if (source == nullptr || target == nullptr)
        return false;
    target->children = source->children;
    target->children.append({Text("By"), Text(operation)});
    return true;
}

class CopyingConverter : public REPORTGENERATOR::IXmlConverter
{
public:
    CopyingConverter() = default;
    CopyingConverter(const CopyingConverter&) = default;
    CopyingConverter& operator=(const CopyingConverter&) = default;
    ~CopyingConverter() { ++g_convertersDestroyed; }

    bool Upgrade(const REPORTGENERATOR::IRGObject* from, REPORTGENERATOR::IRGObject* to) override
    {
        return Copy(from, to, UPGRADE);
    }
    bool Downgrade(const REPORTGENERATOR::IRGObject* from, REPORTGENERATOR::IRGObject* to) override
    {
        return Copy(from, to, DOWNGRADE);
    }
};

/// Notes what it is asked for and says that it could not do it.
class RefusingConverter : public REPORTGENERATOR::IXmlConverter
{
public:
    bool Upgrade(const REPORTGENERATOR::IRGObject* from, REPORTGENERATOR::IRGObject* to) override
    {
        g_conversions.push_back({UPGRADE, from, to});
        return false;
    }
    bool Downgrade(const REPORTGENERATOR::IRGObject* from, REPORTGENERATOR::IRGObject* to) override
    {
        g_conversions.push_back({DOWNGRADE, from, to});
        return false;
    }
};

class ThrowingConverter : public REPORTGENERATOR::IXmlConverter
{
public:
    bool Upgrade(const REPORTGENERATOR::IRGObject*, REPORTGENERATOR::IRGObject*) override
    {
        throw RGException(Text("no upgrade"));
    }
    bool Downgrade(const REPORTGENERATOR::IRGObject*, REPORTGENERATOR::IRGObject*) override
    {
        throw RGException(Text("no downgrade"));
    }
};

/// Ends with what no RGException is.
class FailingConverter : public REPORTGENERATOR::IXmlConverter
{
public:
    bool Upgrade(const REPORTGENERATOR::IRGObject*, REPORTGENERATOR::IRGObject*) override
    {
        throw std::runtime_error("other");
    }
    bool Downgrade(const REPORTGENERATOR::IRGObject*, REPORTGENERATOR::IRGObject*) override
    {
        throw ReportException();
    }
};

/// Lets the protected operation out.
class OpenProxy : public REPORTGENERATOR::VersionConverterProxy
{
public:
    using REPORTGENERATOR::VersionConverterProxy::Convert;
};

/// An object whose loading from a file ends as told.
class StubbornObject : public PlainObject
{
public:
    using PlainObject::LoadXml;

    bool LoadXml(QFile* file) override
    {
        position = file->pos();
        file->readAll();
        if (onLoad)
            onLoad();
        if (!problemOfLoading.isEmpty())
            throw RGException(problemOfLoading);
        return result;
    }

    bool result = false;
    std::function<void()> onLoad;
    QString problemOfLoading;
    qint64 position = -1;
};

/// A file that is open for reading, with the place at its end.
class FileAtItsEnd
{
public:
    explicit FileAtItsEnd(const QByteArray& content) : m_file(m_folder.Write("opened.xml", content))
    {
        EXPECT_TRUE(m_file.open(QIODevice::ReadOnly));
        EXPECT_TRUE(m_file.seek(content.size()));
    }

    QFile* Get() { return &m_file; }
    QString Path() const { return m_file.fileName(); }

private:
    TemporaryFolder m_folder;
    QFile m_file;
};

inline PlainObject NamedObject(const char* name)
{
    PlainObject object;
    object.SetObjectName(Text(name));
    return object;
}

/// A task of the versions 1.0 and 2.0 with a proxy; the tests load into either of the two.
class VersionConverterProxy : public ::testing::Test
{
public:
    VersionConverterProxy()
    {
        g_conversions.clear();
        g_convertersDestroyed = 0;
        oldTask.SetObjectName(Text("Task"));
        newTask.SetObjectName(Text("Task"));
        proxy->RegisterRootClass(Text("Task"), Text("1.0"), &oldTask);
        proxy->RegisterRootClass(Text("Task"), Text("2.0"), &newTask);
    }

    void Inject(std::unique_ptr<REPORTGENERATOR::IXmlConverter> converter)
    {
        proxy->InjectXmlConverter(std::move(converter));
    }

    bool Load(const QByteArray& content)
    {
        FileAtItsEnd file(content);
        return proxy->LoadXml(file.Get());
    }

    bool CanUse(const QByteArray& content, REPORTGENERATOR::IRGObject* target)
    {
        FileAtItsEnd file(content);
        const bool result = proxy->CanUseProxy(file.Get(), target);
        EXPECT_EQ(file.Get()->pos(), 0);
        return result;
    }

    PlainObject oldTask;
    PlainObject newTask;
    std::shared_ptr<OpenProxy> proxy = std::make_shared<OpenProxy>();
};

using Conversions = std::vector<Conversion>;
using Children = QVector<PlainObject::Child>;

inline constexpr const char* OLD_FILE = "<Task Version=\"1.0\"><A>1</A></Task>";
inline constexpr const char* NEW_FILE = "<Task Version=\"2.0\"><A>2</A></Task>";

inline const Children& Upgraded()
{
    static const Children children = {{Text("A"), Text("1")}, {Text("By"), Text("Upgrade")}};
    return children;
}

inline const Children& Downgraded()
{
    static const Children children = {{Text("A"), Text("2")}, {Text("By"), Text("Downgrade")}};
    return children;
}

} // namespace Support

#endif
