#include <reportgenerator/reportbase/rgexception.h>

#include <QtCore/QObject>

RGException::RGException(const QString& text) : ReportException(QObject::tr("RGException"), text) {}

RGException::RGException(const QString& errorName, const QString& errorText)
    : ReportException(errorName, errorText)
{
}

RGException::RGException(const RGException& other) = default;

RGException& RGException::operator=(const RGException& other) = default;

RGException::~RGException() = default;
