// What the rows of a view say of the masses below them.
#include "desktop/Session.h"
#include "items/ProductTreeItemData.h"
#include "platform/product/model/PropertyNumbers.h"
#include "platform/view/TreeTableView.h"

#include <algorithm>

namespace desktop {

using platform::TreeTableRow;

platform::MassesBelow Session::FindMassesOf(const UniqueMetaObjectKey& part) const {
    platform::MassesBelow masses = m_product->FindMassesBelow(part);
    return masses.parts > 0 ? masses : m_product->FindOwnMass(part);
}

platform::MassesBelow Session::FindMassesBelow(const TreeTableRow& row) const {
    const productTree::ProductTreeItemData* const data = row.GetData();
    if (!data)
        return {};
    if (&row == GetView().GetRoot())
        return m_product->FindMassesBelow(m_product->GetRootKey());
    if (!data->IsGroup())
        return m_product->FindMassesBelow(data->GetObjectKey());
    platform::MassesBelow all;
    // Of a group for several embodiments the common mass is shown, and no sum.
    if (IsEmbodimentMode())
        return all;
    for (const UniqueMetaObjectKey& member : data->GetAllKeys()) {
        const platform::MassesBelow masses = FindMassesOf(member);
        all.parts += masses.parts;
        all.without.insert(all.without.end(), masses.without.begin(), masses.without.end());
    }
    return all;
}

std::vector<TreeTableRow*> Session::FindRowsWithoutMass(TreeTableRow& row) const {
    std::vector<TreeTableRow*> rows;
    for (std::size_t i = 0; i < row.GetChildCount(); ++i) {
        TreeTableRow& child = row.GetChildRow(i);
        const productTree::ProductTreeItemData* const data = child.GetData();
        const UniqueMetaObjectKey key = data ? data->GetObjectKey() : UniqueMetaObjectKey();
        if (!key.IsEmpty() && !data->IsGroup() && !FindMassesOf(key).without.empty())
            rows.push_back(&child);
        const std::vector<TreeTableRow*> below = FindRowsWithoutMass(child);
        rows.insert(rows.end(), below.begin(), below.end());
    }
    return rows;
}

bool Session::LacksMass() const {
    const platform::ObjectRecord& root = m_product->GetModel().root;
    const auto mass = std::ranges::find(root.properties, platform::number::mass,
                                        &platform::PropertyValues::value_type::first);
    return root.sumsPartMasses && (mass == root.properties.end() || mass->second.IsEmpty());
}

void Session::SetSimplified(bool isSimplified) {
    m_product->SetSimplified(isSimplified);
}

} // namespace desktop
