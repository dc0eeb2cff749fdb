#include <reportgenerator/reportbase/areareading_p.h>

#include <reportgenerator/reportbase/invalidxmlexception.h>
#include <reportgenerator/reportbase/records/recordobject_p.h>
#include <reportgenerator/reportbase/schema/areaschema.h>

namespace REPORTGENERATOR {

template const ObjectIdentity& ClassIdentity<AreaData>();
template class RecordObject<AreaData, SharedRecord<AreaData>>;

namespace {

using Fields = Schema<AreaData>;

} // namespace

Area::Area() = default;

Area::Area(const Area& other) : RecordObject(other) {}

Area& Area::operator=(const Area& other)
{
    if (this != &other)
        RecordObject::operator=(other);
    return *this;
}

Area::~Area() = default;

bool Area::operator==(const Area& other) const
{
    if (!IsInitialized() && !other.IsInitialized())
        return true;
    return GetVersion() == other.GetVersion() && IsRecordEqual(*this, other);
}

bool Area::operator!=(const Area& other) const
{
    return !(*this == other);
}

bool Area::AnyData() const
{
    return HoldsAnyData(m_record.Get(), Fields::FIELDS);
}

bool Area::HasData() const
{
    const AreaData* data = m_record.Get();
    return data && !data->name.isNull() && !data->coordinates.Values().isEmpty();
}

QString Area::GetName() const
{
    InitData();
    return m_record.Get()->name;
}

void Area::SetName(QString name)
{
    InitData();
    StoreValue(*this, Fields::AREA_NAME, name);
}

bool Area::IsNameSet() const
{
    return IsFieldSet(m_record.Get(), Fields::AREA_NAME);
}

void Area::ResetName()
{
    ResetField(*this, Fields::AREA_NAME);
}

bool Area::IsValidName(const QString& name) const
{
    return IsAdmitted(Fields::AREA_NAME, name);
}

QString Area::GetDefaultName() const
{
    return QString();
}

const QVector<Coordinate>& Area::GetCoordinate() const
{
    InitData();
    return m_record.Get()->coordinates.HandOut();
}

QVector<Coordinate>& Area::GetCoordinate()
{
    InitData();
    SetFlag(m_record.Own(), Fields::COORDINATES.setBy);
    return m_record.Own().coordinates.HandOut();
}

void Area::SetCoordinate(const QVector<Coordinate>& coordinates)
{
    InitData();
    m_record.Own().coordinates.Assign(coordinates);
    SetFlag(m_record.Own(), Fields::COORDINATES.setBy);
}

void Area::AppendCoordinate(const Coordinate& item)
{
    InitData();
    AppendItem(*this, Fields::COORDINATES, item);
}

bool Area::IsCoordinateSet() const
{
    return IsFieldSet(m_record.Get(), Fields::COORDINATES);
}

void Area::ResetCoordinate()
{
    ResetField(*this, Fields::COORDINATES);
}

bool Area::IsValidCoordinate(const QVector<Coordinate>& /*coordinates*/) const
{
    return true;
}

bool Area::IsValidCoordinate(const Coordinate& /*coordinate*/) const
{
    return true;
}

QString Area::GetScriptID() const
{
    InitData();
    return m_record.Get()->scriptID;
}

void Area::SetScriptID(QString scriptID)
{
    InitData();
    StoreValue(*this, Fields::SCRIPT_ID, scriptID);
}

bool Area::IsScriptIDSet() const
{
    return IsFieldSet(m_record.Get(), Fields::SCRIPT_ID);
}

void Area::ResetScriptID()
{
    ResetField(*this, Fields::SCRIPT_ID);
}

bool Area::IsValidScriptID(const QString& scriptID) const
{
    return IsAdmitted(Fields::SCRIPT_ID, scriptID);
}

QString Area::GetDefaultScriptID() const
{
    return QString();
}

const QString& Area::GetVersion() const
{
    InitData();
    static const QString version = Fields::VERSION.model.Text();
    return version;
}

QString Area::GetInitialVersionLoaded() const
{
    InitData();
    return m_record.Get()->initialVersionLoaded;
}

void Area::ProcessXml(QXmlStreamReader& reader)
{
    InitData();
    TakeVersion(*this, Fields::VERSION, xmltools::VersionAttribute(reader));
    const Settled settled(*this, Settled::Of::Area);
    IRGObject::ProcessXml(reader);
    // Without a child nothing has been passed on, and nothing has come that would need it.
    if (settled.hasBegun)
        SettleCoordinates();
}

void Area::ProcessXmlStartElement(QXmlStreamReader& reader)
{
    SettleCoordinates();
    if (ReadXmlChild(*this, reader))
        return;
    if (Fields::VERSION.IsOlderIn(RecordAccess::Make(*this))) {
        xmltools::SkipElement(reader);
        return;
    }
    // The unknown element is not skipped: its children are read as the area's own, and its end ends the area.
    reporting::WarnOrThrow(
        *this, InvalidXmlException(messages::UnknownTag(reader.name().toString(), GetObjectName())));
}

/// Applied for each child that is read: within one reading only the new coordinates are looked at.
void Area::SettleCoordinates() const
{
    InitData();
    const auto record = RecordAccess::Hold(*this);
    if (m_settled) {
        m_settled->hasBegun = true;
        m_settled->Outermost().Remember(*this);
    }
    (*record).coordinates.PassSettings(*this);
}

} // namespace REPORTGENERATOR
