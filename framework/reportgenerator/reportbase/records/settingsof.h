#ifndef REPORTGENERATOR_RECORDS_SETTINGSOF_H
#define REPORTGENERATOR_RECORDS_SETTINGSOF_H

#include <reportgenerator/reportbase/records/recordaccess.h>
#include <reportgenerator/reportbase/records/rows.h>

namespace REPORTGENERATOR {

// Which rows have settings of their own, and how these are passed on to them.

template <class Data, class Row, class Give>
void GiveToRow(Data& /*data*/, const Row& /*row*/, Give&& /*give*/)
{
}

template <class Data, class Object, class Give>
void GiveToRow(Data& data, const Member<Data, Object>& row, Give&& give)
{
    give(row.In(data));
}

template <class Data, class Item, class Give>
void GiveToRow(Data& data, const ItemList<Data, Item>& row, Give&& give)
{
    give(row.In(data));
}

/// Calls `give` with each member and each list of items; there are none without a record.
template <class Object, class Give>
void GiveToMembers(const Object& object, Give&& give)
{
    if (!RecordAccess::Get(object))
        return;
    auto& data = RecordAccess::Make(object);
    ForEachField(RecordAccess::RowsOf(object), [&](const auto& row) { GiveToRow(data, row, give); });
}

template <class Item>
void PassValidateTo(ObjectList<Item>& items, bool validate)
{
    items.PassValidate(validate);
}

inline void PassValidateTo(const IRGObject& member, bool validate)
{
    member.SetValidate(validate);
}

template <class Item>
void PassLoggerTo(ObjectList<Item>& items, const std::shared_ptr<Logger>& logger)
{
    items.PassLogger(logger);
}

inline void PassLoggerTo(const IRGObject& member, const std::shared_ptr<Logger>& logger)
{
    member.SetLogger(logger);
}

/// Items that have been read get their holder's settings; members see to theirs themselves.
template <class Item>
void SettleItems(ObjectList<Item>& items, const IRGObject& holder)
{
    items.PassSettings(holder);
}

inline void SettleItems(const IRGObject& /*member*/, const IRGObject& /*holder*/) {}

template <class Object>
void PassSettingsToMembers(const Object& object);

template <class Item>
void PassSettingsTo(ObjectList<Item>& items, const IRGObject& holder)
{
    items.PassSettings(holder);
}

template <class Object>
void PassSettingsTo(Object& member, const IRGObject& holder)
{
    ObjectAccess::PassSettings(holder, member);
    PassSettingsToMembers(member);
}

/// Gives validate flag and logger of the object to everything that it holds.
template <class Object>
void PassSettingsToMembers(const Object& object)
{
    GiveToMembers(object, [&object](auto& member) { PassSettingsTo(member, object); });
}

} // namespace REPORTGENERATOR

#endif
