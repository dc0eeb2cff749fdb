#include "support/expect.h"
#include "support/files.h"
#include "support/journal.h"
#include "support/plainobject.h"
#include "support/readererror.h"

#include <reportgenerator/reportbase/double.h>
#include <reportgenerator/reportbase/irgobject.h>
#include <reportgenerator/reportbase/versionconverterproxy.h>

#include <gtest/gtest.h>

#include <QtCore/QByteArray>
#include <QtCore/QFile>
#include <QtCore/QIODevice>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QVector>
#include <QtCore/QXmlStreamReader>
#include <QtCore/QXmlStreamWriter>

#include <memory>
#include <string>

namespace {

using REPORTGENERATOR::Double;
using REPORTGENERATOR::VersionConverterProxy;
using Support::JournalLogger;
using Support::JournalObject;
using Support::Lines;
using Support::NewLogger;
using Support::PlainObject;
using Support::ReaderError;
using Support::TemporaryFolder;
using Support::Text;

using Children = QVector<PlainObject::Child>;

constexpr int DEEP = 100000;
constexpr int LONG_INPUT = 200000;

/// An object that holds something which a reset takes away.
struct FilledObject
{
    FilledObject() { object.children = {{Text("Old"), Text("1")}}; }

    bool IsUntouched() const { return object.calls.reset == 0 && object.children.size() == 1; }
    bool IsReset() const { return object.calls.reset == 1 && object.children.isEmpty(); }

    PlainObject object;
};

QString Repeated(const char* text, int count)
{
    return Text(text).repeated(count);
}

QString LogLine(const char* start, const QString& rest)
{
    return Text(start) + rest;
}

} // namespace

// --- Writing -----------------------------------------------------------------------------------------------

TEST(XmlFrame, StringHoldsTheIndentedElementWithoutDeclaration)
{
    PlainObject object;
    object.children = {{Text("A"), Text("1")}, {Text("B"), Text("a < b & c")}};
    EXPECT_XML(object, "\n<AnyType>\n    <A>1</A>\n    <B>a &lt; b &amp; c</B>\n</AnyType>");
}

TEST(XmlFrame, ElementIsNamedAfterTheObject)
{
    PlainObject object(REPORTGENERATOR::NameToObjectTypes(Text("Task")));
    EXPECT_XML(object, "\n<Task/>");
    object.SetObjectName(Text("Größe"));
    EXPECT_XML(object, "\n<Größe/>");
}

TEST(XmlFrame, ObjectWithoutDataGivesAnEmptyString)
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

TEST(XmlFrame, WritingTracesThenChecksThenWrites)
{
    QStringList journal;
    const JournalObject object(journal);
    object.SetLogger(std::make_shared<JournalLogger>(journal));
    EXPECT_XML(object, "\n<AnyType/>");
    EXPECT_EQ(journal, Lines({"INFO: AnyType: Generating xml string.", "Check", "GetXml"}));
}

TEST(XmlFrame, WritingDoesNotCheckWhenNotValidating)
{
    QStringList journal;
    JournalObject object(journal);
    object.problem = Text("incomplete");
    object.SetLogger(std::make_shared<JournalLogger>(journal));
    object.SetValidate(false);
    EXPECT_XML(object, "\n<AnyType/>");
    EXPECT_EQ(journal, Lines({"INFO: AnyType: Generating xml string.", "GetXml"}));
}

TEST(XmlFrame, IncompleteObjectThrowsInsteadOfProducingXml)
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

TEST(XmlFrame, SavingWritesTheStringAsUtf8)
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

TEST(XmlFrame, SavingReplacesWhatTheFileHeld)
{
    const TemporaryFolder folder;
    const QString path = folder.Write("saved.xml", QByteArray(1000, 'x'));
    EXPECT_TRUE(PlainObject().SaveXml(path));
    EXPECT_EQ(folder.Read("saved.xml"), QByteArray("\n<AnyType/>"));
}

TEST(XmlFrame, SavingAnObjectWithoutDataLeavesAnEmptyFile)
{
    const TemporaryFolder folder;
    PlainObject object;
    object.hasData = false;
    EXPECT_TRUE(object.SaveXml(folder.Path("saved.xml")));
    ASSERT_TRUE(folder.Has("saved.xml"));
    EXPECT_EQ(folder.Read("saved.xml"), QByteArray());
}

TEST(XmlFrame, SavingToAPathThatCannotBeOpenedReturnsFalseWithoutGeneratingAnything)
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

TEST(XmlFrame, SavingAnIncompleteObjectThrowsAfterTheFileWasOpened)
{
    const TemporaryFolder folder;
    const QString path = folder.Write("saved.xml", "old content");
    PlainObject object;
    object.problem = Text("incomplete");
    EXPECT_RG_THROW(object.SaveXml(path), "RGException", "incomplete");
    EXPECT_EQ(folder.Read("saved.xml"), QByteArray());
}

TEST(XmlFrame, SavedFileIsReadBackByPath)
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

TEST(XmlFrame, LoadingAMissingFileThrowsWithoutTracingOrResetting)
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

TEST(XmlFrame, LoadingAFolderOrAnEmptyPathThrows)
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

TEST(XmlFrame, LoadingByPathTracesThePath)
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

TEST(XmlFrame, LoadedFileMayHaveCarriageReturns)
{
    const TemporaryFolder folder;
    const QString path = folder.Write("report.xml", "<AnyType>\r\n  <A>1\r\n2</A>\r\n</AnyType>\r\n");
    PlainObject object;
    EXPECT_TRUE(object.LoadXml(path));
    EXPECT_EQ(object.children, Children({{Text("A"), Text("1\n2")}}));
}

TEST(XmlFrame, LoadedFileIsFreeAgainAfterwards)
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

/// A file that is open for reading.
class OpenFile
{
public:
    explicit OpenFile(const QByteArray& content) : m_file(m_folder.Write("opened.xml", content))
    {
        EXPECT_TRUE(m_file.open(QIODevice::ReadOnly));
    }

    QFile* Get() { return &m_file; }

    /// The line that loading the file traces.
    QString LoadingLine() const
    {
        return LogLine("INFO: AnyType: Loading xml file \"", m_file.fileName()) + Text("\".");
    }

private:
    TemporaryFolder m_folder;
    QFile m_file;
};

} // namespace

TEST(XmlFrame, LoadingAFileResetsThenTracesThenReadsThenChecks)
{
    OpenFile file("<AnyType><A>1</A><B>2</B></AnyType>");
    QStringList journal;
    JournalObject object(journal);
    object.SetLogger(std::make_shared<JournalLogger>(journal));
    EXPECT_TRUE(object.LoadXml(file.Get()));
    EXPECT_EQ(journal, Lines({"Reset"}) + QStringList(file.LoadingLine()) +
                           Lines({"ProcessXmlStartElement", "ProcessXmlStartElement", "Check"}));
    EXPECT_EQ(object.children, Children({{Text("A"), Text("1")}, {Text("B"), Text("2")}}));
}

TEST(XmlFrame, LoadingAFileDoesNotCheckWhenNotValidating)
{
    OpenFile file("<AnyType><A>1</A></AnyType>");
    PlainObject object;
    object.problem = Text("never asked");
    object.SetValidate(false);
    EXPECT_TRUE(object.LoadXml(file.Get()));
    EXPECT_EQ(object.calls.check, 0);
}

TEST(XmlFrame, LoadedObjectThatFailsItsCheckKeepsWhatWasRead)
{
    OpenFile file("<AnyType><A>1</A></AnyType>");
    const auto logger = NewLogger();
    PlainObject object;
    object.problem = Text("incomplete");
    object.SetLogger(logger);
    EXPECT_RG_THROW(object.LoadXml(file.Get()), "RGException", "incomplete");
    EXPECT_EQ(object.children, Children({{Text("A"), Text("1")}}));
    EXPECT_LOG(logger, QStringList({file.LoadingLine(), Text("FATAL ERROR: RGException: incomplete")}));
}

TEST(XmlFrame, FileWithoutTheElementGivesFalseAndAResetUncheckedObject)
{
    OpenFile file("<Other><A>1</A></Other>");
    const auto logger = NewLogger();
    FilledObject filled;
    filled.object.SetLogger(logger);
    EXPECT_FALSE(filled.object.LoadXml(file.Get()));
    EXPECT_TRUE(filled.IsReset());
    EXPECT_EQ(filled.object.calls.check, 0);
    EXPECT_LOG(logger, QStringList(file.LoadingLine()));
}

TEST(XmlFrame, ElementIsFoundAnywhereInTheFile)
{
    OpenFile file("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<!-- AnyType -->\n"
                  "<Other><More><AnyType><A>1</A></AnyType><AnyType><A>2</A></AnyType></More></Other>");
    PlainObject object;
    EXPECT_TRUE(object.LoadXml(file.Get()));
    EXPECT_EQ(object.children, Children({{Text("A"), Text("1")}}));
}

TEST(XmlFrame, ElementIsFoundByItsNameWithoutNamespacePrefix)
{
    OpenFile file("<p:AnyType xmlns:p=\"urn:x\"><p:A>1</p:A></p:AnyType>");
    PlainObject object;
    EXPECT_TRUE(object.LoadXml(file.Get()));
    EXPECT_EQ(object.children, Children({{Text("A"), Text("1")}}));
}

TEST(XmlFrame, FileIsReadFromWhereItStands)
{
    OpenFile file("no xml here<AnyType><A>1</A></AnyType>");
    ASSERT_TRUE(file.Get()->seek(11));
    PlainObject object;
    EXPECT_TRUE(object.LoadXml(file.Get()));
    EXPECT_EQ(object.children, Children({{Text("A"), Text("1")}}));
    EXPECT_TRUE(file.Get()->isOpen());
}

TEST(XmlFrame, FileIsReadFromItsStartWhenAConverterWasAskedAndDeclined)
{
    OpenFile file("<AnyType><A>1</A></AnyType>");
    ASSERT_TRUE(file.Get()->seek(15));
    const auto logger = NewLogger();
    PlainObject object;
    object.InjectVersionConverter(std::make_shared<VersionConverterProxy>());
    object.SetLogger(logger);
    EXPECT_TRUE(object.LoadXml(file.Get()));
    EXPECT_EQ(object.children, Children({{Text("A"), Text("1")}}));
    EXPECT_LOG(logger, QStringList(file.LoadingLine()));
}

TEST(XmlFrame, MalformedFilesAreReportedAndLeaveTheObjectReset)
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
                       QStringList({file.LoadingLine(), LogLine("FATAL ERROR: RGException: ", error)}));
        }
        OpenFile file(row.content);
        PlainObject object;
        EXPECT_RG_THROW(object.LoadXml(file.Get()), "RGException", error);
    }
}

TEST(XmlFrame, WhatFollowsTheElementInAFileIsNotLookedAt)
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

TEST(XmlFrame, FileInAnotherDeclaredEncodingIsRead)
{
    OpenFile file("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><AnyType><A>Z\xfcrich</A></AnyType>");
    PlainObject object;
    EXPECT_TRUE(object.LoadXml(file.Get()));
    EXPECT_EQ(object.children, Children({{Text("A"), Text("Zürich")}}));
}

// --- Loading from a string: the quick test -----------------------------------------------------------------

TEST(XmlFrame, LoadingAStringTracesThenResetsThenReadsThenChecks)
{
    for (const bool checkRoot : {true, false}) {
        SCOPED_TRACE(checkRoot);
        QStringList journal;
        JournalObject object(journal);
        object.SetLogger(std::make_shared<JournalLogger>(journal));
        EXPECT_TRUE(object.SetXmlString(Text("<AnyType><A>1</A></AnyType>"), checkRoot));
        EXPECT_EQ(journal,
                  Lines({"INFO: AnyType: Loading xml string.", "Reset", "ProcessXmlStartElement", "Check"}));
        EXPECT_EQ(object.children, Children({{Text("A"), Text("1")}}));
    }
}

TEST(XmlFrame, EmptyStringGivesFalseAndLeavesTheObjectUntouched)
{
    for (const bool checkRoot : {true, false}) {
        for (const QString& xml : {QString(), QStringLiteral("")}) {
            const auto logger = NewLogger();
            FilledObject filled;
            filled.object.SetLogger(logger);
            EXPECT_FALSE(filled.object.SetXmlString(xml, checkRoot));
            EXPECT_TRUE(filled.IsUntouched());
            EXPECT_LOG(logger, {"INFO: AnyType: Loading xml string."});
        }
    }
}

TEST(XmlFrame, StringWithoutTheStartTagGivesFalseAndLeavesTheObjectUntouched)
{
    const char* strings[] = {
        "   \n\t",
        "no XML",
        "<",
        ">",
        "<Other/>",
        "<anytype/>",
        "<ANYTYPE/>",
        "< AnyType/>",
        "</AnyType>",
        "<p:AnyType xmlns:p=\"urn:x\"/>",
        "AnyType>",
        "<AnyTyp>",
        "<AnyType",
        "<AnyType attribute=\"1\"",
        "> before <AnyType",
        "&lt;AnyType&gt;",
        "<Other></Broken>",
    };
    for (const char* xml : strings) {
        SCOPED_TRACE(xml);
        for (const bool checkRoot : {true, false}) {
            const auto logger = NewLogger();
            FilledObject filled;
            filled.object.SetLogger(logger);
            EXPECT_FALSE(filled.object.SetXmlString(Text(xml), checkRoot));
            EXPECT_TRUE(filled.IsUntouched());
            EXPECT_EQ(filled.object.calls.check, 0);
            EXPECT_LOG(logger, {"INFO: AnyType: Loading xml string."});
        }
    }
}

TEST(XmlFrame, SelfClosingElementResetsTheObjectAndGivesTrue)
{
    for (const char* xml : {"<AnyType/>", "<AnyType />", "<AnyType></AnyType>", "<AnyType\n/>",
                            "<AnyType a='1'\n b=\"2\"/>", "<AnyType a='>'/>", "<AnyType a='/>'></AnyType>"}) {
        SCOPED_TRACE(xml);
        for (const bool checkRoot : {true, false}) {
            FilledObject filled;
            EXPECT_TRUE(filled.object.SetXmlString(Text(xml), checkRoot));
            EXPECT_TRUE(filled.IsReset());
            EXPECT_EQ(filled.object.calls.check, 1);
        }
    }
}

TEST(XmlFrame, QuickTestTakesALongerElementNameThatReadingThenRefuses)
{
    for (const char* xml : {"<AnyTypeInformation/>", "<AnyTypeInformation><A>1</A></AnyTypeInformation>",
                            "<AnyType.x/>", "<AnyType-2/>"}) {
        SCOPED_TRACE(xml);
        const auto logger = NewLogger();
        FilledObject filled;
        filled.object.SetLogger(logger);
        EXPECT_FALSE(filled.object.SetXmlString(Text(xml), false));
        EXPECT_TRUE(filled.IsReset());
        EXPECT_EQ(filled.object.calls.check, 0);
        EXPECT_LOG(logger, {"INFO: AnyType: Loading xml string."});

        logger->Reset(true);
        FilledObject strict;
        strict.object.SetLogger(logger);
        EXPECT_RG_THROW(strict.object.SetXmlString(Text(xml), true), "RGException",
                        "Unsuitable XML for AnyType!");
        EXPECT_TRUE(strict.IsReset());
        EXPECT_LOG(logger, {"INFO: AnyType: Loading xml string.",
                            "FATAL ERROR: RGException: Unsuitable XML for AnyType!"});
    }
}

TEST(XmlFrame, QuickTestLooksForAnyClosingBracketBehindTheName)
{
    // The bracket may belong to another tag, or to no tag at all.
    const QString xml = Text("<AnyType <b>");
    const QString error = ReaderError(xml);
    ASSERT_FALSE(error.isEmpty());
    FilledObject filled;
    EXPECT_RG_THROW(filled.object.SetXmlString(xml, false), "RGException", error);
    EXPECT_TRUE(filled.IsReset());

    for (const char* text : {"<Other><![CDATA[<AnyType>]]></Other>", "<Other><!-- <AnyType/> --></Other>",
                             "<Other><?p <AnyType>?></Other>"}) {
        SCOPED_TRACE(text);
        FilledObject lenient;
        EXPECT_FALSE(lenient.object.SetXmlString(Text(text), false));
        EXPECT_TRUE(lenient.IsReset());
        FilledObject strict;
        EXPECT_RG_THROW(strict.object.SetXmlString(Text(text), true), "RGException",
                        "Unsuitable XML for AnyType!");
        EXPECT_TRUE(strict.IsReset());
    }
}

TEST(XmlFrame, NameIsARegularExpressionToTheQuickTest)
{
    struct Row
    {
        const char* name;
        const char* xml;
        bool passes;
    };
    const Row rows[] = {
        {"A.B", "<A.B/>", true},
        {"A.B", "<AxB/>", true},
        {"A.B", "<AxxB/>", false},
        {"A.B", "<AB/>", false},
        {"A.B", "<Other a='>'/>", false},
        {"A.", "<A/>", true},
        {"A+", "<AAA/>", true},
        {"A+", "<B/>", false},
        {"A{2}", "<AA/>", true},
        {"A{2}", "<A/>", false},
        {"[AB]", "<B/>", true},
        {"[AB]", "<C/>", false},
        {"A|B", "<No>B></No>", true},
        {"A|B", "<No/>", false},
        {"A|B", "<A/>", true},
        {"A*", "<Other/>", true},
        {"A$", "<A/>", false},
        {"^A", "<A/>", false},
        {"A+", "<a/>", false},
        {"A.+", "<A\n/>", true},
        {"A.+", "<A>", false},
        {"Größe", "<Größe/>", true},
        {"Größe", "<größe/>", false},
        {"A-B_1", "<A-B_1/>", true},
        {"A-B_1", "<AxB_1/>", false},
        {"", "<Other/>", true},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(std::string(row.name) + " in " + row.xml);
        FilledObject filled;
        filled.object.SetObjectName(Text(row.name));
        const QString element = Text("<") + Text(row.name) + Text("/>");
        EXPECT_EQ(filled.object.SetXmlString(Text(row.xml), false), row.passes && Text(row.xml) == element);
        if (row.passes)
            EXPECT_TRUE(filled.IsReset());
        else
            EXPECT_TRUE(filled.IsUntouched());
    }
}

TEST(XmlFrame, NameThatIsNoRegularExpressionIsNeverFound)
{
    for (const char* name : {"A(B", "A)B", "[AB", "A\\"}) {
        SCOPED_TRACE(name);
        FilledObject filled;
        filled.object.SetObjectName(Text(name));
        EXPECT_FALSE(filled.object.SetXmlString(Text("<") + Text(name) + Text("/>"), false));
        EXPECT_FALSE(filled.object.SetXmlString(Text("<A/>"), true));
        EXPECT_TRUE(filled.IsUntouched());
    }
}

TEST(XmlFrame, CharacterSetThatANameLeavesOpenIsClosedByTheRestOfTheExpression)
{
    FilledObject filled;
    filled.object.SetObjectName(Text("(A["));
    EXPECT_FALSE(filled.object.SetXmlString(Text("<A/>"), false));
    EXPECT_TRUE(filled.IsReset());
}

// Qt 6 has regular expressions of Perl's dialect only.
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)

TEST(XmlFrame, NameThatIsARegularExpressionOnlyInOtherDialectsIsNeverFound)
{
    // Perl's dialect takes a lone bracket literally and knows lazy and possessive repetition and comments.
    for (const char* name : {"A{", "A}", "A]", "A??", "A*?", "A+?", "A++", "A(?#x)"}) {
        SCOPED_TRACE(name);
        FilledObject filled;
        filled.object.SetObjectName(Text(name));
        const QString element = Text("<") + Text(name) + Text("/>");
        EXPECT_NO_RG_THROW(EXPECT_FALSE(filled.object.SetXmlString(element, false)));
        EXPECT_NO_RG_THROW(EXPECT_FALSE(filled.object.SetXmlString(Text("<A/>"), false)));
        EXPECT_TRUE(filled.IsUntouched());
    }
}

TEST(XmlFrame, NameThatIsARegularExpressionOnlyInThisDialectPassesTheQuickTest)
{
    // Perl's dialect knows no repetition without a lower bound.
    FilledObject filled;
    filled.object.SetObjectName(Text("A{,2}"));
    EXPECT_FALSE(filled.object.SetXmlString(Text("<AA/>"), false));
    EXPECT_TRUE(filled.IsReset());
}

#endif

TEST(XmlFrame, AnyCharacterOfANameMayBeALineFeedToTheQuickTest)
{
    const QString xml = Text("<A\nB/>");
    FilledObject filled;
    filled.object.SetObjectName(Text("A.B"));
    EXPECT_RG_THROW(filled.object.SetXmlString(xml, false), "RGException", ReaderError(xml));
    EXPECT_TRUE(filled.IsReset());
}

TEST(XmlFrame, EmptyNameIsFoundInNoElement)
{
    FilledObject filled;
    filled.object.SetObjectName(QString());
    EXPECT_RG_THROW(filled.object.SetXmlString(Text("<Other/>"), true), "RGException",
                    "Unsuitable XML for !");
    EXPECT_TRUE(filled.IsReset());
}

// --- Loading from a string: the root -----------------------------------------------------------------------

TEST(XmlFrame, ElementInsideADocumentIsReadOnlyWhenTheRootIsNotChecked)
{
    const QString xml = Text("<Other><More/><AnyType><A>1</A></AnyType><AnyType><A>2</A></AnyType></Other>");
    FilledObject lenient;
    EXPECT_TRUE(lenient.object.SetXmlString(xml, false));
    EXPECT_EQ(lenient.object.children, Children({{Text("A"), Text("1")}}));

    const auto logger = NewLogger();
    FilledObject strict;
    strict.object.SetLogger(logger);
    EXPECT_RG_THROW(strict.object.SetXmlString(xml, true), "RGException", "Unsuitable XML for AnyType!");
    EXPECT_TRUE(strict.IsReset());
    EXPECT_EQ(strict.object.calls.check, 0);
    EXPECT_LOG(logger, {"INFO: AnyType: Loading xml string.",
                        "FATAL ERROR: RGException: Unsuitable XML for AnyType!"});
}

TEST(XmlFrame, UnsuitableRootIsRefusedWithoutValidationAndWithoutLoggerToo)
{
    FilledObject filled;
    filled.object.SetObjectName(Text("Own"));
    filled.object.SetValidate(false);
    EXPECT_RG_THROW(filled.object.SetXmlString(Text("<Other><Own/></Other>"), true), "RGException",
                    "Unsuitable XML for Own!");
    EXPECT_TRUE(filled.IsReset());
}

TEST(XmlFrame, WhatStandsBeforeTheRootDoesNotMatter)
{
    const char* strings[] = {
        " \n <AnyType><A>1</A></AnyType>",
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?><AnyType><A>1</A></AnyType>",
        "<!-- <Other> --><AnyType><A>1</A></AnyType>",
        "<?p <Other>?><!-- --><AnyType><A>1</A></AnyType>",
        "<!DOCTYPE AnyType><AnyType><A>1</A></AnyType>",
        "<!DOCTYPE AnyType [<!ELEMENT AnyType ANY><!ENTITY e \"1\">]><AnyType><A>&e;</A></AnyType>",
    };
    for (const char* xml : strings) {
        SCOPED_TRACE(xml);
        for (const bool checkRoot : {true, false}) {
            PlainObject object;
            EXPECT_TRUE(object.SetXmlString(Text(xml), checkRoot));
            EXPECT_EQ(object.children, Children({{Text("A"), Text("1")}}));
        }
    }
}

TEST(XmlFrame, MalformedStringsAreReportedOnceFromWhicheverStepMetThem)
{
    struct Row
    {
        const char* name;
        const char* xml;
        Children children;
    };
    const Row rows[] = {
        {"before the first tag", "& <AnyType/>", {}},
        {"end tag first", "</Other><AnyType/>", {}},
        {"only inside a comment", "<!-- <AnyType/> -->", {}},
        {"attribute twice", "<AnyType x='1' x='2'/>", {}},
        {"bracket in an attribute", "<AnyType x='<'/>", {}},
        {"element not closed", "<AnyType><A>1</A>", {{Text("A"), Text("1")}}},
        {"element not closed, empty", "<AnyType>", {}},
        {"wrong end tag", "<AnyType><A>1</A></Other>", {{Text("A"), Text("1")}}},
        {"in a child's text", "<AnyType><A>1</A><B>2", {{Text("A"), Text("1")}}},
        {"child's end tag", "<AnyType><A>1</B></AnyType>", {}},
        {"undeclared entity", "<AnyType><A>1</A><B>&nope;</B></AnyType>", {{Text("A"), Text("1")}}},
        {"entity outside of children", "<AnyType><A>1</A>&nope;</AnyType>", {{Text("A"), Text("1")}}},
        {"character that XML does not know", "<AnyType><A>\x01</A></AnyType>", {}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const QString xml = Text(row.xml);
        const QString error = ReaderError(xml);
        ASSERT_FALSE(error.isEmpty());
        for (const bool checkRoot : {true, false}) {
            for (const bool validate : {true, false}) {
                const auto logger = NewLogger();
                FilledObject filled;
                filled.object.SetLogger(logger);
                filled.object.SetValidate(validate);
                EXPECT_RG_THROW(filled.object.SetXmlString(xml, checkRoot), "RGException", error);
                EXPECT_EQ(filled.object.calls.reset, 1);
                EXPECT_EQ(filled.object.children, row.children);
                EXPECT_EQ(filled.object.calls.check, 0);
                EXPECT_LOG(logger, QStringList({Text("INFO: AnyType: Loading xml string."),
                                                LogLine("FATAL ERROR: RGException: ", error)}));
            }
            PlainObject object;
            EXPECT_RG_THROW(object.SetXmlString(xml, checkRoot), "RGException", error);
        }
    }
}

TEST(XmlFrame, MalformedTextBeforeANestedElementIsReported)
{
    const QString xml = Text("<Other><A></Other><AnyType/>");
    FilledObject lenient;
    EXPECT_RG_THROW(lenient.object.SetXmlString(xml, false), "RGException", ReaderError(xml));
    EXPECT_TRUE(lenient.IsReset());

    // The first tag already tells that the root is another one.
    FilledObject strict;
    EXPECT_RG_THROW(strict.object.SetXmlString(xml, true), "RGException", "Unsuitable XML for AnyType!");
}

TEST(XmlFrame, WhatFollowsTheElementInAStringIsNotLookedAt)
{
    for (const char* xml : {"<AnyType><A>1</A></AnyType><", "<AnyType><A>1</A></AnyType></AnyType>",
                            "<AnyType><A>1</A></AnyType>rest", "<AnyType><A>1</A></AnyType><AnyType/>"}) {
        SCOPED_TRACE(xml);
        for (const bool checkRoot : {true, false}) {
            const auto logger = NewLogger();
            PlainObject object;
            object.SetLogger(logger);
            EXPECT_TRUE(object.SetXmlString(Text(xml), checkRoot));
            EXPECT_EQ(object.children, Children({{Text("A"), Text("1")}}));
            EXPECT_LOG(logger, {"INFO: AnyType: Loading xml string."});
        }
    }
}

TEST(XmlFrame, StringIsNotCheckedWhenNotValidating)
{
    PlainObject object;
    object.problem = Text("never asked");
    object.SetValidate(false);
    EXPECT_TRUE(object.SetXmlString(Text("<AnyType/>"), true));
    EXPECT_EQ(object.calls.check, 0);
}

TEST(XmlFrame, ObjectReadFromAStringThatFailsItsCheckKeepsWhatWasRead)
{
    const auto logger = NewLogger();
    FilledObject filled;
    filled.object.problem = Text("incomplete");
    filled.object.SetLogger(logger);
    EXPECT_RG_THROW(filled.object.SetXmlString(Text("<AnyType><A>1</A></AnyType>"), true), "RGException",
                    "incomplete");
    EXPECT_EQ(filled.object.children, Children({{Text("A"), Text("1")}}));
    EXPECT_LOG(logger, {"INFO: AnyType: Loading xml string.", "FATAL ERROR: RGException: incomplete"});
}

TEST(XmlFrame, WrittenStringIsReadBack)
{
    PlainObject object;
    object.children = {
        {Text("A"), Text("a < b & \"c\" 'd'")}, {Text("B"), Text("€ 😀")}, {Text("C"), QString()}};
    PlainObject loaded;
    EXPECT_TRUE(loaded.SetXmlString(object.GetXmlString(), true));
    EXPECT_EQ(loaded.children, object.children);
}

// --- Children and their text -------------------------------------------------------------------------------

TEST(XmlFrame, TextsAndCommentsBetweenChildrenAreIgnored)
{
    PlainObject object;
    EXPECT_TRUE(object.SetXmlString(
        Text("<AnyType> x <!-- <A/> --><A>1</A>y<![CDATA[<B/>]]><?p <C/>?><D>2</D> z </AnyType>"), true));
    EXPECT_EQ(object.children, Children({{Text("A"), Text("1")}, {Text("D"), Text("2")}}));
}

TEST(XmlFrame, TextInPiecesIsItsLastPiece)
{
    struct Row
    {
        const char* child;
        const char* text;
    };
    const Row rows[] = {
        {"<A>12</A>", "12"},
        {"<A/>", ""},
        {"<A></A>", ""},
        {"<A> 12\n</A>", " 12\n"},
        {"<A>12<!-- c -->34</A>", "34"},
        {"<A>12<!-- c --></A>", "12"},
        {"<A><!-- c -->34</A>", "34"},
        {"<A>12<!-- c --> </A>", " "},
        {"<A>12<![CDATA[34]]></A>", "34"},
        {"<A><![CDATA[34]]></A>", "34"},
        {"<A><![CDATA[34]]>56</A>", "56"},
        {"<A>12<![CDATA[]]></A>", ""},
        {"<A><![CDATA[<B>&amp;</B>]]></A>", "<B>&amp;</B>"},
        {"<A>12<?p x?>34</A>", "34"},
        {"<A>1<!-- -->2<!-- -->3</A>", "3"},
        {"<A>1&amp;2&lt;3&#65;&#x42;</A>", "1&2<3AB"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.child);
        PlainObject object;
        EXPECT_TRUE(
            object.SetXmlString(Text("<AnyType>") + Text(row.child) + Text("<Z>0</Z></AnyType>"), true));
        EXPECT_EQ(object.children, Children({{Text("A"), Text(row.text)}, {Text("Z"), Text("0")}}));
    }
}

TEST(XmlFrame, EntitiesOfTheDocumentTypeAreReplaced)
{
    PlainObject object;
    EXPECT_TRUE(object.SetXmlString(
        Text("<!DOCTYPE AnyType [<!ENTITY e \"v\">]><AnyType><A>1&e;2</A></AnyType>"), true));
    EXPECT_EQ(object.children, Children({{Text("A"), Text("1v2")}}));
}

TEST(XmlFrame, UnresolvedEntitySplitsTheText)
{
    PlainObject object;
    EXPECT_TRUE(object.SetXmlString(Text("<!DOCTYPE AnyType SYSTEM \"missing.dtd\">"
                                         "<AnyType><A>1&e;2</A><B>1&e;</B></AnyType>"),
                                    true));
    EXPECT_EQ(object.children, Children({{Text("A"), Text("2")}, {Text("B"), Text("1")}}));
}

TEST(XmlFrame, EntitiesThatMultiplyEndInAnErrorOrInTime)
{
    // Each entity is ten of the one before: ten thousand million characters if all were replaced.
    QString xml = Text("<!DOCTYPE AnyType [<!ENTITY e0 \"0123456789\">");
    for (int level = 1; level < 10; ++level)
        xml += Text("<!ENTITY e%1 \"%2\">").arg(level).arg(Text("&e%1;").arg(level - 1).repeated(10));
    xml += Text("]><AnyType><A>&e9;</A></AnyType>");
    const QString error = ReaderError(xml);
    ASSERT_FALSE(error.isEmpty());
    PlainObject object;
    EXPECT_RG_THROW(object.SetXmlString(xml, true), "RGException", error);
}

TEST(XmlFrame, ElementInsideAChildEndsTheChild)
{
    // The child's text is read up to the first end tag; the child's own end tag then ends the object.
    PlainObject object;
    EXPECT_TRUE(object.SetXmlString(Text("<AnyType><A>1<B>2</B>3</A><C>4</C></AnyType>"), true));
    EXPECT_EQ(object.children, Children({{Text("A"), Text("2")}}));
}

TEST(XmlFrame, UnreadableNumberReadsAsZero)
{
    for (const char* text : {"", "abc", "1,5", "1 2", "0x10", "--1", "1e", "12x"}) {
        SCOPED_TRACE(text);
        Double number;
        number.SetName(Text("N"));
        EXPECT_TRUE(
            number.SetXmlString(Text("<N><DoubleValue>") + Text(text) + Text("</DoubleValue></N>"), true));
        EXPECT_EQ(number.GetValue(), 0.0);
        EXPECT_TRUE(number.HasData());
    }
}

TEST(XmlFrame, NumberSplitByACommentIsItsLastPiece)
{
    Double number;
    number.SetName(Text("N"));
    EXPECT_TRUE(number.SetXmlString(Text("<N><DoubleValue>12<!-- -->34</DoubleValue></N>"), true));
    EXPECT_EQ(number.GetValue(), 34.0);
}

// --- The steps on a caller's reader ------------------------------------------------------------------------

TEST(XmlFrame, GetTextValueStartsWithTheReadersCurrentText)
{
    QXmlStreamReader reader(QStringLiteral("<A>12<!-- --></A>"));
    while (!reader.isCharacters())
        reader.readNext();
    PlainObject object;
    EXPECT_TEXT(object.GetTextValue(reader), "12");
    EXPECT_TRUE(reader.isEndElement());
}

TEST(XmlFrame, GetTextValueStopsOnTheEndElement)
{
    QXmlStreamReader reader(QStringLiteral("<A><B>12</B>34</A>"));
    ASSERT_TRUE(reader.readNextStartElement());
    ASSERT_TRUE(reader.readNextStartElement());
    PlainObject object;
    EXPECT_TEXT(object.GetTextValue(reader), "12");
    EXPECT_TRUE(reader.isEndElement());
    EXPECT_EQ(reader.name().toString(), Text("B"));
}

TEST(XmlFrame, GetTextValueReportsMalformedXml)
{
    const QString xml = Text("<A>12</B>");
    for (const bool withLogger : {true, false}) {
        QXmlStreamReader reader(xml);
        ASSERT_TRUE(reader.readNextStartElement());
        const auto logger = NewLogger();
        PlainObject object;
        if (withLogger)
            object.SetLogger(logger);
        EXPECT_RG_THROW(object.GetTextValue(reader), "RGException", ReaderError(xml));
        EXPECT_LOG(logger, withLogger ? QStringList(LogLine("FATAL ERROR: RGException: ", ReaderError(xml)))
                                      : QStringList());
    }
}

TEST(XmlFrame, ReadXmlUntilStopsOnEachElementOfTheNameInTurn)
{
    QXmlStreamReader reader(QStringLiteral("<A n='1'><A n='2'/><B><A n='3'/></B></A>"));
    PlainObject object;
    for (const char* number : {"1", "2", "3"}) {
        EXPECT_TRUE(object.ReadXmlUntil(reader, Text("A")));
        EXPECT_TRUE(reader.isStartElement());
        EXPECT_EQ(reader.attributes().value(QLatin1String("n")).toString(), Text(number));
    }
    EXPECT_FALSE(object.ReadXmlUntil(reader, Text("A")));
    EXPECT_TRUE(reader.atEnd());
}

TEST(XmlFrame, ReadXmlUntilReachesACleanEndSilently)
{
    const auto logger = NewLogger();
    PlainObject object;
    object.SetLogger(logger);
    QXmlStreamReader reader(QStringLiteral("<A><B/></A>"));
    EXPECT_FALSE(object.ReadXmlUntil(reader, Text("C")));
    EXPECT_FALSE(object.ReadXmlUntil(reader, Text("C")));
    EXPECT_FALSE(object.ReadXmlUntil(reader, Text("a")));
    EXPECT_LOG(logger, {});
}

TEST(XmlFrame, ReadXmlUntilReportsMalformedXmlEachTime)
{
    const QString xml = Text("<A><B></A>");
    const QString error = ReaderError(xml);
    const auto logger = NewLogger();
    PlainObject object;
    object.SetLogger(logger);
    QXmlStreamReader reader(xml);
    EXPECT_RG_THROW(object.ReadXmlUntil(reader, Text("C")), "RGException", error);
    EXPECT_RG_THROW(object.ReadXmlUntil(reader, Text("A")), "RGException", error);
    const QString line = LogLine("FATAL ERROR: RGException: ", error);
    EXPECT_LOG(logger, QStringList({line, line}));
}

TEST(XmlFrame, ProcessXmlReadsTheChildrenOfTheCurrentElementOnly)
{
    QXmlStreamReader reader(QStringLiteral("<Outer><AnyType><A>1</A></AnyType><B>2</B></Outer>"));
    PlainObject object;
    ASSERT_TRUE(object.ReadXmlUntil(reader, Text("AnyType")));
    object.ProcessXml(reader);
    EXPECT_EQ(object.children, Children({{Text("A"), Text("1")}}));
    EXPECT_TRUE(reader.isEndElement());
    EXPECT_EQ(reader.name().toString(), Text("AnyType"));
    EXPECT_EQ(object.calls.reset, 0);
    EXPECT_EQ(object.calls.check, 0);

    ASSERT_TRUE(reader.readNextStartElement());
    EXPECT_EQ(reader.name().toString(), Text("B"));
}

TEST(XmlFrame, ProcessXmlOnAReaderAtItsEndDoesNothing)
{
    QXmlStreamReader reader(QStringLiteral("<A/>"));
    while (!reader.atEnd())
        reader.readNext();
    PlainObject object;
    EXPECT_NO_RG_THROW(object.ProcessXml(reader));
    EXPECT_EQ(object.calls.processXmlStartElement, 0);
}

TEST(XmlFrame, ProcessXmlReportsAnErrorThatTheReaderAlreadyHas)
{
    const QString xml = Text("<A></B>");
    QXmlStreamReader reader(xml);
    while (!reader.atEnd())
        reader.readNext();
    const auto logger = NewLogger();
    PlainObject object;
    object.SetLogger(logger);
    object.SetValidate(false);
    EXPECT_RG_THROW(object.ProcessXml(reader), "RGException", ReaderError(xml));
    EXPECT_LOG(logger, QStringList(LogLine("FATAL ERROR: RGException: ", ReaderError(xml))));
}

TEST(XmlFrame, ReadingOperationsTraceNothingOfTheirOwn)
{
    const auto logger = NewLogger();
    PlainObject object;
    object.SetLogger(logger);
    QXmlStreamReader reader(QStringLiteral("<AnyType><A>1</A></AnyType>"));
    ASSERT_TRUE(object.ReadXmlUntil(reader, Text("AnyType")));
    object.ProcessXml(reader);
    QString text;
    QXmlStreamWriter writer(&text);
    object.GetXml(writer);
    EXPECT_LOG(logger, {});
    EXPECT_TEXT(text, "<AnyType><A>1</A></AnyType>");
}

// --- Large inputs ------------------------------------------------------------------------------------------

TEST(XmlFrame, LongRowOfUnclosedStartTagsIsRefused)
{
    const QString tags = Repeated("<AnyType", LONG_INPUT / 8);
    for (const bool checkRoot : {true, false}) {
        FilledObject filled;
        EXPECT_FALSE(filled.object.SetXmlString(tags, checkRoot));
        EXPECT_TRUE(filled.IsUntouched());

        FilledObject closed;
        const QString xml = tags + Text(">");
        EXPECT_RG_THROW(closed.object.SetXmlString(xml, checkRoot), "RGException", ReaderError(xml));
        EXPECT_TRUE(closed.IsReset());
    }
}

TEST(XmlFrame, LongRowOfUnclosedStartTagsIsRefusedForANameWithAPoint)
{
    FilledObject filled;
    filled.object.SetObjectName(Text("A.B"));
    EXPECT_FALSE(filled.object.SetXmlString(Repeated("<AxB", LONG_INPUT / 4), false));
    EXPECT_TRUE(filled.IsUntouched());
}

TEST(XmlFrame, LongInputIsDecidedForANameWithRepetitionToo)
{
    FilledObject refused;
    refused.object.SetObjectName(Text("A+"));
    EXPECT_FALSE(refused.object.SetXmlString(Repeated("<A", LONG_INPUT / 2), false));
    EXPECT_FALSE(refused.object.SetXmlString(Text("<B>") + Repeated("<A", LONG_INPUT / 2), false));
    EXPECT_TRUE(refused.IsUntouched());

    FilledObject passed;
    passed.object.SetObjectName(Text("A+"));
    EXPECT_FALSE(passed.object.SetXmlString(Text("<AAA") + Repeated(" ", LONG_INPUT) + Text("/>"), false));
    EXPECT_TRUE(passed.IsReset());
}

TEST(XmlFrame, LongTextWithoutTagsIsRefused)
{
    FilledObject filled;
    EXPECT_FALSE(filled.object.SetXmlString(Repeated("<", LONG_INPUT), false));
    EXPECT_FALSE(filled.object.SetXmlString(Repeated(">", LONG_INPUT), true));
    EXPECT_FALSE(filled.object.SetXmlString(Repeated("<A>", LONG_INPUT), false));
    EXPECT_TRUE(filled.IsUntouched());
}

TEST(XmlFrame, DeeplyNestedElementIsFound)
{
    const QString xml = Repeated("<a>", DEEP) + Text("<AnyType><A>1</A></AnyType>") + Repeated("</a>", DEEP);
    FilledObject filled;
    EXPECT_TRUE(filled.object.SetXmlString(xml, false));
    EXPECT_EQ(filled.object.children, Children({{Text("A"), Text("1")}}));
    EXPECT_RG_THROW(filled.object.SetXmlString(xml, true), "RGException", "Unsuitable XML for AnyType!");
}

TEST(XmlFrame, DeeplyNestedChildIsRead)
{
    const QString xml =
        Text("<AnyType>") + Repeated("<a>", DEEP) + Text("1") + Repeated("</a>", DEEP) + Text("</AnyType>");
    PlainObject object;
    EXPECT_TRUE(object.SetXmlString(xml, true));
    EXPECT_EQ(object.children, Children({{Text("a"), Text("1")}}));
}

TEST(XmlFrame, DeeplyNestedElementThatIsNeverClosedIsReported)
{
    const QString xml = Text("<AnyType>") + Repeated("<a>", DEEP);
    PlainObject object;
    EXPECT_RG_THROW(object.SetXmlString(xml, true), "RGException", ReaderError(xml));
}

TEST(XmlFrame, ManyChildrenAndLongTextsAreRead)
{
    constexpr int COUNT = 20000;
    const QString text = Repeated("0123456789", COUNT);
    PlainObject object;
    EXPECT_TRUE(object.SetXmlString(
        Text("<AnyType>") + Repeated("<A>1</A>", COUNT) + Text("<B>") + text + Text("</B></AnyType>"), true));
    ASSERT_EQ(object.children.size(), COUNT + 1);
    EXPECT_EQ(object.children.last().text, text);
}
