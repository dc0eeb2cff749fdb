// A schema that compiles, or one in which the rule named by WRONG is broken.

#include <reportgenerator/reportbase/records/plainfield.h>
#include <reportgenerator/reportbase/records/schemarules.h>
#include <reportgenerator/reportbase/schema/frequencyschema.h>

#define SAME_MEMBER 1
#define SAME_NAME 2
#define NAME_OF_MEMBER 3
#define SAME_TAG 4
#define TAG_OF_VERSION 5
#define SAME_BIT 6
#define BIT_BEHIND_BYTE 7
#define BIT_BEFORE_BYTE 8
#define BIT_BEHIND_FIELDS 9
#define NO_BIT 10
#define SAME_NAME_IN_PLAIN_CLASS 11
#define SAME_MEMBER_IN_PLAIN_CLASS 12
#define FORGOTTEN 13

namespace REPORTGENERATOR {

struct SampleData : Record
{
    double first = 0.0;
    double second = 0.0;
    Frequency frequency;
    QString version;
};

template <>
struct Schema<SampleData>
{
    static constexpr FormatVersion<SampleData> VERSION = {&SampleData::version, wire::VERSION_ATTRIBUTE, 10,
                                                          wire::AREA_VERSION};
    static constexpr auto FIRST =
        AttributeField(&SampleData::first, REPORTBASE_NAME("First"), PresenceBit{0, 11}).Mandatory();
    static constexpr auto SECOND = ElementField(
#if WRONG == SAME_MEMBER
        &SampleData::first, REPORTBASE_NAME("Second"), PresenceBit{1, 12}
#elif WRONG == SAME_NAME
        &SampleData::second, REPORTBASE_NAME("First"), PresenceBit{1, 12}
#elif WRONG == NAME_OF_MEMBER
        &SampleData::second, REPORTBASE_NAME("Frequency"), PresenceBit{1, 12}
#elif WRONG == SAME_TAG
        &SampleData::second, REPORTBASE_NAME("Second"), PresenceBit{1, 13}
#elif WRONG == TAG_OF_VERSION
        &SampleData::second, REPORTBASE_NAME("Second"), PresenceBit{1, 10}
#elif WRONG == SAME_BIT
        &SampleData::second, REPORTBASE_NAME("Second"), PresenceBit{2, 12}
#elif WRONG == BIT_BEHIND_BYTE
        &SampleData::second, REPORTBASE_NAME("Second"), PresenceBit{8, 12}
#elif WRONG == BIT_BEFORE_BYTE
        &SampleData::second, REPORTBASE_NAME("Second"), PresenceBit{-2, 12}
#elif WRONG == BIT_BEHIND_FIELDS
        &SampleData::second, REPORTBASE_NAME("Second"), PresenceBit{4, 12}
#elif WRONG == NO_BIT
        &SampleData::second, REPORTBASE_NAME("Second")
#else
        &SampleData::second, REPORTBASE_NAME("Second"), PresenceBit{1, 12}
#endif
    );
    static constexpr Member<SampleData, Frequency> FREQUENCY = {&SampleData::frequency, PresenceBit{2, 13}};
#if WRONG == FORGOTTEN
    static constexpr auto FIELDS = std::make_tuple(VERSION, FIRST, FREQUENCY);
#else
    static constexpr auto FIELDS = std::make_tuple(VERSION, FIRST, SECOND, FREQUENCY);
#endif
};

constexpr auto PLAIN_FIRST = ElementField(&SampleData::first, REPORTBASE_NAME("First"));
#if WRONG == SAME_NAME_IN_PLAIN_CLASS
constexpr auto PLAIN_SECOND = ElementField(&SampleData::second, REPORTBASE_NAME("First"));
#elif WRONG == SAME_MEMBER_IN_PLAIN_CLASS
constexpr auto PLAIN_SECOND = ElementField(&SampleData::first, REPORTBASE_NAME("Second"));
#else
constexpr auto PLAIN_SECOND = ElementField(&SampleData::second, REPORTBASE_NAME("Second"));
#endif
struct PlainSchema
{
    static constexpr auto FIELDS = std::make_tuple(PLAIN_FIRST, PLAIN_SECOND);
};

void CheckSample()
{
    SampleData sample;
    InitNumbers<PlainSchema>(sample);
    schema::Check<SampleData>();
}

} // namespace REPORTGENERATOR
