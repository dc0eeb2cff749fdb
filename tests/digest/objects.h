#ifndef TESTS_DIGEST_OBJECTS_H
#define TESTS_DIGEST_OBJECTS_H

// What is digested: the golden objects and generated ones.

#include "digest/digests.h"
#include "digest/specimen.h"

#include <QtCore/QByteArray>

#include <functional>
#include <memory>

namespace Digest {

/// An object that something is done to before it is written.
struct Golden
{
    QByteArray name; ///< the path of a vector, or the name of a class
    std::unique_ptr<Specimen> specimen;
    /// Reads the vector into the object and returns what that came to.
    std::function<QByteArray(Specimen& specimen)> read;
    Form form; ///< of what is read
};

/// What each golden vector makes of a fresh object, also where it is refused, with and without validation; then the
/// objects that the tests make of the classes that have no vectors, which read nothing.
void ForEachGolden(const std::function<void(Golden& golden)>& take);

/// Number `number` of the generated objects, which are of all classes in turn. What refuses a value goes without it.
std::unique_ptr<Specimen> Generated(int number);

} // namespace Digest

#endif
