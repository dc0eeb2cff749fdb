#include <wendbase/errorhandler.h>
#include <wendbase/qtrace.h>

#include <QtCore/QString>

#include <cstdio>

ErrorHandler& ErrorHandler::Instance()
{
    static ErrorHandler instance;
    return instance;
}

void _Q_Trace(const QString& text, const char* source, int line)
{
    std::printf("system base: %s | %s | %d\n", text.toUtf8().constData(), source, line);
}
