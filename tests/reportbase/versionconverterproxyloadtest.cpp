#include "support/expect.h"
#include "support/files.h"
#include "support/plainobject.h"
#include "support/versiontask.h"

#include <reportgenerator/reportbase/binaryparsingexception.h>
#include <reportgenerator/reportbase/reportexception.h>
#include <reportgenerator/reportbase/rgexception.h>

#include <gtest/gtest.h>

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <memory>
#include <stdexcept>

namespace {

using Support::Children;
using Support::Conversions;
using Support::CopyingConverter;
using Support::DOWNGRADE;
using Support::Downgraded;
using Support::FailingConverter;
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
    FileAtItsEnd file(OLD_FILE);
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
