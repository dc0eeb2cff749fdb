#ifndef TESTS_THREADS_INTERFACE_H
#define TESTS_THREADS_INTERFACE_H

// The const operations that the description of the library's interface names.

#include "threads/operations.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

namespace Threads {

/// Names of const operations of these classes, but for those that only the class and its derived ones may call and
/// those that are changes.
std::set<std::string> ConstOperations(const std::vector<std::string>& classes);

/// An operation that the interface has got since has to be tried too.
template <class T>
void ExpectNothingIsLeftOut(const Operations<T>& operations, std::vector<std::string> classes)
{
    std::set<std::string> left = ConstOperations(classes);
    EXPECT_GT(left.size(), 20U);
    for (const Operation<T>& operation : operations) {
        const std::string name = operation.name;
        left.erase(name.substr(0, name.find('(')));
    }
    EXPECT_EQ(left, std::set<std::string>());
}

} // namespace Threads

#endif
