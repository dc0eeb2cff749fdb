#ifndef REPORTCOLUMNS_BUFFER_H
#define REPORTCOLUMNS_BUFFER_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <new>
#include <utility>

namespace ReportColumns {

/// Bytes that grow at the end, aligned as Arrow recommends it.
class Buffer
{
public:
    static constexpr std::size_t ALIGNMENT = 64;

    const void* Data() const { return m_bytes.get(); }
    std::size_t Size() const { return m_size; }

    /// Room for as many bytes as were taken last.
    void Reserve()
    {
        if (m_likely > m_capacity)
            Grow(m_likely);
    }

    /// Room for so many bytes more, which count as written.
    std::byte* Extend(std::size_t size)
    {
        if (size > m_capacity - m_size)
            Grow(m_size + size);
        std::byte* const room = m_bytes.get() + m_size;
        m_size += size;
        return room;
    }

    void Append(const void* bytes, std::size_t size)
    {
        if (size > 0)
            std::memcpy(Extend(size), bytes, size);
    }

    template <class T>
    void Append(T value)
    {
        std::memcpy(Extend(sizeof value), &value, sizeof value);
    }

    /// What was written, with zeros up to a whole block; Arrow wants no null pointer for what may have bytes. The next bytes
    /// begin with room for about as many, since batches of a column are alike, and new pages cost more than what is written.
    Buffer Take()
    {
        Buffer taken;
        std::swap(taken, *this);
        m_likely = taken.m_size + taken.m_size / 16;
        const std::size_t padding =
            taken.m_bytes ? (ALIGNMENT - taken.m_size % ALIGNMENT) % ALIGNMENT : ALIGNMENT;
        std::memset(taken.Extend(padding), 0, padding);
        taken.m_size -= padding;
        return taken;
    }

private:
    struct Deleter
    {
        void operator()(std::byte* bytes) const { ::operator delete(bytes, std::align_val_t(ALIGNMENT)); }
    };

    void Grow(std::size_t least)
    {
        std::size_t capacity = std::max({least, m_capacity + m_capacity / 2, m_likely});
        capacity = (capacity + ALIGNMENT - 1) / ALIGNMENT * ALIGNMENT;
        std::unique_ptr<std::byte, Deleter> grown(
            static_cast<std::byte*>(::operator new(capacity, std::align_val_t(ALIGNMENT))));
        if (m_size > 0)
            std::memcpy(grown.get(), m_bytes.get(), m_size);
        m_bytes = std::move(grown);
        m_capacity = capacity;
    }

    std::unique_ptr<std::byte, Deleter> m_bytes;
    std::size_t m_size = 0;
    std::size_t m_capacity = 0;
    std::size_t m_likely = 0;
};

/// Bits that grow at the end, the lowest of a byte first.
class Bits
{
public:
    void Append(bool bit)
    {
        const auto place = static_cast<unsigned>(m_count % 8);
        if (place == 0)
            m_last = m_buffer.Extend(1);
        if (place == 0)
            *m_last = std::byte(0);
        if (bit)
            *m_last |= std::byte(1U << place);
        ++m_count;
    }

    void Reserve() { m_buffer.Reserve(); }

    /// As `Buffer::Take`.
    Buffer Take()
    {
        m_count = 0;
        return m_buffer.Take();
    }

private:
    Buffer m_buffer;
    std::byte* m_last = nullptr;
    std::int64_t m_count = 0;
};

} // namespace ReportColumns

#endif
