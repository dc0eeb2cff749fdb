// A file handed to LoadBinary.

#include "target.h"

void Examine(const Fuzz::Given& given)
{
    Fuzz::Expect(Support::ReadingDifference(Support::Form::BinaryFile, given.kind, Fuzz::InputOf(given.input),
                                            given.trip));
}
