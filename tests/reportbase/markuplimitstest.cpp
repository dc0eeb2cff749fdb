// XML that Qt's reader would take quadratic time for is refused in front of it, and nothing else is.

#include "support/expect.h"
#include "support/files.h"
#include "support/paths.h"

#include <reportgenerator/reportbase/channelspacing.h>
#include <reportgenerator/reportbase/codec/markupscanner.h>
#include <reportgenerator/reportbase/reportbase.h>
#include <reportgenerator/reportbase/rgexception.h>
#include <reportgenerator/reportbase/versionconverterproxy.h>

#include <gtest/gtest.h>

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <functional>
#include <string>

namespace {

using REPORTGENERATOR::ChannelSpacing;
using REPORTGENERATOR::IRGObject;
using REPORTGENERATOR::MarkupScanner;
using REPORTGENERATOR::ReportBase;
using Support::OpenFile;
using Support::StreamPathOnly;
using Support::Text;
using Excess = MarkupScanner::Excess;

constexpr int MOST = 256;
constexpr int MOST_DECLARED = 64;

const char* const TOO_MANY = "An element has more than 256 attributes or namespaces.";
const char* const TOO_MANY_DECLARED = "The document type declares more than 64 attributes.";

std::string Repeated(int count, const std::function<std::string(int)>& piece)
{
    std::string all;
    for (int i = 0; i < count; ++i)
        all += piece(i);
    return all;
}

std::string Attributes(int count)
{
    return Repeated(count, [](int i) { return " a" + std::to_string(i) + "='v'"; });
}

/// What a report says of a text.
Excess Told(const std::string& xml)
{
    ReportBase report;
    try {
        report.SetXmlString(QString::fromStdString(xml + "<ReportBase/>"), false);
    } catch (const RGException& exception) {
        if (exception.GetErrorText() == Text(TOO_MANY))
            return Excess::Attributes;
        if (exception.GetErrorText() == Text(TOO_MANY_DECLARED))
            return Excess::Declared;
    }
    return Excess::None;
}

/// A scanner of its own, fed in two pieces that are cut everywhere, and the one in front of the reader.
Excess Found(const std::string& xml)
{
    MarkupScanner whole;
    whole.Feed(xml.data(), xml.data() + xml.size());
    EXPECT_EQ(Told(xml), whole.Found());
    for (std::size_t cut = 0; cut <= xml.size(); cut += 1 + xml.size() / 50) {
        MarkupScanner scanner;
        if (scanner.Feed(xml.data(), xml.data() + cut))
            scanner.Feed(xml.data() + cut, xml.data() + xml.size());
        EXPECT_EQ(scanner.Found(), whole.Found()) << cut;
    }
    return whole.Found();
}

// --- What counts -------------------------------------------------------------------------------------------

TEST(MarkupLimits, AreReachedByOneAttributeMore)
{
    EXPECT_EQ(Found("<a" + Attributes(MOST) + "/>"), Excess::None);
    EXPECT_EQ(Found("<a" + Attributes(MOST + 1) + "/>"), Excess::Attributes);
    EXPECT_EQ(Found("<a><b" + Attributes(MOST) + "><c" + Attributes(MOST) + "/></b></a>"), Excess::None);
}

TEST(MarkupLimits, ValuesMayHoldEverythingThatEndsATag)
{
    EXPECT_EQ(Found("<a v='>' w=\"<'\"" + Attributes(MOST - 1) + "/>"), Excess::Attributes);
    EXPECT_EQ(Found("<a v='" + Attributes(0) + std::string(1000, '=') + "'/>"), Excess::None);
    EXPECT_EQ(Found("<a \n v = '1' \t w\r=\r'2'" + Attributes(MOST - 1) + ">"), Excess::Attributes);
}

TEST(MarkupLimits, WhatIsNoTagDoesNotCount)
{
    const std::string many = "<a" + Attributes(MOST + 1) + "/>";
    EXPECT_EQ(Found("<r><!-- " + many + " - -- ->" + many + "--></r>"), Excess::None);
    EXPECT_EQ(Found("<r><![CDATA[" + many + "]] ]>" + many + "]]></r>"), Excess::None);
    EXPECT_EQ(Found("<?p " + many + "? >" + many + "?><r/>"), Excess::None);
    EXPECT_EQ(Found("<r>" + std::string(1000, '=') + "a='b'</r>"), Excess::None);
    EXPECT_EQ(Found("<r></r " + Attributes(MOST + 1) + ">"), Excess::None);
    for (const std::string end : {"-->", "]]>", "?>"}) {
        SCOPED_TRACE(end);
        EXPECT_EQ(Found("<r><!--" + (end == "-->" ? "" : end + many) + "--></r>"), Excess::None);
        EXPECT_EQ(Found("<r><![CDATA[" + (end == "]]>" ? "" : end + many) + "]]></r>"), Excess::None);
        EXPECT_EQ(Found("<?p " + (end == "?>" ? "" : end + many) + "?><r/>"), Excess::None);
    }
}

TEST(MarkupLimits, WhatIsBehindSomethingElseCounts)
{
    const std::string many = "<a" + Attributes(MOST + 1) + "/>";
    for (const std::string before :
         {"<?xml version='1.0'?>", "<!-- <a -->", "<!--->-->", "<![CDATA[<!--]]>", "<![CDATA[]]]>",
          "<?p ? ?>", "<!DOCTYPE a>", "<!DOCTYPE a [<!ENTITY e ']>\"'>]>",
          "<!DOCTYPE a [<!-- ' --><?p ' ?>]>", "<!DOCTYPE a SYSTEM \"s>'\" [<!ELEMENT a ANY>]>", "<b c='/'>",
          "<b/>", "</b>", "text"}) {
        SCOPED_TRACE(before);
        EXPECT_EQ(Found(before + many), Excess::Attributes);
    }
}

TEST(MarkupLimits, NamespacesCountWhereTheyAreInScope)
{
    const auto nested = [](int count, const std::string& attribute) {
        return Repeated(count, [&](int i) { return "<e xmlns:n" + std::to_string(i) + attribute + "='u'>"; });
    };
    const auto close = [](int count) { return Repeated(count, [](int) { return "</e>"; }); };
    EXPECT_EQ(Found(nested(MOST, "")), Excess::None);
    EXPECT_EQ(Found(nested(MOST + 1, "")), Excess::Attributes);
    EXPECT_EQ(Found(nested(MOST + 1, " \n ")), Excess::Attributes);
    EXPECT_EQ(Found(Repeated(MOST + 1, [](int) { return "<e xmlns='u'>"; })), Excess::Attributes);
    EXPECT_EQ(Found(Repeated(10 * MOST, [](int) { return "<e xmlns='u'/>"; })), Excess::None);
    EXPECT_EQ(Found(Repeated(10 * MOST, [](int) { return "<e xmlns='u'><f></f></e>"; })), Excess::None);
    EXPECT_EQ(Found(Repeated(10 * MOST, [](int) { return "<e xmlns='u'><f/></e>"; })), Excess::None);
    EXPECT_EQ(Found(nested(MOST, "") + close(MOST) + nested(MOST, "")), Excess::None);
    EXPECT_EQ(Found(nested(MOST, "") + close(1) + nested(2, "")), Excess::Attributes);
    EXPECT_EQ(Found(Repeated(10 * MOST, [](int) { return "<e xmlnsx='u' a:xmlns='v' x='xmlns='>"; })),
              Excess::None);
}

TEST(MarkupLimits, DeclaredAttributesCountInAllLists)
{
    const auto list = [](int count) {
        return "<!ATTLIST e" +
               Repeated(count, [](int i) { return " a" + std::to_string(i) + " CDATA 'v'"; }) + ">";
    };
    const auto document = [](const std::string& subset) { return "<!DOCTYPE e [" + subset + "]><e/>"; };
    EXPECT_EQ(Found(document(list(MOST_DECLARED))), Excess::None);
    EXPECT_EQ(Found(document(list(MOST_DECLARED + 1))), Excess::Declared);
    EXPECT_EQ(Found(document(list(MOST_DECLARED) + "<!ENTITY x 'y'>" + list(1))), Excess::Declared);
    EXPECT_EQ(
        Found(document(Repeated(1000, [](int i) { return "<!ENTITY e" + std::to_string(i) + " 'v'>"; }))),
        Excess::None);
    EXPECT_EQ(Found(document("<!ENTITY % e '" + list(1) + "'>%e;")), Excess::Declared);
    EXPECT_EQ(Found(document("<!ENTITY e \"<x" + Attributes(MOST_DECLARED + 1) + "/>\">")), Excess::Declared);
}

// --- Where -------------------------------------------------------------------------------------------------

std::string Report(int attributes)
{
    return "<Other><ReportBase><Unknown" + Attributes(attributes) +
           "/><Frequency>5</Frequency></ReportBase></Other>";
}

enum class Encoding : int
{
    Utf8,
    Utf16LittleEndian,
    Utf16BigEndian,
    Utf32LittleEndian,
    Utf32BigEndian
};

constexpr Encoding WIDE_ENCODINGS[] = {Encoding::Utf16LittleEndian, Encoding::Utf16BigEndian,
                                       Encoding::Utf32LittleEndian, Encoding::Utf32BigEndian};

/// With a byte order mark where it isn't UTF-8. No character takes two units of UTF-16.
QByteArray Encoded(const QString& xml, Encoding encoding)
{
    if (encoding == Encoding::Utf8)
        return xml.toUtf8();
    const int size = encoding <= Encoding::Utf16BigEndian ? 2 : 4;
    const bool isBigEndian = encoding == Encoding::Utf16BigEndian || encoding == Encoding::Utf32BigEndian;
    QByteArray bytes;
    for (const QChar unit : QChar(0xFEFF) + xml) {
        for (int i = 0; i < size; ++i)
            bytes += static_cast<char>(unit.unicode() >> 8 * (isBigEndian ? size - 1 - i : i));
    }
    return bytes;
}

template <class Object>
void ExpectLimitsInTexts()
{
    Object good;
    EXPECT_TRUE(good.SetXmlString(QString::fromStdString(Report(MOST)), false));
    EXPECT_EQ(good.GetFrequency().GetValue(), 5.0);
    for (const bool checkRoot : {false, true}) {
        Object object;
        object.GetFrequency().SetValue(1.0);
        const auto logger = Support::NewLogger(REPORTGENERATOR::ERROR);
        object.SetLogger(logger);
        EXPECT_RG_THROW(object.SetXmlString(QString::fromStdString(Report(MOST + 1)), checkRoot),
                        "RGException", TOO_MANY);
        EXPECT_FALSE(object.AnyData());
        EXPECT_LOG(logger,
                   {"FATAL ERROR: RGException: An element has more than 256 attributes or namespaces."});
    }
}

TEST(MarkupLimits, HoldForTexts)
{
    ExpectLimitsInTexts<ReportBase>();
    ExpectLimitsInTexts<StreamPathOnly<ReportBase>>();
    ReportBase object;
    EXPECT_TRUE(object.SetXmlString(Text("<!DOCTYPE e [<!-- ' --><?p ' ?>]><ReportBase/>"), false));
    EXPECT_TRUE(object.SetXmlString(Text("<a><![CDATA[' ATTLIST ']]><ReportBase/></a>"), false));
    EXPECT_RG_THROW(object.SetXmlString(Text("<!DOCTYPE e [<!ENTITY % e 'ATTLIST'>]><ReportBase/>"), false),
                    "RGException", TOO_MANY_DECLARED);
}

TEST(MarkupLimits, LetNamespacesEndWithTheirElements)
{
    const QString xml = QString::fromStdString(
        "<a>" + Repeated(MOST + 1, [](int) { return "<e xmlns:n='u'><f/></e>"; }) + "<ReportBase/></a>");
    ReportBase object;
    object.SetValidate(false);
    EXPECT_TRUE(object.SetXmlString(xml, false));
}

TEST(MarkupLimits, HoldForTextsBehindWhatIsNoTag)
{
    for (const std::string before : {"<Outer><!-- <a -->", "<Outer><![CDATA[<a>]]>", "<Outer><?p <a ?>",
                                     "<!DOCTYPE Outer [<!-- ' -->]><Outer>"}) {
        SCOPED_TRACE(before);
        const QString xml = QString::fromStdString(before + Report(MOST + 1) + "</Outer>");
        ReportBase object;
        EXPECT_RG_THROW(object.SetXmlString(xml, false), "RGException", TOO_MANY);
    }
}

/// The piece so many times, with the number of each in the place of "%1".
QString Numbered(const char* piece, int count)
{
    QString text;
    for (int i = 0; i < count; ++i)
        text += Text(piece).replace(Text("%1"), QString::number(i));
    return text;
}

TEST(MarkupLimits, OfNamespacesInScopeAndOfDeclarationsHoldForTexts)
{
    constexpr int INNER = 56;
    for (const int more : {0, 1}) {
        const QString texts[] = {
            Text("<a") + Numbered(" xmlns:n%1=\"u\"", 200) + Text("><b") +
                Numbered(" xmlns:m%1=\"u\"", INNER + more) + Text("><ReportBase/></b></a>"),
            Text("<a") + Numbered(" xmlns:n%1=\"u\"", 200) + Text("><c></c><b") +
                Numbered(" xmlns:m%1=\"u\"", INNER + more) + Text("><ReportBase/></b></a>"),
            Text("<!DOCTYPE a [<!ATTLIST a") + Numbered(" b%1 CDATA \"x\"", MOST_DECLARED + more) +
                Text(">]><ReportBase/>"),
            Text("<!DOCTYPE a [<!ENTITY e '") + Numbered("=", MOST_DECLARED + more) +
                Text("'>]><ReportBase/>"),
        };
        for (const QString& text : texts) {
            ReportBase object;
            object.SetValidate(false);
            if (more == 0) {
                EXPECT_TRUE(object.SetXmlString(text, false)) << text.toStdString();
            } else {
                EXPECT_RG_THROW(object.SetXmlString(text, false), "RGException",
                                text.startsWith(Text("<a")) ? TOO_MANY : TOO_MANY_DECLARED);
            }
        }
    }
}

template <class Object>
void ExpectLimitsInFiles(Encoding encoding)
{
    SCOPED_TRACE(static_cast<int>(encoding));
    OpenFile good(Encoded(QString::fromStdString(Report(MOST)), encoding));
    Object object;
    IRGObject& base = object;
    EXPECT_TRUE(base.LoadXml(good.Get()));
    EXPECT_EQ(object.GetFrequency().GetValue(), 5.0);
    OpenFile bad(Encoded(QString::fromStdString(Report(MOST + 1)), encoding));
    EXPECT_RG_THROW(base.LoadXml(bad.Get()), "RGException", TOO_MANY);
}

TEST(MarkupLimits, HoldForFilesInEveryEncoding)
{
    ExpectLimitsInFiles<ReportBase>(Encoding::Utf8);
    ExpectLimitsInFiles<StreamPathOnly<ReportBase>>(Encoding::Utf8);
    for (const Encoding encoding : WIDE_ENCODINGS) {
        ExpectLimitsInFiles<ReportBase>(encoding);
        ExpectLimitsInFiles<StreamPathOnly<ReportBase>>(encoding);
    }
}

TEST(MarkupLimits, CharactersWhoseBytesLookLikeMarkupAreNone)
{
    // U+3C22 and U+3D3C have the bytes of '<', '"' and '='.
    QString name;
    for (int i = 0; i < MOST + 1; ++i)
        name += QChar(0x3C22) + QString(QChar(0x3D3C)) + QChar(0x3D3D);
    const QString xml = Text("<ReportBase><Area Version=\"1.0\"><Name>") + name +
                        Text("</Name><Coordinate><Longitude>1</Longitude><Latitude>2</Latitude></Coordinate>"
                             "</Area></ReportBase>");
    for (const Encoding encoding : WIDE_ENCODINGS) {
        SCOPED_TRACE(static_cast<int>(encoding));
        OpenFile file(Encoded(xml, encoding));
        ReportBase object;
        EXPECT_TRUE(object.LoadXml(file.Get()));
        EXPECT_EQ(object.GetArea().GetName(), name);
    }
}

TEST(MarkupLimits, HoldForPlainClassesAndConverters)
{
    const QString xml = Text("<ChannelSpacing><Visual%1/></ChannelSpacing>")
                            .arg(QString::fromStdString(Attributes(MOST + 1)));
    ChannelSpacing spacing;
    EXPECT_RG_THROW(spacing.SetXmlString(xml, true), "RGException", TOO_MANY);

    REPORTGENERATOR::VersionConverterProxy proxy;
    ReportBase registered;
    proxy.RegisterRootClass(Text("ReportBase"), Text("1.0"), &registered);
    OpenFile file(QByteArray::fromStdString("<ReportBase" + Attributes(MOST + 1) + "/>"));
    EXPECT_RG_THROW(proxy.CanUseProxy(file.Get(), nullptr), "RGException", TOO_MANY);
    EXPECT_FALSE(proxy.LoadXml(file.Get()));
}

/// Half a minute in Qt's reader.
TEST(MarkupLimits, EndTheReadingOfManyAttributesAtOnce)
{
    ReportBase object;
    EXPECT_RG_THROW(object.SetXmlString(QString::fromStdString(Report(1000000)), false), "RGException",
                    TOO_MANY);
}

} // namespace
