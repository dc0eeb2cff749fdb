// How any object is loaded from a string of XML: what is looked for in it, which root it may have, and inputs
// that are large.

#include "support/expect.h"
#include "support/journal.h"
#include "support/plainobject.h"
#include "support/readererror.h"

#include <gtest/gtest.h>

#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QVector>

#include <memory>
#include <string>

namespace {

using Support::FilledObject;
using Support::JournalLogger;
using Support::JournalObject;
using Support::Lines;
using Support::NewLogger;
using Support::PlainObject;
using Support::ReaderError;
using Support::Text;

using Children = QVector<PlainObject::Child>;

constexpr int DEEP = 100000;
constexpr int LONG_INPUT = 200000;

QString Repeated(const char* text, int count)
{
    return Text(text).repeated(count);
}

QString LogLine(const char* start, const QString& rest)
{
    return Text(start) + rest;
}

} // namespace

// --- Loading from a string: the quick test -----------------------------------------------------------------

TEST(XmlEnvelope, LoadingAStringTracesThenResetsThenReadsThenChecks)
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

TEST(XmlEnvelope, EmptyStringGivesFalseAndLeavesTheObjectUntouched)
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

TEST(XmlEnvelope, StringWithoutTheStartTagGivesFalseAndLeavesTheObjectUntouched)
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

TEST(XmlEnvelope, SelfClosingElementResetsTheObjectAndGivesTrue)
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

TEST(XmlEnvelope, QuickTestTakesALongerElementNameThatReadingThenRefuses)
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

TEST(XmlEnvelope, QuickTestLooksForAnyClosingBracketBehindTheName)
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

TEST(XmlEnvelope, NameIsARegularExpressionToTheQuickTest)
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

TEST(XmlEnvelope, NameThatIsNoRegularExpressionIsNeverFound)
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

TEST(XmlEnvelope, CharacterSetThatANameLeavesOpenIsClosedByTheRestOfTheExpression)
{
    FilledObject filled;
    filled.object.SetObjectName(Text("(A["));
    EXPECT_FALSE(filled.object.SetXmlString(Text("<A/>"), false));
    EXPECT_TRUE(filled.IsReset());
}

// Qt 6 has regular expressions of Perl's dialect only.
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)

TEST(XmlEnvelope, NameThatIsARegularExpressionOnlyInOtherDialectsIsNeverFound)
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

TEST(XmlEnvelope, NameThatIsARegularExpressionOnlyInThisDialectPassesTheQuickTest)
{
    // Perl's dialect knows no repetition without a lower bound.
    FilledObject filled;
    filled.object.SetObjectName(Text("A{,2}"));
    EXPECT_FALSE(filled.object.SetXmlString(Text("<AA/>"), false));
    EXPECT_TRUE(filled.IsReset());
}

#endif

TEST(XmlEnvelope, AnyCharacterOfANameMayBeALineFeedToTheQuickTest)
{
    const QString xml = Text("<A\nB/>");
    FilledObject filled;
    filled.object.SetObjectName(Text("A.B"));
    EXPECT_RG_THROW(filled.object.SetXmlString(xml, false), "RGException", ReaderError(xml));
    EXPECT_TRUE(filled.IsReset());
}

TEST(XmlEnvelope, EmptyNameIsFoundInNoElement)
{
    FilledObject filled;
    filled.object.SetObjectName(QString());
    EXPECT_RG_THROW(filled.object.SetXmlString(Text("<Other/>"), true), "RGException",
                    "Unsuitable XML for !");
    EXPECT_TRUE(filled.IsReset());
}

// --- Loading from a string: the root -----------------------------------------------------------------------

TEST(XmlEnvelope, ElementInsideADocumentIsReadOnlyWhenTheRootIsNotChecked)
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

TEST(XmlEnvelope, UnsuitableRootIsRefusedWithoutValidationAndWithoutLoggerToo)
{
    FilledObject filled;
    filled.object.SetObjectName(Text("Own"));
    filled.object.SetValidate(false);
    EXPECT_RG_THROW(filled.object.SetXmlString(Text("<Other><Own/></Other>"), true), "RGException",
                    "Unsuitable XML for Own!");
    EXPECT_TRUE(filled.IsReset());
}

TEST(XmlEnvelope, WhatStandsBeforeTheRootDoesNotMatter)
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

TEST(XmlEnvelope, MalformedStringsAreReportedOnceFromWhicheverStepMetThem)
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

TEST(XmlEnvelope, MalformedTextBeforeANestedElementIsReported)
{
    const QString xml = Text("<Other><A></Other><AnyType/>");
    FilledObject lenient;
    EXPECT_RG_THROW(lenient.object.SetXmlString(xml, false), "RGException", ReaderError(xml));
    EXPECT_TRUE(lenient.IsReset());

    // The first tag already tells that the root is another one.
    FilledObject strict;
    EXPECT_RG_THROW(strict.object.SetXmlString(xml, true), "RGException", "Unsuitable XML for AnyType!");
}

TEST(XmlEnvelope, WhatFollowsTheElementInAStringIsNotLookedAt)
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

TEST(XmlEnvelope, StringIsNotCheckedWhenNotValidating)
{
    PlainObject object;
    object.problem = Text("never asked");
    object.SetValidate(false);
    EXPECT_TRUE(object.SetXmlString(Text("<AnyType/>"), true));
    EXPECT_EQ(object.calls.check, 0);
}

TEST(XmlEnvelope, ObjectReadFromAStringThatFailsItsCheckKeepsWhatWasRead)
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

TEST(XmlEnvelope, WrittenStringIsReadBack)
{
    PlainObject object;
    object.children = {
        {Text("A"), Text("a < b & \"c\" 'd'")}, {Text("B"), Text("€ 😀")}, {Text("C"), QString()}};
    PlainObject loaded;
    EXPECT_TRUE(loaded.SetXmlString(object.GetXmlString(), true));
    EXPECT_EQ(loaded.children, object.children);
}

// --- Large inputs ------------------------------------------------------------------------------------------

TEST(XmlEnvelope, LongRowOfUnclosedStartTagsIsRefused)
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

TEST(XmlEnvelope, LongRowOfUnclosedStartTagsIsRefusedForANameWithAPoint)
{
    FilledObject filled;
    filled.object.SetObjectName(Text("A.B"));
    EXPECT_FALSE(filled.object.SetXmlString(Repeated("<AxB", LONG_INPUT / 4), false));
    EXPECT_TRUE(filled.IsUntouched());
}

TEST(XmlEnvelope, LongInputIsDecidedForANameWithRepetitionToo)
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

TEST(XmlEnvelope, LongTextWithoutTagsIsRefused)
{
    FilledObject filled;
    EXPECT_FALSE(filled.object.SetXmlString(Repeated("<", LONG_INPUT), false));
    EXPECT_FALSE(filled.object.SetXmlString(Repeated(">", LONG_INPUT), true));
    EXPECT_FALSE(filled.object.SetXmlString(Repeated("<A>", LONG_INPUT), false));
    EXPECT_TRUE(filled.IsUntouched());
}

TEST(XmlEnvelope, DeeplyNestedElementIsFound)
{
    const QString xml = Repeated("<a>", DEEP) + Text("<AnyType><A>1</A></AnyType>") + Repeated("</a>", DEEP);
    FilledObject filled;
    EXPECT_TRUE(filled.object.SetXmlString(xml, false));
    EXPECT_EQ(filled.object.children, Children({{Text("A"), Text("1")}}));
    EXPECT_RG_THROW(filled.object.SetXmlString(xml, true), "RGException", "Unsuitable XML for AnyType!");
}

TEST(XmlEnvelope, DeeplyNestedChildIsRead)
{
    const QString xml =
        Text("<AnyType>") + Repeated("<a>", DEEP) + Text("1") + Repeated("</a>", DEEP) + Text("</AnyType>");
    PlainObject object;
    EXPECT_TRUE(object.SetXmlString(xml, true));
    EXPECT_EQ(object.children, Children({{Text("a"), Text("1")}}));
}

TEST(XmlEnvelope, DeeplyNestedElementThatIsNeverClosedIsReported)
{
    const QString xml = Text("<AnyType>") + Repeated("<a>", DEEP);
    PlainObject object;
    EXPECT_RG_THROW(object.SetXmlString(xml, true), "RGException", ReaderError(xml));
}

TEST(XmlEnvelope, ManyChildrenAndLongTextsAreRead)
{
    constexpr int COUNT = 20000;
    const QString text = Repeated("0123456789", COUNT);
    PlainObject object;
    EXPECT_TRUE(object.SetXmlString(
        Text("<AnyType>") + Repeated("<A>1</A>", COUNT) + Text("<B>") + text + Text("</B></AnyType>"), true));
    ASSERT_EQ(object.children.size(), COUNT + 1);
    EXPECT_EQ(object.children.last().text, text);
}
