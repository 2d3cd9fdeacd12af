// What a row of the view carries for the library: the way to the control and to the row's item. It
// outlives a rebuild of its row, the item does not.
#pragma once

#include "host/RcBase.h"
#include "resources/Export.h"

#include <memory>

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

private:
    IfProductTreeCtrl& m_control;
    std::shared_ptr<ProductTreeItemImpl> m_impl;
};

} // namespace productTree
