#ifndef REPORTGENERATOR_REFLECTION_SCHEMAVALUES_H
#define REPORTGENERATOR_REFLECTION_SCHEMAVALUES_H

#include <reportgenerator/reflection/schemarecords.h>

#include <reportgenerator/reportbase/records/checking.h>
#include <reportgenerator/reportbase/records/storing.h>
#include <reportgenerator/reportbase/rgexception.h>

#include <type_traits>

namespace ReportCore {

/// Of the numbers of the class whose records are `Data`.
template <class Data, class = void>
constexpr REPORTGENERATOR::Unit UNIT_OF = REPORTGENERATOR::Unit::None;

template <class Data>
constexpr REPORTGENERATOR::Unit UNIT_OF<Data, std::void_t<decltype(REPORTGENERATOR::Schema<Data>::UNIT)>> =
    REPORTGENERATOR::Schema<Data>::UNIT;

/// A field whose schema has a flag that tells whether it is set.
template <class Data, class FieldSchema>
class PresenceField : public Field
{
public:
    PresenceField(const FieldFacts& facts, const FieldSchema& schema) : Field(facts), m_schema(schema) {}

    bool IsSetIn(const REPORTGENERATOR::IRGObject& parent) const override
    {
        return m_schema.IsSetIn(Records<Data>::Of(parent));
    }

    void UnsetIn(REPORTGENERATOR::IRGObject& parent) const override
    {
        Records<Data>::Alter(parent, [this](Data& data) {
            REPORTGENERATOR::RestoreField(data, m_schema);
            REPORTGENERATOR::ClearFlag(data, m_schema.setBy);
        });
    }

protected:
    const FieldSchema m_schema;
};

/// A number, a switch or a text. The schema may be one that several classes share, of a base of their records.
template <class Data, class Base, class T>
class ValueField
    : public PresenceField<Data, REPORTGENERATOR::ScalarField<Base, T, REPORTGENERATOR::PresenceBit>>
{
public:
    using FieldSchema = REPORTGENERATOR::ScalarField<Base, T, REPORTGENERATOR::PresenceBit>;

    explicit ValueField(const FieldSchema& schema)
        : PresenceField<Data, FieldSchema>({KindOf(T()), schema.name.Text(), schema.place, schema.setBy.tag,
                                            schema.isMandatory, schema.range, nullptr, schema.format.decimals,
                                            UNIT_OF<Data>},
                                           schema)
    {
    }

    bool IsGoodIn(const REPORTGENERATOR::IRGObject& parent) const override
    {
        return REPORTGENERATOR::IsFieldGood(Records<Data>::Of(parent), this->m_schema);
    }

    QString Complaint(const REPORTGENERATOR::IRGObject& parent) const override
    {
        return REPORTGENERATOR::messages::PleaseSetProperly(parent.GetObjectName(), this->m_schema.name);
    }

    QVariant ValueIn(const REPORTGENERATOR::IRGObject& parent) const override
    {
        const Data& data = Records<Data>::Of(parent);
        return this->m_schema.IsSetIn(data) ? QVariant(this->m_schema.In(data)) : QVariant();
    }

    std::optional<double> NumberIn(const REPORTGENERATOR::IRGObject& parent) const override
    {
        if constexpr (std::is_same_v<T, double>) {
            const Data& data = Records<Data>::Of(parent);
            if (this->m_schema.IsSetIn(data))
                return this->m_schema.In(data);
        }
        return std::nullopt;
    }

    void SetIn(REPORTGENERATOR::IRGObject& parent, const QVariant& value) const override
    {
        T taken{};
        if (!TakeValue(value, taken))
            throw RGException(QStringLiteral("%1 takes no value of this type").arg(this->Name()));
        if constexpr (!std::is_same_v<T, bool>) {
            if (!REPORTGENERATOR::IsAdmitted(this->m_schema, taken))
                throw RGException(
                    OutOfRangeException(REPORTGENERATOR::NotAdmitted(parent, this->m_schema, taken)));
        }
        Records<Data>::Alter(parent, [&](Data& data) {
            this->m_schema.In(data) = taken;
            REPORTGENERATOR::SetFlag(data, this->m_schema.setBy);
        });
    }
};

/// The version of the format.
template <class Data>
class VersionField : public Field
{
public:
    using FieldSchema = REPORTGENERATOR::FormatVersion<Data>;

    explicit VersionField(const FieldSchema& schema)
        : Field({FieldKind::Version, schema.name.Text(), REPORTGENERATOR::Place::Attribute, schema.tag}),
          m_schema(schema)
    {
    }

    bool IsSetIn(const REPORTGENERATOR::IRGObject& parent) const override
    {
        return !(Records<Data>::Of(parent).*(m_schema.loaded)).isEmpty();
    }

    void UnsetIn(REPORTGENERATOR::IRGObject& /*parent*/) const override
    {
        throw RGException(QStringLiteral("%1 cannot be unset").arg(Name()));
    }

    bool IsGoodIn(const REPORTGENERATOR::IRGObject& /*parent*/) const override { return true; }
    QString Complaint(const REPORTGENERATOR::IRGObject& /*parent*/) const override { return QString(); }

    QVariant ValueIn(const REPORTGENERATOR::IRGObject& parent) const override
    {
        return IsSetIn(parent) ? QVariant(Records<Data>::Of(parent).*(m_schema.loaded)) : QVariant();
    }

    bool Empties(const QString& version) const override
    {
        Data read;
        read.*(m_schema.loaded) = version;
        return m_schema.IsOlderIn(read);
    }

private:
    const FieldSchema m_schema;
};

} // namespace ReportCore

#endif
