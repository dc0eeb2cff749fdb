#ifndef FUZZ_TARGET_H
#define FUZZ_TARGET_H

// A fuzz target is one function, `Examine`, in a file of its own: it gets what the fuzzer made up and
// compares what the library's own classes do with what their subclasses do. A difference ends the process.
//
// The first bytes of a fuzzer's data choose the class and how its object is set up and offered the input; the
// rest is the input itself. Zeros choose the plainest.

#include "support/journeys.h"

#include <QtCore/QByteArray>

#include <cstddef>
#include <string>

namespace Fuzz {

/// Class, offer, setup.
constexpr int KIND_SIZE = 1;
constexpr int OFFER_SIZE = 4;
constexpr int SETUP_SIZE = 11;
constexpr int HEADER_SIZE = KIND_SIZE + OFFER_SIZE + SETUP_SIZE;

struct Given
{
    /// Of data that are shorter than a header the missing bytes count as zeros.
    explicit Given(const QByteArray& data);

    Support::Kind kind = Support::Kind::Report;
    bool isVariant = false; ///< the highest bit of the first byte, for a target that has two ways
    Support::Trip trip;
    QByteArray input;
};

/// The bytes as UTF-8. Half a pair of surrogates, which UTF-8 cannot hold, is given as a character of the
/// private use area from U+E000 on.
QString TextOf(const QByteArray& bytes);

/// Both as a text and as bytes.
Support::Input InputOf(const QByteArray& bytes);

/// Ends the process unless the difference is empty.
void Expect(const std::string& difference);

} // namespace Fuzz

/// Defined once in each target.
void Examine(const Fuzz::Given& given);

#endif
