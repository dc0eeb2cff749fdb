// Rows of operations on a few objects beside each other: the input has so many bytes for each step.

#include "support/sequences.h"
#include "target.h"

void Examine(const Fuzz::Given& given)
{
    Fuzz::Expect(Support::SequenceDifference(given.kind, Support::SequenceOfBytes(given.input)));
}
