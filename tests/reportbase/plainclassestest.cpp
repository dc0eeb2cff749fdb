// What the classes without a shared record have in common: they throw directly, trace nothing of their own,
// have no binary form, and are copied whole.

#include "support/bytes.h"
#include "support/expect.h"
#include "support/files.h"
#include "support/plainobject.h"
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
#include <QtCore/QDataStream>
#include <QtCore/QFile>
#include <QtCore/QIODevice>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QXmlStreamReader>

#include <string>
#include <type_traits>
#include <typeinfo>
#include <utility>

namespace {

using REPORTGENERATOR::ChannelSpacing;
using REPORTGENERATOR::Ellipse;
using REPORTGENERATOR::FrequencyInformation;
using REPORTGENERATOR::FrequencyListValue;
using REPORTGENERATOR::FrequencyRangeOld;
using REPORTGENERATOR::MeasurementTime;
using REPORTGENERATOR::ObjectTypes;
using REPORTGENERATOR::ScanParameter;
using REPORTGENERATOR::ValueMinMax;
using Support::NewLogger;
using Support::PlainObject;
using Support::String;
using Support::Text;

/// A class with those members of its base opened that give it another identity.
template <class T>
class Opened : public T
{
public:
    Opened() = default;
    explicit Opened(const T& object) : T(object) {}

    using T::ProcessXmlStartElement;
    using T::SetObjectId;
    using T::SetObjectName;
    using T::SetObjectType;
};

/// What holds for all samples but those that say otherwise.
struct SampleDefaults
{
    static constexpr bool READS_CHILDREN = true;
    static constexpr bool READS_WHAT_IT_WRITES = true;
};

/// An object of a class with everything set, one that its check refuses, and what belongs to them.
template <class T>
struct Sample;

template <>
struct Sample<ValueMinMax> : SampleDefaults
{
    static constexpr const char* NAME = "AnyType";
    static constexpr const char16_t* WIDE_NAME = u"AnyType";
    static constexpr const char* XML = "\n<N Min=\"1.00\" Max=\"3.00\">2.00</N>";
    static constexpr const char* PROBLEM = "ValueMinMax: Please set object name!";

    /// Its element doesn't bear the object name and is read by the holder alone.
    static constexpr bool READS_CHILDREN = false;
    static constexpr bool READS_WHAT_IT_WRITES = false;

    static ValueMinMax Filled()
    {
        ValueMinMax value(2.0);
        value.SetName(Text("N"));
        value.SetMin(1.0);
        value.SetMax(3.0);
        return value;
    }

    static ValueMinMax Refused() { return ValueMinMax(2.0); }
};

template <>
struct Sample<FrequencyRangeOld> : SampleDefaults
{
    static constexpr const char* NAME = "FrequencyRange";
    static constexpr const char16_t* WIDE_NAME = u"FrequencyRange";
    static constexpr const char* XML = "\n<FrequencyRange>"
                                       "\n    <StartFrequency>87.50</StartFrequency>"
                                       "\n    <StopFrequency>108.00</StopFrequency>"
                                       "\n</FrequencyRange>";
    static constexpr const char* PROBLEM = "FrequencyRange: Please set StopFrequency";

    static FrequencyRangeOld Filled()
    {
        FrequencyRangeOld range;
        range.SetStartFrequency(87.5);
        range.SetStopFrequency(108.0);
        return range;
    }

    static FrequencyRangeOld Refused()
    {
        FrequencyRangeOld range;
        range.SetStartFrequency(87.5);
        return range;
    }
};

template <>
struct Sample<FrequencyInformation> : SampleDefaults
{
    static constexpr const char* NAME = "FrequencyInformation";
    static constexpr const char16_t* WIDE_NAME = u"FrequencyInformation";
    static constexpr const char* XML = "\n<FrequencyInformation>"
                                       "\n    <Frequency Min=\"121.25\" Max=\"121.75\">121.50</Frequency>"
                                       "\n</FrequencyInformation>";
    static constexpr const char* PROBLEM =
        "FrequencyInformation: Please set either Frequency or FrequencyRange!";

    static FrequencyInformation Filled()
    {
        FrequencyInformation information;
        information.SetFrequency(121.5);
        information.SetFrequencyMinMax(121.25, 121.75);
        return information;
    }

    static FrequencyInformation Refused()
    {
        FrequencyInformation information = Filled();
        information.SetFrequencyRange(Sample<FrequencyRangeOld>::Filled());
        return information;
    }
};

template <>
struct Sample<FrequencyListValue> : SampleDefaults
{
    static constexpr const char* NAME = "Value";
    static constexpr const char16_t* WIDE_NAME = u"Value";
    static constexpr const char* XML = "\n<Value>"
                                       "\n    <Frequency Min=\"121.25\" Max=\"121.75\">121.50</Frequency>"
                                       "\n    <TimeStamp>2017-02-03T14:05:09.007Z</TimeStamp>"
                                       "\n</Value>";
    static constexpr const char* PROBLEM = "FrequencyList: Please set Value!";

    /// The time stamp can only be read.
    static FrequencyListValue Refused()
    {
        FrequencyListValue entry;
        Support::ReadElement(entry, Text("<Value><TimeStamp>2017-02-03T14:05:09.007Z</TimeStamp></Value>"));
        return entry;
    }

    static FrequencyListValue Filled()
    {
        FrequencyListValue entry = Refused();
        entry.SetFrequency(121.5);
        entry.SetFrequencyMinMax(121.25, 121.75);
        return entry;
    }
};

template <>
struct Sample<Ellipse> : SampleDefaults
{
    static constexpr const char* NAME = "Ellipse";
    static constexpr const char16_t* WIDE_NAME = u"Ellipse";
    static constexpr const char* XML = "\n<Ellipse>"
                                       "\n    <MinRadius>100.00</MinRadius>"
                                       "\n    <MaxRadius>250.50</MaxRadius>"
                                       "\n    <Rotation>30.00</Rotation>"
                                       "\n</Ellipse>";
    static constexpr const char* PROBLEM = "Ellipse: Please set MinRadius!";

    static Ellipse Refused()
    {
        Ellipse ellipse;
        ellipse.SetRotation(30.0);
        return ellipse;
    }

    static Ellipse Filled()
    {
        Ellipse ellipse = Refused();
        ellipse.SetMinRadius(100.0);
        ellipse.SetMaxRadius(250.5);
        return ellipse;
    }
};

template <>
struct Sample<ChannelSpacing> : SampleDefaults
{
    static constexpr const char* NAME = "ChannelSpacing";
    static constexpr const char16_t* WIDE_NAME = u"ChannelSpacing";
    static constexpr const char* XML = "\n<ChannelSpacing>"
                                       "\n    <Visual>Aero</Visual>"
                                       "\n    <Samedistance>false</Samedistance>"
                                       "\n    <Value>8.25</Value>"
                                       "\n    <Value>25.00</Value>"
                                       "\n</ChannelSpacing>";
    static constexpr const char* PROBLEM = "ChannelSpacing: Please set Samedistance!";

    static ChannelSpacing Refused()
    {
        ChannelSpacing spacing;
        spacing.SetVisual(Text("Aero"));
        spacing.SetValues({8.25, 25.0});
        return spacing;
    }

    static ChannelSpacing Filled()
    {
        ChannelSpacing spacing = Refused();
        spacing.SetSameDistance(false);
        return spacing;
    }
};

template <>
struct Sample<ScanParameter> : SampleDefaults
{
    static constexpr const char* NAME = "ScanParameter";
    static constexpr const char16_t* WIDE_NAME = u"ScanParameter";
    static constexpr const char* XML = "\n<ScanParameter Version=\"1.0\">"
                                       "\n    <FrequencyRange>"
                                       "\n        <StartFrequency>87.50</StartFrequency>"
                                       "\n        <StopFrequency>108.00</StopFrequency>"
                                       "\n    </FrequencyRange>"
                                       "\n    <FrequencyStep>12.50</FrequencyStep>"
                                       "\n    <DwellTime>0.25</DwellTime>"
                                       "\n    <HoldTime>3.00</HoldTime>"
                                       "\n</ScanParameter>";
    static constexpr const char* PROBLEM = "ScanParameter: PLease set FrequencyStep!";

    static ScanParameter Refused()
    {
        ScanParameter scan;
        scan.SetFrequencyRange(Sample<FrequencyRangeOld>::Filled());
        scan.SetDwellTime(0.25);
        scan.SetHoldTime(3.0);
        return scan;
    }

    static ScanParameter Filled()
    {
        ScanParameter scan = Refused();
        scan.SetStepFrequency(12.5);
        return scan;
    }
};

template <>
struct Sample<MeasurementTime> : SampleDefaults
{
    static constexpr const char* NAME = "MeasurementTime";
    static constexpr const char16_t* WIDE_NAME = u"MeasurementTime";
    static constexpr const char* XML = "\n<MeasurementTime>"
                                       "\n    <MeasurementTime>"
                                       "\n        <DoubleValue>2.500000</DoubleValue>"
                                       "\n    </MeasurementTime>"
                                       "\n    <MeasurementMode></MeasurementMode>"
                                       "\n</MeasurementTime>";
    static constexpr const char* PROBLEM = "MeasurementTime: Please set MeasurementMode!";

    /// The name of the mode is written empty.
    static constexpr bool READS_WHAT_IT_WRITES = false;

    static MeasurementTime Refused()
    {
        MeasurementTime time;
        time.GetMeasurementTime().SetValue(2.5);
        return time;
    }

    static MeasurementTime Filled()
    {
        MeasurementTime time = Refused();
        time.SetMeasurementMode(MeasurementTime::Periodic);
        return time;
    }
};

using Classes = testing::Types<ValueMinMax, FrequencyRangeOld, FrequencyInformation, FrequencyListValue,
                               Ellipse, ChannelSpacing, ScanParameter, MeasurementTime>;

struct ClassNames
{
    template <class T>
    static std::string GetName(int)
    {
        return std::is_same_v<T, ValueMinMax>          ? "ValueMinMax"
               : std::is_same_v<T, FrequencyRangeOld>  ? "FrequencyRangeOld"
               : std::is_same_v<T, FrequencyListValue> ? "FrequencyListValue"
                                                       : Sample<T>::NAME;
    }
};

template <class T>
class PlainClass : public testing::Test
{
protected:
    /// "<Name>children</Name>" with the name of the class's element.
    static QString Element(const char* children)
    {
        const QString name = Text(Sample<T>::NAME);
        return QLatin1Char('<') + name + QLatin1Char('>') + Text(children) + QLatin1String("</") + name +
               QLatin1Char('>');
    }

    static QString Line(const char* start, const char* end = "")
    {
        return Text(start) + Text(Sample<T>::NAME) + Text(end);
    }

    static QString Written(const T& object) { return Support::UnindentedXmlOf(object); }
};

} // namespace

TYPED_TEST_SUITE(PlainClass, Classes, ClassNames);

// --- Identity and copies ----------------------------------------------------------------------------------

TYPED_TEST(PlainClass, IsOfNoKindOfItsOwn)
{
    const TypeParam object;
    EXPECT_EQ(object.GetObjectType(), static_cast<ObjectTypes>(80));
    EXPECT_EQ(object.GetObjectId(), 80);
    EXPECT_TEXT(object.GetObjectName(), Sample<TypeParam>::NAME);
    EXPECT_TRUE(object.GetValidate());
    EXPECT_EQ(object.GetLogger(), nullptr);
    EXPECT_TEXT(object.GetVersion(), (std::is_same_v<TypeParam, ScanParameter>) ? "1.0" : "");
}

TYPED_TEST(PlainClass, StartsAndResetsWithoutData)
{
    TypeParam object;
    EXPECT_FALSE(object.HasData());
    EXPECT_FALSE(object.AnyData());
    EXPECT_TEXT(this->Written(object), "");

    object = Sample<TypeParam>::Filled();
    EXPECT_TRUE(object.HasData());
    EXPECT_TRUE(object.AnyData());
    object.Reset();
    EXPECT_FALSE(object.HasData());
    EXPECT_FALSE(object.AnyData());
    EXPECT_TEXT(this->Written(object), "");
}

TYPED_TEST(PlainClass, ResetKeepsTheBase)
{
    const auto logger = NewLogger();
    Opened<TypeParam> object(Sample<TypeParam>::Filled());
    object.SetObjectType(static_cast<ObjectTypes>(41));
    object.SetObjectId(7);
    object.SetValidate(false);
    object.SetLogger(logger);
    object.Reset();
    EXPECT_EQ(object.GetObjectType(), static_cast<ObjectTypes>(41));
    EXPECT_EQ(object.GetObjectId(), 7);
    EXPECT_TEXT(object.GetObjectName(), "JobHeader");
    EXPECT_FALSE(object.GetValidate());
    EXPECT_EQ(object.GetLogger(), logger);
    EXPECT_LOG(logger, {});
}

TYPED_TEST(PlainClass, CopyTakesTheBaseAndEveryField)
{
    const auto logger = NewLogger();
    Opened<TypeParam> source(Sample<TypeParam>::Filled());
    source.SetObjectType(static_cast<ObjectTypes>(41));
    source.SetObjectId(7);
    source.SetObjectName(Text("Renamed"));
    source.SetValidate(false);
    source.SetLogger(logger);

    const TypeParam copy(source);
    TypeParam assigned;
    assigned = source;
    for (const TypeParam* object : {&copy, &std::as_const(assigned)}) {
        EXPECT_EQ(object->GetObjectType(), static_cast<ObjectTypes>(41));
        EXPECT_EQ(object->GetObjectId(), 7);
        EXPECT_TEXT(object->GetObjectName(), "Renamed");
        EXPECT_FALSE(object->GetValidate());
        EXPECT_EQ(object->GetLogger(), logger);

        QString expected = Text(Sample<TypeParam>::XML);
        if (!std::is_same_v<TypeParam, ValueMinMax>) {
            const auto outerStart = 2;
            const auto length = Text(Sample<TypeParam>::NAME).size();
            expected.replace(expected.size() - 1 - length, length, Text("Renamed"));
            expected.replace(outerStart, length, Text("Renamed"));
        }
        EXPECT_XML(*object, expected);
    }
}

TYPED_TEST(PlainClass, CopiesAreIndependent)
{
    TypeParam source = Sample<TypeParam>::Filled();
    TypeParam copy(source);
    TypeParam assigned;
    assigned = source;
    copy.Reset();
    copy.SetValidate(false);
    EXPECT_XML(source, Sample<TypeParam>::XML);
    source.Reset();
    EXPECT_TRUE(source.GetValidate());
    EXPECT_XML(assigned, Sample<TypeParam>::XML);
}

TYPED_TEST(PlainClass, AssignmentReturnsTheObjectAndMayBeToItself)
{
    TypeParam object = Sample<TypeParam>::Filled();
    const TypeParam& itself = object;
    EXPECT_EQ(&(object = itself), &object);
    EXPECT_XML(object, Sample<TypeParam>::XML);
}

// --- Writing and checking ---------------------------------------------------------------------------------

TYPED_TEST(PlainClass, WritesTheSameXmlInAllSettings)
{
    const TypeParam object = Sample<TypeParam>::Filled();
    for (const bool validate : {true, false}) {
        object.SetValidate(validate);
        object.ResetLogger();
        EXPECT_XML(object, Sample<TypeParam>::XML);

        const auto logger = NewLogger();
        object.SetLogger(logger);
        EXPECT_XML(object, Sample<TypeParam>::XML);
        EXPECT_LOG(logger, QStringList{this->Line("INFO: ", ": Generating xml string.")});
    }
}

TYPED_TEST(PlainClass, CheckThrowsDirectlyInAllSettings)
{
    const TypeParam refused = Sample<TypeParam>::Refused();
    const TypeParam filled = Sample<TypeParam>::Filled();
    for (const bool validate : {true, false}) {
        const auto logger = NewLogger();
        for (const TypeParam* object : {&refused, &filled}) {
            object->SetValidate(validate);
            object->ResetLogger();
        }
        EXPECT_RG_THROW(refused.Check(), "RGException", Sample<TypeParam>::PROBLEM);
        EXPECT_NO_RG_THROW(filled.Check());

        refused.SetLogger(logger);
        filled.SetLogger(logger);
        EXPECT_RG_THROW(refused.Check(), "RGException", Sample<TypeParam>::PROBLEM);
        EXPECT_RG_THROW(refused.Check(true), "RGException", Sample<TypeParam>::PROBLEM);
        EXPECT_RG_THROW(refused.Check(false), "RGException", Sample<TypeParam>::PROBLEM);
        EXPECT_NO_RG_THROW(filled.Check());
        EXPECT_NO_RG_THROW(filled.Check(true));
        EXPECT_LOG(logger, {});
        EXPECT_FALSE(logger->HasErrors());
    }
}

TYPED_TEST(PlainClass, RefusalNamesTheObjectByItsCurrentName)
{
    // Two classes have a fixed text, which doesn't begin with the name.
    QString problem = Text(Sample<TypeParam>::PROBLEM);
    const QString start = this->Line("", ":");
    const bool isFixed =
        std::is_same_v<TypeParam, ValueMinMax> || std::is_same_v<TypeParam, FrequencyListValue>;
    ASSERT_EQ(problem.startsWith(start), !isFixed);
    if (!isFixed)
        problem.replace(0, start.size(), Text("Renamed:"));

    Opened<TypeParam> object(Sample<TypeParam>::Refused());
    object.SetObjectName(Text("Renamed"));
    EXPECT_RG_THROW(object.Check(), "RGException", problem);
}

TYPED_TEST(PlainClass, RefusedObjectThrowsWhenValidatingAndWritesNothingOtherwise)
{
    const TypeParam object = Sample<TypeParam>::Refused();
    const auto logger = NewLogger();
    object.SetLogger(logger);
    EXPECT_RG_THROW(object.GetXmlString(), "RGException", Sample<TypeParam>::PROBLEM);
    EXPECT_LOG(logger, QStringList{this->Line("INFO: ", ": Generating xml string.")});

    object.SetValidate(false);
    EXPECT_XML(object, "");
}

TYPED_TEST(PlainClass, ElementOfARefusedObjectIsLeftOutWithoutACheck)
{
    const TypeParam object = Sample<TypeParam>::Refused();
    for (const bool validate : {true, false}) {
        object.SetValidate(validate);
        QString written = Text("untouched");
        EXPECT_NO_RG_THROW(written = this->Written(object));
        EXPECT_TEXT(written, "");
    }
}

// --- Reading ----------------------------------------------------------------------------------------------

TYPED_TEST(PlainClass, ReadsWhatItWrites)
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

TYPED_TEST(PlainClass, UnknownChildThrowsDirectlyInAllSettings)
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

TYPED_TEST(PlainClass, UnknownChildIsNamedAsItStandsInARenamedObject)
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

TYPED_TEST(PlainClass, EmptyElementIsFoundAndResetsTheObject)
{
    const QString xml = Text("<") + Text(Sample<TypeParam>::NAME) + Text("/>");
    TypeParam object = Sample<TypeParam>::Filled();
    object.SetValidate(false);
    EXPECT_TRUE(object.SetXmlString(xml, true));
    EXPECT_FALSE(object.AnyData());
}

TYPED_TEST(PlainClass, TextAndCommentsBetweenTheChildrenAreIgnored)
{
    TypeParam object = Sample<TypeParam>::Filled();
    object.SetValidate(false);
    EXPECT_TRUE(
        object.SetXmlString(this->Element(" a <!-- <Nonsense/> --> b <![CDATA[<Nonsense/>]]>"), true));
    EXPECT_FALSE(object.AnyData());
}

TYPED_TEST(PlainClass, TextWithoutItsElementLeavesTheObjectAlone)
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

TYPED_TEST(PlainClass, ElementInsideAnotherIsUnsuitableOnlyAsARoot)
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

TYPED_TEST(PlainClass, MalformedXmlIsLoggedAndThrown)
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

TYPED_TEST(PlainClass, IsSavedToAFileAndLoadedWithoutMoreLines)
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

TYPED_TEST(PlainClass, RefusedObjectIsSavedAsAnEmptyFileOnlyWhenNotValidating)
{
    const Support::TemporaryFolder folder;
    const TypeParam object = Sample<TypeParam>::Refused();
    EXPECT_RG_THROW(object.SaveXml(folder.Path("refused.xml")), "RGException", Sample<TypeParam>::PROBLEM);
    object.SetValidate(false);
    EXPECT_TRUE(object.SaveXml(folder.Path("saved.xml")));
    EXPECT_BYTES(folder.Read("saved.xml"), QByteArray());
}

TYPED_TEST(PlainClass, SavingWhereNoFileCanBeGivesFalse)
{
    const Support::TemporaryFolder folder;
    const auto logger = NewLogger();
    const TypeParam object = Sample<TypeParam>::Filled();
    object.SetLogger(logger);
    EXPECT_FALSE(object.SaveXml(folder.Path("none/object.xml")));
    EXPECT_LOG(logger, {});
}

TYPED_TEST(PlainClass, LoadingAMissingFileThrowsAndLeavesTheObjectAlone)
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

TYPED_TEST(PlainClass, LoadedFileWithAnUnknownChildIsRefusedInAllSettings)
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

TYPED_TEST(PlainClass, FileWithoutItsElementResetsTheObjectAndGivesFalse)
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

// --- Merging ----------------------------------------------------------------------------------------------

TYPED_TEST(PlainClass, MergeOfAnotherClassIsRefusedWithAWarning)
{
    const auto logger = NewLogger();
    TypeParam object = Sample<TypeParam>::Filled();
    object.SetLogger(logger);
    const PlainObject other;
    EXPECT_FALSE(object.MergeRGObject(other));
    EXPECT_LOG(logger,
               QStringList{this->Line("WARNING: ", ": Merging will be aborted, because a type mismatch "
                                                   "occurred. ") +
                           Text(typeid(PlainObject).name()) + Text(" != ") + Text(typeid(TypeParam).name())});
    EXPECT_XML(object, Sample<TypeParam>::XML);
}

TYPED_TEST(PlainClass, MergeOfAnObjectThatWritesNothingChangesNothing)
{
    TypeParam object = Sample<TypeParam>::Filled();
    TypeParam other = Sample<TypeParam>::Refused();
    other.SetValidate(false);
    EXPECT_TRUE(object.MergeRGObject(other));
    EXPECT_XML(object, Sample<TypeParam>::XML);
}

TYPED_TEST(PlainClass, MergeOfARefusedObjectThrowsWhenTheOtherValidates)
{
    TypeParam object = Sample<TypeParam>::Filled();
    object.SetValidate(false);
    const TypeParam other = Sample<TypeParam>::Refused();
    EXPECT_RG_THROW(object.MergeRGObject(other), "RGException", Sample<TypeParam>::PROBLEM);
    EXPECT_XML(object, Sample<TypeParam>::XML);
}

TYPED_TEST(PlainClass, MergeIntoAnEmptyObjectTakesEverything)
{
    const TypeParam other = Sample<TypeParam>::Filled();
    TypeParam object;
    if constexpr (Sample<TypeParam>::READS_WHAT_IT_WRITES) {
        EXPECT_TRUE(object.MergeRGObject(other));
        EXPECT_XML(object, Sample<TypeParam>::XML);
    } else if constexpr (std::is_same_v<TypeParam, ValueMinMax>) {
        EXPECT_FALSE(object.MergeRGObject(other)) << "its element is not named as the object is";
        EXPECT_FALSE(object.AnyData());
    } else {
        EXPECT_RG_THROW(object.MergeRGObject(other), "RGException",
                        "'MeasurementTime': Invalid MeasurementModeType '-1'.");
    }
}

TYPED_TEST(PlainClass, MergeTracesTheWritingOfTheOtherOnly)
{
    const auto logger = NewLogger();
    const auto otherLogger = NewLogger();
    const TypeParam other = Sample<TypeParam>::Filled();
    other.SetLogger(otherLogger);
    TypeParam object = Sample<TypeParam>::Filled();
    object.SetLogger(logger);
    if constexpr (std::is_same_v<TypeParam, MeasurementTime>) {
        EXPECT_RG_THROW(object.MergeRGObject(other), "RGException",
                        "'MeasurementTime': Invalid MeasurementModeType '-1'.");
    } else {
        EXPECT_EQ(object.MergeRGObject(other), Sample<TypeParam>::READS_WHAT_IT_WRITES);
    }
    EXPECT_LOG(logger, {});
    EXPECT_LOG(otherLogger, QStringList{this->Line("INFO: ", ": Generating xml string.")});
}

// --- No binary form ---------------------------------------------------------------------------------------

TYPED_TEST(PlainClass, RefusesItsBinaryBodyWhenValidating)
{
    const auto logger = NewLogger();
    TypeParam object = Sample<TypeParam>::Filled();
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    EXPECT_RG_THROW(object.GetBinary(stream, 1, true), "RGException",
                    "GetBinary is not implemented for object of type 80.");
    EXPECT_RG_THROW(object.SetBinary(stream, 0), "RGException",
                    "SetBinary is not implemented for object of type 80.");
    EXPECT_TRUE(bytes.isEmpty());

    object.SetLogger(logger);
    EXPECT_RG_THROW(object.GetBinary(stream, 1, false), "RGException",
                    "GetBinary is not implemented for object of type 80.");
    EXPECT_RG_THROW(object.SetBinary(stream, 0), "RGException",
                    "SetBinary is not implemented for object of type 80.");
    EXPECT_LOG(logger, {"FATAL ERROR: RGException: GetBinary is not implemented for object of type 80.",
                        "FATAL ERROR: RGException: SetBinary is not implemented for object of type 80."});
    EXPECT_XML(object, Sample<TypeParam>::XML);
}

TYPED_TEST(PlainClass, RefusalNamesTheNumberOfTheKind)
{
    Opened<TypeParam> object(Sample<TypeParam>::Filled());
    object.SetObjectType(static_cast<ObjectTypes>(41));
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    EXPECT_RG_THROW(object.GetBinary(stream, 1, true), "RGException",
                    "GetBinary is not implemented for object of type 41.");
    EXPECT_RG_THROW(object.SetBinary(stream, 0), "RGException",
                    "SetBinary is not implemented for object of type 41.");
}

TYPED_TEST(PlainClass, WritesAndReadsNoBinaryBodyWhenNotValidating)
{
    const auto logger = NewLogger();
    TypeParam object = Sample<TypeParam>::Filled();
    object.SetValidate(false);
    object.SetLogger(logger);
    QByteArray written;
    QDataStream out(&written, QIODevice::WriteOnly);
    EXPECT_TRUE(object.GetBinary(out, 1, true));
    EXPECT_TRUE(object.GetBinary(out, 1, false));
    EXPECT_TRUE(written.isEmpty());

    EXPECT_EQ(Support::ReadElements(object, 4, Support::Raw("abcd")), 4)
        << "nothing is taken from the stream";
    EXPECT_LOG(logger, {});
    EXPECT_XML(object, Sample<TypeParam>::XML);
}

TYPED_TEST(PlainClass, RepresentationsRefuseWhenValidating)
{
    const auto logger = NewLogger();
    TypeParam object = Sample<TypeParam>::Filled();
    object.SetLogger(logger);
    const char* refusal = "GetBinary is not implemented for object of type 80.";
    EXPECT_RG_THROW(object.GetBinaryRepresentationAsQByteArray(), "RGException", refusal);
    EXPECT_LOG(logger,
               (QStringList{this->Line("INFO: ", ": Generating binary representation (target: byte array)."),
                            this->Line("INFO: ", ": Generating binary representation (target: data stream)."),
                            Text("FATAL ERROR: RGException: ") + Text(refusal)}));
    EXPECT_RG_THROW(object.GetCompressedBinaryRepresentationAsQByteArray(9), "RGException", refusal);

    QByteArray representation =
        Support::Representation(Sample<TypeParam>::WIDE_NAME, Support::Bytes()).Data();
    logger->Reset(true);
    EXPECT_RG_THROW(object.SetBinaryRepresentation(representation), "RGException",
                    "SetBinary is not implemented for object of type 80.");
    EXPECT_LOG(logger,
               (QStringList{this->Line("INFO: ", ": Loading binary representation (source: byte array)."),
                            this->Line("INFO: ", ": Loading binary representation (source: data stream)."),
                            Text("FATAL ERROR: RGException: SetBinary is not implemented for object of type "
                                 "80.")}));
    EXPECT_XML(object, Sample<TypeParam>::XML);

    const TypeParam refused = Sample<TypeParam>::Refused();
    EXPECT_RG_THROW(refused.GetBinaryRepresentationAsQByteArray(), "RGException", Sample<TypeParam>::PROBLEM);
    EXPECT_RG_THROW(refused.GetCompressedBinaryRepresentationAsQByteArray(9), "RGException",
                    Sample<TypeParam>::PROBLEM);
}

TYPED_TEST(PlainClass, RepresentationsHoldTheNameAloneWhenNotValidating)
{
    TypeParam object = Sample<TypeParam>::Filled();
    object.SetValidate(false);
    EXPECT_BYTES(object.GetBinaryRepresentationAsQByteArray(),
                 String(u"IRGObject") + String(Sample<TypeParam>::WIDE_NAME));

    QByteArray representation =
        Support::Representation(Sample<TypeParam>::WIDE_NAME, Support::Raw("abcd")).Data();
    EXPECT_TRUE(object.SetBinaryRepresentation(representation));
    EXPECT_XML(object, Sample<TypeParam>::XML);
}

TYPED_TEST(PlainClass, CompressedRepresentationHoldsAnEmptyBodyWhenNotValidating)
{
    TypeParam object = Sample<TypeParam>::Filled();
    object.SetValidate(false);
    QByteArray representation = object.GetCompressedBinaryRepresentationAsQByteArray(9);
    const QByteArray start = (String(u"IRGObjectQCompress") + String(Sample<TypeParam>::WIDE_NAME)).Data();
    EXPECT_BYTES(representation.left(start.size()), start);

    QByteArray compressed;
    QDataStream stream(representation.mid(start.size()));
    stream.setVersion(QDataStream::Qt_4_6);
    stream >> compressed;
    EXPECT_TRUE(stream.atEnd());
    EXPECT_TRUE(TypeParam::UncompressBinary(compressed).isEmpty());

    EXPECT_TRUE(object.SetBinaryRepresentation(representation));
    EXPECT_XML(object, Sample<TypeParam>::XML);
}

TYPED_TEST(PlainClass, BinaryFileIsRefusedWhenValidatingAndResetsTheObjectInAllSettings)
{
    const Support::TemporaryFolder folder;
    const QByteArray representation =
        Support::Representation(Sample<TypeParam>::WIDE_NAME, Support::Raw("abcd")).Data();
    const QString path =
        folder.Write("object.bin", Support::Written([&](QDataStream& stream) { stream << representation; }));
    for (const bool validate : {true, false}) {
        const auto logger = NewLogger();
        TypeParam object = Sample<TypeParam>::Filled();
        object.SetValidate(validate);
        object.SetLogger(logger);
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        QStringList lines = {this->Line("INFO: ", ": Loading binary file \"") + path + Text("\"."),
                             this->Line("INFO: ", ": Loading binary representation (source: byte array)."),
                             this->Line("INFO: ", ": Loading binary representation (source: data stream).")};
        if (validate) {
            EXPECT_RG_THROW(object.LoadBinary(&file), "RGException",
                            "SetBinary is not implemented for object of type 80.");
            lines << Text("FATAL ERROR: RGException: SetBinary is not implemented for object of type 80.");
        } else {
            EXPECT_NO_RG_THROW(EXPECT_TRUE(object.LoadBinary(&file)));
        }
        EXPECT_LOG(logger, lines);
        EXPECT_FALSE(object.AnyData());
    }
}
