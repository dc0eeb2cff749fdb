#ifndef TESTS_SUPPORT_SEQUENCES_H
#define TESTS_SUPPORT_SEQUENCES_H

// Rows of operations that choices make up, on a few objects of a class beside each other. They have a stream, a writer
// and a reader in common, which keep what the steps before have left them in. See support/paths.h.
//
//     EXPECT_EQ(SequenceDifference(Kind::Area, SequenceOfSeed(42)), "");

#include "support/choices.h"
#include "support/paths.h"

#include <QtCore/QByteArray>

#include <string>
#include <vector>

namespace Support {

/// What one step has for its choices: the operation and all that it needs.
using Steps = std::vector<Choices>;

/// So many bytes choose one step.
constexpr int STEP_SIZE = 32;

Steps SequenceOfSeed(quint64 seed);

/// A step for every STEP_SIZE bytes, and one for the rest.
Steps SequenceOfBytes(const QByteArray& bytes);

/// Empty when objects of the class itself and of a subclass come to the same after each step. Otherwise the steps up to
/// the one that tells them apart, and the difference.
std::string SequenceDifference(Kind kind, const Steps& steps);

} // namespace Support

#endif
