#include <reportgenerator/reportbase/measurementtime.h>

#include <reportgenerator/reportbase/messages_p.h>
#include <reportgenerator/reportbase/records/plainfield.h>

namespace REPORTGENERATOR {

namespace {

constexpr Name MEASUREMENT_TIME = REPORTBASE_NAME("MeasurementTime");
constexpr Name MEASUREMENT_MODE = REPORTBASE_NAME("MeasurementMode");

constexpr auto INVALID_MODE = static_cast<MeasurementTime::MeasurementModeType>(-1);

const QStringList& DefaultModeNames()
{
    static const QStringList names = {QStringLiteral("Continuous"), QStringLiteral("Periodic")};
    return names;
}

} // namespace

MeasurementTime::MeasurementTime()
    : IRGObject(IdentityNamed<MEASUREMENT_TIME>()), m_modeNames(DefaultModeNames()), m_mode(INVALID_MODE)
{
    m_time.SetName(MEASUREMENT_TIME.Text());
}

MeasurementTime::MeasurementTime(const MeasurementTime& other) = default;

MeasurementTime& MeasurementTime::operator=(const MeasurementTime& other) = default;

MeasurementTime::~MeasurementTime() = default;

bool MeasurementTime::operator==(const MeasurementTime& other) const
{
    return m_mode == other.m_mode && m_time == other.m_time && m_modeNames == other.m_modeNames;
}

bool MeasurementTime::operator!=(const MeasurementTime& other) const
{
    return !(*this == other);
}

const MeasurementTime::MeasurementModeType& MeasurementTime::GetMeasurementMode() const
{
    return m_mode;
}

void MeasurementTime::SetMeasurementMode(const MeasurementModeType& mode)
{
    if (!IsValidMeasurementModeType(mode))
        throw RGException(messages::InvalidMeasurementMode(GetObjectName(), mode));
    m_mode = mode;
}

bool MeasurementTime::IsValidMeasurementModeType(const MeasurementModeType& mode) const
{
    return mode == Continuous || mode == Periodic;
}

MeasurementTime::MeasurementModeType MeasurementTime::GetInvalidMeasurementModeType()
{
    return INVALID_MODE;
}

const Double& MeasurementTime::GetMeasurementTime() const
{
    return m_time;
}

Double& MeasurementTime::GetMeasurementTime()
{
    return m_time;
}

void MeasurementTime::SetMeasurementTime(const Double& time)
{
    m_time = time;
}

double MeasurementTime::GetMeasurementTimeValue() const
{
    return m_time.GetValue();
}

void MeasurementTime::SetMeasurementModeStringList(const QStringList& names)
{
    const int length = static_cast<int>(DefaultModeNames().size());
    if (names.size() != length)
        throw RGException(messages::WrongListLength(GetObjectName(), length));
    m_modeNames = names;
}

MeasurementTime::MeasurementModeType MeasurementTime::NameToMeasurementModeType(const QString& name) const
{
    return static_cast<MeasurementModeType>(m_modeNames.indexOf(name));
}

QString MeasurementTime::MeasurementModeTypeToName(const MeasurementModeType& mode) const
{
    // The test is the wrong way round, and the empty element that comes of it is part of the form.
    if (IsValidMeasurementModeType(mode))
        return QString();
    return m_modeNames.value(mode);
}

bool MeasurementTime::AnyData() const
{
    return IsValidMeasurementModeType(m_mode) || m_time.AnyData();
}

bool MeasurementTime::HasData() const
{
    return IsValidMeasurementModeType(m_mode) && m_time.HasData();
}

void MeasurementTime::Reset()
{
    m_mode = INVALID_MODE;
    m_time.Reset();
    m_time.SetName(MEASUREMENT_TIME.Text());
}

void MeasurementTime::Check() const
{
    if (!IsValidMeasurementModeType(m_mode))
        throw RGException(messages::PleaseSet(GetObjectName(), MEASUREMENT_MODE.Text()));
    if (m_time.AnyData())
        m_time.Check();
}

void MeasurementTime::GetXml(QXmlStreamWriter& writer) const
{
    if (!HasData())
        return;
    writer.writeStartElement(GetObjectName());
    m_time.GetXml(writer);
    writer.writeTextElement(MEASUREMENT_MODE.Text(), MeasurementModeTypeToName(m_mode));
    writer.writeEndElement();
}

void MeasurementTime::ProcessXmlStartElement(QXmlStreamReader& reader)
{
    // A mode that was written comes back as an empty text, which names no mode and is refused.
    if (reader.name() == MEASUREMENT_MODE.Latin1())
        SetMeasurementMode(NameToMeasurementModeType(GetTextValue(reader)));
    else if (!ReadObject(m_time, reader))
        ThrowUnknownTag(*this, reader);
}

} // namespace REPORTGENERATOR
