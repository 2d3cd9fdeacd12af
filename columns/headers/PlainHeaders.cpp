#include "columns/headers/PlainHeaders.h"

#include <iterator>

namespace productTree {

void StringHeaderImpl::InitEditor() {
    m_model->InitTextHeader(m_column, GetPopupMenu());
}

TreeActionResult StringHeaderImpl::OnValueEdited() {
    return ApplyValueToSelection(PropValue(SimplePropVal(m_model->GetHeaderText(GetColumnId()))));
}

boost::intrusive_ptr<IMenuItems> StringHeaderImpl::GetPopupMenu() {
    return nullptr;
}

void IntHeaderImpl::InitEditor() {
    m_model->InitIntHeader(m_column);
}

TreeActionResult IntHeaderImpl::OnValueEdited() {
    const std::optional<int> value = m_model->GetHeaderInt(GetColumnId());
    if (!value)
        return {};
    return ApplyValueToSelection(PropValue(SimplePropVal(m_column.UnapplyUnitCoefficient(*value))));
}

void DoubleHeaderImpl::InitEditor() {
    m_model->InitDoubleHeader(m_column);
}

TreeActionResult DoubleHeaderImpl::OnValueEdited() {
    const std::optional<double> value = m_model->GetHeaderDouble(GetColumnId());
    if (!value)
        return ApplyValueToSelection(PropValue());
    return ApplyValueToSelection(PropValue(SimplePropVal(m_column.UnapplyUnitCoefficient(*value))));
}

void BoolHeaderImpl::InitEditor() {
    m_model->InitBoolHeader(m_column);
}

TreeActionResult BoolHeaderImpl::OnValueEdited() {
    const std::optional<bool> value = m_model->GetHeaderBool(GetColumnId());
    if (!value)
        return {};
    return ApplyValueToSelection(PropValue(SimplePropVal(*value)));
}

void ListHeaderImpl::InitEditor() {
    m_model->InitListHeader(m_column);
}

TreeActionResult ListHeaderImpl::OnValueEdited() {
    const std::optional<int> place = FindChosenPlace();
    if (!place)
        return {};
    return ApplyValueToSelection(PropValue(*std::next(m_column.GetStoredList().begin(), *place)));
}

std::optional<int> ListHeaderImpl::FindChosenPlace() const {
    const int place = m_model->GetHeaderListIndex(GetColumnId());
    const bool isThere =
        place >= 0 && static_cast<std::size_t>(place) < m_column.GetStoredList().size();
    return isThere ? std::optional(place) : std::nullopt;
}

void FeatureTypeHeaderImpl::InitEditor() {
    m_model->InitTextHeader(m_column, nullptr);
}

TreeActionResult FeatureTypeHeaderImpl::OnValueEdited() {
    return {};
}

void NameHeaderImpl::InitEditor() {
    m_model->InitNameHeader(m_column);
}

TreeActionResult NameHeaderImpl::OnValueEdited() {
    TreeActionResult result =
        ApplyValueToSelection(PropValue(SimplePropVal(m_model->GetHeaderName())));
    if (result.action != TreeActionResult::Nothing)
        result.action = TreeActionResult::Synchronise;
    return result;
}

} // namespace productTree
