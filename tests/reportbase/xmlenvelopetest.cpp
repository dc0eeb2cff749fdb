// How any object is written as XML, saved, and loaded from a file.

#include "support/expect.h"
#include "support/files.h"
#include "support/journal.h"
#include "support/plainobject.h"
#include "support/readererror.h"

#include <reportgenerator/reportbase/versionconverterproxy.h>

#include <gtest/gtest.h>

#include <QtCore/QByteArray>
#include <QtCore/QFile>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QVector>

#include <memory>

namespace {

using REPORTGENERATOR::VersionConverterProxy;
using Support::FilledObject;
using Support::JournalLogger;
using Support::JournalObject;
using Support::Lines;
using Support::NewLogger;
using Support::OpenFile;
using Support::PlainObject;
using Support::ReaderError;
using Support::TemporaryFolder;
using Support::Text;

using Children = QVector<PlainObject::Child>;

QString LogLine(const char* start, const QString& rest)
{
    return Text(start) + rest;
}

} // namespace

// --- Writing -----------------------------------------------------------------------------------------------

TEST(XmlEnvelope, StringHoldsTheIndentedElementWithoutDeclaration)
{
    PlainObject object;
    object.children = {{Text("A"), Text("1")}, {Text("B"), Text("a < b & c")}};
    EXPECT_XML(object, "\n<AnyType>\n    <A>1</A>\n    <B>a &lt; b &amp; c</B>\n</AnyType>");
}

TEST(XmlEnvelope, ElementIsNamedAfterTheObject)
{
    PlainObject object(REPORTGENERATOR::NameToObjectTypes(Text("Task")));
    EXPECT_XML(object, "\n<Task/>");
    object.SetObjectName(Text("Größe"));
    EXPECT_XML(object, "\n<Größe/>");
}

TEST(XmlEnvelope, ObjectWithoutDataGivesAnEmptyString)
{
    for (const bool validate : {true, false}) {
        SCOPED_TRACE(validate);
        PlainObject object;
        object.hasData = false;
        object.SetValidate(validate);
        const auto logger = NewLogger();
        object.SetLogger(logger);
        EXPECT_XML(object, "");
        EXPECT_LOG(logger, {"INFO: AnyType: Generating xml string."});
    }
}

TEST(XmlEnvelope, WritingTracesThenChecksThenWrites)
{
    QStringList journal;
    const JournalObject object(journal);
    object.SetLogger(std::make_shared<JournalLogger>(journal));
    EXPECT_XML(object, "\n<AnyType/>");
    EXPECT_EQ(journal, Lines({"INFO: AnyType: Generating xml string.", "Check", "GetXml"}));
}

TEST(XmlEnvelope, WritingDoesNotCheckWhenNotValidating)
{
    QStringList journal;
    JournalObject object(journal);
    object.problem = Text("incomplete");
    object.SetLogger(std::make_shared<JournalLogger>(journal));
    object.SetValidate(false);
    EXPECT_XML(object, "\n<AnyType/>");
    EXPECT_EQ(journal, Lines({"INFO: AnyType: Generating xml string.", "GetXml"}));
}

TEST(XmlEnvelope, IncompleteObjectThrowsInsteadOfProducingXml)
{
    QStringList journal;
    JournalObject object(journal);
    object.problem = Text("incomplete");
    EXPECT_RG_THROW(object.GetXmlString(), "RGException", "incomplete");
    EXPECT_EQ(journal, Lines({"Check"}));

    journal.clear();
    object.SetLogger(std::make_shared<JournalLogger>(journal));
    EXPECT_RG_THROW(object.GetXmlString(), "RGException", "incomplete");
    EXPECT_EQ(journal, Lines({"INFO: AnyType: Generating xml string.", "Check",
                              "FATAL ERROR: RGException: incomplete"}));
}

// --- Saving ------------------------------------------------------------------------------------------------

TEST(XmlEnvelope, SavingWritesTheStringAsUtf8)
{
    const TemporaryFolder folder;
    const auto logger = NewLogger();
    PlainObject object;
    object.children = {{Text("A"), Text("Zürich € 😀")}};
    object.SetLogger(logger);
    EXPECT_TRUE(object.SaveXml(folder.Path("saved.xml")));
    EXPECT_EQ(folder.Read("saved.xml"),
              QByteArray("\n<AnyType>\n    <A>Z\xc3\xbcrich \xe2\x82\xac \xf0\x9f\x98\x80</A>\n</AnyType>"));
    EXPECT_LOG(logger, {"INFO: AnyType: Generating xml string."});
}

TEST(XmlEnvelope, SavingReplacesWhatTheFileHeld)
{
    const TemporaryFolder folder;
    const QString path = folder.Write("saved.xml", QByteArray(1000, 'x'));
    EXPECT_TRUE(PlainObject().SaveXml(path));
    EXPECT_EQ(folder.Read("saved.xml"), QByteArray("\n<AnyType/>"));
}

TEST(XmlEnvelope, SavingAnObjectWithoutDataLeavesAnEmptyFile)
{
    const TemporaryFolder folder;
    PlainObject object;
    object.hasData = false;
    EXPECT_TRUE(object.SaveXml(folder.Path("saved.xml")));
    ASSERT_TRUE(folder.Has("saved.xml"));
    EXPECT_EQ(folder.Read("saved.xml"), QByteArray());
}

TEST(XmlEnvelope, SavingToAPathThatCannotBeOpenedReturnsFalseWithoutGeneratingAnything)
{
    const TemporaryFolder folder;
    PlainObject object;
    object.problem = Text("never asked");
    const auto logger = NewLogger();
    object.SetLogger(logger);
    for (const QString& path : {folder.Path("missing/saved.xml"), folder.Path("."), QString()})
        EXPECT_FALSE(object.SaveXml(path)) << path.toStdString();
    EXPECT_LOG(logger, {});
    EXPECT_EQ(object.calls.check, 0);
    EXPECT_EQ(object.calls.getXml, 0);
}

TEST(XmlEnvelope, SavingAnIncompleteObjectThrowsAfterTheFileWasOpened)
{
    const TemporaryFolder folder;
    const QString path = folder.Write("saved.xml", "old content");
    PlainObject object;
    object.problem = Text("incomplete");
    EXPECT_RG_THROW(object.SaveXml(path), "RGException", "incomplete");
    EXPECT_EQ(folder.Read("saved.xml"), QByteArray());
}

TEST(XmlEnvelope, SavedFileIsReadBackByPath)
{
    const TemporaryFolder folder;
    PlainObject object;
    object.children = {{Text("A"), Text("Zürich € 😀")}, {Text("B"), QString()}};
    ASSERT_TRUE(object.SaveXml(folder.Path("saved.xml")));
    PlainObject loaded;
    EXPECT_TRUE(loaded.LoadXml(folder.Path("saved.xml")));
    EXPECT_EQ(loaded.children, object.children);
}

// --- Loading by path ---------------------------------------------------------------------------------------

TEST(XmlEnvelope, LoadingAMissingFileThrowsWithoutTracingOrResetting)
{
    const TemporaryFolder folder;
    FilledObject filled;
    const auto logger = NewLogger();
    filled.object.SetLogger(logger);
    const QString path = folder.Path("missing.xml");
    EXPECT_RG_THROW(filled.object.LoadXml(path), "RGException",
                    LogLine("Can't open file for reading: '", path) + Text("'"));
    EXPECT_TRUE(filled.IsUntouched());
    EXPECT_LOG(logger, {});
}

TEST(XmlEnvelope, LoadingAFolderOrAnEmptyPathThrows)
{
    const TemporaryFolder folder;
    PlainObject object;
    object.SetValidate(false);
    EXPECT_RG_THROW(object.LoadXml(folder.Path(".")), "RGException",
                    LogLine("Can't open file for reading: '", folder.Path(".")) + Text("'"));
    EXPECT_RG_THROW(object.LoadXml(QString()), "RGException", "Can't open file for reading: ''");
    EXPECT_RG_THROW(object.LoadXml(Text("no%1such%2file")), "RGException",
                    "Can't open file for reading: 'no%1such%2file'");
}

TEST(XmlEnvelope, LoadingByPathTracesThePath)
{
    const TemporaryFolder folder;
    const QString path = folder.Write("report.xml", "<AnyType><A>1</A></AnyType>");
    const auto logger = NewLogger();
    FilledObject filled;
    filled.object.SetLogger(logger);
    EXPECT_TRUE(filled.object.LoadXml(path));
    EXPECT_EQ(filled.object.children, Children({{Text("A"), Text("1")}}));
    EXPECT_LOG(logger, QStringList(LogLine("INFO: AnyType: Loading xml file \"", path) + Text("\".")));
}

TEST(XmlEnvelope, LoadedFileMayHaveCarriageReturns)
{
    const TemporaryFolder folder;
    const QString path = folder.Write("report.xml", "<AnyType>\r\n  <A>1\r\n2</A>\r\n</AnyType>\r\n");
    PlainObject object;
    EXPECT_TRUE(object.LoadXml(path));
    EXPECT_EQ(object.children, Children({{Text("A"), Text("1\n2")}}));
}

TEST(XmlEnvelope, LoadedFileIsFreeAgainAfterwards)
{
    const TemporaryFolder folder;
    const QString path = folder.Write("report.xml", "<AnyType/>");
    PlainObject object;
    EXPECT_TRUE(object.LoadXml(path));
    EXPECT_TRUE(QFile::remove(path));
    EXPECT_RG_THROW(object.LoadXml(path), "RGException",
                    LogLine("Can't open file for reading: '", path) + Text("'"));
}

// --- Loading from a file -----------------------------------------------------------------------------------

namespace {

/// The line that loading the file traces.
QString LoadingLine(const OpenFile& file)
{
    return LogLine("INFO: AnyType: Loading xml file \"", file.Path()) + Text("\".");
}

} // namespace

TEST(XmlEnvelope, LoadingAFileResetsThenTracesThenReadsThenChecks)
{
    OpenFile file("<AnyType><A>1</A><B>2</B></AnyType>");
    QStringList journal;
    JournalObject object(journal);
    object.SetLogger(std::make_shared<JournalLogger>(journal));
    EXPECT_TRUE(object.LoadXml(file.Get()));
    EXPECT_EQ(journal, Lines({"Reset"}) + QStringList(LoadingLine(file)) +
                           Lines({"ProcessXmlStartElement", "ProcessXmlStartElement", "Check"}));
    EXPECT_EQ(object.children, Children({{Text("A"), Text("1")}, {Text("B"), Text("2")}}));
}

TEST(XmlEnvelope, LoadingAFileDoesNotCheckWhenNotValidating)
{
    OpenFile file("<AnyType><A>1</A></AnyType>");
    PlainObject object;
    object.problem = Text("never asked");
    object.SetValidate(false);
    EXPECT_TRUE(object.LoadXml(file.Get()));
    EXPECT_EQ(object.calls.check, 0);
}

TEST(XmlEnvelope, LoadedObjectThatFailsItsCheckKeepsWhatWasRead)
{
    OpenFile file("<AnyType><A>1</A></AnyType>");
    const auto logger = NewLogger();
    PlainObject object;
    object.problem = Text("incomplete");
    object.SetLogger(logger);
    EXPECT_RG_THROW(object.LoadXml(file.Get()), "RGException", "incomplete");
    EXPECT_EQ(object.children, Children({{Text("A"), Text("1")}}));
    EXPECT_LOG(logger, QStringList({LoadingLine(file), Text("FATAL ERROR: RGException: incomplete")}));
}

TEST(XmlEnvelope, FileWithoutTheElementGivesFalseAndAResetUncheckedObject)
{
    OpenFile file("<Other><A>1</A></Other>");
    const auto logger = NewLogger();
    FilledObject filled;
    filled.object.SetLogger(logger);
    EXPECT_FALSE(filled.object.LoadXml(file.Get()));
    EXPECT_TRUE(filled.IsReset());
    EXPECT_EQ(filled.object.calls.check, 0);
    EXPECT_LOG(logger, QStringList(LoadingLine(file)));
}

TEST(XmlEnvelope, ElementIsFoundAnywhereInTheFile)
{
    OpenFile file("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<!-- AnyType -->\n"
                  "<Other><More><AnyType><A>1</A></AnyType><AnyType><A>2</A></AnyType></More></Other>");
    PlainObject object;
    EXPECT_TRUE(object.LoadXml(file.Get()));
    EXPECT_EQ(object.children, Children({{Text("A"), Text("1")}}));
}

TEST(XmlEnvelope, ElementIsFoundByItsNameWithoutNamespacePrefix)
{
    OpenFile file("<p:AnyType xmlns:p=\"urn:x\"><p:A>1</p:A></p:AnyType>");
    PlainObject object;
    EXPECT_TRUE(object.LoadXml(file.Get()));
    EXPECT_EQ(object.children, Children({{Text("A"), Text("1")}}));
}

TEST(XmlEnvelope, FileIsReadFromWhereItStands)
{
    OpenFile file("no xml here<AnyType><A>1</A></AnyType>");
    ASSERT_TRUE(file.Get()->seek(11));
    PlainObject object;
    EXPECT_TRUE(object.LoadXml(file.Get()));
    EXPECT_EQ(object.children, Children({{Text("A"), Text("1")}}));
    EXPECT_TRUE(file.Get()->isOpen());
}

TEST(XmlEnvelope, FileIsReadFromItsStartWhenAConverterWasAskedAndDeclined)
{
    OpenFile file("<AnyType><A>1</A></AnyType>");
    ASSERT_TRUE(file.Get()->seek(15));
    const auto logger = NewLogger();
    PlainObject object;
    object.InjectVersionConverter(std::make_shared<VersionConverterProxy>());
    object.SetLogger(logger);
    EXPECT_TRUE(object.LoadXml(file.Get()));
    EXPECT_EQ(object.children, Children({{Text("A"), Text("1")}}));
    EXPECT_LOG(logger, QStringList(LoadingLine(file)));
}

TEST(XmlEnvelope, MalformedFilesAreReportedAndLeaveTheObjectReset)
{
    struct Row
    {
        const char* name;
        const char* content;
        Children children;
    };
    const Row rows[] = {
        {"empty file", "", {}},
        {"blanks only", " \n\t ", {}},
        {"comment only", "<!-- <AnyType/> -->", {}},
        {"no XML", "not XML at all", {}},
        {"end tag first", "</AnyType>", {}},
        {"start tag not closed", "<AnyType", {}},
        {"before the element", "<Other><A></Other><AnyType/>", {}},
        {"element not closed", "<AnyType><A>1</A>", {{Text("A"), Text("1")}}},
        {"wrong end tag", "<AnyType><A>1</A></Other>", {{Text("A"), Text("1")}}},
        {"in a child's text", "<AnyType><A>1</A><B>2", {{Text("A"), Text("1")}}},
        {"child's end tag", "<AnyType><A>1</B></AnyType>", {}},
        {"undeclared entity", "<AnyType><A>1</A><B>&nope;</B></AnyType>", {{Text("A"), Text("1")}}},
        {"attribute twice", "<AnyType x='1' x='2'/>", {}},
        {"prefix not declared", "<p:AnyType/>", {}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const QString error = ReaderError(Text(row.content));
        ASSERT_FALSE(error.isEmpty());
        for (const bool validate : {true, false}) {
            OpenFile file(row.content);
            const auto logger = NewLogger();
            FilledObject filled;
            filled.object.SetLogger(logger);
            filled.object.SetValidate(validate);
            EXPECT_RG_THROW(filled.object.LoadXml(file.Get()), "RGException", error);
            EXPECT_EQ(filled.object.children, row.children);
            EXPECT_EQ(filled.object.calls.check, 0);
            EXPECT_LOG(logger,
                       QStringList({LoadingLine(file), LogLine("FATAL ERROR: RGException: ", error)}));
        }
        OpenFile file(row.content);
        PlainObject object;
        EXPECT_RG_THROW(object.LoadXml(file.Get()), "RGException", error);
    }
}

TEST(XmlEnvelope, WhatFollowsTheElementInAFileIsNotLookedAt)
{
    for (const char* content :
         {"<AnyType><A>1</A></AnyType><", "<AnyType><A>1</A></AnyType></AnyType>",
          "<AnyType><A>1</A></AnyType>rest", "<Other><AnyType><A>1</A></AnyType></Nothing>"}) {
        SCOPED_TRACE(content);
        OpenFile file(content);
        PlainObject object;
        EXPECT_TRUE(object.LoadXml(file.Get()));
        EXPECT_EQ(object.children, Children({{Text("A"), Text("1")}}));
    }
}

TEST(XmlEnvelope, FileInAnotherDeclaredEncodingIsRead)
{
    OpenFile file("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><AnyType><A>Z\xfcrich</A></AnyType>");
    PlainObject object;
    EXPECT_TRUE(object.LoadXml(file.Get()));
    EXPECT_EQ(object.children, Children({{Text("A"), Text("Zürich")}}));
}
