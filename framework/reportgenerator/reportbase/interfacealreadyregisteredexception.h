#ifndef REPORTGENERATOR_INTERFACEALREADYREGISTEREDEXCEPTION_H
#define REPORTGENERATOR_INTERFACEALREADYREGISTEREDEXCEPTION_H

#include <reportgenerator/reportbase/rgexception.h>

/// An object was registered under an id that is taken.
class REPORTBASE_EXPORT InterfaceAlreadyRegisteredException : public RGException
{
public:
    /// Name "InterfaceAlreadyRegisteredException", text as given.
    explicit InterfaceAlreadyRegisteredException(const QString& text);

    /// Copies name and text.
    InterfaceAlreadyRegisteredException(const InterfaceAlreadyRegisteredException& other);
    InterfaceAlreadyRegisteredException& operator=(const InterfaceAlreadyRegisteredException& other);
    ~InterfaceAlreadyRegisteredException() override;
};

#endif
