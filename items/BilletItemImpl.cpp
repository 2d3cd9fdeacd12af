#include "items/BilletItemImpl.h"

#include "columns/PropertyKeys.h"
#include "host/FormatLabelUtils.h"
#include "host/data/IfProductTreeData.h"
#include "resources/ProductTreeResources.h"

#include <utility>

namespace productTree {

BilletItemImpl::BilletItemImpl(TreeRowPtr row, IfProductTreeData* data, UniqueMetaObjectKey key,
                               UniqueMetaObjectKey sourceKey)
    : InfObjectItemImpl(std::move(row), data, std::move(key)), m_sourceKey(std::move(sourceKey)) {}

bool BilletItemImpl::CanHighlight() const {
    return false;
}

void BilletItemImpl::CollectSelectionKeys(std::vector<Key>& keys) const {
    if (m_data->IsSelectableBillet(m_key))
        keys.push_back(m_key);
}

SharedText BilletItemImpl::GetDisplayName(const SharedText& text) const {
    static const SharedText postfix = GetResourceText("IDS_PRODUCT_TREE_BILLET_NAME_POSTFIX");
    std::wstring name = format_label_utils::FormatLabelForDisplay(text).Str() + L" (";
    name += postfix.Str();
    const SharedText marking = GetOwnerMarking();
    if (!marking.IsEmpty())
        name += L' ' + marking.Str();
    return name + L')';
}

unsigned BilletItemImpl::GetCount(int withBillets) const {
    return withBillets == 1 ? CountByAggregation() : 0;
}

SharedText BilletItemImpl::GetOwnerMarking() const {
    static const SharedText markingId = keys::marking;
    const PropValue value =
        m_data->GetValue({m_sourceKey, UniqueMetaObjectKey::null, markingId, std::nullopt});
    VariantMarking marking;
    marking.FromPropertyTree(value.GetPropertyTree());
    return MakeShownMarking(marking, m_data->GetLockedMarkingParts(m_sourceKey));
}

} // namespace productTree
