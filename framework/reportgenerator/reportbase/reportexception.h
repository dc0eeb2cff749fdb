#ifndef REPORTGENERATOR_REPORTEXCEPTION_H
#define REPORTGENERATOR_REPORTEXCEPTION_H

#include <reportgenerator/reportbase/reportbase_export.h>

#include <QtCore/QString>

/// Root of everything that the library throws.
///
/// Carries a translatable error text and the name of the error. It is not a `std::exception`.
class REPORTBASE_EXPORT ReportException
{
public:
    /// Name "ReportException", text "unknown error".
    ReportException();

    /// Copies name and text.
    ReportException(const ReportException& other);
    ReportException& operator=(const ReportException& other);
    virtual ~ReportException();

    /// What went wrong, for people.
    virtual const QString& GetErrorText() const;

    /// Name of the kind of error, by default the name of the class that was built. It survives where an
    /// exception arrives as a plain `RGException`.
    virtual const QString& GetErrorName() const;

protected:
    /// For the kinds of errors: stores both as they are.
    ReportException(const QString& errorName, const QString& errorText);

private:
    QString m_errorText;
    QString m_errorName;
};

#endif
