#ifndef REPORTTOOL_FORMOPTIONS_H
#define REPORTTOOL_FORMOPTIONS_H

#include <reportcore/form.h>

#include <QtCore/QString>

#include <optional>

namespace ReportTool {

class Parser;

/// What a report is to be written as.
struct Target
{
    ReportCore::FileForm form;
    int level = -1; ///< of compressed forms

    /// The form of `show --json` instead.
    bool isJson = false;
};

/// --to and --level.
void AddFormOptions(Parser& parser);

/// What they ask for; nothing where --to is missing. Throws `UsageError`.
std::optional<Target> TargetOf(const Parser& parser);

/// "xml", "compressed", "json".
QString NameOf(const Target& target);

/// The end of the names of files in this form.
QString SuffixOf(const Target& target);

} // namespace ReportTool

#endif
