#ifndef REPORTGENERATOR_CODEC_NAME_H
#define REPORTGENERATOR_CODEC_NAME_H

#include <QtCore/QLatin1String>
#include <QtCore/QString>

namespace REPORTGENERATOR {

/// A fixed ASCII text of the wire forms that can stand in a constant table and still be had as a `QString`
/// without an allocation. Made by REPORTBASE_NAME.
struct Name
{
    const char* latin1;
    int size;
    QString (*text)();

    QString Text() const { return text(); }
    constexpr QLatin1String Latin1() const { return QLatin1String(latin1, size); }
};

template <class Text>
bool operator==(const Text& text, const Name& name)
{
    return text == name.Latin1();
}

} // namespace REPORTGENERATOR

#define REPORTBASE_NAME(literal)                                                                             \
    ::REPORTGENERATOR::Name                                                                                  \
    {                                                                                                        \
        literal, int(sizeof(literal)) - 1, []() -> QString { return QStringLiteral(literal); }               \
    }

#endif
