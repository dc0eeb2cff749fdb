#ifndef REPORTCORE_INSPECT_SOURCEMAP_H
#define REPORTCORE_INSPECT_SOURCEMAP_H

#include <reportcore/inspect/event.h>
#include <reportcore/inspect/sourcetext.h>
#include <reportcore/problem.h>

#include <reportgenerator/reflection/fieldpath.h>

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

    /// What ends where a reader had got to when it told something.
    void WantEnd(qint64 end);

    /// What stands at the path, and the objects that hold it.
    void WantPath(const FieldPath& path);

    // The pass

    /// Ends are counted in units of the text, as Qt's reader counts them.
    void SearchXml(const QByteArray& bytes);

    /// Ends are counted from the start of the report's body.
    void SearchBinary(const QByteArray& bytes, bool isBinaryFile);

    // What was found

    /// Of several the innermost, or the object when `isObject` is true; null where nothing ends.
    const SourceEntry* FindEnd(qint64 end, bool isObject) const;

    /// Null when it doesn't stand in the file.
    const SourceEntry* FindPath(const FieldPath& path) const;

    /// The entry of the path, or else of the innermost object around it that stands in the file.
    const SourceEntry* FindNearest(const FieldPath& path) const;

    /// The place of an end.
    FilePlace PlaceOf(qint64 end) const;

    /// Of XML.
    const QString& Text() const { return m_text.Text(); }

private:
    void Take(const Event& event);

    struct Ending
    {
        std::optional<SourceEntry> value;
        std::optional<SourceEntry> object;
    };

    std::unordered_map<qint64, Ending> m_ends;
    std::unordered_map<FieldPath, SourceEntry, FieldPathHash> m_paths;

    // Of XML.
    bool m_isXml = false;
    SourceText m_text;

    // Of binary forms.
    qint64 m_bodyOffset = 0;
    bool m_isCompressed = false;
};

} // namespace ReportCore

#endif
