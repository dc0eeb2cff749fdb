#ifndef TESTS_SUPPORT_PLAINROWS_H
#define TESTS_SUPPORT_PLAINROWS_H

// What a class without a shared record does, as tables: the fields stand in the order of its element.
//
//     ExpectObjects<Ellipse>({
//         {Ellipse(), "- - -", Data::None, nullptr, ""},
//         {Of(1.0, NOT_SET, 3.0), "1 - 3", Data::Some, "Ellipse: Please set MaxRadius!", ""},
//     });
//     ExpectReadings(Of(7.0, 8.0, 9.0), {
//         {"<Rotation>3</Rotation>", "- - 3", nullptr, "Ellipse: Please set MinRadius!"},
//     });
//     ExpectComparisons<Ellipse>({{Ellipse(), Ellipse(), true}});
//     ExpectUnequalToThemselves<Ellipse>({Of(1.0, NOT_A_NUMBER, 3.0)});
//     ExpectMerges<Ellipse>({{Of(1.0, 2.0, 3.0), Of(4.0, 5.006, 6.0), "4 5.01 6"}});
//
// In the texts of fields "-" is a number that is not set, and "~" the one next to it, which is.

#include "support/doubles.h"
#include "support/expect.h"
#include "support/numberfields.h"
#include "support/plainclasses.h"
#include "support/records.h"

#include <gtest/gtest.h>

#include <QtCore/QLocale>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <cmath>
#include <string>
#include <tuple>
#include <vector>

namespace Support {

inline double NextToUnset()
{
    return std::nextafter(NOT_SET, 0.0);
}

// --- Fields -----------------------------------------------------------------------------------------------

inline QString Shown(double number)
{
    if (number == NOT_SET)
        return QStringLiteral("-");
    if (number == NextToUnset())
        return QStringLiteral("~");
    return QString::number(number, 'g', QLocale::FloatingPointShortest);
}

inline QString Shown(const std::vector<double>& numbers)
{
    QStringList texts;
    for (const double number : numbers)
        texts << Shown(number);
    return texts.join(QLatin1Char(' '));
}

/// This is for the classes that hold numbers and nothing else.
template <class T>
QString FieldsOf(const T& object)
{
    std::vector<double> numbers;
    for (const NumberField<T>& field : NumberFieldsOf<T>())
        numbers.push_back((object.*field.get)());
    return Shown(numbers);
}

inline QString FieldsOf(const REPORTGENERATOR::ValueMinMax& value)
{
    return value.GetName() + Text(": ") + Shown({value.GetValue(), value.GetMin(), value.GetMax()});
}

inline QString FieldsOf(const REPORTGENERATOR::FrequencyInformation& information)
{
    return Shown({information.GetFrequency(), information.GetFrequencyMin(), information.GetFrequencyMax()}) +
           Text(" / ") + FieldsOf(information.GetFrequencyRange());
}

inline QString FieldsOf(const REPORTGENERATOR::FrequencyListValue& entry)
{
    const QString stamp =
        entry.GetTimeStamp().isNull() ? Text("-") : entry.GetTimeStamp().toString(Qt::ISODateWithMs);
    return Shown({entry.GetFrequency(), entry.GetFrequencyMin(), entry.GetFrequencyMax()}) + Text(" / ") +
           stamp;
}

inline QString FieldsOf(const REPORTGENERATOR::ChannelSpacing& spacing)
{
    const QString same = spacing.IsSameDistance()        ? Text("true")
                         : spacing.IsValidSameDistance() ? Text("false")
                                                         : Text("-");
    return spacing.GetVisual() + Text(" / ") + same + Text(" / ") +
           Shown({spacing.GetValues().begin(), spacing.GetValues().end()});
}

inline QString FieldsOf(const REPORTGENERATOR::ScanParameter& scan)
{
    return FieldsOf(scan.GetFrequencyRange()) + Text(" / ") + FieldsOf<REPORTGENERATOR::ScanParameter>(scan);
}

/// The mode, and of the time the value, the bounds and the unit.
inline QString FieldsOf(const REPORTGENERATOR::MeasurementTime& object)
{
    const REPORTGENERATOR::Double& time = object.GetMeasurementTime();
    return QString::number(object.GetMeasurementMode()) + Text(" / ") +
           Shown({time.GetValue(), time.GetMinimum(), time.GetMaximum()}) + Text(" ") + time.GetUnit();
}

/// Its own number means that one is not set.
inline QString FieldsOf(const REPORTGENERATOR::Double& object)
{
    const auto shown = [&](double number) { return object.IsValid(number) ? Shown(number) : Text("-"); };
    return QStringList{object.GetName() + Text(":"), shown(object.GetValue()),   shown(object.GetMinimum()),
                       shown(object.GetMaximum()),   shown(object.GetDefault()), object.GetUnit()}
        .join(QLatin1Char(' '));
}

// --- Tables -----------------------------------------------------------------------------------------------

enum class Data
{
    None,
    Some, ///< AnyData() alone
    Whole ///< HasData() too
};

template <class T>
struct ObjectRow
{
    T object;
    const char* fields;
    Data data;
    const char* refusal; ///< of its check, none when it passes
    const char* xml;     ///< none when writing is refused as the check is
};

template <class T>
void ExpectObjects(const std::vector<ObjectRow<T>>& rows)
{
    for (const ObjectRow<T>& row : rows) {
        SCOPED_TRACE(row.fields);
        T assigned;
        assigned = row.object;
        for (const T& object : {T(row.object), assigned}) {
            EXPECT_TEXT(FieldsOf(object), row.fields);
            EXPECT_EQ(object.AnyData(), row.data != Data::None);
            EXPECT_EQ(object.HasData(), row.data == Data::Whole);
            for (const bool validate : {true, false}) {
                const auto logger = NewLogger();
                object.SetValidate(validate);
                object.SetLogger(logger);
                if (row.refusal)
                    EXPECT_RG_THROW(object.Check(), "RGException", row.refusal);
                else
                    EXPECT_NO_RG_THROW(object.Check());
                if (row.xml)
                    EXPECT_TEXT(UnindentedXmlOf(object), row.xml);
                else
                    EXPECT_RG_THROW(UnindentedXmlOf(object), "RGException", row.refusal);
                EXPECT_LOG(logger, {});
            }
        }
    }
}

struct ReadingRow
{
    const char* children;
    const char* fields;
    const char* error = nullptr;   ///< thrown in all settings
    const char* refusal = nullptr; ///< of its check, thrown when it validates
    const char* attributes = "";   ///< of the element itself
};

/// Loads the rows into an object that is used.
template <class T>
void ExpectReadings(const T& used, const std::vector<ReadingRow>& rows)
{
    const QString name = used.GetObjectName();
    for (const ReadingRow& row : rows) {
        SCOPED_TRACE(std::string(row.attributes) + row.children);
        const QString xml = Text("<%1 %3>%2</%1>").arg(name, Text(row.children), Text(row.attributes));
        for (const bool validate : {true, false}) {
            const char* const error = row.error != nullptr || !validate ? row.error : row.refusal;
            const auto logger = NewLogger();
            T object(used);
            object.SetValidate(validate);
            object.SetLogger(logger);
            if (error)
                EXPECT_RG_THROW(object.SetXmlString(xml, true), "RGException", error);
            else
                EXPECT_NO_RG_THROW(EXPECT_TRUE(object.SetXmlString(xml, true)));
            EXPECT_TEXT(FieldsOf(object), row.fields);
            EXPECT_LOG(logger, QStringList{Text("INFO: %1: Loading xml string.").arg(name)});
        }
    }
}

struct MalformedRow
{
    const char* xml;
    const char* fields; ///< what was read before
    bool isLogged;      ///< by the object itself; a member that has no logger says nothing
};

template <class T>
void ExpectMalformed(const T& used, const std::vector<MalformedRow>& rows)
{
    for (const MalformedRow& row : rows) {
        SCOPED_TRACE(row.xml);
        const QString error = XmlErrorOf(Text(row.xml));
        ASSERT_FALSE(error.isEmpty());
        const auto logger = NewLogger();
        T object(used);
        object.SetLogger(logger);
        EXPECT_RG_THROW(object.SetXmlString(Text(row.xml), true), "RGException", error);
        EXPECT_TEXT(FieldsOf(object), row.fields);
        QStringList lines = {Text("INFO: %1: Loading xml string.").arg(used.GetObjectName())};
        if (row.isLogged)
            lines << Text("FATAL ERROR: RGException: ") + error;
        EXPECT_LOG(logger, lines);
    }
}

template <class T>
struct ComparisonRow
{
    T left;
    T right;
    bool areEqual;
};

/// Compares them both ways, and that the base doesn't count.
template <class T>
void ExpectComparisons(const std::vector<ComparisonRow<T>>& rows)
{
    for (const ComparisonRow<T>& row : rows) {
        SCOPED_TRACE(FieldsOf(row.left).toStdString() + " and " + FieldsOf(row.right).toStdString());
        row.right.SetValidate(false);
        for (const auto& [left, right] : {std::tie(row.left, row.right), std::tie(row.right, row.left)}) {
            EXPECT_EQ(left == right, row.areEqual);
            EXPECT_EQ(left != right, !row.areEqual);
        }
    }
}

/// As those that hold what is no number.
template <class T>
void ExpectUnequalToThemselves(const std::vector<T>& objects)
{
    for (const T& object : objects) {
        SCOPED_TRACE(FieldsOf(object).toStdString());
        EXPECT_FALSE(object == object);
        EXPECT_TRUE(object != object);
        EXPECT_FALSE(object == T(object));
        EXPECT_TRUE(object != T(object));
    }
}

template <class T>
struct MergeRow
{
    T object;
    T other;
    const char* fields;
};

template <class T>
void ExpectMerges(const std::vector<MergeRow<T>>& rows)
{
    for (const MergeRow<T>& row : rows) {
        T object(row.object);
        EXPECT_NO_RG_THROW(EXPECT_TRUE(object.MergeRGObject(row.other)));
        EXPECT_TEXT(FieldsOf(object), row.fields);
    }
}

} // namespace Support

#endif
