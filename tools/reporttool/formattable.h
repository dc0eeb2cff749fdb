#ifndef REPORTTOOL_FORMATTABLE_H
#define REPORTTOOL_FORMATTABLE_H

// Tables of formats, with a name and a summary each, on the command line.

#include <reporttool/parser.h>

#include <reportgenerator/reflection/nearname.h>

#include <QtCore/QString>
#include <QtCore/QStringList>

#include <algorithm>
#include <vector>

namespace ReportTool {

/// An indented line for each format.
template <class Format>
QString SummariesOf(const std::vector<Format>& formats)
{
    constexpr int NAME_COLUMN = 12;
    QString lines;
    for (const Format& format : formats)
        lines += QLatin1String("  ") + QString(QLatin1String(format.name)).leftJustified(NAME_COLUMN) +
                 QLatin1String(format.summary) + QLatin1Char('\n');
    return lines;
}

template <class Format>
QStringList NamesOf(const std::vector<Format>& formats)
{
    QStringList names;
    for (const Format& format : formats)
        names << QLatin1String(format.name);
    return names;
}

/// "geojson, csv or kml"
template <class Format>
QString ChoiceOf(const std::vector<Format>& formats)
{
    QStringList names = NamesOf(formats);
    const QString last = names.takeLast();
    return names.isEmpty() ? last : names.join(QLatin1String(", ")) + QLatin1String(" or ") + last;
}

/// The format that the option names. Throws `UsageError`.
template <class Format>
const Format& FormatOf(const std::vector<Format>& formats, const Parser& parser, const char* option)
{
    if (!parser.Has(option))
        throw UsageError{QStringLiteral("--%1 is missing").arg(QLatin1String(option))};
    const QString name = parser.Value(option);
    const auto found = std::find_if(formats.begin(), formats.end(), [&name](const Format& format) {
        return name == QLatin1String(format.name);
    });
    if (found == formats.end())
        throw UsageError{QStringLiteral("no format is called '%1'").arg(name) +
                         ReportCore::Suggestion(NamesOf(formats), name)};
    return *found;
}

} // namespace ReportTool

#endif
