#ifndef REPORTTOOL_NAMEPATTERN_H
#define REPORTTOOL_NAMEPATTERN_H

#include <QtCore/QString>

#include <string>

namespace ReportTool {

/// A pattern for the names of files, as in a shell: `*` stands for any characters, `?` for one, `[a-z]` for one of these
/// and `[!a-z]` for another one; a backslash takes its meaning from the next character. On Windows backslashes stand for
/// themselves, and case doesn't count.
class NamePattern
{
public:
    explicit NamePattern(const QString& pattern);

    bool Fits(const QString& name) const;

private:
    /// Whether the character fits the single one of the pattern that begins there, and where that one ends.
    bool FitsOne(char32_t character, std::size_t begin, std::size_t& end) const;
    bool FitsSet(char32_t character, std::size_t begin, std::size_t& end) const;

    std::u32string m_pattern;
};

} // namespace ReportTool

#endif
