#include "support/expect.h"
#include "support/plainobject.h"
#include "support/readererror.h"
#include "support/versiontask.h"

#include <reportgenerator/reportbase/irgobject.h>
#include <reportgenerator/reportbase/ixmlconverter.h>
#include <reportgenerator/reportbase/versionconverterproxy.h>

#include <gtest/gtest.h>

#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QXmlStreamWriter>

#include <memory>
#include <type_traits>

namespace {

using REPORTGENERATOR::IRGObject;
using REPORTGENERATOR::IXmlConverter;
using Proxy = REPORTGENERATOR::VersionConverterProxy;
using Support::Conversions;
using Support::CopyingConverter;
using Support::DOWNGRADE;
using Support::FileAtItsEnd;
using Support::g_conversions;
using Support::g_convertersDestroyed;
using Support::NamedObject;
using Support::NEW_FILE;
using Support::NewLogger;
using Support::OLD_FILE;
using Support::PlainObject;
using Support::RefusingConverter;
using Support::Text;
using Support::ThrowingConverter;
using Support::UPGRADE;
using Support::VersionConverterProxy;

} // namespace

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
    FileAtItsEnd file(OLD_FILE);
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
        FileAtItsEnd file(content);
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
