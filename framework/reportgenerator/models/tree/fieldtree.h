#ifndef REPORTGENERATOR_MODELS_TREE_FIELDTREE_H
#define REPORTGENERATOR_MODELS_TREE_FIELDTREE_H

#include <reportgenerator/reflection/fieldpath.h>

#include <QtCore/QString>
#include <QtCore/QVariant>

#include <map>
#include <memory>
#include <optional>
#include <vector>

namespace ReportModels {

/// What rows stand below: the object shown, a member object, a list, or an item of one.
struct Node
{
    Node* above = nullptr;                    ///< null for the object shown
    int row = 0;                              ///< its own, below the one above
    const ReportCore::Field* field = nullptr; ///< the member object, the list, or that of the item
    bool isItem = false;
    std::map<int, std::unique_ptr<Node>> below; ///< by row; those that somebody has asked for

    bool IsList() const { return field && field->Kind() == ReportCore::FieldKind::List && !isItem; }
};

using Nodes = std::vector<std::unique_ptr<Node>>;

/// A row of the tree.
struct Row
{
    Node* below = nullptr;
    int number = 0;
};

/// The fields of an object as a tree of rows: a field each, in reading order, and an item each below a list.
///
/// Nodes come into being when somebody asks for what stands below a row, and keep their address until their row is
/// removed; then the caller has them, since somebody may still point to them. Below a member object that isn't there
/// stand its fields, none of them set.
class FieldTree
{
public:
    explicit FieldTree(const ReportCore::ObjectInfo& info) : m_info(info) {}

    /// Shows an object of the class, which stays with the caller. Nodes stay: those of items that it does not have
    /// must have been removed.
    void Show(const REPORTGENERATOR::IRGObject& object) { m_object = &object; }

    Node& Root() { return m_root; }

    /// Removes all nodes but the root, and returns them.
    Nodes Clear();

    /// Whether the node has not been removed.
    bool Has(const Node& node) const;

    // Rows

    int CountBelow(const Node& node) const;
    int CountBelow(const Row& row) const;

    /// Makes the node that stands for the row of an object or a list.
    Node& NodeAt(const Row& row) const;

    /// The same, null when nobody has asked for it.
    static Node* FindNode(const Row& row);

    const ReportCore::Field& FieldAt(const Row& row) const;

    /// Whether it is an item of a list.
    static bool IsItem(const Row& row) { return row.below->IsList(); }

    /// Whether it is a member object, a list or an item.
    bool IsObject(const Row& row) const { return FieldAt(row).HasObjects(); }

    ReportCore::FieldPath PathOf(const Row& row) const;
    std::optional<Row> Find(const ReportCore::FieldPath& path);

    // What stands there

    /// The object whose fields are the rows below the node, or to which the list belongs. Null when it isn't there.
    const REPORTGENERATOR::IRGObject* ObjectOf(const Node& node) const;

    bool IsSet(const Row& row) const;
    QVariant ValueAt(const Row& row) const;
    QString NameAt(const Row& row) const;
    QString TextAt(const Row& row) const;
    QString ComplaintAt(const Row& row) const;

    // Items come and go

    /// The rows from `first` on move down. Their items keep their names until `Renumber`.
    void InsertRows(Node& list, int first, int count);

    /// Returns the nodes of the rows that are removed. The items behind keep their names until `Renumber`.
    Nodes RemoveRows(Node& list, int first, int count);

    /// Names all items by their places.
    void Renumber() { m_moved = Moved(); }

    /// The class of the object whose fields are the rows below the node.
    const ReportCore::ObjectInfo& InfoOf(const Node& node) const;

private:
    /// Items whose names are those of other places.
    struct Moved
    {
        const Node* list = nullptr;
        int first = 0;
        int distance = 0;
    };

    const ReportCore::ObjectInfo& m_info;
    const REPORTGENERATOR::IRGObject* m_object = nullptr;
    Node m_root;
    Moved m_moved;
};

/// The row of a field among those of its class.
int RowOf(const ReportCore::ObjectInfo& info, const ReportCore::Field& field);

/// For people: "1 coordinate", "2 coordinates".
QString CountText(const ReportCore::Field& list, int count);

} // namespace ReportModels

#endif
