// What happens between the steps of a load: registered objects have the proxy too, ask it, load further files
// through it, and do with the file as they please.

#include "support/expect.h"
#include "support/files.h"
#include "support/plainobject.h"
#include "support/versiontask.h"

#include <reportgenerator/reportbase/irgobject.h>
#include <reportgenerator/reportbase/rgexception.h>
#include <reportgenerator/reportbase/versionconverterproxy.h>

#include <gtest/gtest.h>

#include <QtCore/QByteArray>
#include <QtCore/QFile>
#include <QtCore/QFileDevice>
#include <QtCore/QIODevice>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QtGlobal>

#include <cstdio>
#include <functional>
#include <memory>
#include <optional>
#include <utility>

namespace {

using REPORTGENERATOR::IRGObject;
using Proxy = REPORTGENERATOR::VersionConverterProxy;
using Support::Children;
using Support::Conversions;
using Support::DOWNGRADE;
using Support::FileAtItsEnd;
using Support::g_conversions;
using Support::OLD_FILE;
using Support::PlainObject;
using Support::RefusingConverter;
using Support::StubbornObject;
using Support::TemporaryFolder;
using Support::Text;
using Support::UPGRADE;

QStringList g_messages;

/// Collects what Qt would print, as long as a test runs.
class QtMessages
{
public:
    QtMessages() : m_before(qInstallMessageHandler(&Collect)) { g_messages.clear(); }
    ~QtMessages() { qInstallMessageHandler(m_before); }
    QtMessages(const QtMessages&) = delete;
    QtMessages& operator=(const QtMessages&) = delete;

    QString All() const { return g_messages.join(QLatin1Char('\n')); }

private:
    static void Collect(QtMsgType, const QMessageLogContext&, const QString& message)
    {
        g_messages.append(message);
    }

    QtMessageHandler m_before;
};

/// An object that does something before it reads the file as every object does.
class PreparingObject : public PlainObject
{
public:
    using PlainObject::LoadXml;

    bool LoadXml(QFile* file) override
    {
        if (prepare)
            prepare(file);
        return PlainObject::LoadXml(file);
    }

    std::function<void(QFile*)> prepare;
};

/// Opens the file by its name and reads that.
class ReopeningObject : public PlainObject
{
public:
    using PlainObject::LoadXml;

    bool LoadXml(QFile* file) override
    {
        QFile own(file->fileName());
        EXPECT_TRUE(own.open(QIODevice::ReadOnly));
        return PlainObject::LoadXml(&own);
    }
};

/// Tasks and zones, each of the versions 1.0 and 2.0 and all with the proxy, and a task of version 0.5 for
/// the tests to look into its loading. Tasks are looked for first.
class ProxyOfTwoRoots : public Support::VersionConverterProxy
{
public:
    ProxyOfTwoRoots()
    {
        watched.SetObjectName(Text("Task"));
        watched.result = true;
        oldZone.SetObjectName(Text("Zone"));
        newZone.SetObjectName(Text("Zone"));
        proxy->RegisterRootClass(Text("Task"), Text("0.5"), &watched);
        proxy->RegisterRootClass(Text("Zone"), Text("1.0"), &oldZone);
        proxy->RegisterRootClass(Text("Zone"), Text("2.0"), &newZone);
        for (IRGObject* object : {static_cast<IRGObject*>(&oldTask), static_cast<IRGObject*>(&newTask),
                                  static_cast<IRGObject*>(&oldZone), static_cast<IRGObject*>(&newZone),
                                  static_cast<IRGObject*>(&watched)})
            object->InjectVersionConverter(proxy);
        Inject(std::make_unique<RefusingConverter>());
    }

    /// Has the proxy load the file into the watched object, which does something when it has read it.
    bool LoadWatched(QFile* file, const std::function<void()>& meanwhile)
    {
        watched.onLoad = meanwhile;
        return proxy->LoadXml(file);
    }

    StubbornObject watched;
    PlainObject oldZone;
    PlainObject newZone;
};

constexpr const char* TASK_AND_ZONE =
    "<Task Version=\"1.0\"><A>1</A><Zone Version=\"2.0\"><B>2</B></Zone></Task>";
constexpr const char* WATCHED_FILE = "<Task Version=\"0.5\"/>";
constexpr const char* WATCHED_AND_ZONE = "<Task Version=\"0.5\"><Zone Version=\"2.0\"/></Task>";

// A zone is found behind a task only, since tasks are looked for first.
constexpr const char* OLD_ZONE_FILE = "<Task><Zone Version=\"1.0\"/></Task>";

} // namespace

// --- Questions and loads in between ------------------------------------------------------------------------

TEST_F(ProxyOfTwoRoots, ConverterGetsObjectsOfOneClassWhenTheObjectsHaveTheProxyToo)
{
    for (PlainObject* target : {&newTask, &oldZone}) {
        g_conversions.clear();
        FileAtItsEnd file(TASK_AND_ZONE);
        EXPECT_FALSE(target->LoadXml(file.Get()));
        EXPECT_EQ(g_conversions, Conversions({{DOWNGRADE, &newZone, &oldZone}}));
        EXPECT_EQ(newZone.children, Children({{Text("B"), Text("2")}}));
    }
}

TEST_F(ProxyOfTwoRoots, QuestionDuringALoadIsAnsweredWithoutAnyTouch)
{
    FileAtItsEnd file(WATCHED_AND_ZONE);
    LoadWatched(file.Get(), [&] {
        for (IRGObject* target : {static_cast<IRGObject*>(&watched), static_cast<IRGObject*>(&newZone),
                                  static_cast<IRGObject*>(nullptr)}) {
            EXPECT_TRUE(file.Get()->seek(7));
            EXPECT_FALSE(proxy->CanUseProxy(file.Get(), target));
            EXPECT_EQ(file.Get()->pos(), 7);
        }
    });
    EXPECT_EQ(g_conversions, Conversions({{DOWNGRADE, &newZone, &oldZone}}));
}

TEST_F(ProxyOfTwoRoots, LoadOfAnotherFileInBetweenLeavesTheOuterOneAlone)
{
    FileAtItsEnd file(WATCHED_FILE);
    FileAtItsEnd other(OLD_ZONE_FILE);
    LoadWatched(file.Get(), [&] { EXPECT_FALSE(newZone.LoadXml(other.Get())); });
    EXPECT_EQ(g_conversions, Conversions({{UPGRADE, &oldZone, &newZone}, {UPGRADE, &watched, &oldTask}}));
}

TEST_F(ProxyOfTwoRoots, ObjectOfALoadInBetweenIsNotConvertedForTheOuterOne)
{
    watched.result = false;
    FileAtItsEnd file(WATCHED_FILE);
    FileAtItsEnd other(OLD_ZONE_FILE);
    LoadWatched(file.Get(), [&] { EXPECT_FALSE(newZone.LoadXml(other.Get())); });
    EXPECT_EQ(g_conversions, Conversions({{UPGRADE, &oldZone, &newZone}, {UPGRADE, nullptr, &oldTask}}));
}

TEST_F(ProxyOfTwoRoots, MalformedFileInBetweenLeavesTheOuterOneAlone)
{
    FileAtItsEnd file(WATCHED_FILE);
    FileAtItsEnd malformed("<Other><");
    LoadWatched(file.Get(), [&] { EXPECT_FALSE(proxy->LoadXml(malformed.Get())); });
    EXPECT_EQ(g_conversions, Conversions({{UPGRADE, &watched, &oldTask}}));
}

TEST_F(ProxyOfTwoRoots, EveryFileOnTheWayIsKnownAsBeingLoaded)
{
    PreparingObject inner;
    inner.SetObjectName(Text("Zone"));
    proxy->RegisterRootClass(Text("Zone"), Text("0.5"), &inner);
    FileAtItsEnd file(WATCHED_FILE);
    FileAtItsEnd other("<Task><Zone Version=\"0.5\"/></Task>");
    FileAtItsEnd third(OLD_ZONE_FILE);
    int questions = 0;
    inner.prepare = [&](QFile* loaded) {
        EXPECT_EQ(loaded, other.Get());
        EXPECT_FALSE(proxy->CanUseProxy(file.Get(), &newTask));
        EXPECT_FALSE(proxy->CanUseProxy(other.Get(), &newZone));
        EXPECT_TRUE(proxy->CanUseProxy(third.Get(), &newZone));
        ++questions;
    };
    LoadWatched(file.Get(), [&] {
        newZone.LoadXml(other.Get());
        EXPECT_FALSE(proxy->CanUseProxy(file.Get(), &newTask));
        EXPECT_TRUE(proxy->CanUseProxy(other.Get(), &newZone)) << "it is not being loaded any more";
        ++questions;
    });
    EXPECT_TRUE(proxy->CanUseProxy(file.Get(), &newTask));
    EXPECT_EQ(questions, 2);
}

TEST_F(ProxyOfTwoRoots, ObjectThatOpensTheFileAnewReadsItItself)
{
    ReopeningObject reopening;
    reopening.SetObjectName(Text("Task"));
    reopening.InjectVersionConverter(proxy);
    proxy->RegisterRootClass(Text("Task"), Text("0.1"), &reopening);
    FileAtItsEnd file("<Task Version=\"0.1\"><A>1</A><Zone Version=\"2.0\"/></Task>");
    EXPECT_FALSE(newTask.LoadXml(file.Get()));
    EXPECT_EQ(reopening.children.size(), 2);
    EXPECT_EQ(g_conversions, Conversions({{DOWNGRADE, &newZone, &oldZone}}));
}

TEST_F(ProxyOfTwoRoots, EveryProxyKnowsItsOwnLoadsOnly)
{
    const auto other = std::make_shared<Proxy>();
    PlainObject older = Support::NamedObject("Task");
    PlainObject newer = Support::NamedObject("Task");
    other->RegisterRootClass(Text("Task"), Text("1.0"), &older);
    other->RegisterRootClass(Text("Task"), Text("2.0"), &newer);
    other->InjectXmlConverter(std::make_unique<RefusingConverter>());
    oldTask.InjectVersionConverter(other);
    older.InjectVersionConverter(proxy);

    // From proxy to proxy and back to the first one, which is loading the file.
    FileAtItsEnd file(OLD_FILE);
    EXPECT_FALSE(newTask.LoadXml(file.Get()));
    EXPECT_EQ(older.children, Children({{Text("A"), Text("1")}}));
    EXPECT_EQ(g_conversions, Conversions({{UPGRADE, &older, &newer}, {DOWNGRADE, nullptr, &watched}}));
}

TEST_F(ProxyOfTwoRoots, QuestionThatEndsInAnErrorLeavesTheRootItHadFound)
{
    FileAtItsEnd malformed("<Task Version=\"7.0\"><Zone");
    EXPECT_THROW(proxy->CanUseProxy(malformed.Get(), nullptr), RGException);
    FileAtItsEnd unknown("<Unknown/>");
    EXPECT_FALSE(proxy->LoadXml(unknown.Get()));
    EXPECT_EQ(g_conversions, Conversions({{DOWNGRADE, nullptr, &watched}}));
}

// --- What objects do with the file -------------------------------------------------------------------------

TEST_F(ProxyOfTwoRoots, AnotherFileInTheSameFileObjectIsLoadedThroughTheProxy)
{
    const TemporaryFolder folder;
    QFile file(folder.Write("task.xml", WATCHED_AND_ZONE));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    LoadWatched(&file, [&] {
        file.close();
        file.setFileName(folder.Write("zone.xml", OLD_ZONE_FILE));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        EXPECT_FALSE(newZone.LoadXml(&file));
        EXPECT_EQ(g_conversions, Conversions({{UPGRADE, &oldZone, &newZone}}));
        g_conversions.clear();
    });
    // The file that was searched is not there any more.
    EXPECT_EQ(g_conversions, Conversions({{UPGRADE, &watched, &oldTask}}));
}

TEST_F(ProxyOfTwoRoots, AnotherFileObjectInTheSamePlaceIsLoadedThroughTheProxy)
{
    const TemporaryFolder folder;
    std::optional<QFile> place;
    place.emplace(folder.Write("task.xml", WATCHED_AND_ZONE));
    ASSERT_TRUE(place->open(QIODevice::ReadOnly));
    QFile* const address = &*place;
    LoadWatched(address, [&] {
        place.emplace(folder.Write("zone.xml", OLD_ZONE_FILE));
        EXPECT_EQ(&*place, address);
        EXPECT_TRUE(place->open(QIODevice::ReadOnly));
        EXPECT_FALSE(newZone.LoadXml(&*place));
        EXPECT_EQ(g_conversions, Conversions({{UPGRADE, &oldZone, &newZone}}));
        g_conversions.clear();
    });
    EXPECT_EQ(g_conversions, Conversions({{UPGRADE, &watched, &oldTask}}));
}

TEST_F(ProxyOfTwoRoots, FilesWithoutANameAreToldApartByTheirObjects)
{
    const TemporaryFolder folder;
    const auto open = [](QFile& file, const QString& path) {
        std::FILE* opened = std::fopen(QFile::encodeName(path).constData(), "rb");
        ASSERT_NE(opened, nullptr);
        ASSERT_TRUE(file.open(opened, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle));
    };
    std::optional<QFile> file(std::in_place);
    QFile other;
    open(*file, folder.Write("task.xml", WATCHED_AND_ZONE));
    open(other, folder.Write("zone.xml", OLD_ZONE_FILE));
    LoadWatched(&*file, [&] {
        EXPECT_FALSE(proxy->CanUseProxy(&*file, &newTask));
        EXPECT_TRUE(proxy->CanUseProxy(&other, &newZone));
        file.emplace();
        open(*file, folder.Path("zone.xml"));
        EXPECT_TRUE(proxy->CanUseProxy(&*file, &newZone));
    });
    EXPECT_EQ(g_conversions, Conversions({{UPGRADE, &watched, &oldTask}}));
}

TEST_F(ProxyOfTwoRoots, ObjectMayCloseTheFile)
{
    for (const QIODevice::OpenModeFlag mode : {QIODevice::NotOpen, QIODevice::Append}) {
        // Once more longer than what a reader takes at once.
        for (const int many : {0, 5000}) {
            SCOPED_TRACE(many);
            g_conversions.clear();
            FileAtItsEnd file("<Task Version=\"0.5\">" + QByteArray("<A>1</A>").repeated(many) +
                              "<Zone Version=\"2.0\"/></Task>");
            const QtMessages messages;
            LoadWatched(file.Get(), [&] {
                file.Get()->close();
                EXPECT_EQ(mode != QIODevice::NotOpen && file.Get()->open(mode), mode != QIODevice::NotOpen);
            });
            EXPECT_TEXT(messages.All(), "");
            EXPECT_EQ(g_conversions, Conversions({{UPGRADE, &watched, &oldTask}}));
            EXPECT_EQ(newZone.calls.reset, 0);
        }
    }
}

TEST_F(ProxyOfTwoRoots, ObjectMayCloseTheFileWhenNoFurtherRootIsLookedFor)
{
    StubbornObject last;
    last.result = true;
    proxy->RegisterRootClass(Text("Zone"), Text("0.5"), &last);
    FileAtItsEnd file("<Task><Zone Version=\"0.5\"/></Task>");
    const QtMessages messages;
    last.onLoad = [&] { file.Get()->close(); };
    proxy->LoadXml(file.Get());
    EXPECT_TEXT(messages.All(), "");
    EXPECT_EQ(g_conversions, Conversions({{UPGRADE, &last, &oldZone}}));
}

TEST_F(ProxyOfTwoRoots, SearchEndsInAFileThatDoesNotGoBack)
{
    class OneWay : public QFile
    {
    public:
        using QFile::QFile;
        bool seek(qint64 position) override { return !isStuck && QFile::seek(position); }

        bool isStuck = false;
    };
    const TemporaryFolder folder;
    OneWay file(folder.Write("task.xml", WATCHED_AND_ZONE));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    LoadWatched(&file, [&] { file.isStuck = true; });
    EXPECT_EQ(g_conversions, Conversions({{UPGRADE, &watched, &oldTask}}));
    EXPECT_EQ(newZone.calls.reset, 0);
}

TEST_F(ProxyOfTwoRoots, ObjectMayDestroyTheFile)
{
    const TemporaryFolder folder;
    auto file = std::make_unique<QFile>(folder.Write("task.xml", WATCHED_AND_ZONE));
    ASSERT_TRUE(file->open(QIODevice::ReadOnly));
    const QtMessages messages;
    LoadWatched(file.get(), [&] { file.reset(); });
    EXPECT_TEXT(messages.All(), "");
    EXPECT_EQ(g_conversions, Conversions({{UPGRADE, &watched, &oldTask}}));
}

TEST_F(ProxyOfTwoRoots, SearchGoesOnInAFileThatWasClosedAndOpenedAgain)
{
    for (const int many : {0, 5000}) {
        SCOPED_TRACE(many);
        g_conversions.clear();
        FileAtItsEnd file("<Task Version=\"0.5\">" + QByteArray("<A>1</A>").repeated(many) +
                          "<Zone Version=\"2.0\"/></Task>");
        LoadWatched(file.Get(), [&] {
            file.Get()->close();
            EXPECT_TRUE(file.Get()->open(QIODevice::ReadOnly));
        });
        EXPECT_EQ(g_conversions, Conversions({{DOWNGRADE, &newZone, &oldZone}}));
    }
}

TEST_F(ProxyOfTwoRoots, FileStandsWhereTheLastObjectLeftIt)
{
    StubbornObject last;
    proxy->RegisterRootClass(Text("Zone"), Text("0.5"), &last);
    FileAtItsEnd file("<Task><Zone Version=\"0.5\"/></Task>");
    last.onLoad = [&] { EXPECT_TRUE(file.Get()->seek(3)); };
    proxy->LoadXml(file.Get());
    EXPECT_EQ(file.Get()->pos(), 3);
}
