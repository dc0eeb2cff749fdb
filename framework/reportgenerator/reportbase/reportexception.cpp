#include <reportgenerator/reportbase/reportexception.h>

#include <QtCore/QObject>

ReportException::ReportException()
    : m_errorText(QObject::tr("unknown error")), m_errorName(QObject::tr("ReportException"))
{
}

ReportException::ReportException(const QString& errorName, const QString& errorText)
    : m_errorText(errorText), m_errorName(errorName)
{
}

ReportException::ReportException(const ReportException& other) = default;

ReportException& ReportException::operator=(const ReportException& other) = default;

ReportException::~ReportException() = default;

const QString& ReportException::GetErrorText() const
{
    return m_errorText;
}

const QString& ReportException::GetErrorName() const
{
    return m_errorName;
}
