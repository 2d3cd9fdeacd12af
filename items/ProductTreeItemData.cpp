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

UniqueMetaObjectKey ProductTreeItemData::GetObjectKey() const {
    return m_impl ? m_impl->GetObjectKey() : UniqueMetaObjectKey();
}

std::vector<UniqueMetaObjectKey> ProductTreeItemData::GetAllKeys() const {
    std::vector<UniqueMetaObjectKey> keys;
    if (m_impl)
        m_impl->AppendKey(keys);
    return keys;
}

bool ProductTreeItemData::IsGroup() const {
    return m_impl && m_impl->IsGroup();
}

} // namespace productTree
