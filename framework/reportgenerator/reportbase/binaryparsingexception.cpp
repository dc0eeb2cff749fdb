#include <reportgenerator/reportbase/binaryparsingexception.h>

#include <QtCore/QObject>

BinaryParsingException::BinaryParsingException(const QString& text)
    : RGException(QObject::tr("BinaryParsingException"), text)
{
}

BinaryParsingException::BinaryParsingException(const BinaryParsingException& other) = default;

BinaryParsingException& BinaryParsingException::operator=(const BinaryParsingException& other) = default;

BinaryParsingException::~BinaryParsingException() = default;
