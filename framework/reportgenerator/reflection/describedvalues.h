#ifndef REPORTGENERATOR_REFLECTION_DESCRIBEDVALUES_H
#define REPORTGENERATOR_REFLECTION_DESCRIBEDVALUES_H

#include <reportgenerator/reflection/describedrecords.h>

#include <reportgenerator/reportbase/records/checking.h>
#include <reportgenerator/reportbase/records/storing.h>
#include <reportgenerator/reportbase/rgexception.h>

#include <type_traits>

namespace ReportCore {

/// Of the numbers of the class whose records are `Data`.
template <class Data, class = void>
constexpr REPORTGENERATOR::Unit UNIT_OF = REPORTGENERATOR::Unit::None;

template <class Data>
constexpr REPORTGENERATOR::Unit
    UNIT_OF<Data, std::void_t<decltype(REPORTGENERATOR::Description<Data>::UNIT)>> =
        REPORTGENERATOR::Description<Data>::UNIT;

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
                                   row.range, nullptr, row.format.decimals, UNIT_OF<Data>},
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

} // namespace ReportCore

#endif
