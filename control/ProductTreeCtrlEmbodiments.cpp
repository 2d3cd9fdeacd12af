// Embodiment mode, and the choice of the embodiments that it shows.

#include "columns/PropertyKeys.h"
#include "control/Bracket.h"
#include "control/ProductTreeCtrl.h"
#include "host/ProductProperties.h"
#include "host/data/IfProductTreeData.h"
#include "resources/ProductTreeResources.h"

#include <algorithm>

namespace productTree {

namespace {

SharedText GetAllText() {
    return GetResourceText("IDS_ALL_EMBODIMENTS");
}

} // namespace

void ProductTreeCtrl::UpdateEmbodimentFilter() {
    const FlagScope filling(m_fillingFilter);
    m_tree->ClearEmbodimentFilter();
    if (!m_data->IsEmbodimentMode())
        return;
    m_tree->AddEmbodimentFilterItem(
        GetAllText().Str(), m_embodiments.AreAllShown() ? std::optional(true) : std::nullopt);
    for (const auto& [text, state] : m_embodiments.GetBlocks())
        m_tree->AddEmbodimentFilterItem(text, state);
    m_tree->SetEmbodimentFilterText(m_embodiments.FormatText());
}

void ProductTreeCtrl::OnEmbodimentChecked(const std::wstring& text, bool checked) {
    if (GetAllText() == SharedText(text))
        m_embodiments.ToggleAll();
    else
        m_embodiments.Toggle(text, checked);
    Synchronize();
}

void ProductTreeCtrl::OnEmbodimentFilterChanged() {
    if (m_fillingFilter || !m_tree)
        return;
    m_embodiments.SetFromText(m_tree->GetEmbodimentFilterText());
    Synchronize();
}

void ProductTreeCtrl::OnEmbodimentSwitch() {
    SetEmbodimentModeOn(m_tree->GetEmbodimentSwitch());
    SetSelectionByDoc();
}

// The columns of the embodiments stand in place of the one of counts, which has to be there.
void ProductTreeCtrl::SetEmbodimentModeOn(bool on) {
    if (m_data->IsEmbodimentMode() == on)
        return;
    m_data->SetEmbodimentMode(on);
    if (on) {
        const std::vector<unsigned long> visible = m_data->GetVisiblePropertyIds();
        if (std::ranges::find(visible, ProductProperties::countId) == visible.end()) {
            m_countColumnAdded = true;
            m_data->SetColumnVisible(keys::count, true);
        }
    } else {
        LeaveEmbodimentColumns();
    }
    Synchronize();
}

void ProductTreeCtrl::LeaveEmbodimentColumns() {
    if (m_countColumnAdded) {
        m_countColumnAdded = false;
        m_data->SetColumnVisible(keys::count, false);
    }
    m_tree->ClearColumnMark();
}

void ProductTreeCtrl::OnEmbodimentModeChanged(bool allowed) {
    if (allowed) {
        if (m_embodimentModePending)
            SetEmbodimentModeOn(true);
    } else if (m_data->IsEmbodimentMode()) {
        m_data->SetEmbodimentMode(false);
        LeaveEmbodimentColumns();
        Synchronize();
        m_embodimentModePending = true;
    } else {
        m_embodimentModePending = false;
    }
    UpdateCommandStates();
}

} // namespace productTree
