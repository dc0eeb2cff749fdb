#ifndef REPORTCORE_LOSING_LOSTVALUES_H
#define REPORTCORE_LOSING_LOSTVALUES_H

#include <reportcore/inspect/inspector.h>
#include <reportcore/losses.h>

#include <reportgenerator/reflection/fieldpath.h>

#include <vector>

namespace ReportCore {

/// Holds the values of a file against the report that was read from it.
class LostValues
{
public:
    explicit LostValues(const ReportFile& file) : m_file(file) {}

    /// One that the inspector has come to.
    void Take(const Event& event, const Inspector& inspector);

    /// Those that are not in the report, or as others. What an object held that isn't there is one of them, and so are
    /// items that follow each other. The bytes are searched for where objects begin.
    Problems Find(const QByteArray& bytes) const;

private:
    struct Lost
    {
        FieldPath path;
        FieldPath last; ///< of items that follow each other
        FilePlace place;
        QString text;
        QString value;
    };

    bool IsParentLost(const FieldPath& path, const FilePlace& place);
    void Lose(const FieldPath& object, const FilePlace& place);
    static QString TextOf(const Lost& lost);

    const ReportFile& m_file;
    std::vector<Lost> m_lost;
};

} // namespace ReportCore

#endif
