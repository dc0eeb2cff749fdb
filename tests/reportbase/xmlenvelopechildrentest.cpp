// How any object reads the children of its element, and the steps that it does so in.

#include "support/expect.h"
#include "support/plainobject.h"
#include "support/readererror.h"

#include <reportgenerator/reportbase/double.h>

#include <gtest/gtest.h>

#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QVector>
#include <QtCore/QXmlStreamReader>
#include <QtCore/QXmlStreamWriter>

namespace {

using REPORTGENERATOR::Double;
using Support::NewLogger;
using Support::PlainObject;
using Support::ReaderError;
using Support::Text;

using Children = QVector<PlainObject::Child>;

QString LogLine(const char* start, const QString& rest)
{
    return Text(start) + rest;
}

} // namespace

// --- Children and their text -------------------------------------------------------------------------------

TEST(XmlEnvelope, TextsAndCommentsBetweenChildrenAreIgnored)
{
    PlainObject object;
    EXPECT_TRUE(object.SetXmlString(
        Text("<AnyType> x <!-- <A/> --><A>1</A>y<![CDATA[<B/>]]><?p <C/>?><D>2</D> z </AnyType>"), true));
    EXPECT_EQ(object.children, Children({{Text("A"), Text("1")}, {Text("D"), Text("2")}}));
}

TEST(XmlEnvelope, TextInPiecesIsItsLastPiece)
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

TEST(XmlEnvelope, EntitiesOfTheDocumentTypeAreReplaced)
{
    PlainObject object;
    EXPECT_TRUE(object.SetXmlString(
        Text("<!DOCTYPE AnyType [<!ENTITY e \"v\">]><AnyType><A>1&e;2</A></AnyType>"), true));
    EXPECT_EQ(object.children, Children({{Text("A"), Text("1v2")}}));
}

TEST(XmlEnvelope, UnresolvedEntitySplitsTheText)
{
    PlainObject object;
    EXPECT_TRUE(object.SetXmlString(Text("<!DOCTYPE AnyType SYSTEM \"missing.dtd\">"
                                         "<AnyType><A>1&e;2</A><B>1&e;</B></AnyType>"),
                                    true));
    EXPECT_EQ(object.children, Children({{Text("A"), Text("2")}, {Text("B"), Text("1")}}));
}

TEST(XmlEnvelope, EntitiesThatMultiplyEndInAnErrorOrInTime)
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

TEST(XmlEnvelope, ElementInsideAChildEndsTheChild)
{
    // The child's text is read up to the first end tag; the child's own end tag then ends the object.
    PlainObject object;
    EXPECT_TRUE(object.SetXmlString(Text("<AnyType><A>1<B>2</B>3</A><C>4</C></AnyType>"), true));
    EXPECT_EQ(object.children, Children({{Text("A"), Text("2")}}));
}

TEST(XmlEnvelope, UnreadableNumberReadsAsZero)
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

TEST(XmlEnvelope, NumberSplitByACommentIsItsLastPiece)
{
    Double number;
    number.SetName(Text("N"));
    EXPECT_TRUE(number.SetXmlString(Text("<N><DoubleValue>12<!-- -->34</DoubleValue></N>"), true));
    EXPECT_EQ(number.GetValue(), 34.0);
}

// --- The steps on a caller's reader ------------------------------------------------------------------------

TEST(XmlEnvelope, GetTextValueStartsWithTheReadersCurrentText)
{
    QXmlStreamReader reader(QStringLiteral("<A>12<!-- --></A>"));
    while (!reader.isCharacters())
        reader.readNext();
    PlainObject object;
    EXPECT_TEXT(object.GetTextValue(reader), "12");
    EXPECT_TRUE(reader.isEndElement());
}

TEST(XmlEnvelope, GetTextValueStopsOnTheEndElement)
{
    QXmlStreamReader reader(QStringLiteral("<A><B>12</B>34</A>"));
    ASSERT_TRUE(reader.readNextStartElement());
    ASSERT_TRUE(reader.readNextStartElement());
    PlainObject object;
    EXPECT_TEXT(object.GetTextValue(reader), "12");
    EXPECT_TRUE(reader.isEndElement());
    EXPECT_EQ(reader.name().toString(), Text("B"));
}

TEST(XmlEnvelope, GetTextValueReportsMalformedXml)
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

TEST(XmlEnvelope, ReadXmlUntilStopsOnEachElementOfTheNameInTurn)
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

TEST(XmlEnvelope, ReadXmlUntilReachesACleanEndSilently)
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

TEST(XmlEnvelope, ReadXmlUntilReportsMalformedXmlEachTime)
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

TEST(XmlEnvelope, ProcessXmlReadsTheChildrenOfTheCurrentElementOnly)
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

TEST(XmlEnvelope, ProcessXmlOnAReaderAtItsEndDoesNothing)
{
    QXmlStreamReader reader(QStringLiteral("<A/>"));
    while (!reader.atEnd())
        reader.readNext();
    PlainObject object;
    EXPECT_NO_RG_THROW(object.ProcessXml(reader));
    EXPECT_EQ(object.calls.processXmlStartElement, 0);
}

TEST(XmlEnvelope, ProcessXmlReportsAnErrorThatTheReaderAlreadyHas)
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

TEST(XmlEnvelope, ReadingOperationsTraceNothingOfTheirOwn)
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
