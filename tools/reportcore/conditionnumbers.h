#ifndef REPORTCORE_CONDITIONNUMBERS_H
#define REPORTCORE_CONDITIONNUMBERS_H

#include <reportcore/conditionwords.h>

#include <reportgenerator/reflection/field.h>

namespace ReportCore {

// The numbers in a condition. All throw `ConditionError` for what is none.

double TakeNumber(Words& words);

/// Of a field, with a unit where the field takes one.
double TakeNumber(Words& words, const Field& field);

struct NumberRange
{
    double low;
    double high;
};

/// "118..137", "118 MHz..137 MHz". A unit at one end only is refused: it may be meant for both, or not.
NumberRange TakeRange(Words& words, const Field& field);

} // namespace ReportCore

#endif
