#include <reporttool/formoptions.h>

#include <reporttool/parser.h>

#include <algorithm>
#include <iterator>

namespace ReportTool {

using ReportCore::FileForm;
using ReportCore::Form;

namespace {

constexpr int LOWEST_LEVEL = -1;
constexpr int HIGHEST_LEVEL = 9;

/// A form by its name on the command line.
struct NamedForm
{
    const char* name;
    FileForm form;
    bool isJson;
};

constexpr NamedForm FORMS[] = {{"xml", {Form::Xml, false}, false},
                               {"plain", {Form::Plain, false}, false},
                               {"compressed", {Form::Compressed, false}, false},
                               {"file", {Form::Plain, true}, false},
                               {"json", {Form::Unknown, false}, true}};

const NamedForm& FormCalled(const QString& name)
{
    const auto* const found =
        std::find_if(std::begin(FORMS), std::end(FORMS),
                     [&name](const NamedForm& form) { return name == QLatin1String(form.name); });
    if (found == std::end(FORMS))
        throw UsageError{QStringLiteral("no form is called '%1'").arg(name)};
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
    QStringList names;
    for (const NamedForm& form : FORMS)
        names << QLatin1String(form.name);
    parser.AddOption("to", "Form to write: xml, plain, compressed, file or json.", "form",
                     Candidates::OneOf(names));
    parser.AddOption("level", "Level of compression: 0 to 9, or -1 for zlib's default.", "level");
}

std::optional<Target> TargetOf(const Parser& parser)
{
    if (!parser.Has("to")) {
        if (parser.Has("level"))
            throw UsageError{QStringLiteral("--level goes with --to")};
        return std::nullopt;
    }
    const NamedForm& form = FormCalled(parser.Value("to"));
    return Target{WithLevel(form.form, parser.Has("level")), LevelOf(parser), form.isJson};
}

QString SuffixOf(const Target& target)
{
    const auto* const found =
        std::find_if(std::begin(FORMS), std::end(FORMS), [&target](const NamedForm& named) {
            if (target.isJson || target.form.isBinaryFile)
                return named.isJson == target.isJson && named.form.isBinaryFile == target.form.isBinaryFile;
            return named.form.form == target.form.form && !named.form.isBinaryFile;
        });
    return QLatin1Char('.') + QLatin1String(found->name);
}

} // namespace ReportTool
