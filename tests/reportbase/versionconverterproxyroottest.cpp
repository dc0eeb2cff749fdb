#include "support/expect.h"
#include "support/files.h"
#include "support/plainobject.h"
#include "support/readererror.h"
#include "support/versiontask.h"

#include <gtest/gtest.h>

#include <QtCore/QByteArray>
#include <QtCore/QFile>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <memory>

namespace {

using Support::Children;
using Support::Conversions;
using Support::CopyingConverter;
using Support::DOWNGRADE;
using Support::Downgraded;
using Support::FileAtItsEnd;
using Support::g_conversions;
using Support::NamedObject;
using Support::NEW_FILE;
using Support::NewLogger;
using Support::OLD_FILE;
using Support::PlainObject;
using Support::RefusingConverter;
using Support::StubbornObject;
using Support::TemporaryFolder;
using Support::Text;
using Support::ThrowingConverter;
using Support::UPGRADE;
using Support::Upgraded;
using Support::VersionConverterProxy;

} // namespace

// --- The whole path from a root object ---------------------------------------------------------------------

TEST_F(VersionConverterProxy, RootObjectLoadsAnOlderFileThroughTheProxy)
{
    const auto logger = NewLogger();
    const auto ofOldTask = NewLogger();
    Inject(std::make_unique<CopyingConverter>());
    newTask.InjectVersionConverter(proxy);
    newTask.SetLogger(logger);
    newTask.children = {{Text("Left"), Text("over")}};
    oldTask.SetLogger(ofOldTask);

    FileAtItsEnd file(OLD_FILE);
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
    FileAtItsEnd file(NEW_FILE);
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
    FileAtItsEnd file(NEW_FILE);
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
        FileAtItsEnd file(content);
        EXPECT_TRUE(newTask.LoadXml(file.Get()));
        EXPECT_EQ(newTask.children, Children({{Text("A"), Text("3")}}));
    }
    FileAtItsEnd unknown("<Other/>");
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
    FileAtItsEnd file(OLD_FILE);
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
    FileAtItsEnd file(OLD_FILE);
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
    FileAtItsEnd file(OLD_FILE);
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
    FileAtItsEnd file(OLD_FILE);
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
    FileAtItsEnd file("<Task Version=\"1.0\"><A>1</A><Zone Version=\"2.0\"/></Task>");
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
    FileAtItsEnd file("<Job Version=\"1.0\"/>");
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
    FileAtItsEnd other(OLD_FILE);
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
    FileAtItsEnd file(OLD_FILE);
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
    FileAtItsEnd file(content);
    EXPECT_RG_THROW(newTask.LoadXml(file.Get()), "RGException", error);
    EXPECT_TRUE(newTask.children.isEmpty());
    EXPECT_LOG(logger, {});
    EXPECT_LOG(ofProxy, QStringList(Text("FATAL ERROR: RGException: ") + error));
}

TEST_F(VersionConverterProxy, RootObjectWithoutProxyLoadsEveryVersionItself)
{
    newTask.InjectVersionConverter(proxy);
    newTask.InjectVersionConverter(nullptr);
    FileAtItsEnd file(OLD_FILE);
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
    FileAtItsEnd file(NEW_FILE);

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
    FileAtItsEnd file(content);
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
