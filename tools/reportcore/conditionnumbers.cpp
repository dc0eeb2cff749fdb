#include <reportcore/conditionnumbers.h>

#include <reportcore/condition.h>

#include <reportgenerator/reflection/nearname.h>
#include <reportgenerator/reflection/units.h>
#include <reportgenerator/reportbase/rgexception.h>

#include <optional>

namespace ReportCore {

namespace {

struct Amount
{
    double number;
    bool hasUnit;
    int column;

    /// Zero is the same in every unit.
    bool LacksUnit() const { return !hasUnit && number != 0.0; }
};

bool IsNumber(const Word& word)
{
    bool isNumber = false;
    if (word.kind == WordKind::Name)
        word.text.toDouble(&isNumber);
    return isNumber;
}

bool IsUnit(const Word& word)
{
    return word.kind == WordKind::Name && !NearestOf(UnitNames(), word.text).isNull();
}

Amount TakeAmount(Words& words, const Field& field)
{
    const bool isNumber = IsNumber(words.Next());
    const bool isQuantity = words.Next().kind == WordKind::Name && QuantityIn(words.Next().text);
    if (!isNumber && !isQuantity)
        words.Expected("a number");
    const Word word = words.Take();
    const bool hasUnitBehind = isNumber && IsUnit(words.Next());
    const QString text = hasUnitBehind ? word.text + words.Take().text : word.text;
    try {
        return {field.NumberOf(text), !isNumber || hasUnitBehind, word.column};
    } catch (const RGException& refused) {
        throw ConditionError{refused.GetErrorText(), word.column};
    }
}

} // namespace

double TakeNumber(Words& words)
{
    if (!IsNumber(words.Next()))
        words.Expected("a number");
    return words.Take().text.toDouble();
}

double TakeNumber(Words& words, const Field& field)
{
    return TakeAmount(words, field).number;
}

NumberRange TakeRange(Words& words, const Field& field)
{
    const Amount low = TakeAmount(words, field);
    if (!words.TakeIf(WordKind::Sign, ".."))
        words.Expected("'..'");
    const Amount high = TakeAmount(words, field);
    const bool isMixed = (low.hasUnit && high.LacksUnit()) || (high.hasUnit && low.LacksUnit());
    if (isMixed)
        throw ConditionError{QStringLiteral("a unit is expected here, too"),
                             (low.hasUnit ? high : low).column};
    return {low.number, high.number};
}

} // namespace ReportCore
