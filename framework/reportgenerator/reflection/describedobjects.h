#ifndef REPORTGENERATOR_REFLECTION_DESCRIBEDOBJECTS_H
#define REPORTGENERATOR_REFLECTION_DESCRIBEDOBJECTS_H

#include <reportgenerator/reflection/describedvalues.h>

namespace ReportCore {

/// A member object.
template <class Data, class Part>
class MemberField : public FlaggedField<Data, REPORTGENERATOR::Member<Data, Part>>
{
public:
    using Row = REPORTGENERATOR::Member<Data, Part>;
    using MemberData = typename Part::RecordData;

    explicit MemberField(const Row& row)
        : FlaggedField<Data, Row>({FieldKind::Object,
                                   REPORTGENERATOR::Description<MemberData>::NAME.Text(),
                                   REPORTGENERATOR::Place::Element,
                                   row.setBy.tag,
                                   false,
                                   {},
                                   &InfoOf<MemberData>()},
                                  row)
    {
    }

    bool IsGoodIn(const REPORTGENERATOR::IRGObject& /*holder*/) const override { return true; }
    QString Complaint(const REPORTGENERATOR::IRGObject& /*holder*/) const override { return QString(); }

    int CountIn(const REPORTGENERATOR::IRGObject& holder) const override
    {
        return this->IsSetIn(holder) ? 1 : 0;
    }

    const REPORTGENERATOR::IRGObject& ItemIn(const REPORTGENERATOR::IRGObject& holder,
                                             int /*index*/) const override
    {
        return this->m_row.In(Records<Data>::Of(holder));
    }

    std::unique_ptr<REPORTGENERATOR::IRGObject> CopyOf(const REPORTGENERATOR::IRGObject& holder,
                                                       int index) const override
    {
        if (!this->IsSetIn(holder))
            return NewItem();
        return std::make_unique<Part>(static_cast<const Part&>(ItemIn(holder, index)));
    }

    std::unique_ptr<REPORTGENERATOR::IRGObject> NewItem() const override { return std::make_unique<Part>(); }

    void ReplaceIn(REPORTGENERATOR::IRGObject& holder, int /*index*/,
                   const REPORTGENERATOR::IRGObject& item) const override
    {
        Records<Data>::Alter(holder, [&](Data& data) {
            this->m_row.In(data) = static_cast<const Part&>(item);
            REPORTGENERATOR::SetFlag(data, this->m_row.setBy);
        });
    }
};

/// A list of objects.
template <class Data, class Item>
class ListField : public FlaggedField<Data, REPORTGENERATOR::ItemList<Data, Item>>
{
public:
    using Row = REPORTGENERATOR::ItemList<Data, Item>;

    explicit ListField(const Row& row)
        : FlaggedField<Data, Row>({FieldKind::List,
                                   row.name.Text(),
                                   REPORTGENERATOR::Place::Element,
                                   row.setBy.tag,
                                   true,
                                   {},
                                   &InfoOf<typename Item::RecordData>()},
                                  row)
    {
    }

    bool IsGoodIn(const REPORTGENERATOR::IRGObject& holder) const override { return this->IsSetIn(holder); }

    QString Complaint(const REPORTGENERATOR::IRGObject& holder) const override
    {
        return REPORTGENERATOR::messages::PleaseSetProperly(holder.GetObjectName(), this->m_row.name);
    }

    int CountIn(const REPORTGENERATOR::IRGObject& holder) const override
    {
        return static_cast<int>(ItemsOf(holder).size());
    }

    const REPORTGENERATOR::IRGObject& ItemIn(const REPORTGENERATOR::IRGObject& holder,
                                             int index) const override
    {
        return ItemsOf(holder).at(index);
    }

    std::unique_ptr<REPORTGENERATOR::IRGObject> CopyOf(const REPORTGENERATOR::IRGObject& holder,
                                                       int index) const override
    {
        return std::make_unique<Item>(ItemsOf(holder).at(index));
    }

    std::unique_ptr<REPORTGENERATOR::IRGObject> NewItem() const override { return std::make_unique<Item>(); }

    void ReplaceIn(REPORTGENERATOR::IRGObject& holder, int index,
                   const REPORTGENERATOR::IRGObject& item) const override
    {
        AlterItems(holder, [&](QVector<Item>& items) { items[index] = static_cast<const Item&>(item); });
    }

    void InsertIn(REPORTGENERATOR::IRGObject& holder, int index,
                  const REPORTGENERATOR::IRGObject& item) const override
    {
        RequireData(holder, item);
        AlterItems(holder,
                   [&](QVector<Item>& items) { items.insert(index, static_cast<const Item&>(item)); });
    }

    void AppendIn(REPORTGENERATOR::IRGObject& holder,
                  const std::vector<std::unique_ptr<REPORTGENERATOR::IRGObject>>& items) const override
    {
        for (const auto& item : items)
            RequireData(holder, *item);
        AlterItems(holder, [&items](QVector<Item>& all) {
            for (const auto& item : items)
                all.append(static_cast<const Item&>(*item));
        });
    }

    void RemoveIn(REPORTGENERATOR::IRGObject& holder, int index, int count) const override
    {
        AlterItems(holder, [&](QVector<Item>& items) { items.remove(index, count); });
    }

private:
    void RequireData(const REPORTGENERATOR::IRGObject& holder, const REPORTGENERATOR::IRGObject& item) const
    {
        if (!item.HasData())
            throw RGException(
                IncompleteDefinitionException(this->m_row.incompleteAppended(holder.GetObjectName())));
    }

    const QVector<Item>& ItemsOf(const REPORTGENERATOR::IRGObject& holder) const
    {
        return this->m_row.In(Records<Data>::Of(holder)).Values();
    }

    template <class Change>
    void AlterItems(REPORTGENERATOR::IRGObject& holder, Change&& change) const
    {
        Records<Data>::Alter(holder, [&](Data& data) {
            // Taken out of the list first, so that changing them copies nothing.
            QVector<Item> items = this->m_row.In(data).Values();
            this->m_row.In(data).Clear();
            change(items);
            this->m_row.In(data).Adopt(items);
            REPORTGENERATOR::SetFlag(data, this->m_row.setBy);
        });
    }
};

} // namespace ReportCore

#endif
