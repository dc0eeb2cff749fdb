#ifndef REPORTGENERATOR_BINARYPARSINGEXCEPTION_H
#define REPORTGENERATOR_BINARYPARSINGEXCEPTION_H

#include <reportgenerator/reportbase/rgexception.h>

/// The lengths of a binary representation do not come out.
class REPORTBASE_EXPORT BinaryParsingException : public RGException
{
public:
    /// Name "BinaryParsingException", text as given.
    explicit BinaryParsingException(const QString& text);

    /// Copies name and text.
    BinaryParsingException(const BinaryParsingException& other);
    BinaryParsingException& operator=(const BinaryParsingException& other);
    ~BinaryParsingException() override;
};

#endif
