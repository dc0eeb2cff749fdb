#include <reportgenerator/reportbase/registercenter.h>

#include <reportgenerator/reportbase/interfacenotsupportedexception.h>
#include <reportgenerator/reportbase/messages_p.h>

namespace REPORTGENERATOR {

RegisterCenter::RegisterCenter() = default;

// Both point to the same object on purpose; only one of them may be destroyed while it holds it.
RegisterCenter::RegisterCenter(const RegisterCenter& other) = default;

RegisterCenter& RegisterCenter::operator=(const RegisterCenter& other) = default;

RegisterCenter::~RegisterCenter()
{
    delete m_interface;
    m_interface = nullptr;
}

void RegisterCenter::RegisterInterface(IRGObject* object)
{
    if (!object)
        return;
    m_interface = object;
    const ObjectTypes type = object->GetObjectType();
    const bool isNamed = IsValidObjectTypes(type) && type != AnyType;
    m_interfaceId = isNamed ? static_cast<long long>(type) : object->GetObjectId();
}

void RegisterCenter::RegisterInterface(IRGObject* object, ObjectTypes type)
{
    if (!IsValidObjectTypes(object->GetObjectType()))
        throw InterfaceNotSupportedException(messages::UndefinedInterface());
    m_interface = object;
    m_interfaceId = type;
}

IRGObject* RegisterCenter::GetInterface() const
{
    return m_interface;
}

long long RegisterCenter::GetInterfaceId() const
{
    // The object's own id counts, also when it was registered under another number.
    return m_interface ? m_interface->GetObjectId() : m_interfaceId;
}

QString RegisterCenter::GetObjectName() const
{
    return m_interface ? m_interface->GetObjectName() : QString();
}

} // namespace REPORTGENERATOR
