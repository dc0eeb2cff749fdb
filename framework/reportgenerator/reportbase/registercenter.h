#ifndef REPORTGENERATOR_REGISTERCENTER_H
#define REPORTGENERATOR_REGISTERCENTER_H

#include <reportgenerator/reportbase/irgobject.h>

namespace REPORTGENERATOR {

/// The registration of one settings object with a `SettingsNotifier`, which files it under `GetInterfaceId`.
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

    /// Copies the id, and the pointer to the same object.
    RegisterCenter(const RegisterCenter& other);
    RegisterCenter& operator=(const RegisterCenter& other);

    /// Deletes the object.
    virtual ~RegisterCenter();

    /// Takes the object over. Does nothing with null. An object held before is not deleted. The id of the
    /// registration is the number of the object's kind, or its object id when that kind is `AnyType` or has
    /// no name; `GetInterfaceId` doesn't give it while the object is held.
    void RegisterInterface(IRGObject* object);

    /// The same with `type`, whatever that number is, as the id of the registration. Throws
    /// `InterfaceNotSupportedException` ("RegisterCenter:: While trying to register an interface that isn't
    /// defined") when the object's own kind has no name; the center stays as it was and the object the
    /// caller's. `object` must not be null.
    void RegisterInterface(IRGObject* object, ObjectTypes type);

    /// The object, null when there is none.
    IRGObject* GetInterface() const;

    /// The object id of the object (`IRGObject::GetObjectId`), whatever it was registered under; -1 without
    /// an object.
    long long GetInterfaceId() const;

    /// The name of the object, empty when there is none.
    QString GetObjectName() const;

private:
    IRGObject* m_interface = nullptr;
    long long m_interfaceId = -1;
};

} // namespace REPORTGENERATOR

#endif
