// A representation in an array, either marker.

#include "target.h"

void Examine(const Fuzz::Given& given)
{
    Fuzz::Expect(Support::ReadingDifference(Support::Form::PlainArray, given.kind, Fuzz::InputOf(given.input),
                                            given.trip));
}
