#ifndef REPORTGENERATOR_CODEC_COMPRESSION_H
#define REPORTGENERATOR_CODEC_COMPRESSION_H

#include <QtCore/QByteArray>

namespace REPORTGENERATOR::compression {

// Where memory has run out, these throw `std::bad_alloc`.

QByteArray Compress(const QByteArray& data, int level);

/// What `qUncompress` gives, without room being made for more than the data can hold: their length prefix may
/// claim anything. Empty for damaged data and for claims beyond `limits::MAX_BYTE_ARRAY`.
QByteArray Uncompress(const QByteArray& data);

} // namespace REPORTGENERATOR::compression

#endif
