#include "support/printers.h"

#include <cstdio>

namespace {

void PrintEscaped(unsigned code, const char* format, std::ostream& stream)
{
    if (code == '\n') {
        stream << "\\n";
    } else if (code == '"' || code == '\\') {
        stream << '\\' << static_cast<char>(code);
    } else if (code >= 0x20 && code < 0x7f) {
        stream << static_cast<char>(code);
    } else {
        char escape[16];
        std::snprintf(escape, sizeof escape, format, code);
        stream << escape;
    }
}

} // namespace

QT_BEGIN_NAMESPACE

void PrintTo(const QString& text, std::ostream* stream)
{
    if (text.isNull()) {
        *stream << "null";
        return;
    }
    *stream << '"';
    for (const QChar unit : text)
        PrintEscaped(unit.unicode(), "\\u%04x", *stream);
    *stream << '"';
}

void PrintTo(const QByteArray& bytes, std::ostream* stream)
{
    if (bytes.isNull()) {
        *stream << "null";
        return;
    }
    *stream << '"';
    for (const char byte : bytes)
        PrintEscaped(static_cast<unsigned char>(byte), "\\x%02x", *stream);
    *stream << '"';
}

QT_END_NAMESPACE
