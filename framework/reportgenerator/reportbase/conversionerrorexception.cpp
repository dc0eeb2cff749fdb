#include <reportgenerator/reportbase/conversionerrorexception.h>

#include <QtCore/QObject>

ConversionErrorException::ConversionErrorException(const QString& text)
    : RGException(QObject::tr("ConversionErrorException"), text)
{
}

ConversionErrorException::ConversionErrorException(const ConversionErrorException& other) = default;

ConversionErrorException&
ConversionErrorException::operator=(const ConversionErrorException& other) = default;

ConversionErrorException::~ConversionErrorException() = default;
