// A text handed to SetXmlString.

#include "target.h"

void Examine(const Fuzz::Given& given)
{
    Fuzz::Expect(Support::ReadingDifference(Support::Form::XmlString, given.kind, Fuzz::InputOf(given.input),
                                            given.trip));
}
