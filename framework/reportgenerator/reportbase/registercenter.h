#ifndef REPORTGENERATOR_REGISTERCENTER_H
#define REPORTGENERATOR_REGISTERCENTER_H

#include <reportgenerator/reportbase/irgobject.h>

namespace REPORTGENERATOR {

/// The registration of one settings object with a `SettingsNotifier`: the object and the id under which it is
/// filed.
///
/// The center owns its object and deletes it. A copy, however, points to the same object: only one of the two
/// may be destroyed while it holds it. One thread at a time.
///
///     auto* center = new REPORTGENERATOR::RegisterCenter;
///     center->RegisterInterface(new REPORTGENERATOR::ScanParameter);
///     notifier.NotifyOnChanged(center);
class REPORTBASE_EXPORT RegisterCenter
{
public:
    /// No object, id -1.
    RegisterCenter();
    RegisterCenter(const RegisterCenter& other);
    RegisterCenter& operator=(const RegisterCenter& other);

    /// Deletes the object.
    virtual ~RegisterCenter();

    /// Takes the object over, filed under the number of its kind, or under its object id when its kind is
    /// `AnyType` or has no name. Does nothing with null. An object held before is not deleted.
    void RegisterInterface(IRGObject* object);

    /// Takes the object over, filed under `type`, whatever that number is. Throws
    /// `InterfaceNotSupportedException` ("RegisterCenter:: While trying to register an interface that isn't
    /// defined") when the object's own kind has no name; the center stays as it was and the object the
    /// caller's. `object` must not be null.
    void RegisterInterface(IRGObject* object, ObjectTypes type);

    /// The object, null when there is none.
    IRGObject* GetInterface() const;

    /// The object id of the object. Only without an object is it the id of the registration, which is -1
    /// then.
    long long GetInterfaceId() const;

    /// The name of the object, empty when there is none.
    QString GetObjectName() const;

private:
    IRGObject* m_interface = nullptr;
    long long m_interfaceId = -1;
};

} // namespace REPORTGENERATOR

#endif
