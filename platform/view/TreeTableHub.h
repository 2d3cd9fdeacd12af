// What all rows of one view share: the observer and the changes gathered for it, which rows are
// selected and current, what the user has just left in an editor, and tables of what many cells
// have in common. Rows keep the hub alive, so that a row that outlives its view has somebody to
// talk to.
#pragma once

#include "host/RcBase.h"
#include "host/SharedText.h"
#include "platform/view/CellTraits.h"
#include "platform/view/NameTable.h"
#include "platform/view/PartTips.h"
#include "platform/view/RowInput.h"
#include "platform/view/TreeTableObserver.h"
#include "platform/view/UsualCells.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace platform {

class TreeTableRow;

class TreeTableHub final : public RcBase<> {
public:
    /// Null takes the observer away.
    void SetObserver(TreeTableObserver* observer) { m_observer = observer; }
    /// Updates may be nested; changes are announced at the end of the outermost.
    void BeginUpdate();
    /// Without BeginUpdate it does nothing.
    void EndUpdate();
    bool IsInOutermostUpdate() const { return m_updateDepth == 1; }
    bool IsInUpdate() const { return m_updateDepth > 0; }
    /// Called inside an update, before rows that stand in the tree come or go.
    void AnnounceRowChange();
    void Note(bool TreeTableChanges::*what);
    /// What the row shows has changed.
    void NoteValues(TreeTableRow& row) {
        // Where all rows count as changed, one more makes no difference; a build notes millions.
        if (!m_areAllValuesChanged || m_updateDepth == 0)
            NoteRow(row);
    }
    /// The editor of the row's name is to be opened.
    void RequestEdit(TreeTableRow& row);
    TreeTableChanges TakeChanges();
    /// While quiet, changes are not noted: the front end made them itself.
    void SetQuiet(bool quiet) { m_isQuiet = quiet; }

    void SetRoot(const TreeTableRow* root) { m_root = root; }
    bool IsInTree(const TreeTableRow& row) const;

    /// From top to bottom.
    const std::vector<TreeTableRow*>& GetSelected();
    void Select(TreeTableRow& row, bool select);
    void ClearSelection();
    /// Makes the row the only selected one and the current one.
    void SelectAlone(TreeTableRow& row);
    bool IsCurrent(const TreeTableRow& row) const { return m_current == &row; }
    TreeTableRow* GetCurrent() const { return m_current; }
    void SetCurrent(TreeTableRow* row);
    /// Called when the library, and not the front end, has changed the selection.
    void SetSelectionListener(std::function<void()> listener) {
        m_selectionListener = std::move(listener);
    }
    void TellSelection() const {
        if (m_selectionListener && !IsInUpdate())
            m_selectionListener();
    }
    /// Takes rows that stand in the tree no more out of the selection.
    void DropDetachedMarks();
    /// The row is about to be destroyed.
    void Forget(TreeTableRow& row);

    /// Null takes the input away. It must stay where it is as long as it is known here.
    void SetInput(const RowInput* input) { m_input = input; }
    /// Null when the user left nothing there.
    const RowInput* FindInput(const TreeTableRow& row, RowInput::Place place,
                              NameId column = 0) const {
        return m_input && m_input->row == &row && m_input->place == place &&
                       m_input->column == column
                   ? m_input
                   : nullptr;
    }
    /// The library has written there: that stands now, and no input.
    void AnswerInput(const TreeTableRow& row, RowInput::Place place, NameId column = 0) {
        if (FindInput(row, place, column))
            m_input = nullptr;
    }

    NameTable& GetNames() { return m_names; }
    const SharedText& NameOf(NameId id) const { return m_names.NameOf(id); }
    CellTraitsTable& GetTraits() { return m_traits; }
    PartTipsTable& GetPartTips() { return m_partTips; }
    UsualCells& GetUsualCells() { return m_usualCells; }
    /// Counts the updates.
    std::uint64_t GetEpoch() const { return m_epoch; }
    /// Where the last cell was looked for: rows are written and read cell by cell.
    std::size_t GetLastCell() const { return m_lastCell; }
    void SetLastCell(std::size_t place) { m_lastCell = place; }
    /// How many cells the last row has got: the next will have as many.
    std::size_t GetUsualCellCount() const { return m_usualCellCount; }
    void SetUsualCellCount(std::size_t count) { m_usualCellCount = count; }

private:
    void NoteRow(TreeTableRow& row);
    void Announce();

    TreeTableObserver* m_observer = nullptr;
    unsigned m_updateDepth = 0;
    bool m_isRowChangeAnnounced = false;
    bool m_isPendingAnnounced = false;
    bool m_isQuiet = false;
    TreeTableChanges m_changes;
    /// More rows than are listed have changed.
    bool m_areAllValuesChanged = false;
    const TreeTableRow* m_root = nullptr;
    TreeTableRow* m_current = nullptr;
    std::vector<TreeTableRow*> m_selected;
    std::function<void()> m_selectionListener;
    const RowInput* m_input = nullptr;
    NameTable m_names;
    CellTraitsTable m_traits;
    PartTipsTable m_partTips;
    UsualCells m_usualCells;
    std::uint64_t m_epoch = 1;
    std::size_t m_lastCell = 0;
    std::size_t m_usualCellCount = 0;
};

} // namespace platform
