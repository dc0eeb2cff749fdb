#include <reportgenerator/reportbase/invalidxmlexception.h>

#include <QtCore/QObject>

InvalidXmlException::InvalidXmlException(const QString& text)
    : RGException(QObject::tr("InvalidXmlException"), text)
{
}

InvalidXmlException::InvalidXmlException(const InvalidXmlException& other) = default;

InvalidXmlException& InvalidXmlException::operator=(const InvalidXmlException& other) = default;

InvalidXmlException::~InvalidXmlException() = default;
