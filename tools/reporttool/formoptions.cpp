#include <reporttool/formoptions.h>

#include <reporttool/parser.h>

#include <reportgenerator/reflection/nearname.h>

#include <algorithm>
#include <iterator>

namespace ReportTool {

using ReportCore::FileForm;
using ReportCore::Form;

namespace {

constexpr int LOWEST_LEVEL = -1;
constexpr int HIGHEST_LEVEL = 9;

constexpr char JSON[] = "json";

/// The forms that can be asked for. What a binary file holds follows from the level.
constexpr FileForm FORMS[] = {
    {Form::Xml, false}, {Form::Plain, false}, {Form::Compressed, false}, {Form::Plain, true}};

QStringList FormNames()
{
    QStringList names;
    for (const FileForm& form : FORMS)
        names << ReportCore::WordFor(form);
    return names << QLatin1String(JSON);
}

FileForm FormCalled(const QString& name)
{
    const auto* const found = std::find_if(std::begin(FORMS), std::end(FORMS), [&name](const FileForm& form) {
        return name == ReportCore::WordFor(form);
    });
    if (found == std::end(FORMS))
        throw UsageError{QStringLiteral("no form is called '%1'").arg(name) +
                         ReportCore::Suggestion(FormNames(), name)};
    return *found;
}

int LevelOf(const Parser& parser)
{
    if (!parser.Has("level"))
        return LOWEST_LEVEL;
    bool isNumber = false;
    const int level = parser.Value("level").toInt(&isNumber);
    if (!isNumber || level < LOWEST_LEVEL || level > HIGHEST_LEVEL)
        throw UsageError{
            QStringLiteral("a level is a number from %1 to %2, not '%3'")
                .arg(QString::number(LOWEST_LEVEL), QString::number(HIGHEST_LEVEL), parser.Value("level"))};
    return level;
}

/// The form with the level taken into account: it turns a binary file's content into a compressed one.
FileForm WithLevel(const FileForm& form, bool hasLevel)
{
    if (!hasLevel)
        return form;
    if (!form.isBinaryFile && form.form != Form::Compressed)
        throw UsageError{QStringLiteral("--level is for compressed forms")};
    return {Form::Compressed, form.isBinaryFile};
}

} // namespace

void AddFormOptions(Parser& parser)
{
    parser.AddOption("to", "Form to write: xml, plain, compressed, file or json.", "form",
                     Candidates::OneOf(FormNames()));
    parser.AddOption("level", "Level of compression: 0 to 9, or -1 for zlib's default.", "level");
}

std::optional<Target> TargetOf(const Parser& parser)
{
    if (!parser.Has("to")) {
        if (parser.Has("level"))
            throw UsageError{QStringLiteral("--level goes with --to")};
        return std::nullopt;
    }
    const QString name = parser.Value("to");
    const bool isJson = name == QLatin1String(JSON);
    const FileForm form = isJson ? FileForm() : FormCalled(name);
    return Target{WithLevel(form, parser.Has("level")), LevelOf(parser), isJson};
}

QString NameOf(const Target& target)
{
    return target.isJson ? QLatin1String(JSON) : ReportCore::WordFor(target.form);
}

QString SuffixOf(const Target& target)
{
    return QLatin1Char('.') + NameOf(target);
}

} // namespace ReportTool
