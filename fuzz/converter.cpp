// A file that is loaded with a version converter at hand.

#include "target.h"

void Examine(const Fuzz::Given& given)
{
    Fuzz::Expect(Support::ReadingDifference(Support::Form::Converter, given.kind, Fuzz::InputOf(given.input),
                                            given.trip));
}
