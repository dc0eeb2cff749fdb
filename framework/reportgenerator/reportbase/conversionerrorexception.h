#ifndef REPORTGENERATOR_CONVERSIONERROREXCEPTION_H
#define REPORTGENERATOR_CONVERSIONERROREXCEPTION_H

#include <reportgenerator/reportbase/rgexception.h>

/// A value could not be converted into another form.
class REPORTBASE_EXPORT ConversionErrorException : public RGException
{
public:
    /// Name "ConversionErrorException", text as given.
    explicit ConversionErrorException(const QString& text);

    /// Copies name and text.
    ConversionErrorException(const ConversionErrorException& other);
    ConversionErrorException& operator=(const ConversionErrorException& other);
    ~ConversionErrorException() override;
};

#endif
