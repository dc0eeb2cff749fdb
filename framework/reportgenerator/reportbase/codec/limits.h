#ifndef REPORTGENERATOR_CODEC_LIMITS_H
#define REPORTGENERATOR_CODEC_LIMITS_H

#include <QtCore/qglobal.h>

#include <limits>

namespace REPORTGENERATOR {

/// What input may claim at most. None of them changes what comes out for data that the library itself can
/// write.
namespace limits {

/// Room left to compressed blocks of a few bytes, for which the factor by which they can grow says little.
constexpr qint64 INFLATION_SLACK = 64;

/// Bytes that a device of unknown kind is believed to hold before it has given them.
constexpr qint64 BYTES_ON_TRUST = 65536;

/// A byte array of the reference platform holds less than this, its administration included.
constexpr qint64 MAX_BYTE_ARRAY = std::numeric_limits<int>::max() - 32;

/// Attributes of a tag, and namespaces in scope. The library writes five attributes at most.
constexpr int MAX_ATTRIBUTES = 256;

/// Attributes that a document type declares, each of which a reader gives to every element of a name. The
/// library writes no document type.
constexpr int MAX_DECLARED_ATTRIBUTES = 64;

} // namespace limits
} // namespace REPORTGENERATOR

#endif
