#ifndef BENCH_STREAMS_H
#define BENCH_STREAMS_H

#include <QtCore/QBuffer>
#include <QtCore/QByteArray>
#include <QtCore/QDataStream>

namespace Bench {

/// A function that lets `write(stream, object)` write to a stream over a buffer and returns the bytes.
template <class Write>
auto WriteToStream(Write write)
{
    return [write](const auto& object) {
        QBuffer buffer;
        buffer.open(QIODevice::WriteOnly);
        QDataStream stream(&buffer);
        stream.setVersion(QDataStream::Qt_4_6);
        write(stream, object);
        return buffer.data();
    };
}

/// A function that returns what `read(stream)` makes of bytes.
template <class Read>
auto ReadFromStream(Read read)
{
    return [read](const QByteArray& bytes) {
        QDataStream stream(bytes);
        stream.setVersion(QDataStream::Qt_4_6);
        return read(stream);
    };
}

} // namespace Bench

#endif
