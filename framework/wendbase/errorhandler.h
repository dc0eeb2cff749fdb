#ifndef WENDBASE_ERRORHANDLER_H
#define WENDBASE_ERRORHANDLER_H

#include <wendbase/wendbase_export.h>

#include <atomic>

/// The switches of a process for what its libraries report. All operations may be called from any thread.
class WENDBASE_EXPORT ErrorHandler
{
public:
    /// Bit of the flag word that turns tracing on.
    enum Flag : unsigned int
    {
        TRACE = 0x20
    };

    /// The one of this process.
    static ErrorHandler& Instance();

    /// The flag word, 0 at start.
    unsigned int GetFlags() const;
    void SetFlags(unsigned int flags);

private:
    ErrorHandler() = default;
    ErrorHandler(const ErrorHandler& other) = delete;
    ErrorHandler& operator=(const ErrorHandler& other) = delete;
    ~ErrorHandler() = default;

    std::atomic<unsigned int> m_flags{0};
};

#endif
