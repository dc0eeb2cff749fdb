#ifndef REPORTCORE_INSPECT_SOURCEMAP_H
#define REPORTCORE_INSPECT_SOURCEMAP_H

#include <reportcore/inspect/inspector.h>

#include <reportgenerator/reflection/fieldpath.h>

#include <memory>
#include <optional>
#include <unordered_map>

namespace ReportCore {

/// A value or an object as it stands in a file.
struct SourceEntry
{
    FilePlace place;
    FieldPath path;

    /// The value as it was found, null of an object.
    QString value;
};

/// Finds the values and objects of a report in its bytes: those that are asked for, in one pass.
class SourceMap
{
public:
    // What is asked for

    /// What ends where a reader had got to when it told something: units of the text, as Qt's reader counts them, or bytes
    /// of the file or of the uncompressed data.
    void WantEnd(qint64 end);

    /// What stands at the path, and the objects that hold it.
    void WantPath(const FieldPath& path);

    /// The pass. The bytes must outlive this.
    void Search(const QByteArray& bytes, const FileForm& form);

    // What was found

    /// Of several the innermost, or the object when `isObject` is true; null where nothing ends.
    const SourceEntry* FindEnd(qint64 end, bool isObject) const;

    /// Null when it doesn't stand in the file.
    const SourceEntry* FindPath(const FieldPath& path) const;

    /// Gives a problem the path, and its place and value in the file, or the place of the innermost object around it that
    /// stands there.
    void Locate(Problem& problem, const FieldPath& path) const;

    /// The place of an end.
    FilePlace PlaceOf(qint64 end) const { return m_inspector->PlaceOf(end); }

private:
    void Take(const Event& event);

    struct Ending
    {
        std::optional<SourceEntry> value;
        std::optional<SourceEntry> object;
    };

    std::unordered_map<qint64, Ending> m_ends;
    std::unordered_map<FieldPath, SourceEntry, FieldPathHash> m_paths;
    std::unique_ptr<Inspector> m_inspector;
};

} // namespace ReportCore

#endif
