#ifndef REPORTGENERATOR_RECORDS_RECORDOBJECT_P_H
#define REPORTGENERATOR_RECORDS_RECORDOBJECT_P_H

#include <reportgenerator/reportbase/codec/streampiece.h>
#include <reportgenerator/reportbase/codec/xmltools.h>
#include <reportgenerator/reportbase/records/checking.h>
#include <reportgenerator/reportbase/records/fastpaths.h>
#include <reportgenerator/reportbase/records/raw.h>
#include <reportgenerator/reportbase/records/recordaccess.h>
#include <reportgenerator/reportbase/records/schemarules.h>
#include <reportgenerator/reportbase/records/settingsof.h>
#include <reportgenerator/reportbase/records/tagged.h>
#include <reportgenerator/reportbase/records/xmlreading.h>
#include <reportgenerator/reportbase/records/xmlwriting.h>

namespace REPORTGENERATOR {

template <class Data, class Storage>
const long long RecordObject<Data, Storage>::id = Schema<Data>::ID;

template <class Data>
const ObjectIdentity& ClassIdentity()
{
    schema::Check<Data>();
    static const ObjectIdentity identity = {AnyType, Schema<Data>::ID, Schema<Data>::NAME.Text(),
                                            &FastPathFor<typename Schema<Data>::Object>::FAST_PATH, false};
    return identity;
}

template <class Data, class Storage>
RecordObject<Data, Storage>::RecordObject() : IRGObject(ClassIdentity<Data>())
{
}

template <class Data, class Storage>
RecordObject<Data, Storage>::RecordObject(const RecordObject& other)
    : IRGObject(ClassIdentity<Data>()), m_record(other.m_record)
{
    const ObjectTypes type = other.GetObjectType();
    if (type != AnyType) {
        IRGObject::SetObjectType(type);
        IRGObject::SetObjectName(GetStaticObjectName());
        SetObjectId(id);
    }
    const bool validate = other.GetValidate();
    ObjectAccess::SettingsOf(*this).SetAlone(ObjectSettings(validate));
    PassValidateToMembers(*this, validate, false);
}

template <class Data, class Storage>
RecordObject<Data, Storage>& RecordObject<Data, Storage>::operator=(const RecordObject& other)
{
    m_record = other.m_record;
    return *this;
}

template <class Data, class Storage>
RecordObject<Data, Storage>::~RecordObject() = default;

template <class Data, class Storage>
long long RecordObject<Data, Storage>::GetId()
{
    return id;
}

template <class Data, class Storage>
QString RecordObject<Data, Storage>::GetStaticObjectName()
{
    return Schema<Data>::NAME.Text();
}

template <class Data, class Storage>
bool RecordObject<Data, Storage>::IsInitialized() const
{
    return m_record.Get() != nullptr;
}

template <class Data, class Storage>
void RecordObject<Data, Storage>::Reset()
{
    if (!IsInitialized())
        return;
    m_record.Own().flags = 0;
    ConstNoClearReset();
}

template <class Data, class Storage>
void RecordObject<Data, Storage>::ResetToDefault()
{
    if (IsInitialized())
        this->Reset();
    else
        InitData();
}

template <class Data, class Storage>
void RecordObject<Data, Storage>::Check(bool logOnly) const
{
    ReapplySettings();
    RecordAccess::Init(*this);
    if (AreFieldsGood(*m_record.Get(), Schema<Data>::FIELDS))
        return;
    const auto record = RecordAccess::HoldDetached(*this);
    ForEachField(Schema<Data>::FIELDS,
                 [&](const auto& field) { CheckField(*this, *record, field, logOnly); });
}

template <class Data, class Storage>
void RecordObject<Data, Storage>::Check() const
{
    Check(false);
}

template <class Data, class Storage>
void RecordObject<Data, Storage>::GetXml(QXmlStreamWriter& writer) const
{
    if (!PrepareToWrite())
        return;
    InitData();
    const auto write = [&](auto sink, const Data& data) {
        WriteElementXml(sink, GetObjectName(), *this, data, Schema<Data>::FIELDS);
    };
    using Object = typename Schema<Data>::Object;
    if (ObjectAccess::FastPathOf(*this) && IsPlain(static_cast<const Object&>(*this), true))
        write(XmlWriterSink(writer), *RecordAccess::Hold(*this));
    else
        write(CarefulXml(writer), *RecordAccess::HoldDetached(*this));
}

template <class Data, class Storage>
bool RecordObject<Data, Storage>::GetBinary(QDataStream& stream, int tag, bool withTag) const
{
    if (!PrepareToWrite())
        return false;
    InitData();
    const FastPath* const fastPath = ObjectAccess::FastPathOf(*this);
    Buffer<QByteArray> body;
    if (fastPath && streampiece::CanWrite(stream) && fastPath->writeBody(*this, tag, withTag, body)) {
        streampiece::Write(stream, body);
        return true;
    }
    StreamElements sink(stream);
    WriteRecordBody(sink, tag, withTag, *RecordAccess::HoldDetached(*this), Schema<Data>::FIELDS);
    return true;
}

template <class Data, class Storage>
void RecordObject<Data, Storage>::SetBinary(QDataStream& stream, int length)
{
    ReapplySettings();
    InitData();
    this->Reset();
    const FastPath* const fastPath = ObjectAccess::FastPathOf(*this);
    if (fastPath && streampiece::Read(stream, length, [&](const char* body) {
            return fastPath->readBody(*this, body, length);
        }))
        return;
    const bool cameOut = elements::WalkBody(stream, length, [&](qint32 tag, qint32 payloadLength) {
        return AnyOfFields(Schema<Data>::FIELDS, [&](const auto& field) {
            return ReadFieldElement(*this, stream, tag, payloadLength, field);
        });
    });
    if (!cameOut)
        reporting::ThrowLengthError(*this);
    InitData();
    const auto record = RecordAccess::Hold(*this);
    GiveToFields(*record, [this](const auto& member) { SettleItems(member, *this); });
}

template <class Data, class Storage>
void RecordObject<Data, Storage>::SetValidate(bool validate) const
{
    PassValidateTo(*this, validate, validate != ObjectAccess::Validates(*this));
}

template <class Data, class Storage>
void RecordObject<Data, Storage>::SetLogger(std::shared_ptr<Logger> logger) const
{
    PassLoggerTo(*this, logger, logger != GetLogger());
}

template <class Data, class Storage>
void RecordObject<Data, Storage>::SetObjectType(ObjectTypes /*type*/)
{
}

template <class Data, class Storage>
void RecordObject<Data, Storage>::GetVersionSpecificBinaryWithoutValidation(QDataStream& stream) const
{
    InitData();
    const auto record = RecordAccess::HoldDetached(*this);
    stream << (*record).flags;
    ForEachFieldByBit(Schema<Data>::FIELDS,
                      [&](const auto& field) { WriteFieldRaw(stream, *record, field); });
}

template <class Data, class Storage>
void RecordObject<Data, Storage>::SetVersionSpecificBinaryWithoutValidation(QDataStream& stream)
{
    InitData();
    quint8 flags = 0;
    stream >> flags;
    RecordAccess::Make(*this).flags = flags;
    ForEachFieldByBit(Schema<Data>::FIELDS, [&](const auto& field) { ReadFieldRaw(*this, stream, field); });
}

template <class Data, class Storage>
void RecordObject<Data, Storage>::InitData() const
{
    if (IsInitialized())
        return;
    // Members have the settings before another thread can see them.
    const auto prepare = [this](const Data& data) { PassSettingsToNew(data, *this); };
    m_record.Make(prepare);
    if (ObjectAccess::FastPathOf(*this))
        return;
    // A derived class may have settings of its own.
    ReapplySettings();
    // An override that this has called may have taken the record away.
    m_record.Make(prepare);
}

/// Compares two objects of which only one has a record; the other's is made.
template <class Object>
Q_NEVER_INLINE bool IsNewRecordEqual(const Object& left, const Object& right)
{
    RecordAccess::Init(left);
    // Held, since an override may be called.
    const auto record = RecordAccess::Hold(left);
    RecordAccess::Init(right);
    return AreRecordsEqual(*record, *RecordAccess::Get(right), RecordAccess::FieldsOf(left));
}

/// Compares two objects. Those without a record are equal.
template <class Object>
bool IsRecordEqual(const Object& left, const Object& right)
{
    const auto* const leftData = RecordAccess::Get(left);
    const auto* const rightData = RecordAccess::Get(right);
    if (leftData && rightData)
        return AreRecordsEqual(*leftData, *rightData, RecordAccess::FieldsOf(left));
    return (!leftData && !rightData) || IsNewRecordEqual(left, right);
}

template <class Data, class Storage>
void RecordObject<Data, Storage>::ConstNoClearReset() const
{
    ForEachField(Schema<Data>::FIELDS, [this](const auto& field) { RestoreField(m_record.Own(), field); });
}

} // namespace REPORTGENERATOR

#endif
