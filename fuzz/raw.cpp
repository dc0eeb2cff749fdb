// The raw form on a stream of any settings.

#include "target.h"

void Examine(const Fuzz::Given& given)
{
    Fuzz::Expect(
        Support::ReadingDifference(Support::Form::Raw, given.kind, Fuzz::InputOf(given.input), given.trip));
}
