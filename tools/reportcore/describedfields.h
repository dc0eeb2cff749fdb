#ifndef REPORTCORE_DESCRIBEDFIELDS_H
#define REPORTCORE_DESCRIBEDFIELDS_H

#include <reportcore/field.h>

#include <reportgenerator/reportbase/records/checking.h>
#include <reportgenerator/reportbase/records/recordaccess.h>
#include <reportgenerator/reportbase/records/rows.h>
#include <reportgenerator/reportbase/records/storing.h>
#include <reportgenerator/reportbase/rgexception.h>

namespace ReportCore {

// The fields of a class out of its description: a field for each row, of the kind that the row has. Nothing else
// lists a class's fields.

/// The way to the records of a class's objects.
template <class Data>
struct Records
{
    using Object = typename REPORTGENERATOR::Description<Data>::Object;

    static const Object& Cast(const REPORTGENERATOR::IRGObject& object)
    {
        return static_cast<const Object&>(object);
    }

    /// What an object without a record counts as.
    static const Data& Of(const REPORTGENERATOR::IRGObject& object)
    {
        const Data* const data = REPORTGENERATOR::RecordAccess::Get(Cast(object));
        return data ? *data : REPORTGENERATOR::FreshRecord<Data>();
    }

    /// Gives the object a record of its own like its present one, changed. A record that others may share is never
    /// touched, only that of a new object.
    template <class Change>
    static void Alter(REPORTGENERATOR::IRGObject& object, Change&& change)
    {
        Object altered;
        REPORTGENERATOR::RecordAccess::Init(altered);
        Data& data = const_cast<Data&>(*REPORTGENERATOR::RecordAccess::Get(altered));
        CopyRows(Of(object), data);
        change(data);
        static_cast<Object&>(object) = altered;
    }

private:
    static void CopyRows(const Data& from, Data& to)
    {
        to.flags = from.flags;
        REPORTGENERATOR::ForEachField(REPORTGENERATOR::Description<Data>::ROWS,
                                      [&](const auto& row) { CopyRow(from, to, row); });
    }

    template <class Row>
    static void CopyRow(const Data& from, Data& to, const Row& row)
    {
        row.In(to) = row.In(from);
    }

    template <class D, class Item>
    static void CopyRow(const Data& from, Data& to, const REPORTGENERATOR::ItemList<D, Item>& row)
    {
        row.In(to).Assign(row.In(from).Values());
    }

    template <class D>
    static void CopyRow(const Data& from, Data& to, const REPORTGENERATOR::FormatVersion<D>& row)
    {
        to.*(row.loaded) = from.*(row.loaded);
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

/// A field whose row has a flag that tells whether it is set.
template <class Data, class Row>
class FlaggedField : public Field
{
public:
    FlaggedField(const FieldFacts& facts, const Row& row) : Field(facts), m_row(row) {}

    bool IsSetIn(const REPORTGENERATOR::IRGObject& holder) const override
    {
        return m_row.IsSetIn(Records<Data>::Of(holder));
    }

    void UnsetIn(REPORTGENERATOR::IRGObject& holder) const override
    {
        Records<Data>::Alter(holder, [this](Data& data) {
            REPORTGENERATOR::RestoreRow(data, m_row);
            REPORTGENERATOR::ClearFlag(data, m_row.setBy);
        });
    }

protected:
    const Row m_row;
};

/// A number, a switch or a text. The row may be one that several classes share, of a base of their records.
template <class Data, class Base, class T>
class ValueField : public FlaggedField<Data, REPORTGENERATOR::Field<Base, T, REPORTGENERATOR::Flagged>>
{
public:
    using Row = REPORTGENERATOR::Field<Base, T, REPORTGENERATOR::Flagged>;

    explicit ValueField(const Row& row)
        : FlaggedField<Data, Row>({KindOf(T()), row.name.Text(), row.place, row.setBy.tag, row.isMandatory,
                                   row.range, nullptr, row.format.decimals},
                                  row)
    {
    }

    bool IsGoodIn(const REPORTGENERATOR::IRGObject& holder) const override
    {
        return REPORTGENERATOR::IsRowGood(Records<Data>::Of(holder), this->m_row);
    }

    QString Complaint(const REPORTGENERATOR::IRGObject& holder) const override
    {
        return REPORTGENERATOR::messages::PleaseSetProperly(holder.GetObjectName(), this->m_row.name);
    }

    QVariant ValueIn(const REPORTGENERATOR::IRGObject& holder) const override
    {
        const Data& data = Records<Data>::Of(holder);
        return this->m_row.IsSetIn(data) ? QVariant(this->m_row.In(data)) : QVariant();
    }

    std::optional<double> NumberIn(const REPORTGENERATOR::IRGObject& holder) const override
    {
        if constexpr (std::is_same_v<T, double>) {
            const Data& data = Records<Data>::Of(holder);
            if (this->m_row.IsSetIn(data))
                return this->m_row.In(data);
        }
        return std::nullopt;
    }

    void SetIn(REPORTGENERATOR::IRGObject& holder, const QVariant& value) const override
    {
        T taken{};
        if (!TakeValue(value, taken))
            throw RGException(QStringLiteral("%1 takes no value of this type").arg(this->Name()));
        if constexpr (!std::is_same_v<T, bool>) {
            if (!REPORTGENERATOR::IsAdmitted(this->m_row, taken))
                throw RGException(
                    OutOfRangeException(REPORTGENERATOR::NotAdmitted(holder, this->m_row, taken)));
        }
        Records<Data>::Alter(holder, [&](Data& data) {
            this->m_row.In(data) = taken;
            REPORTGENERATOR::SetFlag(data, this->m_row.setBy);
        });
    }
};

/// The version of the format.
template <class Data>
class VersionField : public Field
{
public:
    using Row = REPORTGENERATOR::FormatVersion<Data>;

    explicit VersionField(const Row& row)
        : Field({FieldKind::Version, row.name.Text(), REPORTGENERATOR::Place::Attribute, row.tag}), m_row(row)
    {
    }

    bool IsSetIn(const REPORTGENERATOR::IRGObject& holder) const override
    {
        return !(Records<Data>::Of(holder).*(m_row.loaded)).isEmpty();
    }

    void UnsetIn(REPORTGENERATOR::IRGObject& /*holder*/) const override
    {
        throw RGException(QStringLiteral("%1 cannot be unset").arg(Name()));
    }

    bool IsGoodIn(const REPORTGENERATOR::IRGObject& /*holder*/) const override { return true; }
    QString Complaint(const REPORTGENERATOR::IRGObject& /*holder*/) const override { return QString(); }

    QVariant ValueIn(const REPORTGENERATOR::IRGObject& holder) const override
    {
        return IsSetIn(holder) ? QVariant(Records<Data>::Of(holder).*(m_row.loaded)) : QVariant();
    }

    bool Empties(const QString& version) const override
    {
        Data read;
        read.*(m_row.loaded) = version;
        return m_row.IsOlderIn(read);
    }

private:
    const Row m_row;
};

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
