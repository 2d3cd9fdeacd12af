// What a row of the view carries for the library: the way to the control and to the row's item. It
// outlives a rebuild of its row, the item does not.
#pragma once

#include "host/RcBase.h"
#include "host/UniqueMetaObjectKey.h"
#include "resources/Export.h"

#include <memory>
#include <vector>

namespace productTree {

class IfProductTreeCtrl;
class ProductTreeItemImpl;

/// Counted by the row. Made by the library alone.
class PRODUCT_TREE_EXPORT ProductTreeItemData final : public RcBase<> {
public:
    ProductTreeItemData(IfProductTreeCtrl& control, std::shared_ptr<ProductTreeItemImpl> impl);
    ~ProductTreeItemData() override;

    IfProductTreeCtrl& GetProductTreeCtrl() const { return m_control; }
    /// Null only for a row whose record made no item.
    const std::shared_ptr<ProductTreeItemImpl>& GetImpl() const { return m_impl; }
    void SetImpl(std::shared_ptr<ProductTreeItemImpl> impl);

    // For hosts, which do not see the item. They may be asked at any time and call nobody back.

    /// The object of the row, and of a group the one that the group is known by. The empty key for
    /// the root row, a section and a row without an item.
    UniqueMetaObjectKey GetObjectKey() const;
    /// All objects that the row stands for, those of the rows below a section or a group included.
    std::vector<UniqueMetaObjectKey> GetAllKeys() const;
    /// The row shows several like objects.
    bool IsGroup() const;

private:
    IfProductTreeCtrl& m_control;
    std::shared_ptr<ProductTreeItemImpl> m_impl;
};

} // namespace productTree
