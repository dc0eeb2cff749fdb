// How the classes with a record stand in XML: under which name they are written, what of an element is passed
// over, where reading ends, and what an object holds when the text is malformed.

#include "support/expect.h"
#include "support/points.h"
#include "support/recordclasses.h"
#include "support/records.h"
#include "support/states.h"

#include <gtest/gtest.h>

#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QXmlStreamWriter>

#include <vector>

namespace {

using REPORTGENERATOR::Area;
using REPORTGENERATOR::Coordinate;
using REPORTGENERATOR::ReportBase;
using Support::AreaState;
using Support::BandwidthState;
using Support::Filled;
using Support::FrequencyState;
using Support::LakeState;
using Support::Named;
using Support::NamedLines;
using Support::NOT_SET;
using Support::ReadElement;
using Support::RecordClass;
using Support::ReportState;
using Support::StateOfClass;
using Support::Text;
using Support::Used;
using Support::XmlOfOne;

// In the texts of the tables "@" stands for the name of the class. Each table begins with the rows of
// Frequency and IFBandwidth.

AreaState OfVersion(const char* version, AreaState state)
{
    state.initialVersionLoaded = Text(version);
    return state;
}

AreaState NamedArea(const char* version, const char* name)
{
    AreaState state;
    state.name = Text(name);
    return OfVersion(version, state);
}

// --- What is passed over ----------------------------------------------------------------------------------

template <class T>
struct PassingRow
{
    const char* xml;
    StateOfClass<T> state;
};

template <class T>
std::vector<PassingRow<T>> PassingRows()
{
    return {
        {"<@ Unit=\"Hz\" min=\"7\" MAX=\"8\" use=\"0\" Value=\"9\">12<Note Min=\"6\"/><Value/></@>", {12.0}},
        {"<@ Max=\"3.25\" Min=\"2.5\">1.125</@>", {1.125, 2.5, 3.25}},
        {"<@/>", {0.0}},
        {"<@></@>", {0.0}},
        {"<@><!-- none --></@>", {0.0}},
        // The value is the last piece of text before the first end tag.
        {"<@>12<!-- comment -->34</@>", {34.0}},
        {"<@>12<![CDATA[34]]></@>", {34.0}},
        {"<@><![CDATA[12]]>34</@>", {34.0}},
        {"<@>12<!-- comment --></@>", {12.0}},
        {"<@>12<!-- comment --> </@>", {0.0}},
        {"<@>12<?instruction?>34</@>", {34.0}},
        {"<@>1&#50;</@>", {12.0}},
        {"<@>12<x/>34</@>", {12.0}},
        {"<@>12<x>34</x>56</@>", {34.0}},
        {"<@>12<x>34<y>56</y>78</x>90</@>", {56.0}},
        {"<@>12<x>34<y/>56</x>78</@>", {34.0}},
        {"<@><x/>34</@>", {0.0}},
        {"<@>1<@>2</@>3</@>", {2.0}},
        {"<@><@/>3</@>", {0.0}},
    };
}

template <>
std::vector<PassingRow<Coordinate>> PassingRows()
{
    return {
        {"<@ Datum=\"WGS84\"><Height unit=\"m\">5</Height>text<Longitude>1</Longitude>"
         "<Note><Latitude>7</Latitude><b/><Longitude>8</Longitude></Note><Empty/>"
         "<Latitude>2</Latitude><!-- end --><Last/></@>",
         {1.0, 2.0}},
        {"<@><Longitude>1</Longitude><@><Longitude>5</Longitude></@><Latitude>2</Latitude></@>", {1.0, 2.0}},
        {"<@><Latitude>2.5</Latitude><Longitude>1.5</Longitude></@>", {1.5, 2.5}},
        {"<@><Latitude>2</Latitude><Longitude>1</Longitude><Latitude>3</Latitude><Longitude>4</Longitude></"
         "@>",
         {4.0, 3.0}},
        {"<@ xmlns:g=\"urn:g\"><g:Longitude>1</g:Longitude><Latitude xmlns=\"urn:h\">2</Latitude></@>",
         {1.0, 2.0}},
        {"<@><Longitude>12<!-- c -->34</Longitude><Latitude>1<![CDATA[2]]></Latitude></@>", {34.0, 2.0}},
    };
}

/// Only an area of an older version has children that nobody knows.
template <>
std::vector<PassingRow<Area>> PassingRows()
{
    return {
        {"<@ Version=\"0.9\"><Old><Name>inner</Name><b/></Old><Name>Lake</Name><Old/>"
         "<Coordinate><Longitude>1</Longitude><Latitude>2</Latitude></Coordinate>"
         "<name>x</name><ScriptID>S7</ScriptID><Old a=\"b\">t</Old></@>",
         OfVersion("0.9", LakeState())},
        {"<@><Old><Name>inner</Name><b/></Old><Name>Lake</Name><Old/>"
         "<Coordinate><Longitude>1</Longitude><Latitude>2</Latitude></Coordinate>"
         "<name>x</name><ScriptID>S7</ScriptID><Old a=\"b\">t</Old></@>",
         LakeState()},
        {"<@ Version=\"\"><Old><Name>inner</Name><b/></Old><Name>Lake</Name><Old/>"
         "<Coordinate><Longitude>1</Longitude><Latitude>2</Latitude></Coordinate>"
         "<name>x</name><ScriptID>S7</ScriptID><Old a=\"b\">t</Old></@>",
         LakeState()},
        {"<@ Version=\"abc\"><Old><Name>inner</Name><b/></Old><Name>Lake</Name><Old/>"
         "<Coordinate><Longitude>1</Longitude><Latitude>2</Latitude></Coordinate>"
         "<name>x</name><ScriptID>S7</ScriptID><Old a=\"b\">t</Old></@>",
         OfVersion("abc", LakeState())},
    };
}

template <>
std::vector<PassingRow<ReportBase>> PassingRows()
{
    AreaState lake = OfVersion("1.0", LakeState());
    lake.scriptID.reset();
    return {
        {"<@><New><Frequency>7</Frequency><b><c/></b></New><frequency>8</frequency>"
         "<Frequency>5</Frequency><New/><@><IFBandwidth>9</IFBandwidth></@>"
         "<IFBandwidth>6</IFBandwidth><Coordinate/>"
         "<Area Version=\"1.0\"><Name>Lake</Name><Coordinate><Longitude>1.000000</Longitude>"
         "<Latitude>2.000000</Latitude></Coordinate></Area><Last>t</Last></@>",
         {FrequencyState{5.0}, BandwidthState{6.0}, lake}},
        {"<?xml version=\"1.0\"?><!-- a --><@ Version=\"0.1\" Frequency=\"7\">text"
         "<!-- b --><Frequency>5</Frequency><![CDATA[<Area/>]]></@>",
         {FrequencyState{5.0}}},
    };
}

// --- Where reading ends -----------------------------------------------------------------------------------

template <class T>
struct EndRow
{
    const char* xml;
    const char* end; ///< the tag on which the reader is left
    StateOfClass<T> state;
    const char* problem = nullptr; ///< what a validating object says of what it has read by then
};

template <class T>
std::vector<EndRow<T>> EndRows()
{
    return {
        {"<@>1</@><Next/>", "</@>", {1.0}},     {"<@/><Next/>", "</@>", {0.0}},
        {"<@>1<x/>2</@>", "</@>", {1.0}},       {"<@>1<x><y/></x>2</@>", "</@>", {1.0}},
        {"<@>1<@>2</@>3</@>", "</@>", {2.0}},   {"<@>1<x/><@>2</@></@>", "<@>", {1.0}},
        {"<@ Min=\"3\"/>", "</@>", {0.0, 3.0}},
    };
}

template <>
std::vector<EndRow<Coordinate>> EndRows()
{
    const char* const setLongitude = "Coordinate: Please set Longitude properly.";
    const char* const setLatitude = "Coordinate: Please set Latitude properly.";
    return {
        {"<@><Longitude>1</Longitude><Latitude>2</Latitude></@><Next/>", "</@>", {1.0, 2.0}},
        {"<@/>", "</@>", {}, setLongitude},
        {"<@></@>", "</@>", {}, setLongitude},
        {"<@><Longitude>1</Longitude></@>", "</@>", {1.0}, setLatitude},
        {"<@><Latitude>1</Latitude></@>", "</@>", {NOT_SET, 1.0}, setLongitude},
        {"<@ Longitude=\"1\" Latitude=\"2\"/>", "</@>", {}, setLongitude},
        {"<@><longitude>1</longitude><LATITUDE>2</LATITUDE></@>", "</@>", {}, setLongitude},
        {"<@><Longitude>1</Longitude><x><x/></x><Latitude>2</Latitude></@>", "</x>", {1.0}, setLatitude},
        {"<@><Longitude>1<y>2</y>3</Longitude><Latitude>4</Latitude></@>",
         "</Longitude>",
         {2.0},
         setLatitude},
    };
}

template <>
std::vector<EndRow<Area>> EndRows()
{
    const char* const setName = "Area: Please set Name properly.";
    const char* const setCoordinate = "Area: Please set Coordinate properly.";
    AreaState point;
    point.coordinates = {{1.0, 2.0}};
    return {
        {"<@/>", "</@>", {}, setName},
        {"<@ Version=\"1.0\"></@>", "</@>", OfVersion("1.0", {}), setName},
        {"<@ Version=\"1.0\"><Name/></@>", "</@>", NamedArea("1.0", ""), setCoordinate},
        {"<@><Coordinate><Longitude>1</Longitude><Latitude>2</Latitude></Coordinate></@>", "</@>", point,
         setName},
        {"<@><Name>N</Name><x><x/></x><ScriptID>S</ScriptID></@>", "</x>", NamedArea("", "N"), setCoordinate},
        {"<@ Version=\"1.0\"><Name>a<i>b</i>c</Name><ScriptID>S</ScriptID></@>", "</Name>",
         NamedArea("1.0", "b"), setCoordinate},
    };
}

template <>
std::vector<EndRow<ReportBase>> EndRows()
{
    return {
        {"<@><Frequency>5</Frequency></@><Next/>", "</@>", {FrequencyState{5.0}}},
        {"<@><Frequency>5</Frequency><Area Version=\"1.0\"/></@>",
         "</@>",
         {FrequencyState{5.0}, NOT_SET, OfVersion("1.0", {})},
         "Area: Please set Name properly."},
        {"<@><Frequency>5</Frequency><x><x/></x><IFBandwidth>6</IFBandwidth></@>",
         "</x>",
         {FrequencyState{5.0}}},
        {"<@><Frequency>1<Frequency>2</Frequency>3</Frequency><IFBandwidth>6</IFBandwidth></@>",
         "</Frequency>",
         {FrequencyState{2.0}}},
    };
}

// --- What is not there ------------------------------------------------------------------------------------

/// An element that lacks something of what a used object holds.
template <class T>
struct AbsenceRow
{
    const char* xml;
    StateOfClass<T> added;  ///< what the object holds when the element is added to it
    StateOfClass<T> loaded; ///< what it holds when it is loaded anew
};

template <class T>
std::vector<AbsenceRow<T>> AbsenceRows()
{
    StateOfClass<T> withMaximum = RecordClass<T>::Used();
    withMaximum.value = 10.0;
    withMaximum.max = 30.0;
    StateOfClass<T> withValue = RecordClass<T>::Used();
    withValue.value = 5.0;
    return {
        {"<@ Max=\"30\">10</@>", withMaximum, {10.0, NOT_SET, 30.0}},
        {"<@>5</@>", withValue, {5.0}},
    };
}

template <>
std::vector<AbsenceRow<Coordinate>> AbsenceRows()
{
    return {
        {"<@><Longitude>5</Longitude></@>", {5.0, 8.0}, {5.0}},
        {"<@><Latitude>5</Latitude></@>", {7.0, 5.0}, {NOT_SET, 5.0}},
        {"<@/>", {7.0, 8.0}, {}},
    };
}

template <>
std::vector<AbsenceRow<Area>> AbsenceRows()
{
    AreaState added = OfVersion("1.0", LakeState());
    added.coordinates.push_back({3.0, 4.0});
    AreaState loaded = OfVersion("1.0", {});
    loaded.coordinates = {{3.0, 4.0}};
    return {
        {"<@ Version=\"1.0\"><Coordinate><Longitude>3</Longitude><Latitude>4</Latitude></Coordinate></@>",
         added, loaded},
    };
}

template <>
std::vector<AbsenceRow<ReportBase>> AbsenceRows()
{
    ReportState withFrequency = RecordClass<ReportBase>::Used();
    withFrequency.frequency->value = 8.5;
    withFrequency.frequency->max = 9.5;
    ReportState withBandwidth = RecordClass<ReportBase>::Used();
    withBandwidth.bandwidth->value = 6.0;
    return {
        {"<@><Frequency Max=\"9.5\">8.5</Frequency></@>", withFrequency, {FrequencyState{8.5, NOT_SET, 9.5}}},
        {"<@><IFBandwidth>6</IFBandwidth></@>", withBandwidth, {NOT_SET, BandwidthState{6.0}}},
        {"<@/>", RecordClass<ReportBase>::Used(), {}},
    };
}

// --- Malformed XML ----------------------------------------------------------------------------------------

template <class T>
struct MalformedRow
{
    const char* xml;
    StateOfClass<T> state; ///< what was read before
};

template <class T>
std::vector<MalformedRow<T>> MalformedRows()
{
    return {
        {"<@ Min=\"1\">2", {NOT_SET, 1.0}},
        {"<@ Min=\"1\" Max=\"2\">3</Wrong>", {NOT_SET, 1.0, 2.0}},
        {"<@ Min=\"1\">2<x></@>", {NOT_SET, 1.0}},
        {"<@ Min=\"1\">2&nothing;</@>", {NOT_SET, 1.0}},
        {"<@>2<", {}},
        {"<@ Min=\"1\" Min=\"2\">3</@>", {}},
        {"<@ Min=1>3</@>", {}},
    };
}

template <>
std::vector<MalformedRow<Coordinate>> MalformedRows()
{
    return {
        {"<@><Longitude>1</Longitude><Latitude>2</Latitude>", {1.0, 2.0}},
        {"<@><Longitude>1</Longitude><Latitude>2", {1.0}},
        {"<@><Longitude>1</Longitude><Latitude>2</Longitude></@>", {1.0}},
        {"<@><Longitude>1</Longitude></Wrong>", {1.0}},
        {"<@><Longitude>1</Longitude><Unknown>", {1.0}},
        {"<@><Longitude>1&x;</Longitude></@>", {}},
        {"<@>", {}},
        {"<@ a=\"1\" a=\"2\"><Longitude>1</Longitude></@>", {}},
    };
}

template <>
std::vector<MalformedRow<Area>> MalformedRows()
{
    const AreaState nothing = OfVersion("1.0", {});
    AreaState point = nothing;
    point.coordinates = {{1.0, 2.0}};
    return {
        {"<@ Version=\"1.0\"><Name>N</Name>", NamedArea("1.0", "N")},
        {"<@ Version=\"1.0\"><Name>N", nothing},
        {"<@ Version=\"1.0\"><Name>N</Foo></@>", nothing},
        {"<@ Version=\"1.0\"><Name>N</Name></Foo>", NamedArea("1.0", "N")},
        {"<@ Version=\"0.9\"><Foo><Name>N</Name>", OfVersion("0.9", {})},
        {"<@ Version=\"1.0\"><Coordinate><Longitude>1</Longitude><Latitude>2</Latitude></Coordinate>", point},
        {"<@ Version=\"1.0\"><Coordinate><Longitude>1</Longitude><Latitude>2</Latitude>", nothing},
        {"<@ Version=\"1.0\"><Coordinate><Longitude>1</Longitude><Latitude>2", nothing},
        {"<@ Version=\"1.0\"><Name>&x;</Name></@>", nothing},
        {"<@ Version=\"1.0\" Version=\"1.0\"><Name>N</Name></@>", {}},
    };
}

/// The member that meets the error is not carried.
template <>
std::vector<MalformedRow<ReportBase>> MalformedRows()
{
    const ReportState frequency = {FrequencyState{5.0}};
    const ReportState area = {NOT_SET, NOT_SET, OfVersion("1.0", {})};
    return {
        {"<@>", {}},
        {"<@><Frequency>5</Frequency>", frequency},
        {"<@><Frequency>5</Frequency><IFBandwidth Min=\"1\">6", frequency},
        {"<@><Frequency>5</Wrong></@>", {}},
        {"<@><Frequency>5</Frequency></Wrong>", frequency},
        {"<@><Unknown>", {}},
        {"<@><Area Version=\"1.0\"><Name>Lake</Name>", {}},
        {"<@><Area Version=\"1.0\"/><Frequency>&x;</Frequency></@>", area},
    };
}

template <class T>
class RecordXml : public ::testing::Test
{
};

TYPED_TEST_SUITE(RecordXml, Support::RecordClasses, Support::RecordClassNames);

} // namespace

TYPED_TEST(RecordXml, ElementBearsTheCurrentName)
{
    Support::Renamed<TypeParam> object("Renamed");
    RecordClass<TypeParam>::Fill(object, 1.0);
    const QString xml =
        Text(RecordClass<TypeParam>::XML).replace(QLatin1Char('@'), QStringLiteral("Renamed"));
    EXPECT_XML(object, xml);
    EXPECT_TEXT(Support::UnindentedXmlOf(object),
                QString(xml).remove(QLatin1Char('\n')).remove(QStringLiteral("    ")));
    object.Reset();
    EXPECT_TRUE(object.SetXmlString(xml, true));
    EXPECT_TRUE(object == Filled<TypeParam>(1.0));
}

TYPED_TEST(RecordXml, ElementStandsWhereTheWriterStands)
{
    QString xml;
    QXmlStreamWriter writer(&xml);
    writer.writeStartElement(QStringLiteral("Holder"));
    Filled<TypeParam>(1.0).GetXml(writer);
    Filled<TypeParam>(1.0).GetXml(writer);
    writer.writeEndElement();
    const QString element = XmlOfOne<TypeParam>().remove(QLatin1Char('\n')).remove(QStringLiteral("    "));
    EXPECT_TEXT(xml, QStringLiteral("<Holder>") + element + element + QStringLiteral("</Holder>"));
}

TYPED_TEST(RecordXml, WhatNobodyKnowsIsPassedOverWithoutAMessage)
{
    for (const PassingRow<TypeParam>& row : PassingRows<TypeParam>()) {
        for (const bool validate : {true, false}) {
            SCOPED_TRACE(row.xml);
            TypeParam object;
            object.SetValidate(validate);
            const auto logger = Support::NewLogger();
            object.SetLogger(logger);
            EXPECT_TRUE(object.SetXmlString(Named<TypeParam>(row.xml), true));
            EXPECT_STATE(object, row.state);
            EXPECT_TRUE(object == Support::Made<TypeParam>(row.state));
            EXPECT_LOG(logger, NamedLines<TypeParam>({"INFO: @: Loading xml string."}));
        }
    }
}

TYPED_TEST(RecordXml, ReadingEndsOnTheFirstTagThatCouldBeTheLast)
{
    for (const EndRow<TypeParam>& row : EndRows<TypeParam>()) {
        SCOPED_TRACE(row.xml);
        const QString xml = Named<TypeParam>(row.xml);
        TypeParam processed;
        EXPECT_TEXT(ReadElement(processed, xml), Named<TypeParam>(row.end));
        EXPECT_STATE(processed, row.state);

        TypeParam loaded = Support::NotValidating<TypeParam>();
        EXPECT_TRUE(loaded.SetXmlString(xml, true));
        EXPECT_STATE(loaded, row.state);

        TypeParam validating;
        if (row.problem)
            EXPECT_RG_THROW(validating.SetXmlString(xml, true), "OutOfRangeException", row.problem);
        else
            EXPECT_NO_RG_THROW(validating.SetXmlString(xml, true));
        EXPECT_STATE(validating, row.state);
    }
}

TYPED_TEST(RecordXml, ProcessXmlLeavesWhatIsNotThereAsItWas)
{
    for (const AbsenceRow<TypeParam>& row : AbsenceRows<TypeParam>()) {
        SCOPED_TRACE(row.xml);
        TypeParam object = Used<TypeParam>();
        EXPECT_TEXT(ReadElement(object, Named<TypeParam>(row.xml) + QStringLiteral("<Next/>")),
                    Named<TypeParam>("</@>"));
        EXPECT_STATE(object, row.added);
    }
}

TYPED_TEST(RecordXml, LoadingResetsWhatIsNotThere)
{
    for (const AbsenceRow<TypeParam>& row : AbsenceRows<TypeParam>()) {
        SCOPED_TRACE(row.xml);
        TypeParam object = Used<TypeParam>();
        object.SetValidate(false);
        EXPECT_TRUE(object.SetXmlString(Named<TypeParam>(row.xml), true));
        EXPECT_STATE(object, row.loaded);
        RecordClass<TypeParam>::ExpectUnsetFieldsHaveDefaults(object);
        EXPECT_TRUE(object.IsInitialized());
    }
}

TYPED_TEST(RecordXml, MalformedXmlIsReportedAndWhatWasReadBeforeStays)
{
    for (const MalformedRow<TypeParam>& row : MalformedRows<TypeParam>()) {
        for (const bool validate : {true, false}) {
            SCOPED_TRACE(row.xml);
            const QString xml = Named<TypeParam>(row.xml);
            TypeParam object = Used<TypeParam>();
            object.SetValidate(validate);
            EXPECT_RG_THROW(object.SetXmlString(xml, false), "RGException", Support::XmlErrorOf(xml));
            EXPECT_STATE(object, row.state);

            const auto logger = Support::NewLogger();
            object.SetLogger(logger);
            EXPECT_RG_THROW(object.SetXmlString(xml, false), "RGException", Support::XmlErrorOf(xml));
            EXPECT_STATE(object, row.state);
            EXPECT_LOG(logger, QStringList({Named<TypeParam>("INFO: @: Loading xml string."),
                                            QStringLiteral("FATAL ERROR: RGException: ") +
                                                Support::XmlErrorOf(xml)}));
        }
    }
}

TYPED_TEST(RecordXml, TextWithoutTheElementLeavesTheObjectUntouched)
{
    TypeParam object = Used<TypeParam>();
    const auto logger = Support::NewLogger();
    object.SetLogger(logger);
    EXPECT_FALSE(object.SetXmlString(QString(), true));
    EXPECT_FALSE(object.SetXmlString(QStringLiteral("<Other>1</Other>"), true));
    EXPECT_FALSE(object.SetXmlString(Named<TypeParam>("<@ Min=\"1\""), true));
    EXPECT_STATE(object, RecordClass<TypeParam>::Used());
    EXPECT_LOG(logger, NamedLines<TypeParam>({"INFO: @: Loading xml string.", "INFO: @: Loading xml string.",
                                              "INFO: @: Loading xml string."}));
}

TYPED_TEST(RecordXml, AnElementWhoseNameOnlyBeginsAlikeResetsTheObjectAndIsNotRead)
{
    const QString xml = Named<TypeParam>("<@Information>5</@Information>");
    TypeParam object = Used<TypeParam>();
    EXPECT_FALSE(object.SetXmlString(xml, false));
    EXPECT_FALSE(object.AnyData());
    EXPECT_RG_THROW(object.SetXmlString(xml, true), "RGException", Named<TypeParam>("Unsuitable XML for @!"));
}

TYPED_TEST(RecordXml, TheFirstElementIsFoundAnywhereWhenTheRootIsNotChecked)
{
    const QString xml = QStringLiteral("<a><b/><c>") + XmlOfOne<TypeParam>() + QStringLiteral("</c>") +
                        Filled<TypeParam>(2.0).GetXmlString() + QStringLiteral("</a>");
    TypeParam object = Used<TypeParam>();
    EXPECT_TRUE(object.SetXmlString(xml, false));
    EXPECT_TRUE(object == Filled<TypeParam>(1.0));
    EXPECT_RG_THROW(object.SetXmlString(xml, true), "RGException", Named<TypeParam>("Unsuitable XML for @!"));
    EXPECT_FALSE(object.AnyData());
}
