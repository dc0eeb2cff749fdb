#ifndef REPORTGENERATOR_REFLECTION_SCHEMAFIELDS_H
#define REPORTGENERATOR_REFLECTION_SCHEMAFIELDS_H

#include <reportgenerator/reflection/schemaobjects.h>
#include <reportgenerator/reflection/schemavalues.h>

namespace ReportCore {

// The fields of a class out of its schema: a field for each schema, of the kind that the schema has. Nothing else
// lists a class's fields.

template <class Data, class Base, class T>
std::unique_ptr<const Field>
FieldOf(const REPORTGENERATOR::ScalarField<Base, T, REPORTGENERATOR::PresenceBit>& schema)
{
    return std::make_unique<ValueField<Data, Base, T>>(schema);
}

template <class Data>
std::unique_ptr<const Field> FieldOf(const REPORTGENERATOR::FormatVersion<Data>& schema)
{
    return std::make_unique<VersionField<Data>>(schema);
}

template <class Data, class Part>
std::unique_ptr<const Field> FieldOf(const REPORTGENERATOR::Member<Data, Part>& schema)
{
    return std::make_unique<MemberField<Data, Part>>(schema);
}

template <class Data, class Item>
std::unique_ptr<const Field> FieldOf(const REPORTGENERATOR::ItemList<Data, Item>& schema)
{
    return std::make_unique<ListField<Data, Item>>(schema);
}

template <class Data>
const ObjectInfo& InfoOf()
{
    static const ObjectInfo info = [] {
        ObjectInfo::Fields fields;
        REPORTGENERATOR::ForEachField(REPORTGENERATOR::Schema<Data>::FIELDS, [&fields](const auto& schema) {
            fields.push_back(FieldOf<Data>(schema));
        });
        return ObjectInfo(REPORTGENERATOR::Schema<Data>::NAME.Text(), std::move(fields));
    }();
    return info;
}

} // namespace ReportCore

#endif
