// What all rows of one view share: the observer and the changes gathered for it, which rows are
// selected and current, and a table that gives repeated texts small ids. Rows keep the hub alive,
// so that a row that outlives its view has somebody to talk to.
#pragma once

#include "host/RcBase.h"
#include "host/SharedText.h"
#include "platform/view/TreeTableObserver.h"

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

namespace platform {

class TreeTableRow;

/// A text of the hub's table; 0 is the empty text.
using NameId = std::uint32_t;

class TreeTableHub final : public RcBase<> {
public:
    TreeTableHub();

    /// Null takes the observer away.
    void SetObserver(TreeTableObserver* observer) { m_observer = observer; }
    /// Updates may be nested; changes are announced at the end of the outermost.
    void BeginUpdate() { ++m_updateDepth; }
    /// Without BeginUpdate it does nothing.
    void EndUpdate();
    bool IsInOutermostUpdate() const { return m_updateDepth == 1; }
    /// Called inside an update, before rows that stand in the tree come or go.
    void AnnounceRowChange();
    void Note(bool TreeTableChanges::*what);
    TreeTableChanges TakeChanges();
    /// While quiet, changes are not noted: the front end made them itself.
    void SetQuiet(bool quiet) { m_isQuiet = quiet; }

    void SetRoot(const TreeTableRow* root) { m_root = root; }
    bool IsInTree(const TreeTableRow& row) const;

    const std::vector<TreeTableRow*>& GetSelected() const { return m_selected; }
    void Select(TreeTableRow& row, bool select);
    void ClearSelection();
    bool IsCurrent(const TreeTableRow& row) const { return m_current == &row; }
    TreeTableRow* GetCurrent() const { return m_current; }
    void SetCurrent(TreeTableRow* row);
    /// Takes rows that stand in the tree no more out of the selection.
    void DropDetachedMarks();
    /// The row is about to be destroyed.
    void Forget(TreeTableRow& row);

    /// Meant for texts of which there are few, such as column ids; they are kept for good.
    NameId IdOf(const SharedText& name);
    NameId IdOf(const std::wstring& name);
    const SharedText& NameOf(NameId id) const { return m_names[id]; }

private:
    void Announce();

    TreeTableObserver* m_observer = nullptr;
    unsigned m_updateDepth = 0;
    bool m_isRowChangeAnnounced = false;
    bool m_isPendingAnnounced = false;
    bool m_isQuiet = false;
    TreeTableChanges m_changes;
    const TreeTableRow* m_root = nullptr;
    TreeTableRow* m_current = nullptr;
    std::vector<TreeTableRow*> m_selected;
    std::vector<SharedText> m_names;
    std::unordered_map<std::wstring, NameId> m_ids;
};

} // namespace platform
