#ifndef REPORTGENERATOR_RECORDS_RECORDOBJECT_H
#define REPORTGENERATOR_RECORDS_RECORDOBJECT_H

#include <reportgenerator/reportbase/recordobject.h>
#include <reportgenerator/reportbase/records/record.h>

namespace REPORTGENERATOR {

/// What a class with a record consists of; specialised next to the record with
/// - ID: the number that identifies the class,
/// - NAME: the name of its objects,
/// - FIELDS: a tuple of its fields in writing order.
template <class Data>
struct Description;

template <class Data>
const long long RecordObject<Data>::id = Description<Data>::ID;

template <class Data>
RecordObject<Data>::RecordObject()
{
    SetObjectName(GetStaticObjectName());
    SetObjectId(id);
}

template <class Data>
RecordObject<Data>::RecordObject(const RecordObject& other)
    : IRGObject(other.GetObjectType()), m_data(other.m_data)
{
    m_data.detach();
    SetObjectName(GetStaticObjectName());
    SetObjectId(id);
}

template <class Data>
RecordObject<Data>& RecordObject<Data>::operator=(const RecordObject& other)
{
    if (this != &other)
        m_data = other.m_data;
    return *this;
}

template <class Data>
RecordObject<Data>::~RecordObject() = default;

template <class Data>
long long RecordObject<Data>::GetId()
{
    return id;
}

template <class Data>
QString RecordObject<Data>::GetStaticObjectName()
{
    return Description<Data>::NAME.Text();
}

template <class Data>
bool RecordObject<Data>::IsInitialized() const
{
    return m_data.constData() != nullptr;
}

template <class Data>
void RecordObject<Data>::Reset()
{
    if (!IsInitialized())
        return;
    m_data->flags = 0;
    ConstNoClearReset();
}

template <class Data>
void RecordObject<Data>::ResetToDefault()
{
    if (IsInitialized())
        this->Reset();
    else
        InitData();
}

template <class Data>
void RecordObject<Data>::Check() const
{
    Check(false);
}

template <class Data>
void RecordObject<Data>::SetObjectType(ObjectTypes /*type*/)
{
}

template <class Data>
bool RecordObject<Data>::HasEqualRecord(const RecordObject& other) const
{
    if (!IsInitialized() && !other.IsInitialized())
        return true;
    InitData();
    other.InitData();
    // Comparing members may make their records, which must not show in a third object that shares this one's.
    return AreFieldsEqual(*m_data, *other.m_data, Description<Data>::FIELDS);
}

template <class Data>
void RecordObject<Data>::InitData() const
{
    if (IsInitialized())
        return;
    m_data = new Data;
    ReapplySettings();
}

template <class Data>
void RecordObject<Data>::ConstNoClearReset() const
{
    RestoreFields(*m_data, Description<Data>::FIELDS);
}

} // namespace REPORTGENERATOR

#endif
