#ifndef REPORTGENERATOR_REFLECTION_DESCRIBEDFIELDS_H
#define REPORTGENERATOR_REFLECTION_DESCRIBEDFIELDS_H

#include <reportgenerator/reflection/describedobjects.h>
#include <reportgenerator/reflection/describedvalues.h>

namespace ReportCore {

// The fields of a class out of its description: a field for each row, of the kind that the row has. Nothing else
// lists a class's fields.

template <class Data, class Base, class T>
std::unique_ptr<const Field> FieldOf(const REPORTGENERATOR::Field<Base, T, REPORTGENERATOR::Flagged>& row)
{
    return std::make_unique<ValueField<Data, Base, T>>(row);
}

template <class Data>
std::unique_ptr<const Field> FieldOf(const REPORTGENERATOR::FormatVersion<Data>& row)
{
    return std::make_unique<VersionField<Data>>(row);
}

template <class Data, class Part>
std::unique_ptr<const Field> FieldOf(const REPORTGENERATOR::Member<Data, Part>& row)
{
    return std::make_unique<MemberField<Data, Part>>(row);
}

template <class Data, class Item>
std::unique_ptr<const Field> FieldOf(const REPORTGENERATOR::ItemList<Data, Item>& row)
{
    return std::make_unique<ListField<Data, Item>>(row);
}

template <class Data>
const ObjectInfo& InfoOf()
{
    static const ObjectInfo info = [] {
        ObjectInfo::Fields fields;
        REPORTGENERATOR::ForEachField(REPORTGENERATOR::Description<Data>::ROWS,
                                      [&fields](const auto& row) { fields.push_back(FieldOf<Data>(row)); });
        return ObjectInfo(REPORTGENERATOR::Description<Data>::NAME.Text(), std::move(fields));
    }();
    return info;
}

} // namespace ReportCore

#endif
