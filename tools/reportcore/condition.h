#ifndef REPORTCORE_CONDITION_H
#define REPORTCORE_CONDITION_H

#include <reportgenerator/reflection/field.h>

#include <QtCore/QString>

#include <memory>

namespace ReportCore {

/// A condition that cannot be understood; the text is for people, the column counts from 1.
struct ConditionError
{
    QString text;
    int column = 1;
};

/// Something that is true of some objects and not of others:
///
///     frequency.value in 118e6..137e6
///     area contains 9.5,47.5 and not area.scriptId set
///     (area.name ~ "lake" or area.name = 'Sea') and ifBandwidth.value <= 25000
///
/// There are =, !=, <, <=, >, >=, "in", "~" for regular expressions, "set", "unset" and "contains", the latter for what
/// holds a list of points: whether its edges surround the point, their own points included. What isn't set fulfils nothing
/// but "unset". "not" binds more than "and", and that more than "or".
class Condition
{
public:
    /// A part of it, in the way in which it is asked.
    class Test
    {
    public:
        virtual ~Test() = default;
        virtual bool IsTrueOf(const REPORTGENERATOR::IRGObject& object) const = 0;
    };

    /// Of objects of this class. Throws `ConditionError`.
    static Condition Parse(const ObjectInfo& info, const QString& text);

    bool IsTrueOf(const REPORTGENERATOR::IRGObject& object) const { return m_test->IsTrueOf(object); }

private:
    explicit Condition(std::shared_ptr<const Test> test);

    std::shared_ptr<const Test> m_test;
};

} // namespace ReportCore

#endif
