#ifndef REPORTGENERATOR_MODELS_TREE_TREECHANGES_H
#define REPORTGENERATOR_MODELS_TREE_TREECHANGES_H

#include <reportgenerator/models/tree/fieldtree.h>

#include <vector>

namespace ReportModels {

/// Rows below one node that look different.
struct RowRange
{
    Node* below = nullptr;
    int first = 0;
    int last = 0;
};

/// Items of a list that go or come; not both.
struct ListChange
{
    Node* list = nullptr;
    int first = 0;
    int removed = 0;
    int inserted = 0;
};

/// What views are to be told of.
struct TreeChanges
{
    std::vector<RowRange> rows; ///< of what is there before and after, by their numbers afterwards
    std::vector<ListChange> lists;

    bool IsEmpty() const { return rows.empty() && lists.empty(); }
};

/// Whether two values of a field cannot be told apart.
bool AreSame(const QVariant& before, const QVariant& after);

/// What differs between the object that the tree shows and another one of its class.
///
/// The rows of items count as different with what stands below them; of that, rows are told where somebody has asked
/// for them. `known` says which items go or come in its list, where the others are the same.
TreeChanges ChangesTo(FieldTree& tree, const REPORTGENERATOR::IRGObject& object,
                      const ListChange& known = ListChange());

} // namespace ReportModels

#endif
