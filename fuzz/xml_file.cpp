// A file handed to LoadXml, by path or open.

#include "target.h"

void Examine(const Fuzz::Given& given)
{
    Fuzz::Expect(Support::ReadingDifference(Support::Form::XmlFile, given.kind, Fuzz::InputOf(given.input),
                                            given.trip));
}
