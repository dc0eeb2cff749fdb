#ifndef REPORTGENERATOR_REFLECTION_SCHEMARECORDS_H
#define REPORTGENERATOR_REFLECTION_SCHEMARECORDS_H

#include <reportgenerator/reflection/field.h>

#include <reportgenerator/reportbase/records/fields.h>
#include <reportgenerator/reportbase/records/recordaccess.h>

namespace ReportCore {

/// The way to the records of a class's objects.
template <class Data>
struct Records
{
    using Object = typename REPORTGENERATOR::Schema<Data>::Object;

    static const Object& Cast(const REPORTGENERATOR::IRGObject& object)
    {
        return static_cast<const Object&>(object);
    }

    /// What an object without a record counts as.
    static const Data& Of(const REPORTGENERATOR::IRGObject& object)
    {
        const Data* const data = REPORTGENERATOR::RecordAccess::Get(Cast(object));
        return data ? *data : REPORTGENERATOR::DefaultRecord<Data>();
    }

    /// Gives the object a record of its own like its present one, changed. A record that others may share is never
    /// touched, only that of a new object.
    template <class Change>
    static void Alter(REPORTGENERATOR::IRGObject& object, Change&& change)
    {
        Object altered;
        REPORTGENERATOR::RecordAccess::Init(altered);
        // NOLINTNEXTLINE(cppcoreguidelines-pro-type-const-cast): the record is that of the new object alone
        Data& data = const_cast<Data&>(*REPORTGENERATOR::RecordAccess::Get(altered));
        CopyFields(Of(object), data);
        change(data);
        static_cast<Object&>(object) = altered;
    }

private:
    static void CopyFields(const Data& from, Data& to)
    {
        to.flags = from.flags;
        REPORTGENERATOR::ForEachField(REPORTGENERATOR::Schema<Data>::FIELDS,
                                      [&](const auto& schema) { CopyField(from, to, schema); });
    }

    template <class FieldSchema>
    static void CopyField(const Data& from, Data& to, const FieldSchema& schema)
    {
        schema.In(to) = schema.In(from);
    }

    template <class D, class Item>
    static void CopyField(const Data& from, Data& to, const REPORTGENERATOR::ItemList<D, Item>& schema)
    {
        schema.In(to).Assign(schema.In(from).Values());
    }

    template <class D>
    static void CopyField(const Data& from, Data& to, const REPORTGENERATOR::FormatVersion<D>& schema)
    {
        to.*(schema.loaded) = from.*(schema.loaded);
    }
};

/// The class whose records are `Data`.
template <class Data>
const ObjectInfo& InfoOf();

inline FieldKind KindOf(const double& /*value*/)
{
    return FieldKind::Number;
}

inline FieldKind KindOf(const bool& /*value*/)
{
    return FieldKind::Switch;
}

inline FieldKind KindOf(const QString& /*value*/)
{
    return FieldKind::Text;
}

inline bool TakeValue(const QVariant& value, double& number)
{
    bool isNumber = false;
    number = value.toDouble(&isNumber);
    return isNumber && value.userType() != QMetaType::QString && value.userType() != QMetaType::Bool;
}

inline bool TakeValue(const QVariant& value, bool& isOn)
{
    isOn = value.toBool();
    return value.userType() == QMetaType::Bool;
}

inline bool TakeValue(const QVariant& value, QString& text)
{
    text = value.toString();
    return value.userType() == QMetaType::QString;
}

} // namespace ReportCore

#endif
