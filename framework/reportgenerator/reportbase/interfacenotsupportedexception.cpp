#include <reportgenerator/reportbase/interfacenotsupportedexception.h>

#include <QtCore/QObject>

InterfaceNotSupportedException::InterfaceNotSupportedException(const QString& text)
    : RGException(QObject::tr("InterfaceNotSupportedException"), text)
{
}

InterfaceNotSupportedException::InterfaceNotSupportedException(const InterfaceNotSupportedException& other) =
    default;

InterfaceNotSupportedException&
InterfaceNotSupportedException::operator=(const InterfaceNotSupportedException& other) = default;

InterfaceNotSupportedException::~InterfaceNotSupportedException() = default;
