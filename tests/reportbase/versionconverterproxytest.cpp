#include "support/expect.h"
#include "support/files.h"
#include "support/plainobject.h"
#include "support/readererror.h"

#include <reportgenerator/reportbase/binaryparsingexception.h>
#include <reportgenerator/reportbase/irgobject.h>
#include <reportgenerator/reportbase/ixmlconverter.h>
#include <reportgenerator/reportbase/versionconverterproxy.h>

#include <gtest/gtest.h>

#include <QtCore/QByteArray>
#include <QtCore/QFile>
#include <QtCore/QIODevice>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QVector>
#include <QtCore/QXmlStreamWriter>

#include <functional>
#include <memory>
#include <ostream>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace {

using REPORTGENERATOR::IRGObject;
using REPORTGENERATOR::IXmlConverter;
using Proxy = REPORTGENERATOR::VersionConverterProxy;
using Support::NewLogger;
using Support::PlainObject;
using Support::TemporaryFolder;
using Support::Text;

// --- Converters. The proxy destroys them as IXmlConverter, so they have no fields: what they note is here.

struct Conversion
{
    const char* operation;
    const IRGObject* from;
    const IRGObject* to;

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

std::vector<Conversion> g_conversions;
int g_convertersDestroyed = 0;

constexpr const char* UPGRADE = "Upgrade";
constexpr const char* DOWNGRADE = "Downgrade";

/// Copies the children; fails without objects.
bool Copy(const IRGObject* from, IRGObject* to, const char* operation)
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

class CopyingConverter : public IXmlConverter
{
public:
    CopyingConverter() = default;
    CopyingConverter(const CopyingConverter&) = default;
    CopyingConverter& operator=(const CopyingConverter&) = default;
    ~CopyingConverter() { ++g_convertersDestroyed; }

    bool Upgrade(const IRGObject* from, IRGObject* to) override { return Copy(from, to, UPGRADE); }
    bool Downgrade(const IRGObject* from, IRGObject* to) override { return Copy(from, to, DOWNGRADE); }
};

/// Notes what it is asked for and says that it could not do it.
class RefusingConverter : public IXmlConverter
{
public:
    bool Upgrade(const IRGObject* from, IRGObject* to) override
    {
        g_conversions.push_back({UPGRADE, from, to});
        return false;
    }
    bool Downgrade(const IRGObject* from, IRGObject* to) override
    {
        g_conversions.push_back({DOWNGRADE, from, to});
        return false;
    }
};

class ThrowingConverter : public IXmlConverter
{
public:
    bool Upgrade(const IRGObject*, IRGObject*) override { throw RGException(Text("no upgrade")); }
    bool Downgrade(const IRGObject*, IRGObject*) override { throw RGException(Text("no downgrade")); }
};

/// Ends with what no RGException is.
class FailingConverter : public IXmlConverter
{
public:
    bool Upgrade(const IRGObject*, IRGObject*) override { throw std::runtime_error("other"); }
    bool Downgrade(const IRGObject*, IRGObject*) override { throw ReportException(); }
};

/// Lets the protected operation out.
class OpenProxy : public Proxy
{
public:
    using Proxy::Convert;
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
class OpenFile
{
public:
    explicit OpenFile(const QByteArray& content) : m_file(m_folder.Write("opened.xml", content))
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

PlainObject NamedObject(const char* name)
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

    void Inject(std::unique_ptr<IXmlConverter> converter) { proxy->InjectXmlConverter(std::move(converter)); }

    bool Load(const QByteArray& content)
    {
        OpenFile file(content);
        return proxy->LoadXml(file.Get());
    }

    bool CanUse(const QByteArray& content, IRGObject* target)
    {
        OpenFile file(content);
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

constexpr const char* OLD_FILE = "<Task Version=\"1.0\"><A>1</A></Task>";
constexpr const char* NEW_FILE = "<Task Version=\"2.0\"><A>2</A></Task>";

const Children& Upgraded()
{
    static const Children children = {{Text("A"), Text("1")}, {Text("By"), Text("Upgrade")}};
    return children;
}

const Children& Downgraded()
{
    static const Children children = {{Text("A"), Text("2")}, {Text("By"), Text("Downgrade")}};
    return children;
}

} // namespace

// --- IXmlConverter -----------------------------------------------------------------------------------------

TEST(IXmlConverter, RefusesByItself)
{
    IXmlConverter converter;
    PlainObject from;
    PlainObject to;
    EXPECT_FALSE(converter.Upgrade(&from, &to));
    EXPECT_FALSE(converter.Downgrade(&from, &to));
    EXPECT_FALSE(converter.Upgrade(nullptr, nullptr));
    EXPECT_FALSE(converter.Downgrade(nullptr, nullptr));
    EXPECT_EQ(from.calls.getXml, 0);
    EXPECT_EQ(to.calls.reset, 0);
}

TEST(IXmlConverter, HasPublicCopyAndADestructorThatIsNotVirtual)
{
    static_assert(std::is_default_constructible_v<IXmlConverter>);
    static_assert(std::is_copy_constructible_v<IXmlConverter>);
    static_assert(std::is_copy_assignable_v<IXmlConverter>);
    static_assert(std::is_destructible_v<IXmlConverter>);
    static_assert(!std::has_virtual_destructor_v<IXmlConverter>);
    const IXmlConverter original;
    IXmlConverter copy(original);
    EXPECT_EQ(&(copy = original), &copy);
    EXPECT_FALSE(copy.Upgrade(nullptr, nullptr));
}

// --- The proxy as an object --------------------------------------------------------------------------------

TEST_F(VersionConverterProxy, IsAnObjectWithoutDataThatWritesNothing)
{
    static_assert(std::is_base_of_v<IXmlConverter, Proxy>);
    static_assert(std::is_base_of_v<IRGObject, Proxy>);
    const auto logger = NewLogger();
    Proxy empty;
    empty.SetLogger(logger);
    EXPECT_EQ(static_cast<int>(empty.GetObjectType()), 80);
    EXPECT_TEXT(empty.GetObjectName(), "AnyType");
    EXPECT_FALSE(empty.HasData());
    EXPECT_NO_RG_THROW(empty.Check());
    EXPECT_NO_RG_THROW(empty.Check(true));
    EXPECT_XML(empty, "");
    QString text;
    QXmlStreamWriter writer(&text);
    empty.GetXml(writer);
    EXPECT_TEXT(text, "");
    EXPECT_LOG(logger, {});
}

TEST_F(VersionConverterProxy, ReadsNoXmlString)
{
    const auto logger = NewLogger();
    Proxy empty;
    empty.SetLogger(logger);
    for (const bool checkRoot : {true, false}) {
        EXPECT_FALSE(empty.SetXmlString(Text("<AnyType/>"), checkRoot));
        EXPECT_FALSE(empty.SetXmlString(Text("<Other><AnyType></Other>"), checkRoot));
        EXPECT_FALSE(empty.SetXmlString(QString(), checkRoot));
    }
    EXPECT_LOG(logger, {});
}

TEST_F(VersionConverterProxy, ResetKeepsRegistrationsAndConverter)
{
    Inject(std::make_unique<CopyingConverter>());
    proxy->Reset();
    EXPECT_EQ(proxy->GetRegisteredRootClass(Text("Task"), Text("1.0")), &oldTask);
    EXPECT_TRUE(Load(OLD_FILE));
}

// --- Registration ------------------------------------------------------------------------------------------

TEST_F(VersionConverterProxy, RegisteredObjectsAreFoundByNameAndVersion)
{
    EXPECT_EQ(proxy->GetRegisteredRootClass(Text("Task"), Text("1.0")), &oldTask);
    EXPECT_EQ(proxy->GetRegisteredRootClass(Text("Task"), Text("2.0")), &newTask);
    for (const char* version : {"", "1", "1.00", "2", "3.0", " 1.0"})
        EXPECT_EQ(proxy->GetRegisteredRootClass(Text("Task"), Text(version)), nullptr) << version;
    for (const char* name : {"", "task", "Job", "Task "})
        EXPECT_EQ(proxy->GetRegisteredRootClass(Text(name), Text("1.0")), nullptr) << name;
    EXPECT_EQ(Proxy().GetRegisteredRootClass(Text("Task"), Text("1.0")), nullptr);
}

TEST_F(VersionConverterProxy, FirstRegistrationOfAPairWinsSilently)
{
    const auto logger = NewLogger();
    proxy->SetLogger(logger);
    PlainObject late;
    proxy->RegisterRootClass(Text("Task"), Text("1.0"), &late);
    EXPECT_EQ(proxy->GetRegisteredRootClass(Text("Task"), Text("1.0")), &oldTask);
    EXPECT_EQ(proxy->GetRegisteredRootClass(Text("Task"), Text("2.0")), &newTask);
    proxy->RegisterRootClass(Text("Job"), Text("1.0"), &late);
    EXPECT_EQ(proxy->GetRegisteredRootClass(Text("Job"), Text("1.0")), &late);
    EXPECT_LOG(logger, {});
}

TEST_F(VersionConverterProxy, VersionsAreMatchedAsTexts)
{
    PlainObject other;
    proxy->RegisterRootClass(Text("Task"), Text("2"), &other);
    EXPECT_EQ(proxy->GetRegisteredRootClass(Text("Task"), Text("2")), &other);
    EXPECT_EQ(proxy->GetRegisteredRootClass(Text("Task"), Text("2.0")), &newTask);
}

TEST_F(VersionConverterProxy, OneObjectMayStandForSeveralPairs)
{
    proxy->RegisterRootClass(Text("Task"), Text("3.0"), &newTask);
    proxy->RegisterRootClass(Text("Job"), Text("2.0"), &newTask);
    EXPECT_EQ(proxy->GetRegisteredRootClass(Text("Task"), Text("3.0")), &newTask);
    EXPECT_EQ(proxy->GetRegisteredRootClass(Text("Job"), Text("2.0")), &newTask);
}

// --- The injected converter --------------------------------------------------------------------------------

TEST_F(VersionConverterProxy, ForwardsUpgradeAndDowngradeToTheConverter)
{
    IXmlConverter& converter = *proxy;
    EXPECT_FALSE(converter.Upgrade(&oldTask, &newTask));
    EXPECT_FALSE(converter.Downgrade(&oldTask, &newTask));

    Inject(std::make_unique<CopyingConverter>());
    EXPECT_TRUE(converter.Upgrade(&oldTask, &newTask));
    EXPECT_TRUE(converter.Downgrade(&newTask, &oldTask));
    EXPECT_FALSE(converter.Upgrade(nullptr, &newTask));
    EXPECT_EQ(g_conversions, Conversions({{UPGRADE, &oldTask, &newTask},
                                          {DOWNGRADE, &newTask, &oldTask},
                                          {UPGRADE, nullptr, &newTask}}));
}

TEST_F(VersionConverterProxy, LaterConverterReplacesTheEarlierOne)
{
    IXmlConverter& converter = *proxy;
    Inject(std::make_unique<RefusingConverter>());
    Inject(std::make_unique<CopyingConverter>());
    EXPECT_TRUE(converter.Upgrade(&oldTask, &newTask));
    Inject(nullptr);
    EXPECT_FALSE(converter.Upgrade(&oldTask, &newTask));
    EXPECT_EQ(g_conversions.size(), 1u);
}

TEST_F(VersionConverterProxy, ConvertersOwnDestructorIsNotCalled)
{
    Inject(std::make_unique<CopyingConverter>());
    Inject(std::make_unique<CopyingConverter>());
    Inject(nullptr);
    Inject(std::make_unique<CopyingConverter>());
    proxy.reset();
    EXPECT_EQ(g_convertersDestroyed, 0);
}

TEST_F(VersionConverterProxy, ConverterThrowsThroughTheForward)
{
    Inject(std::make_unique<ThrowingConverter>());
    IXmlConverter& converter = *proxy;
    EXPECT_RG_THROW(converter.Upgrade(&oldTask, &newTask), "RGException", "no upgrade");
    EXPECT_RG_THROW(converter.Downgrade(&oldTask, &newTask), "RGException", "no downgrade");
}

// --- CanUseProxy -------------------------------------------------------------------------------------------

TEST_F(VersionConverterProxy, IsUsedOnlyForARegisteredVersionOfAnotherObject)
{
    PlainObject stranger;
    EXPECT_TRUE(CanUse(OLD_FILE, &newTask));
    EXPECT_TRUE(CanUse(NEW_FILE, &oldTask));
    EXPECT_FALSE(CanUse(OLD_FILE, &oldTask));
    EXPECT_FALSE(CanUse(NEW_FILE, &newTask));
    EXPECT_TRUE(CanUse(OLD_FILE, &stranger));
    EXPECT_TRUE(CanUse(OLD_FILE, nullptr));
}

TEST_F(VersionConverterProxy, IsNotUsedForUnknownNamesAndVersions)
{
    for (const char* content :
         {"<Task/>", "<Task Version=\"\"/>", "<Task Version=\"3.0\"/>", "<Task Version=\"1\"/>",
          "<Task Version=\"1.00\"/>", "<Task Version=\" 1.0\"/>", "<Task version=\"1.0\"/>",
          "<task Version=\"1.0\"/>", "<Job Version=\"1.0\"/>", "<Tasks Version=\"1.0\"/>"}) {
        SCOPED_TRACE(content);
        EXPECT_FALSE(CanUse(content, nullptr));
    }
    OpenFile file(OLD_FILE);
    EXPECT_FALSE(Proxy().CanUseProxy(file.Get(), &newTask));
    EXPECT_EQ(file.Get()->pos(), 0);
}

TEST_F(VersionConverterProxy, EmptyVersionCanBeRegistered)
{
    PlainObject unversioned;
    proxy->RegisterRootClass(Text("Task"), QString(), &unversioned);
    EXPECT_TRUE(CanUse("<Task/>", &newTask));
    EXPECT_TRUE(CanUse("<Task Version=\"\"/>", &newTask));
    EXPECT_FALSE(CanUse("<Task/>", &unversioned));
}

TEST_F(VersionConverterProxy, RootElementIsLookedForInsideTheDocumentToo)
{
    EXPECT_TRUE(CanUse("<?xml version=\"1.0\"?><!-- --><Outer><Task Version=\"1.0\"/></Outer>", &newTask));
    // The first one found decides.
    EXPECT_FALSE(CanUse("<Task Version=\"9\"><Task Version=\"1.0\"/></Task>", &newTask));
}

TEST_F(VersionConverterProxy, SearchForTheNextNameGoesOnWhereTheLastOneStopped)
{
    PlainObject area = NamedObject("Area");
    PlainObject zone = NamedObject("Zone");
    proxy->RegisterRootClass(Text("Zone"), Text("1.0"), &zone);
    proxy->RegisterRootClass(Text("Area"), Text("1.0"), &area);

    // Area, Task, Zone: the search for the first one runs to the end of a file without it.
    EXPECT_TRUE(CanUse("<Area Version=\"1.0\"/>", nullptr));
    EXPECT_FALSE(CanUse(OLD_FILE, &newTask));
    EXPECT_FALSE(CanUse("<Zone Version=\"1.0\"/>", nullptr));

    // A name that is found with an unknown version leaves what follows to the next one.
    EXPECT_TRUE(CanUse("<Area><Task Version=\"1.0\"/></Area>", &newTask));
    EXPECT_TRUE(CanUse("<Area><Task><Zone Version=\"1.0\"/></Task></Area>", nullptr));
    EXPECT_FALSE(CanUse("<Area><Zone Version=\"1.0\"/><Task/></Area>", nullptr));
    EXPECT_FALSE(CanUse("<Zone Version=\"1.0\"><Area/></Zone>", nullptr));

    // The first usable one ends the search.
    EXPECT_TRUE(CanUse("<Area Version=\"1.0\"><Task", nullptr));
}

TEST_F(VersionConverterProxy, MalformedFilePassesOutOfTheQuestion)
{
    const auto logger = NewLogger();
    proxy->SetLogger(logger);
    for (const char* content : {"", "not XML", "<Other><Task Version=\"1.0\"", "<Other></Task>"}) {
        SCOPED_TRACE(content);
        OpenFile file(content);
        const QString error = Support::ReaderError(Text(content));
        ASSERT_FALSE(error.isEmpty());
        logger->Reset(true);
        EXPECT_RG_THROW(proxy->CanUseProxy(file.Get(), &newTask), "RGException", error);
        EXPECT_LOG(logger, QStringList(Text("FATAL ERROR: RGException: ") + error));
    }
}

TEST_F(VersionConverterProxy, WhatFollowsTheRootTagIsNotLookedAt)
{
    EXPECT_TRUE(CanUse("<Task Version=\"1.0\"><broken", &newTask));
    EXPECT_FALSE(CanUse("<Task Version=\"2.0\"><broken", &newTask));
}

TEST_F(VersionConverterProxy, QuestionTracesNothing)
{
    const auto logger = NewLogger();
    proxy->SetLogger(logger);
    oldTask.SetLogger(logger);
    newTask.SetLogger(logger);
    EXPECT_TRUE(CanUse(OLD_FILE, &newTask));
    EXPECT_FALSE(CanUse("<Other/>", &newTask));
    EXPECT_LOG(logger, {});
    EXPECT_EQ(oldTask.calls.reset, 0);
    EXPECT_EQ(newTask.calls.reset, 0);
}

// --- LoadXml -----------------------------------------------------------------------------------------------

TEST_F(VersionConverterProxy, OlderFileIsLoadedIntoItsObjectAndUpgraded)
{
    Inject(std::make_unique<CopyingConverter>());
    EXPECT_TRUE(Load(OLD_FILE));
    EXPECT_EQ(oldTask.children, Children({{Text("A"), Text("1")}}));
    EXPECT_EQ(newTask.children, Upgraded());
    EXPECT_EQ(g_conversions, Conversions({{UPGRADE, &oldTask, &newTask}}));
    EXPECT_EQ(oldTask.calls.reset, 1);
    EXPECT_EQ(oldTask.calls.check, 1);
    EXPECT_EQ(newTask.calls.reset, 0);
    EXPECT_EQ(newTask.calls.check, 0);
}

TEST_F(VersionConverterProxy, NewerFileIsLoadedIntoItsObjectAndDowngraded)
{
    Inject(std::make_unique<CopyingConverter>());
    EXPECT_TRUE(Load(NEW_FILE));
    EXPECT_EQ(newTask.children, Children({{Text("A"), Text("2")}}));
    EXPECT_EQ(oldTask.children, Downgraded());
    EXPECT_EQ(g_conversions, Conversions({{DOWNGRADE, &newTask, &oldTask}}));
}

TEST_F(VersionConverterProxy, RegisteredObjectLoadsByItsOwnSettings)
{
    oldTask.SetValidate(false);
    oldTask.problem = Text("incomplete");
    Inject(std::make_unique<CopyingConverter>());
    EXPECT_TRUE(Load(OLD_FILE));
    EXPECT_EQ(oldTask.calls.check, 0);
    EXPECT_EQ(newTask.children, Upgraded());
}

TEST_F(VersionConverterProxy, ResultIsThatOfTheConverter)
{
    EXPECT_FALSE(Load(OLD_FILE));
    EXPECT_EQ(oldTask.children, Children({{Text("A"), Text("1")}}));

    Inject(std::make_unique<RefusingConverter>());
    EXPECT_FALSE(Load(OLD_FILE));
    EXPECT_EQ(g_conversions, Conversions({{UPGRADE, &oldTask, &newTask}}));
}

TEST_F(VersionConverterProxy, LoadsByPathLikeAnyObject)
{
    const TemporaryFolder folder;
    const QString path = folder.Write("task.xml", OLD_FILE);
    Inject(std::make_unique<CopyingConverter>());
    EXPECT_TRUE(proxy->LoadXml(path));
    EXPECT_EQ(newTask.children, Upgraded());
    EXPECT_RG_THROW(proxy->LoadXml(folder.Path("missing.xml")), "RGException",
                    Text("Can't open file for reading: '") + folder.Path("missing.xml") + Text("'"));
}

TEST_F(VersionConverterProxy, RegisteredObjectReadsTheFileFromItsStart)
{
    StubbornObject stubborn;
    stubborn.result = true;
    proxy->RegisterRootClass(Text("Job"), Text("1.0"), &stubborn);
    Load("<Job Version=\"1.0\"/>");
    EXPECT_EQ(stubborn.position, 0);
}

TEST_F(VersionConverterProxy, ProxyItselfLogsNothing)
{
    const auto logger = NewLogger();
    const auto ofOldTask = NewLogger();
    const auto ofNewTask = NewLogger();
    proxy->SetLogger(logger);
    oldTask.SetLogger(ofOldTask);
    newTask.SetLogger(ofNewTask);
    Inject(std::make_unique<CopyingConverter>());
    OpenFile file(OLD_FILE);
    EXPECT_TRUE(proxy->LoadXml(file.Get()));
    EXPECT_LOG(logger, {});
    EXPECT_LOG(ofOldTask, QStringList(Text("INFO: Task: Loading xml file \"") + file.Path() + Text("\".")));
    EXPECT_LOG(ofNewTask, {});
}

TEST_F(VersionConverterProxy, VersionKeysAreWalkedInTheOrderOfTexts)
{
    // As texts: 1.0, 10.0, 2.0. The first other one is the target.
    PlainObject tenth = NamedObject("Task");
    proxy->RegisterRootClass(Text("Task"), Text("10.0"), &tenth);
    Inject(std::make_unique<RefusingConverter>());
    Load(OLD_FILE);
    Load(NEW_FILE);
    Load("<Task Version=\"10.0\"/>");
    EXPECT_EQ(g_conversions, Conversions({{UPGRADE, &oldTask, &tenth},
                                          {DOWNGRADE, &newTask, &oldTask},
                                          {DOWNGRADE, &tenth, &oldTask}}));
}

TEST_F(VersionConverterProxy, NumbersDecideBetweenUpgradeAndDowngrade)
{
    PlainObject second = NamedObject("Job");
    PlainObject tenth = NamedObject("Job");
    proxy->RegisterRootClass(Text("Job"), Text("2.0"), &second);
    proxy->RegisterRootClass(Text("Job"), Text("10.0"), &tenth);
    Inject(std::make_unique<RefusingConverter>());
    EXPECT_FALSE(proxy->Convert(Text("Job"), &second, Text("2.0")));
    EXPECT_FALSE(proxy->Convert(Text("Job"), &tenth, Text("10.0")));
    EXPECT_EQ(g_conversions, Conversions({{UPGRADE, &second, &tenth}, {DOWNGRADE, &tenth, &second}}));
}

TEST_F(VersionConverterProxy, EqualNumbersAreNotConverted)
{
    PlainObject first = NamedObject("Job");
    PlainObject second = NamedObject("Job");
    proxy->RegisterRootClass(Text("Job"), Text("2.0"), &first);
    proxy->RegisterRootClass(Text("Job"), Text("2.00"), &second);
    Inject(std::make_unique<CopyingConverter>());
    EXPECT_FALSE(Load("<Job Version=\"2.00\"><A>1</A></Job>"));
    EXPECT_EQ(second.children.size(), 1);
    EXPECT_TRUE(g_conversions.empty());
}

TEST_F(VersionConverterProxy, SingleVersionIsDowngradedToNothing)
{
    PlainObject only = NamedObject("Job");
    proxy->RegisterRootClass(Text("Job"), Text("2.0"), &only);
    Inject(std::make_unique<RefusingConverter>());
    EXPECT_FALSE(Load("<Job Version=\"2.0\"/>"));
    EXPECT_EQ(g_conversions, Conversions({{DOWNGRADE, &only, nullptr}}));
}

TEST_F(VersionConverterProxy, ConvertTakesVersionsAsNumbersAndUnknownNamesAsMinusOne)
{
    struct Row
    {
        const char* name;
        const char* rootClass;
        const char* version;
        const char* operation;
        bool hasTarget;
    };
    const Row rows[] = {
        {"older", "Task", "0.5", UPGRADE, true},
        {"no number is 0", "Task", "new", UPGRADE, true},
        {"empty is 0", "Task", "", UPGRADE, true},
        {"newer, first in order", "Task", "3", DOWNGRADE, true},
        {"equal number, other text", "Task", "1.00", nullptr, true},
        {"equal number with blanks", "Task", " 1 ", nullptr, true},
        {"a comma makes no number", "Task", "3,0", UPGRADE, true},
        {"newer by its exponent", "Task", "1e1", DOWNGRADE, true},
        {"not comparable", "Task", "nan", nullptr, true},
        {"unknown name", "Job", "1.0", DOWNGRADE, false},
        {"unknown name, no number", "Job", "", DOWNGRADE, false},
        {"unknown name, -1", "Job", "-1", nullptr, false},
        {"unknown name, below -1", "Job", "-1.5", UPGRADE, false},
    };
    Inject(std::make_unique<RefusingConverter>());
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        g_conversions.clear();
        EXPECT_FALSE(proxy->Convert(Text(row.rootClass), &newTask, Text(row.version)));
        Conversions expected;
        if (row.operation != nullptr)
            expected.push_back({row.operation, &newTask, row.hasTarget ? &oldTask : nullptr});
        EXPECT_EQ(g_conversions, expected);
    }
}

TEST_F(VersionConverterProxy, ConvertReturnsWhatTheConverterReturns)
{
    EXPECT_FALSE(proxy->Convert(Text("Task"), &oldTask, Text("1.0")));
    Inject(std::make_unique<CopyingConverter>());
    EXPECT_TRUE(proxy->Convert(Text("Task"), &oldTask, Text("1.0")));
    EXPECT_TRUE(proxy->Convert(Text("Task"), &newTask, Text("2.0")));
    EXPECT_FALSE(proxy->Convert(Text("Task"), nullptr, Text("2.0")));
}

TEST_F(VersionConverterProxy, FailedLoadOfARegisteredObjectDoesNotStopTheConversion)
{
    // Nothing was loaded, so the converter gets nothing.
    oldTask.problem = Text("incomplete");
    Inject(std::make_unique<RefusingConverter>());
    EXPECT_FALSE(Load(OLD_FILE));
    EXPECT_EQ(g_conversions, Conversions({{UPGRADE, nullptr, &newTask}}));
    EXPECT_EQ(oldTask.calls.check, 1);
}

TEST_F(VersionConverterProxy, ObjectThatDoesNotFindItsElementWasNotLoaded)
{
    StubbornObject stubborn;
    PlainObject other;
    proxy->RegisterRootClass(Text("Job"), Text("1.0"), &stubborn);
    proxy->RegisterRootClass(Text("Job"), Text("2.0"), &other);
    Inject(std::make_unique<RefusingConverter>());
    EXPECT_FALSE(Load("<Job Version=\"1.0\"/>"));
    EXPECT_EQ(g_conversions, Conversions({{UPGRADE, nullptr, &other}}));
}

TEST_F(VersionConverterProxy, ObjectOfTheLastSuccessfulLoadStaysUntilAnotherLoadSucceeds)
{
    Inject(std::make_unique<RefusingConverter>());
    Load(NEW_FILE);
    oldTask.problem = Text("incomplete");
    Load(OLD_FILE);
    EXPECT_EQ(g_conversions, Conversions({{DOWNGRADE, &newTask, &oldTask}, {UPGRADE, &newTask, &newTask}}));

    // Name and version too stay as they were last read.
    g_conversions.clear();
    Load("<Unknown/>");
    EXPECT_EQ(g_conversions, Conversions({{UPGRADE, &newTask, &newTask}}));
}

TEST_F(VersionConverterProxy, QuestionSetsNameAndVersionForALaterConversion)
{
    Inject(std::make_unique<RefusingConverter>());
    EXPECT_TRUE(CanUse(NEW_FILE, &oldTask));
    Load("<Unknown/>");
    EXPECT_EQ(g_conversions, Conversions({{DOWNGRADE, nullptr, &oldTask}}));
}

TEST_F(VersionConverterProxy, FreshProxyDowngradesNothingToNothingForAnUnknownRoot)
{
    Inject(std::make_unique<RefusingConverter>());
    EXPECT_FALSE(Load("<Unknown/>"));
    EXPECT_EQ(g_conversions, Conversions({{DOWNGRADE, nullptr, nullptr}}));
}

TEST_F(VersionConverterProxy, MalformedFileForgetsEverythingAndGivesFalse)
{
    Inject(std::make_unique<RefusingConverter>());
    Load(NEW_FILE);
    for (const char* content : {"", "not XML", "<Other><Task", "<Other></Task>"}) {
        SCOPED_TRACE(content);
        Load(NEW_FILE);
        g_conversions.clear();
        EXPECT_NO_RG_THROW(EXPECT_FALSE(Load(content)));
        EXPECT_TRUE(g_conversions.empty());

        Load("<Unknown/>");
        EXPECT_EQ(g_conversions, Conversions({{DOWNGRADE, nullptr, nullptr}}));
    }
}

TEST_F(VersionConverterProxy, MalformedFileForgetsTheVersionToo)
{
    // Without a target a version below -1 would ask for an upgrade, none at all asks for a downgrade.
    Inject(std::make_unique<RefusingConverter>());
    EXPECT_FALSE(Load("<Task Version=\"-2\"/>"));
    EXPECT_FALSE(Load("not XML"));
    g_conversions.clear();
    EXPECT_FALSE(Load("<Unknown/>"));
    EXPECT_EQ(g_conversions, Conversions({{DOWNGRADE, nullptr, nullptr}}));
}

TEST_F(VersionConverterProxy, FileThatIsMalformedInsideTheRootIsAFailedLoad)
{
    Inject(std::make_unique<RefusingConverter>());
    EXPECT_FALSE(Load("<Task Version=\"1.0\"><A>1</A>"));
    EXPECT_EQ(oldTask.children, Children({{Text("A"), Text("1")}}));
    EXPECT_EQ(g_conversions, Conversions({{UPGRADE, nullptr, &newTask}}));
}

TEST_F(VersionConverterProxy, UnregisteredVersionIsConvertedFromNothing)
{
    Inject(std::make_unique<RefusingConverter>());
    EXPECT_FALSE(Load("<Task Version=\"3.0\"><A>1</A></Task>"));
    EXPECT_FALSE(Load("<Task><A>1</A></Task>"));
    EXPECT_EQ(g_conversions, Conversions({{DOWNGRADE, nullptr, &oldTask}, {UPGRADE, nullptr, &oldTask}}));
    EXPECT_EQ(oldTask.calls.reset, 0);
    EXPECT_EQ(newTask.calls.reset, 0);
}

TEST_F(VersionConverterProxy, ThrowingConverterIsCaughtAndGivesTheLoadResult)
{
    Inject(std::make_unique<ThrowingConverter>());
    bool result = false;
    EXPECT_NO_RG_THROW(result = Load(OLD_FILE));
    EXPECT_TRUE(result);

    // Everything is forgotten as after malformed XML.
    Inject(std::make_unique<RefusingConverter>());
    Load("<Unknown/>");
    EXPECT_EQ(g_conversions, Conversions({{DOWNGRADE, nullptr, nullptr}}));

    oldTask.problem = Text("incomplete");
    Inject(std::make_unique<ThrowingConverter>());
    EXPECT_NO_RG_THROW(result = Load(OLD_FILE));
    EXPECT_FALSE(result);
}

TEST_F(VersionConverterProxy, ExceptionsOfOtherTypesPassOut)
{
    Inject(std::make_unique<FailingConverter>());
    EXPECT_THROW(Load(OLD_FILE), std::runtime_error);

    // The root of the family is no RGException.
    EXPECT_THROW(Load(NEW_FILE), ReportException);

    Inject(std::make_unique<RefusingConverter>());
    StubbornObject stubborn;
    proxy->RegisterRootClass(Text("Job"), Text("1.0"), &stubborn);
    stubborn.onLoad = [] { throw std::runtime_error("other"); };
    EXPECT_THROW(Load("<Job Version=\"1.0\"/>"), std::runtime_error);
    stubborn.onLoad = [] { throw ReportException(); };
    EXPECT_THROW(Load("<Job Version=\"1.0\"/>"), ReportException);
}

TEST_F(VersionConverterProxy, DerivedExceptionOfARegisteredObjectIsAFailedLoadToo)
{
    StubbornObject stubborn;
    PlainObject other;
    stubborn.onLoad = [] { throw BinaryParsingException(Text("damaged")); };
    proxy->RegisterRootClass(Text("Job"), Text("1.0"), &stubborn);
    proxy->RegisterRootClass(Text("Job"), Text("2.0"), &other);
    Inject(std::make_unique<RefusingConverter>());
    EXPECT_NO_RG_THROW(EXPECT_FALSE(Load("<Job Version=\"1.0\"/>")));
    EXPECT_EQ(g_conversions, Conversions({{UPGRADE, nullptr, &other}}));
}

// --- Two root classes --------------------------------------------------------------------------------------

TEST_F(VersionConverterProxy, EveryRootClassIsLookedForAndTheLastOneIsConverted)
{
    PlainObject oldZone = NamedObject("Zone");
    PlainObject newZone = NamedObject("Zone");
    proxy->RegisterRootClass(Text("Zone"), Text("1.0"), &oldZone);
    proxy->RegisterRootClass(Text("Zone"), Text("2.0"), &newZone);
    Inject(std::make_unique<CopyingConverter>());
    EXPECT_TRUE(Load("<Task Version=\"1.0\"><A>1</A><Zone Version=\"2.0\"><B>2</B></Zone></Task>"));
    EXPECT_EQ(oldTask.calls.reset, 1);
    EXPECT_EQ(newZone.children, Children({{Text("B"), Text("2")}}));
    EXPECT_EQ(g_conversions, Conversions({{DOWNGRADE, &newZone, &oldZone}}));
}

TEST_F(VersionConverterProxy, FileOfTheFirstRootClassIsConvertedWhenTheSecondIsNotFound)
{
    PlainObject zone = NamedObject("Zone");
    proxy->RegisterRootClass(Text("Zone"), Text("1.0"), &zone);
    Inject(std::make_unique<CopyingConverter>());
    EXPECT_TRUE(Load(OLD_FILE));
    EXPECT_EQ(newTask.children, Upgraded());
    EXPECT_EQ(zone.calls.reset, 0);
}

TEST_F(VersionConverterProxy, FileOfTheSecondRootClassIsNotFoundBehindTheFirst)
{
    PlainObject area = NamedObject("Area");
    proxy->RegisterRootClass(Text("Area"), Text("1.0"), &area);
    Inject(std::make_unique<RefusingConverter>());
    EXPECT_FALSE(Load(OLD_FILE));
    EXPECT_EQ(oldTask.calls.reset, 0);
    EXPECT_EQ(g_conversions, Conversions({{DOWNGRADE, nullptr, nullptr}}));
}

TEST_F(VersionConverterProxy, MalformedRestBehindALoadedRootGivesTheLoadResult)
{
    PlainObject zone = NamedObject("Zone");
    proxy->RegisterRootClass(Text("Zone"), Text("1.0"), &zone);
    Inject(std::make_unique<RefusingConverter>());
    EXPECT_TRUE(Load("<Task Version=\"1.0\"><A>1</A></Task><"));
    EXPECT_TRUE(g_conversions.empty());
    EXPECT_EQ(oldTask.children, Children({{Text("A"), Text("1")}}));
    Load("<Unknown/>");
    EXPECT_EQ(g_conversions, Conversions({{DOWNGRADE, nullptr, nullptr}}));
}

TEST_F(VersionConverterProxy, LaterRootThatDoesNotLoadTakesTheResultBack)
{
    StubbornObject stubborn;
    PlainObject zone = NamedObject("Zone");
    proxy->RegisterRootClass(Text("Track"), Text("1.0"), &stubborn);
    proxy->RegisterRootClass(Text("Zone"), Text("1.0"), &zone);

    // Task loads, Track does not, and the search for Zone meets the broken end.
    const char* content = "<Task Version=\"1.0\"><Track Version=\"1.0\"/></Task><";
    EXPECT_FALSE(Load(content));
    EXPECT_EQ(stubborn.position, 0);

    stubborn.result = true;
    EXPECT_TRUE(Load(content));
    stubborn.problemOfLoading = Text("broken");
    EXPECT_TRUE(Load(content));
}

TEST_F(VersionConverterProxy, LongFileIsConvertedAlsoWhenAnotherRootClassIsLookedForBehindIt)
{
    // Longer than what a reader takes at once: the search goes on in a file that the object has read on.
    PlainObject zone = NamedObject("Zone");
    proxy->RegisterRootClass(Text("Zone"), Text("1.0"), &zone);
    Inject(std::make_unique<CopyingConverter>());
    constexpr int COUNT = 50000;
    EXPECT_TRUE(Load(QByteArray("<Task Version=\"1.0\">") + QByteArray("<A>1</A>").repeated(COUNT) +
                     QByteArray("</Task>")));
    EXPECT_EQ(oldTask.children.size(), COUNT);
    EXPECT_EQ(newTask.children.size(), COUNT + 1);
    EXPECT_EQ(g_conversions, Conversions({{UPGRADE, &oldTask, &newTask}}));
}

TEST_F(VersionConverterProxy, SecondRootClassIsFoundBehindALongFirstOne)
{
    PlainObject oldZone = NamedObject("Zone");
    PlainObject newZone = NamedObject("Zone");
    proxy->RegisterRootClass(Text("Zone"), Text("1.0"), &oldZone);
    proxy->RegisterRootClass(Text("Zone"), Text("2.0"), &newZone);
    Inject(std::make_unique<CopyingConverter>());
    const QByteArray many = QByteArray("<A>1</A>").repeated(5000);
    EXPECT_TRUE(Load("<Task Version=\"1.0\">" + many + "<Zone Version=\"2.0\">" + many + "</Zone>" + many +
                     "</Task>"));
    EXPECT_EQ(newZone.children.size(), 5000);
    EXPECT_EQ(g_conversions, Conversions({{DOWNGRADE, &newZone, &oldZone}}));
}

TEST_F(VersionConverterProxy, ObjectThatThrowsDoesNotDisturbTheSearchInALongFile)
{
    StubbornObject stubborn;
    PlainObject zone = NamedObject("Zone");
    stubborn.problemOfLoading = Text("broken");
    proxy->RegisterRootClass(Text("Task"), Text("0.5"), &stubborn);
    proxy->RegisterRootClass(Text("Zone"), Text("1.0"), &zone);
    Inject(std::make_unique<RefusingConverter>());
    Load("<Task Version=\"0.5\">" + QByteArray("<A>1</A>").repeated(5000) + "<Zone Version=\"1.0\"/></Task>");
    EXPECT_EQ(zone.calls.reset, 1);
    EXPECT_EQ(g_conversions, Conversions({{DOWNGRADE, &zone, nullptr}}));
}

// --- The whole road from a root object ---------------------------------------------------------------------

TEST_F(VersionConverterProxy, RootObjectLoadsAnOlderFileThroughTheProxy)
{
    const auto logger = NewLogger();
    const auto ofOldTask = NewLogger();
    Inject(std::make_unique<CopyingConverter>());
    newTask.InjectVersionConverter(proxy);
    newTask.SetLogger(logger);
    newTask.children = {{Text("Left"), Text("over")}};
    oldTask.SetLogger(ofOldTask);

    OpenFile file(OLD_FILE);
    EXPECT_TRUE(newTask.LoadXml(file.Get()));
    EXPECT_EQ(newTask.children, Upgraded());
    EXPECT_EQ(newTask.calls.reset, 1);
    EXPECT_EQ(newTask.calls.check, 0);
    const QString quoted = Text("\"") + file.Path() + Text("\".");
    EXPECT_LOG(logger,
               QStringList(Text("INFO: Task: Using version converter to load the xml file ") + quoted));
    EXPECT_LOG(ofOldTask, QStringList(Text("INFO: Task: Loading xml file ") + quoted));
}

TEST_F(VersionConverterProxy, RootObjectLoadsANewerFileThroughTheProxy)
{
    const auto logger = NewLogger();
    Inject(std::make_unique<CopyingConverter>());
    oldTask.InjectVersionConverter(proxy);
    oldTask.SetLogger(logger);
    OpenFile file(NEW_FILE);
    EXPECT_TRUE(oldTask.LoadXml(file.Get()));
    EXPECT_EQ(oldTask.children, Downgraded());
    EXPECT_LOG(logger, QStringList(Text("INFO: Task: Using version converter to load the xml file \"") +
                                   file.Path() + Text("\".")));
}

TEST_F(VersionConverterProxy, RootObjectLoadsAFileOfItsOwnVersionItself)
{
    const auto logger = NewLogger();
    Inject(std::make_unique<CopyingConverter>());
    newTask.InjectVersionConverter(proxy);
    newTask.SetLogger(logger);
    OpenFile file(NEW_FILE);
    EXPECT_TRUE(newTask.LoadXml(file.Get()));
    EXPECT_EQ(newTask.children, Children({{Text("A"), Text("2")}}));
    EXPECT_EQ(newTask.calls.check, 1);
    EXPECT_TRUE(g_conversions.empty());
    EXPECT_LOG(logger, QStringList(Text("INFO: Task: Loading xml file \"") + file.Path() + Text("\".")));
}

TEST_F(VersionConverterProxy, RootObjectLoadsFilesOfUnknownVersionsItself)
{
    Inject(std::make_unique<CopyingConverter>());
    newTask.InjectVersionConverter(proxy);
    for (const char* content : {"<Task Version=\"3.0\"><A>3</A></Task>", "<Task><A>3</A></Task>"}) {
        OpenFile file(content);
        EXPECT_TRUE(newTask.LoadXml(file.Get()));
        EXPECT_EQ(newTask.children, Children({{Text("A"), Text("3")}}));
    }
    OpenFile unknown("<Other/>");
    EXPECT_FALSE(newTask.LoadXml(unknown.Get()));
    EXPECT_TRUE(g_conversions.empty());
}

TEST_F(VersionConverterProxy, RootObjectLoadsByPathThroughTheProxy)
{
    const TemporaryFolder folder;
    Inject(std::make_unique<CopyingConverter>());
    newTask.InjectVersionConverter(proxy);
    EXPECT_TRUE(newTask.LoadXml(folder.Write("task.xml", OLD_FILE)));
    EXPECT_EQ(newTask.children, Upgraded());
}

TEST_F(VersionConverterProxy, RootObjectGivesTheResultOfTheProxyAndIsReset)
{
    newTask.InjectVersionConverter(proxy);
    newTask.children = {{Text("Left"), Text("over")}};
    OpenFile file(OLD_FILE);
    EXPECT_FALSE(newTask.LoadXml(file.Get()));
    EXPECT_TRUE(newTask.children.isEmpty());
    EXPECT_EQ(newTask.calls.check, 0);

    Inject(std::make_unique<RefusingConverter>());
    EXPECT_FALSE(newTask.LoadXml(file.Get()));
}

TEST_F(VersionConverterProxy, FailureOfARegisteredObjectDoesNotReachTheRootObject)
{
    const auto logger = NewLogger();
    oldTask.problem = Text("incomplete");
    Inject(std::make_unique<CopyingConverter>());
    newTask.InjectVersionConverter(proxy);
    newTask.SetLogger(logger);
    OpenFile file(OLD_FILE);
    bool result = true;
    EXPECT_NO_RG_THROW(result = newTask.LoadXml(file.Get()));
    EXPECT_FALSE(result);
    EXPECT_LOG(logger, QStringList(Text("INFO: Task: Using version converter to load the xml file \"") +
                                   file.Path() + Text("\".")));
}

TEST_F(VersionConverterProxy, ThrowingConverterLeavesAnEmptyRootObjectThatCountsAsLoaded)
{
    const auto logger = NewLogger();
    Inject(std::make_unique<ThrowingConverter>());
    newTask.InjectVersionConverter(proxy);
    newTask.SetLogger(logger);
    newTask.children = {{Text("Left"), Text("over")}};
    OpenFile file(OLD_FILE);
    bool result = false;
    EXPECT_NO_RG_THROW(result = newTask.LoadXml(file.Get()));
    EXPECT_TRUE(result);
    EXPECT_TRUE(newTask.children.isEmpty());
    EXPECT_LOG(logger, QStringList(Text("INFO: Task: Using version converter to load the xml file \"") +
                                   file.Path() + Text("\".")));
}

TEST_F(VersionConverterProxy, RegisteredObjectsMayHaveTheProxyToo)
{
    const auto ofOldTask = NewLogger();
    Inject(std::make_unique<CopyingConverter>());
    oldTask.InjectVersionConverter(proxy);
    newTask.InjectVersionConverter(proxy);
    oldTask.SetLogger(ofOldTask);
    OpenFile file(OLD_FILE);
    EXPECT_TRUE(newTask.LoadXml(file.Get()));
    EXPECT_EQ(newTask.children, Upgraded());
    EXPECT_EQ(g_conversions, Conversions({{UPGRADE, &oldTask, &newTask}}));
    EXPECT_LOG(ofOldTask, QStringList(Text("INFO: Task: Loading xml file \"") + file.Path() + Text("\".")));
}

TEST_F(VersionConverterProxy, RegisteredObjectWithTheProxyReadsAFileOfTwoRootsItself)
{
    // Zone makes the proxy usable for the file, also for the object that the proxy has asked to load it.
    PlainObject zone = NamedObject("Zone");
    proxy->RegisterRootClass(Text("Zone"), Text("2.0"), &zone);
    Inject(std::make_unique<RefusingConverter>());
    oldTask.InjectVersionConverter(proxy);
    newTask.InjectVersionConverter(proxy);
    OpenFile file("<Task Version=\"1.0\"><A>1</A><Zone Version=\"2.0\"/></Task>");
    EXPECT_FALSE(newTask.LoadXml(file.Get()));
    EXPECT_EQ(oldTask.children.size(), 2);
    EXPECT_EQ(oldTask.calls.reset, 1);
    EXPECT_EQ(zone.calls.reset, 1);
    EXPECT_EQ(g_conversions, Conversions({{DOWNGRADE, &zone, nullptr}}));
    EXPECT_TRUE(proxy->CanUseProxy(file.Get(), &newTask)) << "nothing is being loaded any more";
}

TEST_F(VersionConverterProxy, RegisteredObjectThatThrowsIsNotLoadingAnyMore)
{
    StubbornObject stubborn;
    stubborn.problemOfLoading = Text("broken");
    proxy->RegisterRootClass(Text("Job"), Text("1.0"), &stubborn);
    OpenFile file("<Job Version=\"1.0\"/>");
    bool usableMeanwhile = true;
    stubborn.onLoad = [&] { usableMeanwhile = proxy->CanUseProxy(file.Get(), &oldTask); };
    proxy->LoadXml(file.Get());
    EXPECT_FALSE(usableMeanwhile);
    EXPECT_TRUE(proxy->CanUseProxy(file.Get(), &oldTask));
}

TEST_F(VersionConverterProxy, RegisteredObjectMayLoadAnotherFileThroughTheProxy)
{
    StubbornObject stubborn;
    proxy->RegisterRootClass(Text("Task"), Text("3.0"), &stubborn);
    Inject(std::make_unique<CopyingConverter>());
    newTask.InjectVersionConverter(proxy);
    OpenFile other(OLD_FILE);
    stubborn.onLoad = [&] { EXPECT_TRUE(newTask.LoadXml(other.Get())); };
    Load("<Task Version=\"3.0\"/>");
    EXPECT_EQ(newTask.children, Upgraded());
}

TEST_F(VersionConverterProxy, RootObjectThatIsNotRegisteredIsNotFilledButItsRegisteredSiblingIs)
{
    PlainObject stranger = NamedObject("Task");
    stranger.children = {{Text("Left"), Text("over")}};
    stranger.InjectVersionConverter(proxy);
    Inject(std::make_unique<CopyingConverter>());
    OpenFile file(OLD_FILE);
    EXPECT_TRUE(stranger.LoadXml(file.Get()));
    EXPECT_TRUE(stranger.children.isEmpty());
    EXPECT_EQ(newTask.children, Upgraded());
}

TEST_F(VersionConverterProxy, MalformedFilePassesOutOfTheRootObject)
{
    const auto logger = NewLogger();
    const auto ofProxy = NewLogger();
    newTask.InjectVersionConverter(proxy);
    newTask.SetLogger(logger);
    newTask.children = {{Text("Left"), Text("over")}};
    proxy->SetLogger(ofProxy);
    const char* content = "<Other></Task>";
    const QString error = Support::ReaderError(Text(content));
    OpenFile file(content);
    EXPECT_RG_THROW(newTask.LoadXml(file.Get()), "RGException", error);
    EXPECT_TRUE(newTask.children.isEmpty());
    EXPECT_LOG(logger, {});
    EXPECT_LOG(ofProxy, QStringList(Text("FATAL ERROR: RGException: ") + error));
}

TEST_F(VersionConverterProxy, RootObjectWithoutProxyLoadsEveryVersionItself)
{
    newTask.InjectVersionConverter(proxy);
    newTask.InjectVersionConverter(nullptr);
    OpenFile file(OLD_FILE);
    ASSERT_TRUE(file.Get()->seek(0));
    EXPECT_TRUE(newTask.LoadXml(file.Get()));
    EXPECT_EQ(newTask.children, Children({{Text("A"), Text("1")}}));
    EXPECT_EQ(oldTask.calls.reset, 0);
}

TEST_F(VersionConverterProxy, CopyOfARootObjectUsesTheSameProxy)
{
    Inject(std::make_unique<CopyingConverter>());
    newTask.InjectVersionConverter(proxy);
    PlainObject copy(newTask);
    OpenFile file(NEW_FILE);

    // The registered object for the file's version is the original, so the copy goes through the proxy.
    EXPECT_TRUE(copy.LoadXml(file.Get()));
    EXPECT_EQ(g_conversions, Conversions({{DOWNGRADE, &newTask, &oldTask}}));
    EXPECT_TRUE(copy.children.isEmpty());
}

TEST_F(VersionConverterProxy, StringsAreNotConverted)
{
    Inject(std::make_unique<CopyingConverter>());
    newTask.InjectVersionConverter(proxy);
    EXPECT_TRUE(newTask.SetXmlString(Text(OLD_FILE), true));
    EXPECT_EQ(newTask.children, Children({{Text("A"), Text("1")}}));
    EXPECT_TRUE(g_conversions.empty());
}

TEST_F(VersionConverterProxy, VeryLongFilesAreConverted)
{
    constexpr int COUNT = 50000;
    const QByteArray content = QByteArray("<!-- ") + QByteArray(100000, 'x') +
                               QByteArray(" --><Task Version=\"1.0\">") +
                               QByteArray("<A>1</A>").repeated(COUNT) + QByteArray("</Task>");
    Inject(std::make_unique<CopyingConverter>());
    newTask.InjectVersionConverter(proxy);
    OpenFile file(content);
    EXPECT_TRUE(newTask.LoadXml(file.Get()));
    EXPECT_EQ(oldTask.children.size(), COUNT);
    EXPECT_EQ(newTask.children.size(), COUNT + 1);
}

TEST_F(VersionConverterProxy, VeryLongFileWithoutARegisteredRootIsReadToItsEnd)
{
    const QByteArray content =
        QByteArray("<Other>") + QByteArray("<A>1</A>").repeated(50000) + QByteArray("</Other>");
    EXPECT_FALSE(CanUse(content, &newTask));
    EXPECT_FALSE(Load(content));
}

TEST_F(VersionConverterProxy, VeryDeepFileIsSearched)
{
    constexpr int DEEP = 100000;
    const QByteArray content =
        QByteArray("<a>").repeated(DEEP) + QByteArray(OLD_FILE) + QByteArray("</a>").repeated(DEEP);
    EXPECT_TRUE(CanUse(content, &newTask));
    Inject(std::make_unique<CopyingConverter>());
    EXPECT_TRUE(Load(content));
    EXPECT_EQ(newTask.children, Upgraded());
}

TEST_F(VersionConverterProxy, LongNamesAndVersionsAreRegisteredAndFound)
{
    const QString name = QString(1000, QLatin1Char('n'));
    const QString version = Text("1.") + QString(10000, QLatin1Char('0'));
    PlainObject object;
    object.SetObjectName(name);
    proxy->RegisterRootClass(name, version, &object);
    EXPECT_EQ(proxy->GetRegisteredRootClass(name, version), &object);

    // It stands behind "Task" in the order of the names, so the file must hold both.
    const QString content = Text("<Task><") + name + Text(" Version=\"") + version + Text("\"/></Task>");
    EXPECT_TRUE(CanUse(content.toUtf8(), nullptr));
}
