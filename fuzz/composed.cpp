// Inputs that are made up by the fuzzer's choices and so keep the structure of a form, offered on any way.

#include "target.h"

void Examine(const Fuzz::Given& given)
{
    Support::Choices choices(given.input);
    const auto form = static_cast<Support::Form>(choices.Below(Support::FORMS));
    const Support::Input input = Support::ComposeInput(form, given.kind, given.trip, choices);
    Fuzz::Expect(Support::ReadingDifference(form, given.kind, input, given.trip));
}
