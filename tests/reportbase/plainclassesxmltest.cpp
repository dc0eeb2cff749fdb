// How the classes without a shared record are read from XML and files.

#include "support/bytes.h"
#include "support/expect.h"
#include "support/files.h"
#include "support/plainclasses.h"
#include "support/records.h"

#include <reportgenerator/reportbase/channelspacing.h>
#include <reportgenerator/reportbase/ellipse.h>
#include <reportgenerator/reportbase/frequencyinformation.h>
#include <reportgenerator/reportbase/frequencylistvalue.h>
#include <reportgenerator/reportbase/frequencyrangeold.h>
#include <reportgenerator/reportbase/measurementtime.h>
#include <reportgenerator/reportbase/scanparameter.h>
#include <reportgenerator/reportbase/valueminmax.h>

#include <gtest/gtest.h>

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <string>
#include <type_traits>
#include <vector>

namespace {

using REPORTGENERATOR::ChannelSpacing;
using REPORTGENERATOR::Ellipse;
using REPORTGENERATOR::FrequencyInformation;
using REPORTGENERATOR::FrequencyListValue;
using REPORTGENERATOR::FrequencyRangeOld;
using REPORTGENERATOR::MeasurementTime;
using REPORTGENERATOR::ScanParameter;
using REPORTGENERATOR::ValueMinMax;
using Support::NewLogger;
using Support::Opened;
using Support::Sample;
using Support::Text;

template <class T>
class PlainClassXml : public Support::PlainClassTest<T>
{
};

TYPED_TEST_SUITE(PlainClassXml, Support::PlainClasses, Support::PlainClassNames);

} // namespace

// --- Reading ----------------------------------------------------------------------------------------------

TYPED_TEST(PlainClassXml, ReadsWhatItWrites)
{
    if constexpr (Sample<TypeParam>::READS_WHAT_IT_WRITES) {
        for (const bool validate : {true, false}) {
            const auto logger = NewLogger();
            TypeParam object;
            object.SetValidate(validate);
            object.SetLogger(logger);
            bool found = false;
            EXPECT_NO_RG_THROW(found = object.SetXmlString(Text(Sample<TypeParam>::XML), true));
            EXPECT_TRUE(found);
            EXPECT_LOG(logger, QStringList{this->Line("INFO: ", ": Loading xml string.")});
            EXPECT_XML(object, Sample<TypeParam>::XML);
        }
    } else {
        // The text of the mode can't be read back, and a lone value has no element of its object name.
        TypeParam object = Sample<TypeParam>::Filled();
        if (std::is_same_v<TypeParam, ValueMinMax>) {
            EXPECT_FALSE(object.SetXmlString(Text(Sample<TypeParam>::XML), true));
            EXPECT_XML(object, Sample<TypeParam>::XML);
        } else {
            EXPECT_RG_THROW(object.SetXmlString(Text(Sample<TypeParam>::XML), true), "RGException",
                            "'MeasurementTime': Invalid MeasurementModeType '-1'.");
        }
    }
}

TYPED_TEST(PlainClassXml, UnknownChildThrowsDirectlyInAllSettings)
{
    const QString xml = this->Element("<Nonsense>1</Nonsense>");
    for (const bool validate : {true, false}) {
        for (const bool logging : {true, false}) {
            const auto logger = NewLogger();
            TypeParam object = Sample<TypeParam>::Filled();
            object.SetValidate(validate);
            if (logging)
                object.SetLogger(logger);
            if (Sample<TypeParam>::READS_CHILDREN) {
                EXPECT_RG_THROW(object.SetXmlString(xml, true), "RGException",
                                this->Line("Unknown Tag 'Nonsense' in '", "'."));
            } else {
                // The base's reading, which looks at no child.
                EXPECT_NO_RG_THROW(EXPECT_TRUE(object.SetXmlString(xml, true)));
            }
            EXPECT_FALSE(object.AnyData()) << "reset before";
            EXPECT_LOG(logger, (logging ? QStringList{this->Line("INFO: ", ": Loading xml string.")}
                                        : QStringList()));
        }
    }
}

namespace {

/// Names that are near to one that the class knows, or known elsewhere.
template <class T>
const std::vector<const char*> UNKNOWN_NAMES = {};
template <>
const std::vector<const char*> UNKNOWN_NAMES<FrequencyRangeOld> = {"Start", "startFrequency", "Stopfrequency",
                                                                   "FrequencyRange"};
template <>
const std::vector<const char*> UNKNOWN_NAMES<FrequencyInformation> = {"Value", "frequency", "StartFrequency",
                                                                      "FrequencyInformation"};
template <>
const std::vector<const char*> UNKNOWN_NAMES<FrequencyListValue> = {"Value", "frequency", "Timestamp",
                                                                    "FrequencyRange"};
template <>
const std::vector<const char*> UNKNOWN_NAMES<Ellipse> = {"minRadius", "Radius", "Ellipse", "Version"};
template <>
const std::vector<const char*> UNKNOWN_NAMES<ChannelSpacing> = {"Step", "SameDistance", "value",
                                                                "ChannelSpacing"};
template <>
const std::vector<const char*> UNKNOWN_NAMES<ScanParameter> = {"StepFrequency", "frequencystep",
                                                               "StartFrequency", "Version", "ScanParameter"};
template <>
const std::vector<const char*> UNKNOWN_NAMES<MeasurementTime> = {"Mode", "measurementMode", "DoubleValue"};

} // namespace

TYPED_TEST(PlainClassXml, OtherChildrenAreUnknownInAllSettings)
{
    EXPECT_EQ(UNKNOWN_NAMES<TypeParam>.empty(), !Sample<TypeParam>::READS_CHILDREN);
    for (const char* name : UNKNOWN_NAMES<TypeParam>) {
        SCOPED_TRACE(name);
        const QString xml = this->Element((std::string("<") + name + "/>").c_str());
        for (const bool validate : {true, false}) {
            TypeParam object;
            object.SetValidate(validate);
            EXPECT_RG_THROW(object.SetXmlString(xml, true), "RGException",
                            Text("Unknown Tag '") + Text(name) + this->Line("' in '", "'."));
        }
    }
}

TYPED_TEST(PlainClassXml, UnknownChildIsNamedAsItStandsInARenamedObject)
{
    if constexpr (Sample<TypeParam>::READS_CHILDREN) {
        Opened<TypeParam> object;
        object.SetObjectName(Text("Renamed"));
        EXPECT_RG_THROW(object.SetXmlString(Text("<Renamed><nonSENSE/></Renamed>"), true), "RGException",
                        "Unknown Tag 'nonSENSE' in 'Renamed'.");
    } else {
        Opened<TypeParam> object(Sample<TypeParam>::Filled());
        object.SetObjectName(Text("Renamed"));
        EXPECT_XML(object, Sample<TypeParam>::XML);
    }
}

TYPED_TEST(PlainClassXml, EmptyElementIsFoundAndResetsTheObject)
{
    const QString xml = Text("<") + Text(Sample<TypeParam>::NAME) + Text("/>");
    TypeParam object = Sample<TypeParam>::Filled();
    object.SetValidate(false);
    EXPECT_TRUE(object.SetXmlString(xml, true));
    EXPECT_FALSE(object.AnyData());
}

TYPED_TEST(PlainClassXml, TextAndCommentsBetweenTheChildrenAreIgnored)
{
    TypeParam object = Sample<TypeParam>::Filled();
    object.SetValidate(false);
    EXPECT_TRUE(
        object.SetXmlString(this->Element(" a <!-- <Nonsense/> --> b <![CDATA[<Nonsense/>]]>"), true));
    EXPECT_FALSE(object.AnyData());
}

TYPED_TEST(PlainClassXml, TextWithoutItsElementLeavesTheObjectAlone)
{
    const auto logger = NewLogger();
    TypeParam object = Sample<TypeParam>::Filled();
    object.SetLogger(logger);
    EXPECT_FALSE(object.SetXmlString(Text("<Nonsense/>"), true));
    EXPECT_FALSE(object.SetXmlString(QString(), false));
    EXPECT_LOG(logger, (QStringList{this->Line("INFO: ", ": Loading xml string."),
                                    this->Line("INFO: ", ": Loading xml string.")}));
    EXPECT_XML(object, Sample<TypeParam>::XML);
}

TYPED_TEST(PlainClassXml, ElementInsideAnotherIsUnsuitableOnlyAsARoot)
{
    const QString xml = Text("<Root>") + this->Element("") + Text("</Root>");
    const auto logger = NewLogger();
    TypeParam object = Sample<TypeParam>::Filled();
    object.SetValidate(false);
    EXPECT_TRUE(object.SetXmlString(xml, false));
    EXPECT_FALSE(object.AnyData());

    object = Sample<TypeParam>::Filled();
    object.SetLogger(logger);
    EXPECT_RG_THROW(object.SetXmlString(xml, true), "RGException", this->Line("Unsuitable XML for ", "!"));
    EXPECT_FALSE(object.AnyData());
    EXPECT_LOG(logger, (QStringList{this->Line("INFO: ", ": Loading xml string."),
                                    this->Line("FATAL ERROR: RGException: Unsuitable XML for ", "!")}));
}

TYPED_TEST(PlainClassXml, MalformedXmlIsLoggedAndThrown)
{
    const QString xml = Text("<") + Text(Sample<TypeParam>::NAME) + Text("> ");
    const QString error = Support::XmlErrorOf(xml);
    ASSERT_FALSE(error.isEmpty());
    const auto logger = NewLogger();
    TypeParam object;
    EXPECT_RG_THROW(object.SetXmlString(xml, true), "RGException", error);
    object.SetLogger(logger);
    EXPECT_RG_THROW(object.SetXmlString(xml, true), "RGException", error);
    EXPECT_LOG(logger, (QStringList{this->Line("INFO: ", ": Loading xml string."),
                                    Text("FATAL ERROR: RGException: ") + error}));
}

TYPED_TEST(PlainClassXml, IsSavedToAFileAndLoadedWithoutMoreLines)
{
    const Support::TemporaryFolder folder;
    const TypeParam source = Sample<TypeParam>::Filled();
    EXPECT_TRUE(source.SaveXml(folder.Path("object.xml")));
    EXPECT_BYTES(folder.Read("object.xml"), QByteArray(Sample<TypeParam>::XML));

    if constexpr (Sample<TypeParam>::READS_WHAT_IT_WRITES) {
        const auto logger = NewLogger();
        TypeParam object;
        object.SetLogger(logger);
        EXPECT_TRUE(object.LoadXml(folder.Path("object.xml")));
        EXPECT_LOG(logger, QStringList{this->Line("INFO: ", ": Loading xml file \"") +
                                       folder.Path("object.xml") + Text("\".")});
        EXPECT_XML(object, Sample<TypeParam>::XML);
    }
}

TYPED_TEST(PlainClassXml, RefusedObjectIsSavedAsAnEmptyFileOnlyWhenNotValidating)
{
    const Support::TemporaryFolder folder;
    const TypeParam object = Sample<TypeParam>::Refused();
    EXPECT_RG_THROW(object.SaveXml(folder.Path("refused.xml")), "RGException", Sample<TypeParam>::PROBLEM);
    object.SetValidate(false);
    EXPECT_TRUE(object.SaveXml(folder.Path("saved.xml")));
    EXPECT_BYTES(folder.Read("saved.xml"), QByteArray());
}

TYPED_TEST(PlainClassXml, SavingWhereNoFileCanBeGivesFalse)
{
    const Support::TemporaryFolder folder;
    const auto logger = NewLogger();
    const TypeParam object = Sample<TypeParam>::Filled();
    object.SetLogger(logger);
    EXPECT_FALSE(object.SaveXml(folder.Path("none/object.xml")));
    EXPECT_LOG(logger, {});
}

TYPED_TEST(PlainClassXml, LoadingAMissingFileThrowsAndLeavesTheObjectAlone)
{
    const Support::TemporaryFolder folder;
    for (const bool validate : {true, false}) {
        const auto logger = NewLogger();
        TypeParam object = Sample<TypeParam>::Filled();
        object.SetValidate(validate);
        object.SetLogger(logger);
        EXPECT_RG_THROW(object.LoadXml(folder.Path("none.xml")), "RGException",
                        Text("Can't open file for reading: '") + folder.Path("none.xml") + Text("'"));
        EXPECT_LOG(logger, {});
        EXPECT_XML(object, Sample<TypeParam>::XML);
    }
}

TYPED_TEST(PlainClassXml, LoadedFileWithAnUnknownChildIsRefusedInAllSettings)
{
    const Support::TemporaryFolder folder;
    const QString path = folder.Write("object.xml", this->Element("<Nonsense/>").toUtf8());
    for (const bool validate : {true, false}) {
        const auto logger = NewLogger();
        TypeParam object = Sample<TypeParam>::Filled();
        object.SetValidate(validate);
        object.SetLogger(logger);
        if (Sample<TypeParam>::READS_CHILDREN) {
            EXPECT_RG_THROW(object.LoadXml(path), "RGException",
                            this->Line("Unknown Tag 'Nonsense' in '", "'."));
        } else {
            EXPECT_NO_RG_THROW(EXPECT_TRUE(object.LoadXml(path)));
        }
        EXPECT_FALSE(object.AnyData());
        EXPECT_LOG(logger, QStringList{this->Line("INFO: ", ": Loading xml file \"") + path + Text("\".")});
    }
}

TYPED_TEST(PlainClassXml, FileWithoutItsElementResetsTheObjectAndGivesFalse)
{
    const Support::TemporaryFolder folder;
    const QString path = folder.Write("object.xml", "<Nonsense/>");
    for (const bool validate : {true, false}) {
        TypeParam object = Sample<TypeParam>::Filled();
        object.SetValidate(validate);
        bool found = true;
        EXPECT_NO_RG_THROW(found = object.LoadXml(path));
        EXPECT_FALSE(found);
        EXPECT_FALSE(object.AnyData());
    }
}
