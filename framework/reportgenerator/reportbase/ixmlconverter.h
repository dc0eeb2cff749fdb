#ifndef REPORTGENERATOR_IXMLCONVERTER_H
#define REPORTGENERATOR_IXMLCONVERTER_H

#include <reportgenerator/reportbase/reportbase_export.h>

#include <new>
#include <type_traits>

namespace REPORTGENERATOR {

class IRGObject;

/// Copies the contents of an object of one version into an object of another version.
///
/// Applications derive from it and hand it to a `VersionConverterProxy`. The destructor is not virtual, since
/// the order of the virtual operations is fixed without one. The proxy destroys its converter as an
/// `IXmlConverter`: all of its memory is given back, but neither its own destructor nor those of its fields
/// run. Fields that need none, such as numbers and pointers, do no harm; a text or a list would be left
/// behind. A converter can have that checked:
///
///     class TaskConverter : public REPORTGENERATOR::IXmlConverter { ... };
///     static_assert(REPORTGENERATOR::IsSafeToInject<TaskConverter>);
class REPORTBASE_EXPORT IXmlConverter
{
public:
    /// Holds nothing.
    IXmlConverter();

    /// Copies nothing, since there is nothing.
    IXmlConverter(const IXmlConverter& other);
    IXmlConverter& operator=(const IXmlConverter& other);
    ~IXmlConverter();

    /// Fills `to`, the newer object, from `from`. Returns whether that was possible; this body returns false.
    virtual bool Upgrade(const IRGObject* from, IRGObject* to);

    /// Fills `to`, the older object, from `from`. Returns whether that was possible; this body returns false.
    virtual bool Downgrade(const IRGObject* from, IRGObject* to);

    /// Gives memory back without telling its size: who deletes a converter as an IXmlConverter doesn't know
    /// it. Each way in which the global operators make an object has its counterpart. They are inlined, so
    /// that the program that took the memory gives it back itself. A class with another base that brings such
    /// operators says by "using" which ones it means.
    // NOLINTNEXTLINE(misc-new-delete-overloads): the global operators make them
    static Q_ALWAYS_INLINE void operator delete(void* memory) noexcept { ::operator delete(memory); }
    static Q_ALWAYS_INLINE void operator delete(void* memory, std::align_val_t alignment) noexcept
    {
        ::operator delete(memory, alignment);
    }
    static Q_ALWAYS_INLINE void operator delete(void* memory, const std::nothrow_t& tag) noexcept
    {
        ::operator delete(memory, tag);
    }
    static Q_ALWAYS_INLINE void operator delete(void* memory, std::align_val_t alignment,
                                                const std::nothrow_t& tag) noexcept
    {
        ::operator delete(memory, alignment, tag);
    }
    static Q_ALWAYS_INLINE void operator delete(void* /*memory*/, void* /*place*/) noexcept {}
};

/// A converter with these fields and nothing else, for its size.
template <class Fields>
struct ConverterWith final : IXmlConverter
{
    Fields fields;
};
template <>
struct ConverterWith<void> final : IXmlConverter
{
};

/// Whether nothing of a `Converter` is left behind when it is deleted as an `IXmlConverter`: it has no
/// fields. With a second argument: its fields are one of that type, which needs no destruction, and nothing
/// else.
///
///     static_assert(REPORTGENERATOR::IsSafeToInject<TaskConverter>);
///     static_assert(REPORTGENERATOR::IsSafeToInject<CountingConverter, int>);
///
/// A destructor that the converter itself declares is not seen. A converter that wants a greater alignment
/// than `new` gives is never safe. The question has to be asked: a warning would be an error for programs
/// that take warnings for errors and live with what is left behind.
template <class Converter, class Fields = void>
inline constexpr bool IsSafeToInject = std::is_base_of_v<IXmlConverter, Converter> &&
                                       sizeof(Converter) == sizeof(ConverterWith<Fields>) &&
                                       alignof(Converter) <= __STDCPP_DEFAULT_NEW_ALIGNMENT__ &&
                                       (std::is_void_v<Fields> || std::is_trivially_destructible_v<Fields>);

} // namespace REPORTGENERATOR

#endif
