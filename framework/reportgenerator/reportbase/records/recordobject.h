#ifndef REPORTGENERATOR_RECORDS_RECORDOBJECT_H
#define REPORTGENERATOR_RECORDS_RECORDOBJECT_H

#include <reportgenerator/reportbase/forms/streampiece.h>
#include <reportgenerator/reportbase/forms/xmltools.h>
#include <reportgenerator/reportbase/records/checking.h>
#include <reportgenerator/reportbase/records/directroads.h>
#include <reportgenerator/reportbase/records/raw.h>
#include <reportgenerator/reportbase/records/recordaccess.h>
#include <reportgenerator/reportbase/records/schemarules.h>
#include <reportgenerator/reportbase/records/settingsof.h>
#include <reportgenerator/reportbase/records/tagged.h>
#include <reportgenerator/reportbase/records/xmlreading.h>
#include <reportgenerator/reportbase/records/xmlwriting.h>

namespace REPORTGENERATOR {

template <class Data, class Holder>
const long long RecordObject<Data, Holder>::id = Description<Data>::ID;

template <class Data>
const ObjectIdentity& ClassIdentity()
{
    schema::Check<Data>();
    static const ObjectIdentity identity = {AnyType, Description<Data>::ID, Description<Data>::NAME.Text(),
                                            &DirectRoadOf<typename Description<Data>::Object>::ROAD, false};
    return identity;
}

template <class Data, class Holder>
RecordObject<Data, Holder>::RecordObject() : IRGObject(ClassIdentity<Data>())
{
}

template <class Data, class Holder>
RecordObject<Data, Holder>::RecordObject(const RecordObject& other)
    : IRGObject(ClassIdentity<Data>()), m_record(other.m_record)
{
    const ObjectTypes type = other.GetObjectType();
    if (type != AnyType) {
        IRGObject::SetObjectType(type);
        IRGObject::SetObjectName(GetStaticObjectName());
        SetObjectId(id);
    }
    const bool validate = other.GetValidate();
    ObjectAccess::SettingsOf(*this).SetAlone(ObjectSettings(validate, nullptr, nullptr));
    RecordObject::SetValidate(validate);
}

template <class Data, class Holder>
RecordObject<Data, Holder>& RecordObject<Data, Holder>::operator=(const RecordObject& other)
{
    m_record = other.m_record;
    return *this;
}

template <class Data, class Holder>
RecordObject<Data, Holder>::~RecordObject() = default;

template <class Data, class Holder>
long long RecordObject<Data, Holder>::GetId()
{
    return id;
}

template <class Data, class Holder>
QString RecordObject<Data, Holder>::GetStaticObjectName()
{
    return Description<Data>::NAME.Text();
}

template <class Data, class Holder>
bool RecordObject<Data, Holder>::IsInitialized() const
{
    return m_record.Get() != nullptr;
}

template <class Data, class Holder>
void RecordObject<Data, Holder>::Reset()
{
    if (!IsInitialized())
        return;
    m_record.Own().flags = 0;
    ConstNoClearReset();
}

template <class Data, class Holder>
void RecordObject<Data, Holder>::ResetToDefault()
{
    if (IsInitialized())
        this->Reset();
    else
        InitData();
}

template <class Data, class Holder>
void RecordObject<Data, Holder>::Check(bool logOnly) const
{
    ReapplySettings();
    InitData();
    if (AreRowsGood(*m_record.Get(), Description<Data>::ROWS))
        return;
    const auto record = RecordAccess::HoldWithOwnItems(*this);
    ForEachField(Description<Data>::ROWS, [&](const auto& row) { CheckRow(*this, *record, row, logOnly); });
}

template <class Data, class Holder>
void RecordObject<Data, Holder>::Check() const
{
    Check(false);
}

template <class Data, class Holder>
void RecordObject<Data, Holder>::GetXml(QXmlStreamWriter& writer) const
{
    if (!PrepareToWrite())
        return;
    InitData();
    const auto write = [&](auto sink, const Data& data) {
        WriteElementXml(sink, GetObjectName(), *this, data, Description<Data>::ROWS);
    };
    using Object = typename Description<Data>::Object;
    if (ObjectAccess::RoadOf(*this) && IsPlain(static_cast<const Object&>(*this), true))
        write(XmlWriterSink(writer), *RecordAccess::Hold(*this));
    else
        write(CarefulXml(writer), *RecordAccess::HoldWithOwnItems(*this));
}

template <class Data, class Holder>
bool RecordObject<Data, Holder>::GetBinary(QDataStream& stream, int tag, bool withTag) const
{
    if (!PrepareToWrite())
        return false;
    InitData();
    const DirectRoad* const road = ObjectAccess::RoadOf(*this);
    Buffer<QByteArray> body;
    if (road && streampiece::CanWrite(stream) && road->writeBody(*this, tag, withTag, body)) {
        streampiece::Write(stream, body);
        return true;
    }
    StreamElements sink(stream);
    WriteRecordBody(sink, tag, withTag, *RecordAccess::HoldWithOwnItems(*this), Description<Data>::ROWS);
    return true;
}

template <class Data, class Holder>
void RecordObject<Data, Holder>::SetBinary(QDataStream& stream, int length)
{
    ReapplySettings();
    InitData();
    this->Reset();
    const DirectRoad* const road = ObjectAccess::RoadOf(*this);
    if (road && streampiece::Read(stream, length,
                                  [&](const char* body) { return road->readBody(*this, body, length); }))
        return;
    const bool cameOut = elements::WalkBody(stream, length, [&](qint32 tag, qint32 payloadLength) {
        return AnyOfFields(Description<Data>::ROWS, [&](const auto& row) {
            return ReadRowElement(*this, stream, tag, payloadLength, row);
        });
    });
    if (!cameOut)
        reporting::ThrowLengthError(*this);
    InitData();
    const auto record = RecordAccess::Hold(*this);
    GiveToRows(*record, [this](const auto& member) { SettleItems(member, *this); });
}

template <class Data, class Holder>
void RecordObject<Data, Holder>::SetValidate(bool validate) const
{
    PassValidateTo(*this, validate, validate != ObjectAccess::Validates(*this));
}

template <class Data, class Holder>
void RecordObject<Data, Holder>::SetLogger(std::shared_ptr<Logger> logger) const
{
    PassLoggerTo(*this, logger, logger != GetLogger());
}

template <class Data, class Holder>
void RecordObject<Data, Holder>::SetObjectType(ObjectTypes /*type*/)
{
}

template <class Data, class Holder>
void RecordObject<Data, Holder>::GetVersionSpecificBinaryWithoutValidation(QDataStream& stream) const
{
    InitData();
    const auto record = RecordAccess::HoldWithOwnItems(*this);
    stream << (*record).flags;
    ForEachRowByBit(Description<Data>::ROWS, [&](const auto& row) { WriteRowRaw(stream, *record, row); });
}

template <class Data, class Holder>
void RecordObject<Data, Holder>::SetVersionSpecificBinaryWithoutValidation(QDataStream& stream)
{
    InitData();
    quint8 flags = 0;
    stream >> flags;
    RecordAccess::Make(*this).flags = flags;
    ForEachRowByBit(Description<Data>::ROWS, [&](const auto& row) { ReadRowRaw(*this, stream, row); });
}

template <class Data, class Holder>
void RecordObject<Data, Holder>::InitData() const
{
    if (IsInitialized())
        return;
    // Members have the settings before another thread can see them.
    const auto prepare = [this](const Data& data) {
        GiveToRows(data, [this](const auto& member) { PassSettingsTo(member, *this); });
    };
    m_record.Make(prepare);
    ReapplySettings();
    // An override that this has called may have taken the record away.
    m_record.Make(prepare);
}

/// Compares two objects, whose records are made.
template <class Object>
bool IsRecordEqual(const Object& left, const Object& right)
{
    if (!left.IsInitialized() && !right.IsInitialized())
        return true;
    RecordAccess::Init(left);
    if (right.IsInitialized())
        return AreRecordsEqual(*RecordAccess::Get(left), *RecordAccess::Get(right),
                               RecordAccess::RowsOf(left));
    // Held, since an override may be called.
    const auto record = RecordAccess::Hold(left);
    RecordAccess::Init(right);
    return AreRecordsEqual(*record, *RecordAccess::Get(right), RecordAccess::RowsOf(left));
}

template <class Data, class Holder>
void RecordObject<Data, Holder>::ConstNoClearReset() const
{
    ForEachField(Description<Data>::ROWS, [this](const auto& row) { RestoreRow(m_record.Own(), row); });
}

} // namespace REPORTGENERATOR

#endif
