#ifndef REPORTGENERATOR_RECORDS_OBJECTLIST_H
#define REPORTGENERATOR_RECORDS_OBJECTLIST_H

#include <reportgenerator/reportbase/envelope/objectaccess.h>

#include <QtCore/QVector>

#include <algorithm>
#include <atomic>
#include <memory>

namespace REPORTGENERATOR {

// Neither `detach` nor `reserve` of Qt 6 look whether they have got the memory for what they copy. Appending does.

/// Shared with nobody.
template <class Item>
QVector<Item> DetachedCopy(const QVector<Item>& items)
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    QVector<Item> copy = items;
    copy.detach();
#else
    QVector<Item> copy;
    copy.append(items);
#endif
    return copy;
}

/// For what is appended; where there are items already, they may get room one by one.
template <class Item>
void ReserveIn(QVector<Item>& items, int count)
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    if (!items.isEmpty())
        return;
#endif
    items.reserve(count);
}

/// Whether `test` is true of each item from `first` on. The standard algorithm repeats the test four times, which
/// keeps the compiler from making it part of the loop.
template <class Item, class Test>
bool AllOfItems(const QVector<Item>& items, Test&& test, int first = 0)
{
    const Item* const end = items.constData() + items.size();
    for (const Item* item = items.constData() + first; item != end; ++item) {
        if (!test(*item))
            return false;
    }
    return true;
}

/// How many items from the front a reading has given a validate flag, and a logger, so that it looks at new ones only.
/// While the list itself is read, items that somebody gives other settings stay as they are.
template <class Item>
class SettledItems
{
public:
    void BeginList() { ++m_lists; }
    void EndList() { --m_lists; }
    bool IsInList() const { return m_lists > 0; }

    void Forget() { m_first = nullptr; }

    int CountOf(const QVector<Item>& items, bool validate) const
    {
        return Counted(items, validate == m_validate ? m_validating : 0);
    }
    int CountOf(const QVector<Item>& items, const std::shared_ptr<Logger>& logger) const
    {
        return Counted(items, logger == m_logger ? m_logging : 0);
    }
    int CountOf(const QVector<Item>& items, const ObjectSettings& settings) const
    {
        return std::min(CountOf(items, settings.Validates()), CountOf(items, settings.GetLogger()));
    }

    void Remember(const QVector<Item>& items, bool validate)
    {
        Begin(items);
        m_validate = validate;
        m_validating = static_cast<int>(items.size());
    }
    void Remember(const QVector<Item>& items, const std::shared_ptr<Logger>& logger)
    {
        Begin(items);
        m_logger = logger;
        m_logging = static_cast<int>(items.size());
    }
    void Remember(const QVector<Item>& items, const ObjectSettings& settings)
    {
        Remember(items, settings.Validates());
        Remember(items, settings.GetLogger());
    }

private:
    /// None when the list is another one by now.
    int Counted(const QVector<Item>& items, int count) const
    {
        return m_first == items.constData() && count <= items.size() ? count : 0;
    }

    void Begin(const QVector<Item>& items)
    {
        if (m_first == items.constData())
            return;
        m_first = items.constData();
        m_validating = 0;
        m_logging = 0;
    }

    int m_lists = 0;
    const Item* m_first = nullptr;
    int m_validating = 0;
    int m_logging = 0;
    bool m_validate = true;
    std::shared_ptr<Logger> m_logger;
};

/// The items of one record.
///
/// A copy has items of its own, as copying each would give them, but shares those of its source until
/// somebody looks at them. Of shared items only the values count; which settings those of the copy have is
/// noted meanwhile. So a list is shared only when all its items have records and the same validate flag, and
/// when no caller has been handed it, who may change single items. A source that leaves items to its copies
/// takes their loggers away.
///
/// Several threads may call const operations at the same time. These change only what stands in one atomic
/// word each: settings, marks, and whether a copy has got items of its own.
template <class Item>
class ObjectList
{
public:
    ObjectList() = default;
    ObjectList(const ObjectList& other)
    {
        const QVector<Item>& items = other.Values();
        if (items.isEmpty())
            return;
        if (other.IsMarked(HANDED_OUT) || !other.AreAlike()) {
            m_items = DetachedCopy(items);
            return;
        }
        other.SetMark(COPIED);
        m_source = items;
        Noted().SetAlone(ObjectSettings(other.DoItemsValidate()));
    }
    ObjectList& operator=(const ObjectList& other) = delete;
    ~ObjectList()
    {
        if (IsMarked(COPIED))
            Leave();
        else
            Noted().SetAlone(ObjectSettings::None());
    }

    /// For those who look at the items' values, not at their settings.
    const QVector<Item>& Values() const { return IsDetached() ? m_items : m_source; }

    /// The items with the settings that they should have.
    const QVector<Item>& Items() const
    {
        if (!IsDetached())
            Detach();
        return m_items;
    }

    /// For a caller, who may keep the reference and what it refers to.
    const QVector<Item>& HandOut() const
    {
        const QVector<Item>& items = Items();
        SetMark(HANDED_OUT | HAS_LOGGERS);
        return items;
    }

    /// For a caller, who may keep the reference and change what it refers to. A vector of a caller's that
    /// shares the items goes on sharing them.
    QVector<Item>& HandOut()
    {
        if (!IsMarked(HANDED_OUT) || IsMarked(COPIED))
            Detached();
        else
            Drop(m_source);
        SetMark(HANDED_OUT | HAS_LOGGERS);
        return m_items;
    }

    void Reserve(int count) { ReserveIn(Detached(), count); }

    void Append(const Item& item)
    {
        if (IsOnlyOwn()) {
            m_items.append(item);
            return;
        }
        // It may be one of those that are left now.
        const Item appended(item); // NOLINT(performance-unnecessary-copy-initialization)
        Detached().append(appended);
    }

    /// The items, to put others behind them, shared with nobody. Those that a caller's vector shares lose
    /// their logger by being copied.
    QVector<Item>& Detached()
    {
        if (IsOnlyOwn())
            return m_items;
        Items();
        Drop(m_source);
        Unmark(ALIKE | NOT_ALIKE);
        if (!m_items.isEmpty() && !IsSole(m_items))
            Separate();
        Unmark(COPIED);
        return m_items;
    }

    /// Replaces the items by copies of others.
    void Assign(const QVector<Item>& items)
    {
        QVector<Item> copies = DetachedCopy(items);
        Take(copies);
    }

    /// Replaces the items by others that nobody shares.
    void Take(QVector<Item>& items)
    {
        Leave();
        m_items.swap(items);
    }

    /// The same of new items, at least one, which get these settings.
    void Take(QVector<Item>& items, const ObjectSettings& settings)
    {
        const auto slotOf = [](const Item& item) { return ObjectAccess::SettingsOf(item); };
        if (!slotOf(items.constFirst()).Holds(settings))
            std::for_each(items.cbegin(), items.cend(),
                          [&](const Item& item) { slotOf(item).SetAlone(settings); });
        Take(items);
        SetMark(HAS_LOGGERS);
    }

    void Clear()
    {
        Leave();
        m_items.clear();
    }

    // Settings are passed on to the items in their place, also to those that a caller's vector shares. Only `isChange`,
    // which is for operations of one thread, leaves such a vector as it is.

    void PassValidate(bool validate, bool isChange = false) const
    {
        if (!Noted().HoldsFlag(validate))
            PassOtherValidate(validate, isChange);
    }

    void PassLogger(const std::shared_ptr<Logger>& logger, bool isChange = false) const
    {
        if (Note([&logger](const ObjectSettings& noted) {
                return ObjectSettings(noted.Validates(), logger, nullptr);
            }))
            return;
        Pass([&logger](const Item& item) { return item.GetLogger() == logger; },
             [&logger](const Item& item) { item.SetLogger(logger); }, isChange, CountSettled(logger));
        RememberSettled(logger);
    }

    /// Validate flag and logger of the parent.
    void PassSettings(const IRGObject& parent) const
    {
        // A derived class may have settings of its own.
        if (!ObjectAccess::FastPathOf(parent)) {
            PassValidate(parent.GetValidate());
            PassLogger(parent.GetLogger());
            return;
        }
        if (IsDetached() && m_items.isEmpty())
            return;
        if (!m_settled) {
            PassSettings(parent, 0);
            return;
        }
        const ObjectSettings settings = ObjectAccess::SettingsToPass(parent);
        PassSettings(parent, CountSettled(settings));
        RememberSettled(settings);
    }

    /// What the reading that is going on has passed on; null while there is none.
    void SetSettled(SettledItems<Item>* settled) const { m_settled = settled; }

    /// Whether a caller may give single items other settings.
    bool IsHandedOut() const { return IsMarked(HANDED_OUT); }

private:
    enum Mark : quint8
    {
        HANDED_OUT = 1,  ///< to a caller, who may have kept a reference
        COPIED = 2,      ///< there may be copies that share the items
        HAS_LOGGERS = 4, ///< items may have one
        ALIKE = 8,       ///< all items have records and the same validate flag
        NOT_ALIKE = 16,
        TAKING = 32 ///< somebody is about to make the items of the source a copy's own
    };

    bool IsMarked(int mark) const { return (m_marks.load(std::memory_order_relaxed) & mark) != 0; }

    /// Returns whether it was marked so.
    bool SetMark(int mark) const
    {
        const auto isMarked = [mark](int marks) { return (marks & mark) == mark; };
        return isMarked(m_marks.load(std::memory_order_relaxed)) ||
               isMarked(m_marks.fetch_or(static_cast<quint8>(mark)));
    }

    void Unmark(int mark) const
    {
        if (IsMarked(mark))
            m_marks.fetch_and(static_cast<quint8>(~mark));
    }

    /// Whether the items are shared with nobody, and nothing is noted that ends when there are others.
    bool IsOnlyOwn() const
    {
        return !IsMarked(COPIED | ALIKE | NOT_ALIKE) && IsDetached() && m_source.isEmpty() &&
               (m_items.isDetached() || m_items.isEmpty());
    }

    SettingsSlot Noted() const { return SettingsSlot(m_noted); }
    bool IsDetached() const { return Noted().IsNone(); }

    /// Whether no copy or caller shares the items.
    bool IsSole(const QVector<Item>& items) const
    {
        if (!items.isDetached())
            return false;
        // What others did with the items before they left them comes before what is done now.
        if (IsMarked(COPIED) || !m_source.isEmpty()) {
            const QVector<Item> together = items; // NOLINT(performance-unnecessary-copy-initialization)
        }
        return true;
    }

    bool AreAlike() const
    {
        if (!IsDetached() || IsMarked(ALIKE))
            return true;
        if (IsMarked(NOT_ALIKE))
            return false;
        const bool validates = ObjectAccess::Validates(m_items.constFirst());
        const bool areAlike = AllOfItems(m_items, [validates](const Item& item) {
            return item.IsInitialized() && ObjectAccess::Validates(item) == validates;
        });
        SetMark(areAlike ? ALIKE : NOT_ALIKE);
        return areAlike;
    }

    /// Of items that are alike.
    bool DoItemsValidate() const
    {
        const ObjectSettings noted = Noted().Get();
        return noted.IsNone() ? ObjectAccess::Validates(m_items.constFirst()) : noted.Validates();
    }

    /// Changes what is noted of shared items. Returns false when a copy has items of its own.
    template <class Change>
    bool Note(Change&& change) const
    {
        while (true) {
            const ObjectSettings before = Noted().Get();
            if (before.IsNone())
                return false;
            const ObjectSettings after = change(before);
            if (Noted().Holds(after) || Noted().SetIfStill(before, after, [] {}))
                return true;
        }
    }

    /// Apart from the comparison, which is all for most copies.
    Q_NEVER_INLINE void PassOtherValidate(bool validate, bool isChange) const
    {
        if (Note([validate](const ObjectSettings& noted) { return noted.WithValidate(validate); }))
            return;
        Pass([validate](const Item& item) { return item.GetValidate() == validate; },
             [validate](const Item& item) { item.SetValidate(validate); }, isChange, CountSettled(validate));
        RememberSettled(validate);
    }

    void PassSettings(const IRGObject& parent, int first) const
    {
        const SettingsSlot slot = ObjectAccess::SettingsOf(parent);
        const auto hasAlready = [word = slot.Now()](const Item& item) {
            return ObjectAccess::SettingsOf(item).Now() == word;
        };
        if (IsDetached() ? AllOfItems(m_items, hasAlready, first) : Noted().HoldsSameAs(slot))
            return;
        const ObjectSettings settings = ObjectAccess::SettingsToPass(parent);
        if (!Note([&settings](const ObjectSettings& /*noted*/) { return settings; })) // NOLINT: passed on too
            Pass(
                hasAlready, [&](const Item& item) { ObjectAccess::PassSettings(settings, item); }, false,
                first);
    }

    template <class Setting>
    int CountSettled(const Setting& setting) const
    {
        return m_settled && (m_settled->IsInList() || !IsHandedOut()) ? m_settled->CountOf(m_items, setting)
                                                                      : 0;
    }

    template <class Setting>
    void RememberSettled(const Setting& setting) const
    {
        if (m_settled)
            m_settled->Remember(m_items, setting);
    }

    /// Walks the list from `first` on only when there is something to pass on.
    template <class HasAlready, class Give>
    void Pass(HasAlready&& hasAlready, Give&& give, bool isChange, int first) const
    {
        if (AllOfItems(m_items, hasAlready, first))
            return;
        SetMark(HAS_LOGGERS);
        Unmark(NOT_ALIKE);
        if (isChange && IsMarked(HANDED_OUT)) {
            Drop(m_source);
            if (!m_items.isDetached())
                Separate();
        }
        std::for_each(m_items.cbegin() + first, m_items.cend(), give);
    }

    /// Gives a copy items of its own, complete before others see them.
    void Detach() const
    {
        // Only one may give those of a source that has gone other settings.
        const bool takes = IsSole(m_source) && !SetMark(TAKING);
        QVector<Item> items = takes ? m_source : DetachedCopy(m_source);
        while (true) {
            const ObjectSettings noted = Noted().Get();
            if (noted.IsNone())
                break;
            std::for_each(items.cbegin(), items.cend(),
                          [&noted](const Item& item) { ObjectAccess::PassSettings(noted, item); });
            SetMark(HAS_LOGGERS);
            if (Noted().SetIfStill(noted, ObjectSettings::None(), [&] { m_items.swap(items); }))
                return;
        }
        if (takes)
            TakeLoggers(items);
    }

    /// Copies the items for whom else shares them.
    void Separate() const
    {
        QVector<Item> items = DetachedCopy(m_items);
        if (IsMarked(COPIED)) {
            for (int i = 0; i < items.size(); ++i)
                ObjectAccess::PassSettings(m_items.at(i), items.at(i));
            TakeLoggers(m_items);
        }
        m_items.swap(items);
    }

    /// Leaves the items to those who share them.
    void Leave()
    {
        if (m_settled)
            m_settled->Forget();
        Drop(m_source);
        if (!IsDetached())
            Noted().Set(ObjectSettings::None());
        if (!IsSole(m_items)) {
            if (IsMarked(COPIED))
                TakeLoggers(m_items);
            Drop(m_items);
        }
        Unmark(COPIED | HAS_LOGGERS | ALIKE | NOT_ALIKE | TAKING);
    }

    void TakeLoggers(const QVector<Item>& items) const
    {
        if (IsMarked(HAS_LOGGERS))
            std::for_each(items.cbegin(), items.cend(), ObjectAccess::KeepValidateOnly);
    }

    static void Drop(QVector<Item>& items)
    {
        if (!items.isEmpty())
            items = QVector<Item>();
    }

    // The items; of a copy that has none of its own yet, those of its source.
    mutable QVector<Item> m_items;
    mutable QVector<Item> m_source;

    /// The settings of the items that a copy doesn't have yet; none when the items are one's own.
    mutable SettingsSlot::Word m_noted{SettingsSlot::NONE};
    mutable std::atomic<quint8> m_marks{0};

    mutable SettledItems<Item>* m_settled = nullptr;
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
