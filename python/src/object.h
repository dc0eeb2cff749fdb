#ifndef REPORTGENERATOR_PYTHON_OBJECT_H
#define REPORTGENERATOR_PYTHON_OBJECT_H

#include <reportgenerator/reportbase/irgobject.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <utility>

namespace Python {

/// What an object in Python stands for: an object of the library, which is its own or a part of another one.
///
/// The rule for threads: objects are touched only by who holds the interpreter's lock. What takes time works on a
/// copy that nobody else knows, and lets go of the lock meanwhile.
class AnyObject
{
public:
    virtual ~AnyObject() = default;

    /// The object itself, valid as long as the lock is held and nothing is changed. Throws when it was a part of another
    /// object that doesn't have it any more.
    virtual REPORTGENERATOR::IRGObject& Access() const = 0;

    /// A copy that has nothing to do with this one.
    virtual std::unique_ptr<REPORTGENERATOR::IRGObject> NewCopy() const = 0;

    /// One of the same class with nothing set.
    virtual std::unique_ptr<REPORTGENERATOR::IRGObject> NewEmpty() const = 0;

    /// Takes the contents of another object of the same class over.
    virtual void Take(const REPORTGENERATOR::IRGObject& other) const = 0;

    /// How often it, or what it is a part of, has been changed.
    std::uint64_t& Changes() const { return *m_changes; }

protected:
    explicit AnyObject(std::shared_ptr<std::uint64_t> changes) : m_changes(std::move(changes)) {}
    AnyObject(const AnyObject&) = default;
    AnyObject& operator=(const AnyObject&) = default;

    std::shared_ptr<std::uint64_t> m_changes;
};

/// A part that its holder doesn't have any more.
struct PartIsGone
{
};

template <class T>
class Object : public AnyObject
{
public:
    using Finding = std::function<T*()>;

    /// One of its own.
    explicit Object(const T& value = T()) : AnyObject(std::make_shared<std::uint64_t>(0))
    {
        auto own = std::make_shared<T>(value);
        m_find = [own] { return own.get(); };
    }

    /// A part of `holder`: what `find` returns, null while there is none.
    template <class Holder, class Find>
    static Object PartOf(const Object<Holder>& holder, Find find)
    {
        return Object(holder.m_changes, [holder, find] { return find(holder.Get()); });
    }

    T& Get() const
    {
        T* const object = m_find();
        if (!object)
            throw PartIsGone();
        return *object;
    }

    REPORTGENERATOR::IRGObject& Access() const override { return Get(); }

    std::unique_ptr<REPORTGENERATOR::IRGObject> NewCopy() const override
    {
        return std::make_unique<T>(Get());
    }

    std::unique_ptr<REPORTGENERATOR::IRGObject> NewEmpty() const override { return std::make_unique<T>(); }

    void Take(const REPORTGENERATOR::IRGObject& other) const override
    {
        Get() = static_cast<const T&>(other);
        ++Changes();
    }

private:
    template <class>
    friend class Object;

    Object(std::shared_ptr<std::uint64_t> changes, Finding find)
        : AnyObject(std::move(changes)), m_find(std::move(find))
    {
    }

    Finding m_find;
};

} // namespace Python

#endif
