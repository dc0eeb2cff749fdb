#include <reportgenerator/reportbase/ellipse.h>

#include <reportgenerator/reportbase/messages_p.h>
#include <reportgenerator/reportbase/records/plainfield.h>

namespace REPORTGENERATOR {

struct Ellipse::Schema
{
    static constexpr Name NAME = REPORTBASE_NAME("Ellipse");
    static constexpr auto MIN_RADIUS =
        ElementField(&Ellipse::m_minRadius, REPORTBASE_NAME("MinRadius")).Mandatory();
    static constexpr auto MAX_RADIUS =
        ElementField(&Ellipse::m_maxRadius, REPORTBASE_NAME("MaxRadius")).Mandatory();
    static constexpr auto ROTATION =
        ElementField(&Ellipse::m_rotation, REPORTBASE_NAME("Rotation")).Mandatory();
    static constexpr auto FIELDS = std::make_tuple(MIN_RADIUS, MAX_RADIUS, ROTATION);
};

Ellipse::Ellipse() : IRGObject(IdentityNamed<Schema::NAME>())
{
    InitNumbers<Schema>(*this);
}

Ellipse::Ellipse(const Ellipse& other) = default;

Ellipse& Ellipse::operator=(const Ellipse& other) = default;

Ellipse::~Ellipse() = default;

bool Ellipse::operator==(const Ellipse& other) const
{
    return AreValuesEqual(*this, other, Schema::FIELDS);
}

bool Ellipse::operator!=(const Ellipse& other) const
{
    return !(*this == other);
}

double Ellipse::GetMinRadius() const
{
    return m_minRadius;
}

void Ellipse::SetMinRadius(double radius)
{
    m_minRadius = radius;
}

double Ellipse::GetMaxRadius() const
{
    return m_maxRadius;
}

void Ellipse::SetMaxRadius(double radius)
{
    m_maxRadius = radius;
}

double Ellipse::GetRotation() const
{
    return m_rotation;
}

void Ellipse::SetRotation(double rotation)
{
    m_rotation = rotation;
}

bool Ellipse::AnyData() const
{
    return IsAnyFieldSet(*this, Schema::FIELDS);
}

bool Ellipse::HasData() const
{
    return AreMandatoryFieldsSet(*this, Schema::FIELDS);
}

void Ellipse::Reset()
{
    UnsetFields(*this, Schema::FIELDS);
}

void Ellipse::Check() const
{
    if (AnyData())
        RequireFields(*this, Schema::FIELDS, messages::PleaseSet);
}

void Ellipse::GetXml(QXmlStreamWriter& writer) const
{
    WritePlainObject(writer, *this, Schema::FIELDS);
}

void Ellipse::ProcessXmlStartElement(QXmlStreamReader& reader)
{
    ReadPlainElement(*this, reader, Schema::FIELDS);
}

} // namespace REPORTGENERATOR
