#ifndef REPORTCORE_LOSING_LOSTVALUES_H
#define REPORTCORE_LOSING_LOSTVALUES_H

#include <reportcore/losses.h>

#include <reportgenerator/reflection/fieldpath.h>

#include <vector>

namespace ReportCore {

/// Holds the values of a file against the report that was read from it.
class LostValues
{
public:
    explicit LostValues(const ReportFile& file) : m_file(file) {}

    /// A value as it stands in the file.
    void TakeText(const FieldPath& path, const FilePlace& place, const QString& text);

    /// The same in UTF-8, which need not be any.
    void TakeUtf8(const FieldPath& path, const FilePlace& place, const QByteArray& text);
    void TakeSwitch(const FieldPath& path, const FilePlace& place, bool value);

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
    void Compare(const FieldPath& path, const FilePlace& place, bool isSame, const QString& text);
    static QString TextOf(const Lost& lost);

    const ReportFile& m_file;
    std::vector<Lost> m_lost;
};

} // namespace ReportCore

#endif
