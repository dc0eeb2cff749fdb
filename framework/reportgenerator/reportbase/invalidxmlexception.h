#ifndef REPORTGENERATOR_INVALIDXMLEXCEPTION_H
#define REPORTGENERATOR_INVALIDXMLEXCEPTION_H

#include <reportgenerator/reportbase/rgexception.h>

/// An XML text does not hold what its reader needs.
class REPORTBASE_EXPORT InvalidXmlException : public RGException
{
public:
    /// Name "InvalidXmlException", text as given.
    explicit InvalidXmlException(const QString& text);

    /// Copies name and text.
    InvalidXmlException(const InvalidXmlException& other);
    InvalidXmlException& operator=(const InvalidXmlException& other);
    ~InvalidXmlException() override;
};

#endif
