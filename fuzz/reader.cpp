// A document that a caller reads with a QXmlStreamReader of his own.

#include "target.h"

void Examine(const Fuzz::Given& given)
{
    Fuzz::Expect(Support::ReadingDifference(Support::Form::Reader, given.kind, Fuzz::InputOf(given.input),
                                            given.trip));
}
