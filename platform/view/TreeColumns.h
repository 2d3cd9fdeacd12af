// The columns of the tree-table in memory: the list of what the user could show, and the heads of
// what is shown. Only the view calls it; it announces nothing.
#pragma once

#include "host/SharedText.h"
#include "host/view/IMenuItems.h"
#include "platform/view/TreeCell.h"

#include <cstddef>
#include <map>
#include <string>
#include <unordered_map>
#include <vector>

namespace productTree {
class ColumnInfo;
}

namespace platform {

/// What a head offers for editing many rows at once. Name and designation stand first and stay.
enum class HeadKind { Name, Designation, Text, Int, Double, List, Bool, Link, Count };

struct ColumnHead {
    std::wstring id;
    std::wstring caption;
    /// In the units of ColumnInfo::DEFAULT_COLUMN_WIDTH.
    double width = 0;
    HeadKind kind = HeadKind::Text;
    /// In stored units; both 0 where there are none.
    double min = 0;
    double max = 0;
    /// What can be chosen, as it is shown; only for lists.
    std::vector<SharedText> list = {};
    /// Only for texts; null for none.
    boost::intrusive_ptr<IMenuItems> popup = {};
    /// Only for counts: what the column counts, at more length than its caption; empty for nothing
    /// more than that. Then its tag, empty for the count in the current embodiments.
    std::wstring text = {};
    std::wstring tag = {};
    /// The column counts the embodiment that is worked on.
    bool isActive = false;

    /// Numbers stand at the right of their column.
    bool IsNumeric() const { return kind == HeadKind::Int || kind == HeadKind::Double; }
    bool HasLimits() const { return min != 0 || max != 0; }
    /// Whether the user is offered an editor. Embodiments are counted row by row, and links lead
    /// to a dialog.
    bool IsEditable() const { return kind != HeadKind::Link && tag.empty(); }
    /// Whether a user can leave that in the head's editor. Numbers and truth values may be emptied.
    /// The parts of a designation are no such input.
    bool Accepts(const CellInput& input) const;
    friend bool operator==(const ColumnHead& a, const ColumnHead& b);
};

/// An entry of the list of properties that the user could show.
struct ColumnEntry {
    std::wstring id;
    std::wstring caption;
    bool isVisible = false;
};

class ColumnList {
public:
    const std::vector<ColumnEntry>& GetEntries() const { return m_entries; }
    void Add(ColumnEntry entry);
    /// Indices outside the list are ignored here and below.
    void Remove(int index);
    /// Puts the entry behind all others.
    void MoveToEnd(int index);
    void SetId(int index, const std::wstring& id);
    void SetCaption(int index, const std::wstring& caption);
    /// Null outside the list.
    const ColumnEntry* Get(int index) const;
    /// The first entry of that id; -1 when there is none.
    int Find(const std::wstring& id) const;

private:
    bool Has(int index) const;
    ColumnEntry& At(int index) { return m_entries[static_cast<std::size_t>(index)]; }

    std::vector<ColumnEntry> m_entries;
    /// First index of each id; made at the first search after a change.
    mutable std::unordered_map<std::wstring, int> m_index;
    mutable bool m_isIndexed = false;
};

/// Heads in shown order: name, designation, then the others as they were made.
class ColumnHeads {
public:
    const std::vector<ColumnHead>& GetHeads() const { return m_heads; }
    /// A second head of the name or of the designation takes the place of the first.
    void Init(const productTree::ColumnInfo& column, HeadKind kind,
              const boost::intrusive_ptr<IMenuItems>& popup = nullptr);
    void InitCount(const productTree::ColumnInfo& column, const std::wstring& text,
                   const std::wstring& tag, bool isActive);
    /// Drops all heads but the two fixed ones.
    void Reset();
    /// Null when no head has that id.
    const ColumnHead* Find(const std::wstring& id) const;
    /// Puts the head at that place among all heads. False when there is no such head or place, and
    /// for the two fixed heads and their places.
    bool Move(const std::wstring& id, std::size_t place);
    /// False when no head has that id, or the width is no width.
    bool SetWidth(const std::wstring& id, double width);
    /// 0 without such a head.
    double GetWidth(HeadKind fixed) const;
    /// By id, without the two fixed heads.
    std::map<std::wstring, double> GetWidths() const;

private:
    std::vector<ColumnHead> m_heads;
};

} // namespace platform
