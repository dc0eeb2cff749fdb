#ifndef TESTS_SUPPORT_VECTORWALK_H
#define TESTS_SUPPORT_VECTORWALK_H

// The golden vectors with every byte changed in turn and cut off after every byte, as inputs for readers.

#include "support/journeys.h"

#include <QtCore/QByteArray>

#include <string>
#include <vector>

namespace Support {

/// What a file of tests/vectors is an input for.
struct VectorInput
{
    std::string path;
    Kind kind = Kind::Report;
    std::vector<Form> forms; ///< all ways of reading that take such bytes
    QByteArray bytes;
};

/// All files of classes that have two ways, sorted.
std::vector<VectorInput> VectorInputs();

/// The same bytes as input for one of the forms.
Input InputFor(Form form, Kind kind, const QByteArray& bytes);

struct Walk
{
    long long cases = 0;
    std::string difference; ///< the first one, with its place; empty when there was none
};

/// Takes one case of `every` at random, each by one form. With 1 all of them.
Walk WalkVectors(int every);

} // namespace Support

#endif
