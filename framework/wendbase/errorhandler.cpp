#include <wendbase/errorhandler.h>

ErrorHandler& ErrorHandler::Instance()
{
    static ErrorHandler instance;
    return instance;
}

unsigned int ErrorHandler::GetFlags() const
{
    return m_flags.load();
}

void ErrorHandler::SetFlags(unsigned int flags)
{
    m_flags.store(flags);
}
