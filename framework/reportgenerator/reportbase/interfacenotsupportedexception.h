#ifndef REPORTGENERATOR_INTERFACENOTSUPPORTEDEXCEPTION_H
#define REPORTGENERATOR_INTERFACENOTSUPPORTEDEXCEPTION_H

#include <reportgenerator/reportbase/rgexception.h>

/// An object of an unknown kind was offered for registration.
class REPORTBASE_EXPORT InterfaceNotSupportedException : public RGException
{
public:
    /// Name "InterfaceNotSupportedException", text as given.
    explicit InterfaceNotSupportedException(const QString& text);

    /// Copies name and text.
    InterfaceNotSupportedException(const InterfaceNotSupportedException& other);
    InterfaceNotSupportedException& operator=(const InterfaceNotSupportedException& other);
    ~InterfaceNotSupportedException() override;
};

#endif
