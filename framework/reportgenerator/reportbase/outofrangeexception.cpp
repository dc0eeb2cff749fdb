#include <reportgenerator/reportbase/outofrangeexception.h>

#include <QtCore/QObject>

OutOfRangeException::OutOfRangeException(const QString& text)
    : RGException(QObject::tr("OutOfRangeException"), text)
{
}

OutOfRangeException::OutOfRangeException(const OutOfRangeException& other) = default;

OutOfRangeException& OutOfRangeException::operator=(const OutOfRangeException& other) = default;

OutOfRangeException::~OutOfRangeException() = default;
