#ifndef FULLSYSTEM_WENDBASE_ERRORHANDLER_H
#define FULLSYSTEM_WENDBASE_ERRORHANDLER_H

/// Traces always, and has nothing in common with the one of the tree but what the report library calls.
class ErrorHandler
{
public:
    static ErrorHandler& Instance();
    unsigned int GetFlags() const { return 0x20; }
};

#endif
