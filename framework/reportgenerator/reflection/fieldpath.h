#ifndef REPORTGENERATOR_REFLECTION_FIELDPATH_H
#define REPORTGENERATOR_REFLECTION_FIELDPATH_H

#include <reportgenerator/reflection/field.h>

#include <QtCore/QString>
#include <QtCore/QVarLengthArray>

#include <cstddef>

namespace ReportCore {

/// A path that leads to no field; the text is for people.
struct PathError
{
    QString text;
};

/// The way from an object down to a field: "frequency.value", "area.coordinate[17].latitude", "area.coordinate".
///
/// Names are those of JSON, of a list in the singular; the plural is taken too. People count items from 1. An empty
/// path is the object itself.
class FieldPath
{
public:
    /// The index of a step that is no item.
    static constexpr int WHOLE = -1;

    struct Step
    {
        const Field* field = nullptr;
        int index = WHOLE; ///< of an item, from 0
    };

    FieldPath() = default;

    /// Throws `PathError`.
    static FieldPath Parse(const ObjectInfo& object, const QString& text);

    QString Text() const;

    bool IsEmpty() const { return m_steps.isEmpty(); }
    int Size() const { return static_cast<int>(m_steps.size()); }
    const Step& At(int depth) const { return m_steps.at(depth); }
    const Step& Last() const { return m_steps.last(); }

    /// Whether the last step is an item of a list.
    bool IsItem() const { return !IsEmpty() && Last().index != WHOLE; }

    void Enter(const Field& field, int index = WHOLE) { m_steps.append({&field, index}); }
    void SetIndex(int index) { m_steps.last().index = index; }
    void Leave() { m_steps.removeLast(); }

    /// Of the object in which the last step stands: of "area.coordinate[17].latitude" it is "area.coordinate[17]", of
    /// that "area".
    FieldPath Parent() const;

    /// Whether this is `other` or the way to it.
    bool IsAbove(const FieldPath& other) const;

    friend bool operator==(const FieldPath& left, const FieldPath& right)
    {
        return left.Size() == right.Size() && left.IsAbove(right) && right.IsAbove(left);
    }
    friend bool operator!=(const FieldPath& left, const FieldPath& right) { return !(left == right); }

private:
    QVarLengthArray<Step, 4> m_steps;
};

/// For hash tables.
struct FieldPathHash
{
    std::size_t operator()(const FieldPath& path) const;
};

} // namespace ReportCore

#endif
