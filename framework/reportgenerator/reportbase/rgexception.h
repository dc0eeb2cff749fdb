#ifndef REPORTGENERATOR_RGEXCEPTION_H
#define REPORTGENERATOR_RGEXCEPTION_H

#include <reportgenerator/reportbase/reportexception.h>

/// An error of a report object: the one type that callers need to catch.
///
/// What `IRGObject::TraceOrThrow` throws is always an `RGException` by type; the name tells the kind, for
/// instance "OutOfRangeException".
class REPORTBASE_EXPORT RGException : public ReportException
{
public:
    /// Name "RGException", text as given.
    explicit RGException(const QString& text);

    /// Copies name and text.
    RGException(const RGException& other);
    RGException& operator=(const RGException& other);
    ~RGException() override;

protected:
    /// For the derived kinds: stores both as they are.
    RGException(const QString& errorName, const QString& errorText);
};

#endif
