#ifndef TESTS_SUPPORT_RECORDCLASSES_H
#define TESTS_SUPPORT_RECORDCLASSES_H

// The five classes with a record, and what a test that runs for all of them has to know of each.
//
//     template <class T>
//     class RecordObject : public ::testing::Test {};
//     TYPED_TEST_SUITE(RecordObject, Support::RecordClasses, Support::RecordClassNames);
//
//     TYPED_TEST(RecordObject, CopyHasTheFields)
//     {
//         const TypeParam object = Filled<TypeParam>(1.0);     // everything that it needs, made of one number
//         EXPECT_XML(TypeParam(object), XmlOfOne<TypeParam>());
//         TypeParam used = Used<TypeParam>();                  // holds something in each field
//         …
//     }

#include "support/bytes.h"
#include "support/expect.h"
#include "support/points.h"
#include "support/records.h"
#include "support/states.h"

#include <reportgenerator/reportbase/area.h>
#include <reportgenerator/reportbase/coordinate.h>
#include <reportgenerator/reportbase/frequency.h>
#include <reportgenerator/reportbase/ifbandwidth.h>
#include <reportgenerator/reportbase/reportbase.h>

#include <gtest/gtest.h>

#include <QtCore/QString>
#include <QtCore/QStringList>

#include <initializer_list>
#include <optional>
#include <string>
#include <utility>

namespace Support {

template <class T>
using StateOfClass = decltype(StateOf(std::declval<const T&>()));

constexpr std::nullopt_t NOT_SET = std::nullopt;

template <class T>
struct RecordClass;

template <class T>
void ExpectUnsetBoundsAreZero(const T& object)
{
    EXPECT_TRUE(object.IsValueSet() || BitsOf(object.GetValue()) == BitsOf(0.0));
    EXPECT_TRUE(object.IsMinSet() || BitsOf(object.GetMin()) == BitsOf(0.0));
    EXPECT_TRUE(object.IsMaxSet() || BitsOf(object.GetMax()) == BitsOf(0.0));
}

// XML is what an object filled with 1.0 writes, with "@" for the name of its element.

template <>
struct RecordClass<REPORTGENERATOR::Frequency>
{
    using T = REPORTGENERATOR::Frequency;

    static constexpr const char* NAME = "Frequency";
    static constexpr long long ID = 0xc6b750e3;
    static constexpr const char* XML = "\n<@>1.00</@>";
    static constexpr const char* PROBLEM_OF_NEW = "@: Please set Value properly.";

    static void Fill(T& object, double number) { object.SetValue(number); }
    static void MakeRecord(const T& object) { object.GetValue(); }
    static FrequencyState Used() { return {7.0, 8.0, 9.0, false}; }
    static FrequencyState AfterResetToDefault() { return {NOT_SET, NOT_SET, NOT_SET, true}; }
    static Bytes RawOfNew() { return Byte(0) + Double(0.0); }
    static void ExpectUnsetFieldsHaveDefaults(const T& object)
    {
        ExpectUnsetBoundsAreZero(object);
        EXPECT_TRUE(object.IsUseSet() || object.GetUse());
    }
};

template <>
struct RecordClass<REPORTGENERATOR::IFBandwidth>
{
    using T = REPORTGENERATOR::IFBandwidth;

    static constexpr const char* NAME = "IFBandwidth";
    static constexpr long long ID = 0xcf7b9707;
    static constexpr const char* XML = "\n<@>1.00</@>";
    static constexpr const char* PROBLEM_OF_NEW = "@: Please set Value properly.";

    static void Fill(T& object, double number) { object.SetValue(number); }
    static void MakeRecord(const T& object) { object.GetValue(); }
    static BandwidthState Used() { return {7.0, 8.0, 9.0}; }
    static BandwidthState AfterResetToDefault() { return {}; }
    static Bytes RawOfNew() { return Byte(0) + Double(0.0); }
    static void ExpectUnsetFieldsHaveDefaults(const T& object) { ExpectUnsetBoundsAreZero(object); }
};

template <>
struct RecordClass<REPORTGENERATOR::Coordinate>
{
    using T = REPORTGENERATOR::Coordinate;

    static constexpr const char* NAME = "Coordinate";
    static constexpr long long ID = 0xce458c11;
    static constexpr const char* XML = "\n<@>\n    <Longitude>1.000000</Longitude>\n"
                                       "    <Latitude>1.000000</Latitude>\n</@>";
    static constexpr const char* PROBLEM_OF_NEW = "@: Please set Longitude properly.";

    static void Fill(T& object, double number)
    {
        object.SetLongitude(number);
        object.SetLatitude(number);
    }
    static void MakeRecord(const T& object) { object.GetLongitude(); }
    static CoordinateState Used() { return {7.0, 8.0}; }
    static CoordinateState AfterResetToDefault() { return {}; }
    static Bytes RawOfNew() { return Byte(0) + Double(0.0) + Double(0.0); }
    static void ExpectUnsetFieldsHaveDefaults(const T& object)
    {
        EXPECT_TRUE(object.IsLongitudeSet() || BitsOf(object.GetLongitude()) == BitsOf(0.0));
        EXPECT_TRUE(object.IsLatitudeSet() || BitsOf(object.GetLatitude()) == BitsOf(0.0));
    }
};

template <>
struct RecordClass<REPORTGENERATOR::Area>
{
    using T = REPORTGENERATOR::Area;

    static constexpr const char* NAME = "Area";
    static constexpr long long ID = 0x469b9976;
    static constexpr const char* XML =
        "\n<@ Version=\"1.0\">\n    <Name>1</Name>\n    <Coordinate>\n"
        "        <Longitude>1.000000</Longitude>\n        <Latitude>1.000000</Latitude>\n"
        "    </Coordinate>\n</@>";
    static constexpr const char* PROBLEM_OF_NEW = "@: Please set Name properly.";

    static void Fill(T& object, double number)
    {
        object.SetName(QString::number(number));
        object.SetCoordinate({At(number, number)});
    }
    static void MakeRecord(const T& object) { object.GetName(); }
    static AreaState Used() { return LakeState(); }
    static AreaState AfterResetToDefault() { return {}; }
    static Bytes RawOfNew() { return Byte(0) + String(u"1.0") + NullString() + Int32(0); }
    static void ExpectUnsetFieldsHaveDefaults(const T& object)
    {
        EXPECT_TRUE(object.IsNameSet() || object.GetName().isNull());
        EXPECT_TRUE(object.IsCoordinateSet() || object.GetCoordinate().isEmpty());
        EXPECT_TRUE(object.IsScriptIDSet() || object.GetScriptID().isNull());
    }
};

template <>
struct RecordClass<REPORTGENERATOR::ReportBase>
{
    using T = REPORTGENERATOR::ReportBase;

    static constexpr const char* NAME = "ReportBase";
    static constexpr long long ID = 0x06c20b85;
    static constexpr const char* XML = "\n<@>\n    <Frequency>1.00</Frequency>\n</@>";

    /// A report that carries nothing is complete.
    static constexpr const char* PROBLEM_OF_NEW = nullptr;

    static void Fill(T& object, double number) { object.GetFrequency().SetValue(number); }
    static void MakeRecord(const T& object) { object.GetFrequency(); }
    static ReportState Used()
    {
        return {RecordClass<REPORTGENERATOR::Frequency>::Used(),
                RecordClass<REPORTGENERATOR::IFBandwidth>::Used(), LakeState()};
    }
    static ReportState AfterResetToDefault() { return {}; }
    static Bytes RawOfNew() { return Byte(0); }
    static void ExpectUnsetFieldsHaveDefaults(const T& object)
    {
        EXPECT_TRUE(object.IsFrequencySet() || !object.GetFrequency().AnyData());
        EXPECT_TRUE(object.IsIFBandwidthSet() || !object.GetIFBandwidth().AnyData());
        EXPECT_TRUE(object.IsAreaSet() || !object.GetArea().AnyData());
    }
};

// --- For typed suites -------------------------------------------------------------------------------------

using BoundedClasses = ::testing::Types<REPORTGENERATOR::Frequency, REPORTGENERATOR::IFBandwidth>;
using RecordClasses =
    ::testing::Types<REPORTGENERATOR::Frequency, REPORTGENERATOR::IFBandwidth, REPORTGENERATOR::Coordinate,
                     REPORTGENERATOR::Area, REPORTGENERATOR::ReportBase>;

struct RecordClassNames
{
    template <class T>
    static std::string GetName(int)
    {
        return RecordClass<T>::NAME;
    }
};

// --- Texts ------------------------------------------------------------------------------------------------

template <class T>
QString NameOf()
{
    return QLatin1String(RecordClass<T>::NAME);
}

/// The text with the class's name in place of each "@".
template <class T>
QString Named(const char* pattern)
{
    return Text(pattern).replace(QLatin1Char('@'), NameOf<T>());
}

template <class T>
QStringList NamedLines(std::initializer_list<const char*> patterns)
{
    QStringList lines;
    for (const char* pattern : patterns)
        lines << Named<T>(pattern);
    return lines;
}

/// What `Filled<T>(1.0)` writes.
template <class T>
QString XmlOfOne()
{
    return Named<T>(RecordClass<T>::XML);
}

// --- Objects ----------------------------------------------------------------------------------------------

/// A complete object that is made of one number.
template <class T>
T Filled(double number)
{
    T object;
    RecordClass<T>::Fill(object, number);
    return object;
}

/// An object with these fields, set while it doesn't validate; afterwards it does.
template <class T>
T Made(const StateOfClass<T>& state)
{
    T object;
    object.SetValidate(false);
    Fill(object, state);
    object.SetValidate(true);
    return object;
}

/// An object that holds something in every field.
template <class T>
T Used()
{
    return Made<T>(RecordClass<T>::Used());
}

template <class T>
T NotValidating()
{
    T object;
    object.SetValidate(false);
    return object;
}

/// An object of another name.
template <class T>
class Renamed : public T
{
public:
    explicit Renamed(const char* name) { this->SetObjectName(Text(name)); }
};

/// Finds nothing wrong.
template <class T>
class Lenient : public T
{
public:
    void Check(bool) const override {}
    void Check() const override {}
};

} // namespace Support

#endif
