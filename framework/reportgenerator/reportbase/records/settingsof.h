#ifndef REPORTGENERATOR_RECORDS_SETTINGSOF_H
#define REPORTGENERATOR_RECORDS_SETTINGSOF_H

#include <reportgenerator/reportbase/records/fields.h>
#include <reportgenerator/reportbase/records/recordaccess.h>

namespace REPORTGENERATOR {

// Which fields have settings of their own, and how these are passed on to them.

template <class Data, class Field, class Give>
void GiveToField(const Data& /*data*/, const Field& /*field*/, Give&& /*give*/)
{
}

template <class Data, class Object, class Give>
void GiveToField(const Data& data, const Member<Data, Object>& field, Give&& give)
{
    give(field.In(data));
}

template <class Data, class Item, class Give>
void GiveToField(const Data& data, const ItemList<Data, Item>& field, Give&& give)
{
    give(field.In(data));
}

/// Calls `give` with each member and each list of items of a record.
template <class Data, class Give>
void GiveToFields(const Data& data, Give&& give)
{
    ForEachField(Schema<Data>::FIELDS, [&](const auto& field) { GiveToField(data, field, give); });
}

/// The same of an object; there are none without a record.
template <class Object, class Give>
void GiveToMembers(const Object& object, Give&& give)
{
    if (const auto* data = RecordAccess::Get(object))
        GiveToFields(*data, give);
}

// `isChange`: the object gets something that it doesn't have yet.

template <class Item>
void PassValidateTo(const ObjectList<Item>& items, bool validate, bool isChange)
{
    items.PassValidate(validate, isChange);
}

template <class Object>
void PassValidateToMembers(const Object& object, bool validate, bool isChange)
{
    GiveToMembers(object,
                  [validate, isChange](const auto& member) { PassValidateTo(member, validate, isChange); });
}

template <class Data, class Storage>
void PassValidateTo(const RecordObject<Data, Storage>& object, bool validate, bool isChange)
{
    object.IRGObject::SetValidate(validate);
    PassValidateToMembers(object, validate, isChange);
}

template <class Item>
void PassLoggerTo(const ObjectList<Item>& items, const std::shared_ptr<Logger>& logger, bool isChange)
{
    items.PassLogger(logger, isChange);
}

template <class Data, class Storage>
void PassLoggerTo(const RecordObject<Data, Storage>& object, const std::shared_ptr<Logger>& logger,
                  bool isChange)
{
    object.IRGObject::SetLogger(logger);
    GiveToMembers(object,
                  [&logger, isChange](const auto& member) { PassLoggerTo(member, logger, isChange); });
}

/// Items that have been read get their parent's settings; members see to theirs themselves.
template <class Item>
void SettleItems(const ObjectList<Item>& items, const IRGObject& parent)
{
    items.PassSettings(parent);
}

inline void SettleItems(const IRGObject& /*member*/, const IRGObject& /*parent*/) {}

template <class Object>
void PassSettingsToMembers(const Object& object);

template <class Item>
void PassSettingsTo(const ObjectList<Item>& items, const IRGObject& parent)
{
    items.PassSettings(parent);
}

template <class Object>
void PassSettingsTo(const Object& member, const IRGObject& parent)
{
    ObjectAccess::PassSettings(parent, member);
    PassSettingsToMembers(member);
}

template <class Item>
void SetAlone(const ObjectList<Item>& /*none yet*/, const ObjectSettings& /*settings*/)
{
}

inline void SetAlone(const IRGObject& member, const ObjectSettings& settings)
{
    ObjectAccess::SettingsOf(member).SetAlone(settings);
}

/// Gives the members of a record that nobody else sees yet what the object passes on.
template <class Data>
void PassSettingsToNew(const Data& data, const IRGObject& object)
{
    if (ObjectAccess::SettingsOf(object).IsFirst())
        return;
    const ObjectSettings settings = ObjectAccess::SettingsToPass(object);
    GiveToFields(data, [&settings](const auto& member) { SetAlone(member, settings); });
}

/// Gives validate flag and logger of the object to everything that it holds.
template <class Object>
void PassSettingsToMembers(const Object& object)
{
    GiveToMembers(object, [&object](const auto& member) { PassSettingsTo(member, object); });
}

} // namespace REPORTGENERATOR

#endif
