#ifndef FULLSYSTEM_WENDBASE_QTRACE_H
#define FULLSYSTEM_WENDBASE_QTRACE_H

class QString;

void _Q_Trace(const QString& text, const char* source, int line);

#endif
