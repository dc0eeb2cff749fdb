// Settings that a notifier hands to an object of each class.

#include "target.h"

void Examine(const Fuzz::Given& given)
{
    Fuzz::Expect(Support::ReadingDifference(Support::Form::Notifier, given.kind, Fuzz::InputOf(given.input),
                                            given.trip));
}
