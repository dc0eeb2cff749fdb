#ifndef REPORTGENERATOR_OUTOFRANGEEXCEPTION_H
#define REPORTGENERATOR_OUTOFRANGEEXCEPTION_H

#include <reportgenerator/reportbase/rgexception.h>

/// A value is missing or outside its range.
class REPORTBASE_EXPORT OutOfRangeException : public RGException
{
public:
    /// Name "OutOfRangeException", text as given.
    explicit OutOfRangeException(const QString& text);

    /// Copies name and text.
    OutOfRangeException(const OutOfRangeException& other);
    OutOfRangeException& operator=(const OutOfRangeException& other);
    ~OutOfRangeException() override;
};

#endif
