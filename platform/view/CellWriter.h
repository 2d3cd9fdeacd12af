// Writing into a cell of a row. It is all in the header: a refresh makes some ten of these calls a
// cell, each of which compares and mostly does nothing.
#pragma once

#include "platform/view/TreeTableRow.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <list>
#include <optional>

namespace platform {

/// Writes into a cell what differs, and tells the hub once if anything did.
class CellWriter final {
public:
    /// Null for a cell that the row has not: every write is ignored.
    CellWriter(TreeTableRow& row, TreeCell* cell) : m_row(row), m_cell(cell) {
        if (m_cell)
            m_row.m_hub->AnswerInput(m_row, RowInput::Place::Cell, m_cell->m_column);
    }
    CellWriter(const CellWriter&) = delete;
    CellWriter& operator=(const CellWriter&) = delete;
    ~CellWriter() {
        if (m_isChanged)
            m_row.m_hub->NoteValues(m_row);
    }

    /// The cell of that kind, without anything of the kind that it was before.
    bool Begin(CellKind kind) {
        if (!m_cell)
            return false;
        if (m_cell->m_kind == kind)
            return true;
        if (m_cell->m_kind != CellKind::None)
            ForgetValue();
        m_cell->m_kind = kind;
        // Unless its editor says otherwise.
        m_cell->m_flags = TreeCell::c_canBeEmpty;
        m_isChanged = true;
        return true;
    }
    bool Is(CellKind kind) const { return m_cell && m_cell->m_kind == kind; }

    void Flag(std::uint8_t flag, bool on) {
        const auto flags =
            static_cast<std::uint8_t>(on ? m_cell->m_flags | flag : m_cell->m_flags & ~flag);
        if (flags == m_cell->m_flags)
            return;
        m_cell->m_flags = flags;
        m_isChanged = true;
    }
    void State(bool editable, bool recalculable) {
        Flag(TreeCell::c_editable, editable);
        Flag(TreeCell::c_recalculable, recalculable);
    }
    void Texts(const SharedText& text, const SharedText& shown) {
        Flag(TreeCell::c_hasValue, true);
        const SharedText* const both = std::get_if<SharedText>(&m_cell->m_content);
        if (both ? *both == text && *both == shown : HasTexts(text, shown))
            return;
        // Most texts are shown as they are: one then serves both.
        if (shown == text)
            m_cell->m_content = text;
        else
            m_cell->m_content = boost::intrusive_ptr(new const TreeCell::TwoTexts(text, shown));
        m_isChanged = true;
    }
    template <class Value>
    void Number(const std::optional<Value>& value) {
        Flag(TreeCell::c_hasValue, value.has_value());
        Place(value ? static_cast<double>(*value) : 0);
    }
    void ListPlace(int index) {
        Flag(TreeCell::c_hasValue,
             index >= 0 && static_cast<std::size_t>(index) < m_cell->GetList().size());
        Place(index);
    }
    void Place(double number) {
        if (IsSameNumber(m_cell->GetNumber(), number))
            return;
        m_cell->m_content = number;
        m_isChanged = true;
    }
    void Icon(const SharedText& name) {
        if (m_row.m_hub->NameOf(m_cell->m_icon) == name)
            return;
        m_cell->m_icon = m_row.m_hub->GetNames().IdOf(name) & NameTable::c_maxId;
        m_isChanged = true;
    }

    void Limits(double min, double max) {
        if (m_cell->GetMin() == min && m_cell->GetMax() == max)
            return;
        CellTraits traits = m_cell->GetTraits();
        traits.min = min;
        traits.max = max;
        Traits(traits);
    }
    void Step(double step) {
        if (m_cell->GetStep() == step)
            return;
        CellTraits traits = m_cell->GetTraits();
        traits.step = step;
        Traits(traits);
    }
    void Tip(const SharedText& tip) {
        if (m_cell->GetTip() == tip)
            return;
        CellTraits traits = m_cell->GetTraits();
        traits.tip = tip;
        Traits(traits);
    }
    void Popup(const MenuPtr& popup) {
        if (m_cell->GetPopup() == popup.get())
            return;
        CellTraits traits = m_cell->GetTraits();
        traits.popup = popup;
        Traits(traits);
    }
    void List(const std::list<SimplePropVal>& list) {
        const CellListPtr& present = m_cell->GetTraits().list;
        const std::uint64_t epoch = m_row.m_hub->GetEpoch();
        if (present ? present->IsEqual(list, epoch) : list.empty())
            return;
        CellTraits traits = m_cell->GetTraits();
        traits.list = m_row.m_hub->GetTraits().GetList(m_cell->m_column, list, epoch);
        Traits(traits);
    }

private:
    /// A value that is no number never equals itself; written again it is no change all the same.
    static bool IsSameNumber(double a, double b) {
        return a == b || (std::isnan(a) && std::isnan(b));
    }
    void ForgetValue() {
        m_cell->m_content = 0.0;
        CellTraits traits;
        traits.tip = m_cell->GetTip();
        Traits(traits);
    }
    bool HasTexts(const SharedText& text, const SharedText& shown) const {
        return m_cell->GetText() == text && m_cell->GetShown() == shown;
    }
    void Traits(const CellTraits& traits) {
        m_cell->m_traits = m_row.m_hub->GetTraits().GetTraits(m_cell->m_column, traits);
        m_isChanged = true;
    }

    TreeTableRow& m_row;
    TreeCell* m_cell;
    bool m_isChanged = false;
};

} // namespace platform
