#ifndef REPORTCOLUMNS_ARROWOWNER_H
#define REPORTCOLUMNS_ARROWOWNER_H

#include "arrowabi.h"

namespace ReportColumns {

/// Owns what a structure of Arrow's interface holds: releases it unless it has been moved on.
template <class Structure>
class Owner
{
public:
    Owner() = default;

    /// Takes over what `given` holds, and leaves it released.
    explicit Owner(Structure& given) : m_held(given) { given.release = nullptr; }
    ~Owner() { Release(); }
    Owner(Owner&& other) noexcept : m_held(other.m_held) { other.m_held.release = nullptr; }
    Owner& operator=(Owner&& other) noexcept
    {
        if (this != &other) {
            Release();
            m_held = other.m_held;
            other.m_held.release = nullptr;
        }
        return *this;
    }
    Owner(const Owner&) = delete;
    Owner& operator=(const Owner&) = delete;

    bool IsEmpty() const { return m_held.release == nullptr; }

    /// Of an empty one, to be filled.
    Structure* Get() { return &m_held; }
    const Structure& operator*() const { return m_held; }
    const Structure* operator->() const { return &m_held; }

private:
    void Release()
    {
        if (m_held.release)
            m_held.release(&m_held);
        m_held.release = nullptr;
    }

    Structure m_held = {};
};

using OwnedSchema = Owner<ArrowSchema>;
using OwnedArray = Owner<ArrowArray>;
using OwnedStream = Owner<ArrowArrayStream>;

} // namespace ReportColumns

#endif
