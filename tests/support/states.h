#ifndef TESTS_SUPPORT_STATES_H
#define TESTS_SUPPORT_STATES_H

// What an object holds, said without the object: a table row can name it, and a failure shows it.
//
//     AreaState state;
//     state.name = QStringLiteral("Lake");
//     state.coordinates = {{8.5, 47.25}};
//     Area area;
//     Fill(area, state);                            // through the setters
//     EXPECT_STATE(area, state);                    // through the getters, field by field
//
// A field that is not set has no value here; a text that is set may still be null, which differs from empty.
// Numbers are compared to the last bit, so that -0.0 differs from 0.0.

#include "support/printers.h"

#include <reportgenerator/reportbase/area.h>
#include <reportgenerator/reportbase/coordinate.h>
#include <reportgenerator/reportbase/double.h>
#include <reportgenerator/reportbase/frequency.h>
#include <reportgenerator/reportbase/ifbandwidth.h>
#include <reportgenerator/reportbase/reportbase.h>

#include <gtest/gtest.h>

#include <QtCore/QString>

#include <optional>
#include <string>
#include <vector>

namespace Support {

struct FrequencyState
{
    std::optional<double> value = std::nullopt;
    std::optional<double> min = std::nullopt;
    std::optional<double> max = std::nullopt;
    std::optional<bool> use = std::nullopt;
};

struct BandwidthState
{
    std::optional<double> value = std::nullopt;
    std::optional<double> min = std::nullopt;
    std::optional<double> max = std::nullopt;
};

struct CoordinateState
{
    std::optional<double> longitude = std::nullopt;
    std::optional<double> latitude = std::nullopt;
};

struct AreaState
{
    std::optional<QString> name = std::nullopt;
    std::vector<CoordinateState> coordinates = {};
    std::optional<QString> scriptID = std::nullopt;
    QString initialVersionLoaded = {};
    std::optional<bool> coordinatesSet = std::nullopt; ///< by default: whether there are any

    bool AreCoordinatesSet() const { return coordinatesSet.value_or(!coordinates.empty()); }
};

struct ReportState
{
    std::optional<FrequencyState> frequency = std::nullopt;
    std::optional<BandwidthState> bandwidth = std::nullopt;
    std::optional<AreaState> area = std::nullopt;
};

struct DoubleState
{
    QString name = {};
    std::optional<double> value = std::nullopt;
    std::optional<double> minimum = std::nullopt;
    std::optional<double> maximum = std::nullopt;
    std::optional<double> defaultValue = std::nullopt;
    QString unit = {};
};

/// One line per field.
std::string Describe(const FrequencyState& state);
std::string Describe(const BandwidthState& state);
std::string Describe(const CoordinateState& state);
std::string Describe(const AreaState& state);
std::string Describe(const ReportState& state);
std::string Describe(const DoubleState& state);

/// What the getters say.
FrequencyState StateOf(const REPORTGENERATOR::Frequency& object);
BandwidthState StateOf(const REPORTGENERATOR::IFBandwidth& object);
CoordinateState StateOf(const REPORTGENERATOR::Coordinate& object);
AreaState StateOf(const REPORTGENERATOR::Area& object);
ReportState StateOf(const REPORTGENERATOR::ReportBase& object);
DoubleState StateOf(const REPORTGENERATOR::Double& object);

/// Sets the fields that the state has, through the setters. The initial version can only be loaded, and a
/// list of coordinates that is not marked as set has no setter: these two are left out.
void Fill(REPORTGENERATOR::Frequency& object, const FrequencyState& state);
void Fill(REPORTGENERATOR::IFBandwidth& object, const BandwidthState& state);
void Fill(REPORTGENERATOR::Coordinate& object, const CoordinateState& state);
void Fill(REPORTGENERATOR::Area& object, const AreaState& state);
void Fill(REPORTGENERATOR::ReportBase& object, const ReportState& state);
void Fill(REPORTGENERATOR::Double& object, const DoubleState& state);

template <class Object, class State>
::testing::AssertionResult StateIs(const char* objectExpression, const char*, const Object& object,
                                   const State& expected)
{
    const std::string actualText = Describe(StateOf(object));
    const std::string expectedText = Describe(expected);
    if (actualText == expectedText)
        return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << objectExpression << " holds\n"
                                         << actualText << "instead of\n"
                                         << expectedText;
}

} // namespace Support

#define EXPECT_STATE(object, state) EXPECT_PRED_FORMAT2(::Support::StateIs, object, state)

#endif
