// Objects that are made up by the fuzzer's choices, written in all forms.

#include "target.h"

void Examine(const Fuzz::Given& given)
{
    // The object takes most of the choices, the ways of writing what the header has.
    const Support::Trip trip = {Support::Choices(given.input), given.trip.offer};
    Fuzz::Expect(Support::WritingDifference(given.kind, trip));
}
