#ifndef BENCH_FLOORBYTES_H
#define BENCH_FLOORBYTES_H

#include "peerwire.h"
#include "plainreport.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QtEndian>

#include <cstring>
#include <stdexcept>

// Single values of the binary forms. Each function returns, or moves its pointer to, what stands behind the
// value.

namespace Bench::Floor {

template <class Number>
char* Put(char* out, Number number)
{
    qToBigEndian(number, out);
    return out + sizeof(number);
}

inline char* PutDouble(char* out, double number)
{
    quint64 bits = 0;
    std::memcpy(&bits, &number, sizeof(bits));
    return Put(out, bits);
}

inline char* PutSize(char* out, qsizetype size)
{
    return Put(out, static_cast<qint32>(size));
}

inline char* PutBytes(char* out, const QByteArray& bytes)
{
    out = PutSize(out, bytes.size());
    std::memcpy(out, bytes.constData(), static_cast<std::size_t>(bytes.size()));
    return out + bytes.size();
}

inline char* PutText(char* out, const QString& text)
{
    out = PutSize(out, text.size() * static_cast<qsizetype>(sizeof(QChar)));
    qToBigEndian<quint16>(text.utf16(), text.size(), out);
    return out + static_cast<std::size_t>(text.size()) * sizeof(QChar);
}

/// Puts the number of bytes that stand behind the place of a length.
inline void PutLength(char* place, const char* end)
{
    PutSize(place, end - place - SIZE_BYTES);
}

template <class Number>
Number Take(const char*& in)
{
    const auto number = qFromBigEndian<Number>(in);
    in += sizeof(number);
    return number;
}

inline void TakeExactly(const char*& in, qint32 expected)
{
    if (Take<qint32>(in) != expected)
        throw std::runtime_error("another number");
}

inline double TakeDouble(const char*& in)
{
    const auto bits = Take<quint64>(in);
    double number = 0.0;
    std::memcpy(&number, &bits, sizeof(number));
    return number;
}

inline QString TakeText(const char*& in)
{
    const auto bytes = Take<qint32>(in);
    QString text(bytes / static_cast<int>(sizeof(QChar)), Qt::Uninitialized);
    qFromBigEndian<quint16>(in, text.size(), text.data());
    in += bytes;
    return text;
}

/// Moves past the marker and the name in front of a representation.
inline const char* BehindName(const char* in)
{
    for (int i = 0; i < 2; ++i) {
        const auto bytes = Take<qint32>(in);
        in += bytes;
    }
    return in;
}

} // namespace Bench::Floor

#endif
