// The user's view of the tree across full builds: which rows were expanded, selected and current. A
// build gives every row a new item and uses rows again by position, so that only ids tell which row
// is which. Expansion is kept a root key and mode, since a document has other rows in embodiment
// mode; selection is that of the last Store.
#pragma once

#include "host/UniqueMetaObjectKey.h"
#include "items/ProductTreeItemId.h"

#include <map>
#include <memory>
#include <vector>

class ITreeTableModel;

namespace productTree {

class ProductTreeEmbItemsStates {
public:
    virtual ~ProductTreeEmbItemsStates() = default;

    /// Called before the rows change, with the root key and mode of the last build. An empty key,
    /// before the first build: nothing is stored.
    void Store(ITreeTableModel& tree, const UniqueMetaObjectKey& rootKey, bool embodimentMode);
    /// Called when the rows are up to date. A tree not seen before comes up with its root expanded.
    void Restore(ITreeTableModel& tree, const UniqueMetaObjectKey& rootKey, bool embodimentMode);

private:
    using Ids = std::vector<std::shared_ptr<ProductTreeItemId>>;
    using IdsByRoot = std::map<UniqueMetaObjectKey, Ids>;

    IdsByRoot& GetExpanded(bool embodimentMode);
    void RestoreSelection(ITreeTableModel& tree) const;

    IdsByRoot m_expanded;
    IdsByRoot m_expandedEmb;
    Ids m_selected;
    /// Null when no selected row was current.
    std::shared_ptr<ProductTreeItemId> m_current;
};

} // namespace productTree
