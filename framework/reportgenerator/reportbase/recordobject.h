#ifndef REPORTGENERATOR_RECORDOBJECT_H
#define REPORTGENERATOR_RECORDOBJECT_H

#include <reportgenerator/reportbase/irgobject.h>

#include <QtCore/QSharedDataPointer>

namespace REPORTGENERATOR {

/// Base of the objects that keep their fields in a private record: `ReportBase`, `Frequency`, `IFBandwidth`,
/// `Coordinate` and `Area`.
///
/// The record is made on first use; until then nothing is set. Copies share it until one of them is changed,
/// so that objects are cheap to assign and behave as values. Each field has a flag that says whether it is
/// set. Copying and assigning leave the logger and the version converter of the target alone: an object's
/// settings are its own.
///
/// The class is implemented for the records of the library only.
template <class Data>
class RecordObject : public IRGObject
{
public:
    /// The number that identifies the class.
    static long long GetId();

    /// The name that objects of the class bear, which is their XML element name.
    static QString GetStaticObjectName();

    /// Whether the record exists. Any access to a field makes it, reading included; the set queries don't.
    bool IsInitialized() const;

    /// Unsets all fields. Does nothing while there is no record.
    void Reset() override;

    /// Makes the record and unsets all fields.
    void ResetToDefault();

    using IRGObject::Check;

    /// As `Check(false)`.
    void Check() const override;

    /// Does nothing: the kind of these objects cannot be changed.
    void SetObjectType(ObjectTypes type) override;

    /// What `GetId` returns.
    static const long long id;

protected:
    RecordObject();

    /// Copies kind and record. Derived classes take the validate flag over.
    RecordObject(const RecordObject& other);

    /// Takes the record over, and nothing else.
    RecordObject& operator=(const RecordObject& other);
    ~RecordObject() override;

    /// Whether the records are equal: a field matches when it is set in neither, or in both with equal
    /// values. What an unset field has left behind doesn't count.
    bool HasEqualRecord(const RecordObject& other) const;

    /// Makes the record if there is none.
    void InitData() const;

    /// Gives all fields their first values; what is set stays set.
    void ConstNoClearReset() const;

    mutable QSharedDataPointer<Data> m_data;
};

} // namespace REPORTGENERATOR

#endif
