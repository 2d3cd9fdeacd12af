#include "items/ProductTreeItemData.h"

#include "items/ProductTreeItemImpl.h"

#include <utility>

namespace productTree {

ProductTreeItemData::ProductTreeItemData(IfProductTreeCtrl& control,
                                         std::shared_ptr<ProductTreeItemImpl> impl)
    : m_control(control), m_impl(std::move(impl)) {}

ProductTreeItemData::~ProductTreeItemData() = default;

void ProductTreeItemData::SetImpl(std::shared_ptr<ProductTreeItemImpl> impl) {
    m_impl = std::move(impl);
}

} // namespace productTree
