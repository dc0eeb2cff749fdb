#ifndef REPORTGENERATOR_INCOMPLETEDEFINITIONEXCEPTION_H
#define REPORTGENERATOR_INCOMPLETEDEFINITIONEXCEPTION_H

#include <reportgenerator/reportbase/rgexception.h>

/// An object lacks a part that the operation needs.
class REPORTBASE_EXPORT IncompleteDefinitionException : public RGException
{
public:
    /// Name "IncompleteDefinitionException", text as given.
    explicit IncompleteDefinitionException(const QString& text);

    /// Copies name and text.
    IncompleteDefinitionException(const IncompleteDefinitionException& other);
    IncompleteDefinitionException& operator=(const IncompleteDefinitionException& other);
    ~IncompleteDefinitionException() override;
};

#endif
