#ifndef REPORTGENERATOR_REFLECTION_SCHEMAOBJECTS_H
#define REPORTGENERATOR_REFLECTION_SCHEMAOBJECTS_H

#include <reportgenerator/reflection/schemavalues.h>

namespace ReportCore {

/// A member object.
template <class Data, class Part>
class MemberField : public PresenceField<Data, REPORTGENERATOR::Member<Data, Part>>
{
public:
    using FieldSchema = REPORTGENERATOR::Member<Data, Part>;
    using MemberData = typename Part::RecordData;

    explicit MemberField(const FieldSchema& schema)
        : PresenceField<Data, FieldSchema>({FieldKind::Object,
                                            REPORTGENERATOR::Schema<MemberData>::NAME.Text(),
                                            REPORTGENERATOR::Place::Element,
                                            schema.setBy.tag,
                                            false,
                                            {},
                                            &InfoOf<MemberData>()},
                                           schema)
    {
    }

    bool IsGoodIn(const REPORTGENERATOR::IRGObject& /*parent*/) const override { return true; }
    QString Complaint(const REPORTGENERATOR::IRGObject& /*parent*/) const override { return QString(); }

    int CountIn(const REPORTGENERATOR::IRGObject& parent) const override
    {
        return this->IsSetIn(parent) ? 1 : 0;
    }

    const REPORTGENERATOR::IRGObject& ItemIn(const REPORTGENERATOR::IRGObject& parent,
                                             int /*index*/) const override
    {
        return this->m_schema.In(Records<Data>::Of(parent));
    }

    std::unique_ptr<REPORTGENERATOR::IRGObject> CopyOf(const REPORTGENERATOR::IRGObject& parent,
                                                       int index) const override
    {
        if (!this->IsSetIn(parent))
            return NewItem();
        return std::make_unique<Part>(static_cast<const Part&>(ItemIn(parent, index)));
    }

    std::unique_ptr<REPORTGENERATOR::IRGObject> NewItem() const override { return std::make_unique<Part>(); }

    void ReplaceIn(REPORTGENERATOR::IRGObject& parent, int /*index*/,
                   const REPORTGENERATOR::IRGObject& item) const override
    {
        Records<Data>::Alter(parent, [&](Data& data) {
            this->m_schema.In(data) = static_cast<const Part&>(item);
            REPORTGENERATOR::SetFlag(data, this->m_schema.setBy);
        });
    }
};

/// A list of objects.
template <class Data, class Item>
class ListField : public PresenceField<Data, REPORTGENERATOR::ItemList<Data, Item>>
{
public:
    using FieldSchema = REPORTGENERATOR::ItemList<Data, Item>;

    explicit ListField(const FieldSchema& schema)
        : PresenceField<Data, FieldSchema>({FieldKind::List,
                                            schema.name.Text(),
                                            REPORTGENERATOR::Place::Element,
                                            schema.setBy.tag,
                                            true,
                                            {},
                                            &InfoOf<typename Item::RecordData>()},
                                           schema)
    {
    }

    bool IsGoodIn(const REPORTGENERATOR::IRGObject& parent) const override { return this->IsSetIn(parent); }

    QString Complaint(const REPORTGENERATOR::IRGObject& parent) const override
    {
        return REPORTGENERATOR::messages::PleaseSetProperly(parent.GetObjectName(), this->m_schema.name);
    }

    int CountIn(const REPORTGENERATOR::IRGObject& parent) const override
    {
        return static_cast<int>(ItemsOf(parent).size());
    }

    const REPORTGENERATOR::IRGObject& ItemIn(const REPORTGENERATOR::IRGObject& parent,
                                             int index) const override
    {
        return ItemsOf(parent).at(index);
    }

    std::unique_ptr<REPORTGENERATOR::IRGObject> CopyOf(const REPORTGENERATOR::IRGObject& parent,
                                                       int index) const override
    {
        return std::make_unique<Item>(ItemsOf(parent).at(index));
    }

    std::unique_ptr<REPORTGENERATOR::IRGObject> NewItem() const override { return std::make_unique<Item>(); }

    void ReplaceIn(REPORTGENERATOR::IRGObject& parent, int index,
                   const REPORTGENERATOR::IRGObject& item) const override
    {
        AlterItems(parent, [&](QVector<Item>& items) { items[index] = static_cast<const Item&>(item); });
    }

    void InsertIn(REPORTGENERATOR::IRGObject& parent, int index,
                  const REPORTGENERATOR::IRGObject& item) const override
    {
        RequireData(parent, item);
        AlterItems(parent,
                   [&](QVector<Item>& items) { items.insert(index, static_cast<const Item&>(item)); });
    }

    void AppendIn(REPORTGENERATOR::IRGObject& parent,
                  const std::vector<std::unique_ptr<REPORTGENERATOR::IRGObject>>& items) const override
    {
        for (const auto& item : items)
            RequireData(parent, *item);
        AlterItems(parent, [&items](QVector<Item>& all) {
            for (const auto& item : items)
                all.append(static_cast<const Item&>(*item));
        });
    }

    void RemoveIn(REPORTGENERATOR::IRGObject& parent, int index, int count) const override
    {
        AlterItems(parent, [&](QVector<Item>& items) { items.remove(index, count); });
    }

private:
    void RequireData(const REPORTGENERATOR::IRGObject& parent, const REPORTGENERATOR::IRGObject& item) const
    {
        if (!item.HasData())
            throw RGException(
                IncompleteDefinitionException(this->m_schema.incompleteAppended(parent.GetObjectName())));
    }

    const QVector<Item>& ItemsOf(const REPORTGENERATOR::IRGObject& parent) const
    {
        return this->m_schema.In(Records<Data>::Of(parent)).Values();
    }

    template <class Change>
    void AlterItems(REPORTGENERATOR::IRGObject& parent, Change&& change) const
    {
        Records<Data>::Alter(parent, [&](Data& data) {
            // Taken out of the list first, so that changing them copies nothing.
            QVector<Item> items = this->m_schema.In(data).Values();
            this->m_schema.In(data).Clear();
            change(items);
            this->m_schema.In(data).Take(items);
            REPORTGENERATOR::SetFlag(data, this->m_schema.setBy);
        });
    }
};

} // namespace ReportCore

#endif
