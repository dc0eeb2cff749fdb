#ifndef REPORTGENERATOR_REFLECTION_FIELD_H
#define REPORTGENERATOR_REFLECTION_FIELD_H

#include <reportgenerator/reportbase/codec/scalarfield.h>
#include <reportgenerator/reportbase/irgobject.h>
#include <reportgenerator/reportbase/schema/unit.h>

#include <QtCore/QString>
#include <QtCore/QVariant>

#include <memory>
#include <optional>
#include <vector>

namespace ReportCore {

class ObjectInfo;

/// What a field holds.
enum class FieldKind
{
    Number,  ///< `double`
    Switch,  ///< `bool`
    Text,    ///< `QString`
    Version, ///< `QString`: the version of the format that was read; nobody sets it
    Object,  ///< a member object
    List     ///< objects of one class
};

/// What is known of a field without any object.
struct FieldFacts
{
    FieldKind kind = FieldKind::Text;
    QString elementName; ///< of its XML element or attribute; of a list, of each item
    REPORTGENERATOR::Place place = REPORTGENERATOR::Place::Element;
    qint32 tag = 0;
    bool isMandatory = false;
    REPORTGENERATOR::Range range = {};  ///< of a number
    const ObjectInfo* object = nullptr; ///< the class of a member object or of the items of a list
    int decimals = 0;                   ///< with which a number is written
    REPORTGENERATOR::Unit unit = REPORTGENERATOR::Unit::None; ///< in which it is kept
};

/// One field of a class, as the library describes it. It is asked about objects of that class, its holders.
///
/// A list is counted from 0 here; in paths people count from 1.
class Field
{
public:
    explicit Field(const FieldFacts& facts);
    virtual ~Field();
    Field(const Field& other) = delete;
    Field& operator=(const Field& other) = delete;

    FieldKind Kind() const { return m_facts.kind; }
    const FieldFacts& Facts() const { return m_facts; }

    /// Whether there are objects below it.
    bool HasObjects() const { return m_facts.object != nullptr; }
    const ObjectInfo& Object() const { return *m_facts.object; }

    /// In paths: "scriptId", "coordinate".
    const QString& Name() const { return m_name; }

    /// In JSON: "scriptId", "coordinates".
    const QString& Key() const { return m_key; }

    /// For people: "script ID", "coordinates".
    const QString& Label() const { return m_label; }

    /// Of its bytes: "script identifier", "coordinates".
    const QString& WireLabel() const { return m_wireLabel; }

    /// Of the whole, be it a value, a member object or a list.
    virtual bool IsSetIn(const REPORTGENERATOR::IRGObject& parent) const = 0;

    /// Unsets it, as the class's own operation does; refuses with an `RGException`.
    virtual void UnsetIn(REPORTGENERATOR::IRGObject& parent) const = 0;

    /// Whether the library's check has nothing to say about it, what stands within objects aside. What it says
    /// otherwise tells `Complaint`.
    virtual bool IsGoodIn(const REPORTGENERATOR::IRGObject& parent) const = 0;
    virtual QString Complaint(const REPORTGENERATOR::IRGObject& parent) const = 0;

    // Of values

    /// Invalid when not set. A text may be set and null.
    virtual QVariant ValueIn(const REPORTGENERATOR::IRGObject& parent) const;

    /// Of a number, for those who go through many of them; nothing when not set.
    virtual std::optional<double> NumberIn(const REPORTGENERATOR::IRGObject& parent) const;

    /// Of a version of the format: whether reading this one empties the object, as data of an older version do.
    virtual bool Empties(const QString& version) const;

    /// Sets it as the class's own setter does when it validates: what that refuses is refused here, with the same
    /// `RGException`. So is a value of another type, and what nobody sets.
    virtual void SetIn(REPORTGENERATOR::IRGObject& parent, const QVariant& value) const;

    /// The value that a text stands for, as people write it: numbers as `NumberOf` takes them, switches as "true" or
    /// "false". Throws `RGException` for others.
    QVariant ValueOf(const QString& text) const;

    /// The number that a text stands for, with a decimal point, and where the field is kept in Hz also with a unit:
    /// "121.5 MHz". Throws `RGException` for others.
    double NumberOf(const QString& text) const;

    // Of a member object, which is one or none, and of lists

    virtual int CountIn(const REPORTGENERATOR::IRGObject& parent) const;
    virtual const REPORTGENERATOR::IRGObject& ItemIn(const REPORTGENERATOR::IRGObject& parent,
                                                     int index) const;

    /// A copy of the item; a new object where there is none.
    virtual std::unique_ptr<REPORTGENERATOR::IRGObject> CopyOf(const REPORTGENERATOR::IRGObject& parent,
                                                               int index) const;

    /// What could be in it, with nothing set.
    virtual std::unique_ptr<REPORTGENERATOR::IRGObject> NewItem() const;

    /// Puts a copy of `item` in the place of the item; a member object counts as set afterwards.
    virtual void ReplaceIn(REPORTGENERATOR::IRGObject& parent, int index,
                           const REPORTGENERATOR::IRGObject& item) const;

    /// In front of the item `index` of a list, or at its end; refuses an incomplete one with an `RGException`, as
    /// appending does.
    virtual void InsertIn(REPORTGENERATOR::IRGObject& parent, int index,
                          const REPORTGENERATOR::IRGObject& item) const;

    /// All at once, which is much faster for many of them. A list without items counts as set afterwards, too.
    virtual void AppendIn(REPORTGENERATOR::IRGObject& parent,
                          const std::vector<std::unique_ptr<REPORTGENERATOR::IRGObject>>& items) const;
    virtual void RemoveIn(REPORTGENERATOR::IRGObject& parent, int index, int count) const;

private:
    FieldFacts m_facts;
    QString m_name;
    QString m_key;
    QString m_label;
    QString m_wireLabel;
};

/// A class with fields.
class ObjectInfo
{
public:
    using Fields = std::vector<std::unique_ptr<const Field>>;

    ObjectInfo(const QString& objectName, Fields fields);

    /// Of the class's objects and their elements: "IFBandwidth".
    const QString& ObjectName() const { return m_objectName; }

    /// For people: "IF bandwidth".
    const QString& Label() const { return m_label; }

    /// In the order in which they are written.
    const Fields& All() const { return m_fields; }

    /// In the order in which people want them: what must be set, other values, member objects, lists.
    const std::vector<const Field*>& InReadingOrder() const { return m_inReadingOrder; }

    // Null where there is none.

    /// By its name in paths or its key in JSON.
    const Field* FindName(const QString& name) const;
    const Field* FindTag(qint32 tag) const;

    /// Of the child element or attribute.
    const Field* FindElement(const QString& elementName, REPORTGENERATOR::Place place) const;

private:
    QString m_objectName;
    QString m_label;
    Fields m_fields;
    std::vector<const Field*> m_inReadingOrder;
};

} // namespace ReportCore

#endif
