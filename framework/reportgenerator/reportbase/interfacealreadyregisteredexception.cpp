#include <reportgenerator/reportbase/interfacealreadyregisteredexception.h>

#include <QtCore/QObject>

InterfaceAlreadyRegisteredException::InterfaceAlreadyRegisteredException(const QString& text)
    : RGException(QObject::tr("InterfaceAlreadyRegisteredException"), text)
{
}

InterfaceAlreadyRegisteredException::InterfaceAlreadyRegisteredException(
    const InterfaceAlreadyRegisteredException& other) = default;

InterfaceAlreadyRegisteredException&
InterfaceAlreadyRegisteredException::operator=(const InterfaceAlreadyRegisteredException& other) = default;

InterfaceAlreadyRegisteredException::~InterfaceAlreadyRegisteredException() = default;
