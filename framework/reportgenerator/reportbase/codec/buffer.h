#ifndef REPORTGENERATOR_CODEC_BUFFER_H
#define REPORTGENERATOR_CODEC_BUFFER_H

#include <reportgenerator/reportbase/codec/limits.h>

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <algorithm>
#include <cstring>
#include <new>

namespace REPORTGENERATOR {

/// What a text or an array of bytes consists of.
template <class Container>
struct UnitOf;

template <>
struct UnitOf<QString>
{
    using Type = ushort;
};

template <>
struct UnitOf<QByteArray>
{
    using Type = char;
};

/// The units of a text. Qt 6's own `utf16` turns a null text into an empty one.
inline const ushort* UnitsOf(const QString& text)
{
    return reinterpret_cast<const ushort*>(text.constData());
}

/// A text or an array of bytes that grows at its end.
template <class Container>
class Buffer
{
public:
    using Unit = typename UnitOf<Container>::Type;

    Buffer() = default;
    Buffer(const Buffer& other) = delete;
    Buffer& operator=(const Buffer& other) = delete;

    /// Makes room for so many units more and returns where they begin.
    Unit* Room(qint64 count)
    {
        if (m_capacity - m_size < count)
            Grow(count);
        return m_units + m_size;
    }

    /// Takes what has been written from the end on into the buffer; `end` is where it ends now.
    void SetEnd(const Unit* end) { m_size = end - m_units; }

    void Append(const Unit* units, qint64 count)
    {
        if (count == 0)
            return;
        std::memcpy(Room(count), units, static_cast<std::size_t>(count) * sizeof(Unit));
        m_size += count;
    }

    qint64 Size() const { return m_size; }
    Unit* Begin() { return m_units; }

    /// The content, which ends the buffer.
    Container Take() &&
    {
        m_container.resize(static_cast<int>(m_size));
        return std::move(m_container);
    }

private:
    static constexpr qint64 FIRST_CAPACITY = 512;
    static constexpr qint64 MAX_CAPACITY = limits::MAX_BYTE_ARRAY / qint64(sizeof(Unit));

    void Grow(qint64 count)
    {
        if (count > MAX_CAPACITY - m_size)
            throw std::bad_alloc();
        const qint64 wanted = std::max(m_size + count, std::max(FIRST_CAPACITY, 2 * m_capacity));
        m_capacity = std::min(wanted, MAX_CAPACITY);
        m_container.resize(static_cast<int>(m_capacity));
        m_units = reinterpret_cast<Unit*>(m_container.data());
    }

    Container m_container;
    Unit* m_units = nullptr;
    qint64 m_size = 0;
    qint64 m_capacity = 0;
};

} // namespace REPORTGENERATOR

#endif
