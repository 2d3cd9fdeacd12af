#include "items/SubTreeItemImpl.h"

#include "cells/JoinedText.h"

#include <array>
#include <iterator>
#include <limits>
#include <utility>

namespace productTree {

SubTreeItemImpl::SubTreeItemImpl(TreeRowPtr row, IfProductTreeData* data)
    : ProductTreeItemImpl(std::move(row), data), m_ownAggrAttribute(m_row, data, m_tally) {
    m_aggrAttribute = &m_ownAggrAttribute;
}

bool SubTreeItemImpl::CanDelete() const {
    return HasChildItem([](const ProductTreeItemImpl& child) { return child.CanDelete(); });
}

void SubTreeItemImpl::CollectKeysToDelete(std::set<Key>& keys) const {
    ForEachChildItem([&](const ProductTreeItemImpl& child) {
        child.CollectKeysToDelete(keys);
        return true;
    });
}

void SubTreeItemImpl::CollectSelectionKeys(std::vector<Key>& keys) const {
    ForEachChildItem([&](const ProductTreeItemImpl& child) {
        child.CollectSelectionKeys(keys);
        return true;
    });
}

void SubTreeItemImpl::SplitByHypertext(std::vector<Key>& with, std::vector<Key>& without,
                                       const std::wstring& columnId) const {
    ForEachChildItem([&](const ProductTreeItemImpl& child) {
        child.SplitByHypertext(with, without, columnId);
        return true;
    });
}

bool SubTreeItemImpl::UpdateActual() {
    m_actual = m_tally.AreAllActual();
    return m_actual;
}

bool SubTreeItemImpl::CanSetPosition() const {
    return CanSetChildPositions();
}

bool SubTreeItemImpl::CanClearPosition() const {
    return CanClearChildPositions();
}

void SubTreeItemImpl::ClearPosition(ProductInfObjChangesResult& changes) {
    ClearChildPositions(changes);
}

SharedText SubTreeItemImpl::GetCountSuffix(int withBillets) const {
    return MakeCountSuffix(GetCount(withBillets));
}

SharedText SubTreeItemImpl::MakeCountSuffix(unsigned count) const {
    std::array<wchar_t, std::numeric_limits<unsigned>::digits10 + 1> digits{};
    auto begin = digits.end();
    unsigned rest = count;
    do {
        *--begin = static_cast<wchar_t>(L'0' + rest % 10);
        rest /= 10;
    } while (rest > 0);
    m_suffix = JoinTexts(m_suffix, {L"(x", {begin, digits.end()}, L")"});
    return m_suffix;
}

unsigned SubTreeItemImpl::GetCount(int withBillets) const {
    unsigned count = 0;
    ForEachChildItem([&](const ProductTreeItemImpl& child) {
        count += child.GetCount(withBillets);
        return true;
    });
    return count;
}

void SubTreeItemImpl::OnChildRowsUpdate() {
    m_tally = {};
}

void SubTreeItemImpl::OnChildRowUpdated(ProductTreeItemImpl& child) {
    const ITreeTableRow& row = child.GetRow();
    const RowShare share = {CountObjects(child), true, child.IsActual(),
                            static_cast<std::uint8_t>(row.GetAggrIntoProductState()),
                            static_cast<std::uint8_t>(row.GetRegWithDescState())};
    m_tally.Remove(child.GiveShare(share));
    m_tally.Add(share);
}

unsigned SubTreeItemImpl::CountObjects(const ProductTreeItemImpl&) const {
    return 0;
}

std::vector<std::pair<UniqueMetaObjectKey, PropValue>>
SubTreeItemImpl::JoinValuesToTransmit(const std::wstring& columnId) const {
    std::vector<std::pair<Key, PropValue>> values;
    ForEachChildItem([&](const ProductTreeItemImpl& child) {
        auto childValues = child.GetValuesToTransmit(columnId);
        values.insert(values.end(), std::make_move_iterator(childValues.begin()),
                      std::make_move_iterator(childValues.end()));
        return true;
    });
    return values;
}

} // namespace productTree
