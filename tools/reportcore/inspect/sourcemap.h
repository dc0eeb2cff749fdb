#ifndef REPORTCORE_INSPECT_SOURCEMAP_H
#define REPORTCORE_INSPECT_SOURCEMAP_H

#include <reportcore/form.h>
#include <reportcore/problem.h>

#include <reportgenerator/reflection/fieldpath.h>

#include <QtCore/QByteArray>

#include <optional>
#include <vector>

namespace ReportCore {

/// A problem whose place in a file is still to be found.
struct Finding
{
    Problem problem;

    /// What it is about; nothing where that isn't known.
    std::optional<FieldPath> path = {};

    /// How far a reader had got when it told of it: units of the text, as Qt's reader counts them, or bytes of the file or
    /// of the uncompressed data; -1 where nobody knows.
    qint64 end = -1;
};

using Findings = std::vector<Finding>;

/// Finds the values and objects in the bytes that the findings are about, in one pass, and completes their problems.
///
/// What has a path gets the place and the value that stand there, or the place of the innermost object around it that
/// stands in the file. What only has an end gets path, place and value of what ends there: of the innermost, or of the
/// object when the problem is that one is incomplete. Where nothing ends, it gets the place of the end.
void Locate(Findings& findings, const QByteArray& bytes, const FileForm& form);

Problems ProblemsOf(const Findings& findings);

} // namespace ReportCore

#endif
