#ifndef REPORTGENERATOR_RECORDOBJECT_H
#define REPORTGENERATOR_RECORDOBJECT_H

#include <reportgenerator/reportbase/irgobject.h>
#include <reportgenerator/reportbase/recordholder.h>

namespace REPORTGENERATOR {

/// Base of the objects that keep their fields in a private record: `ReportBase`, `Frequency`, `IFBandwidth`,
/// `Coordinate` and `Area`. What they have in common is here: they are their tables.
///
/// The record is made on first use; until then nothing is set. Objects behave as values and are cheap to copy
/// and to assign. Each field has a flag that says whether it is set. A copy takes the validate flag over and
/// has neither logger nor version converter; assigning takes the fields over and nothing else.
///
/// The class is implemented for the records of the library only. `Storage` is where the record stands.
template <class Data, class Storage>
class RecordObject : public IRGObject
{
public:
    /// What the record consists of.
    using RecordData = Data;

    /// The number that identifies the class.
    static long long GetId();

    /// The name that objects of the class bear, which is their XML element name.
    static QString GetStaticObjectName();

    /// Whether the record exists. Any access to a field makes it, reading included, and so do checking,
    /// writing and reading the object and, but for a coordinate, comparing it with one that has a record; the
    /// set queries don't.
    bool IsInitialized() const;

    /// Unsets all fields. Does nothing while there is no record.
    void Reset() override;

    /// Makes the record and unsets all fields.
    void ResetToDefault();

    using IRGObject::Check;

    /// Reports every field that must be set and isn't, or holds something that is not admitted, and checks
    /// the members: throws `RGException` named "OutOfRangeException", the object name and ": Please set %1
    /// properly.". With `logOnly` and a logger each failure is logged instead.
    void Check(bool logOnly) const override;

    /// As `Check(false)`.
    void Check() const override;

    /// Writes the element. Mandatory fields are written even when they are not set, which can only happen
    /// when the object doesn't validate. Throws as `Check` when validating.
    void GetXml(QXmlStreamWriter& writer) const override;

    /// Writes one tagged element per field; numbers travel as the text of their XML form. Throws as `Check`
    /// when validating.
    bool GetBinary(QDataStream& stream, int tag, bool withTag) const override;

    /// Reads the elements into the unset object.
    void SetBinary(QDataStream& stream, int length) override;

    /// Passes the flag on to the members.
    void SetValidate(bool validate) const override;

    /// Passes the logger on to the members.
    void SetLogger(std::shared_ptr<Logger> logger) const override;

    /// Does nothing: the kind of these objects cannot be changed.
    void SetObjectType(ObjectTypes type) override;

    /// The raw form of the older binary versions, without tags, lengths and checks: a byte with a bit for
    /// each field that is set, and the fields in the order of their bits.
    void GetVersionSpecificBinaryWithoutValidation(QDataStream& stream) const;
    void SetVersionSpecificBinaryWithoutValidation(QDataStream& stream);

    /// What `GetId` returns.
    static const long long id;

protected:
    /// Nothing set.
    RecordObject();

    /// Copies kind, record and validate flag.
    RecordObject(const RecordObject& other);

    /// Takes the record over, and nothing else.
    RecordObject& operator=(const RecordObject& other);
    ~RecordObject() override;

    /// Makes the record if there is none.
    void InitData() const;

    /// Gives all fields their first values; what is set stays set.
    void ConstNoClearReset() const;

    /// Where the record stands.
    mutable Storage m_record;

private:
    friend struct RecordAccess;
};

} // namespace REPORTGENERATOR

#endif
