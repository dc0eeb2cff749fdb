#include <reportgenerator/reportbase/incompletedefinitionexception.h>

#include <QtCore/QObject>

IncompleteDefinitionException::IncompleteDefinitionException(const QString& text)
    : RGException(QObject::tr("IncompleteDefinitionException"), text)
{
}

IncompleteDefinitionException::IncompleteDefinitionException(const IncompleteDefinitionException& other) =
    default;

IncompleteDefinitionException&
IncompleteDefinitionException::operator=(const IncompleteDefinitionException& other) = default;

IncompleteDefinitionException::~IncompleteDefinitionException() = default;
