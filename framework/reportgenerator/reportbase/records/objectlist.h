#ifndef REPORTGENERATOR_RECORDS_OBJECTLIST_H
#define REPORTGENERATOR_RECORDS_OBJECTLIST_H

#include <reportgenerator/reportbase/frames/objectaccess.h>

#include <QtCore/QVector>

#include <algorithm>
#include <memory>
#include <optional>

namespace REPORTGENERATOR {

/// The items of one record.
///
/// A copy has items of its own, as copying each would give them, but shares those of its source until
/// somebody looks at either list: until then settings that are passed on are only noted. A list that has been
/// handed to a caller is copied at once, since its items can be changed behind its back.
template <class Item>
class ObjectList
{
public:
    ObjectList() = default;
    ObjectList(const ObjectList& other)
        : m_items(other.m_items), m_isCopy(!other.m_items.isEmpty()), m_notedValidate(other.m_notedValidate)
    {
        if (other.m_isHandedOut)
            Own();
    }
    ObjectList& operator=(const ObjectList& other) = delete;
    ~ObjectList() = default;

    /// For those who look at the items' values, not at their settings.
    const QVector<Item>& Values() const { return m_items; }

    /// For a caller, who may keep the reference and change what it refers to. A vector of a caller's that
    /// shares the items goes on sharing them.
    QVector<Item>& HandOut()
    {
        if (!m_isHandedOut)
            Own();
        m_isHandedOut = true;
        return m_items;
    }

    /// The items, shared with nobody, with the settings that they should have. Those that a caller's vector
    /// shares lose their logger by being copied.
    QVector<Item>& Own()
    {
        if (m_isCopy)
            BecomeOwn();
        else if (!m_items.isEmpty() && !m_items.isDetached())
            Separate();
        return m_items;
    }

    /// Replaces the items by copies of others.
    void Assign(const QVector<Item>& items)
    {
        ForgetCopy();
        m_items = items;
        m_items.detach();
    }

    /// Replaces the items by others that nobody shares.
    void Adopt(QVector<Item>& items)
    {
        ForgetCopy();
        m_items.swap(items);
    }

    void Clear()
    {
        ForgetCopy();
        m_items.clear();
    }

    void PassValidate(bool validate, int first = 0)
    {
        if (m_isCopy)
            m_notedValidate = validate;
        else
            Pass([validate](const Item& item) { return item.GetValidate() == validate; },
                 [validate](const Item& item) { item.SetValidate(validate); }, first);
    }

    void PassLogger(const std::shared_ptr<Logger>& logger, int first = 0)
    {
        if (m_isCopy)
            m_notedLogger = logger;
        else
            Pass([&logger](const Item& item) { return item.GetLogger() == logger; },
                 [&logger](const Item& item) { item.SetLogger(logger); }, first);
    }

    /// Gives the items from `first` on the validate flag and the logger of their holder.
    void PassSettings(const IRGObject& holder, int first = 0)
    {
        // A derived class may have settings of its own.
        if (m_isCopy || !ObjectAccess::RoadOf(holder)) {
            PassValidate(holder.GetValidate(), first);
            PassLogger(holder.GetLogger(), first);
            return;
        }
        Pass([&holder](const Item& item) { return ObjectAccess::ShareSettings(holder, item); },
             [&holder](const Item& item) { ObjectAccess::PassSettings(holder, item); }, first);
    }

private:
    /// Detaches and walks the list only when there is something to pass on.
    template <class HasAlready, class Give>
    void Pass(HasAlready&& hasAlready, Give&& give, int first)
    {
        const QVector<Item>& items = m_isHandedOut ? Own() : m_items;
        const auto begin = items.cbegin() + first;
        if (std::all_of(begin, items.cend(), hasAlready))
            return;
        const QVector<Item>& own = Own();
        std::for_each(own.cbegin() + first, own.cend(), give);
    }

    void BecomeOwn()
    {
        m_isCopy = false;
        if (m_items.isDetached())
            std::for_each(m_items.cbegin(), m_items.cend(), ObjectAccess::KeepValidateOnly);
        else
            m_items.detach();
        if (const auto validate = std::exchange(m_notedValidate, std::nullopt))
            PassValidate(*validate);
        if (const auto logger = std::exchange(m_notedLogger, std::nullopt))
            PassLogger(*logger);
    }

    /// Copies the items for whom else shares them. Only copies that nobody has looked at know nothing of
    /// settings.
    void Separate()
    {
        if (m_isHandedOut) {
            m_items.detach();
            return;
        }
        QVector<Item> items = m_items;
        items.detach();
        for (int i = 0; i < items.size(); ++i)
            ObjectAccess::PassSettings(m_items.at(i), items.at(i));
        m_items.swap(items);
    }

    void ForgetCopy()
    {
        m_isCopy = false;
        m_notedValidate.reset();
        m_notedLogger.reset();
    }

    QVector<Item> m_items;
    bool m_isHandedOut = false;

    // Of a copy that nobody has looked at: that it is one, and what it has been told since.
    bool m_isCopy = false;
    std::optional<bool> m_notedValidate;
    std::optional<std::shared_ptr<Logger>> m_notedLogger;
};

template <class Item>
bool operator==(const ObjectList<Item>& left, const ObjectList<Item>& right)
{
    const QVector<Item>& l = left.Values();
    const QVector<Item>& r = right.Values();
    return std::equal(l.cbegin(), l.cend(), r.cbegin(), r.cend());
}

} // namespace REPORTGENERATOR

#endif
