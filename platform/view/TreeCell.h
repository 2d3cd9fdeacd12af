// A cell of a row in memory, as a front end reads it. The row alone writes into it. A hundred
// thousand rows have some fourteen each, so that a cell is 32 bytes, keeps no text for a number and
// one for a text that is shown as it is.
#pragma once

#include "host/view/LinkStyles.h"
#include "platform/view/CellTraits.h"

#include <cstdint>
#include <utility>
#include <variant>
#include <vector>

namespace platform {

class TreeTableRow;

/// A place in the list of a list cell.
struct ListIndex {
    int index = -1;

    friend bool operator==(const ListIndex&, const ListIndex&) = default;
};

/// What a user leaves in an editor. Without value: he has emptied it.
using CellInput = std::variant<std::monostate, SharedText, int, double, bool, ListIndex>;

enum class CellKind : std::uint8_t {
    /// Neither editor nor value yet.
    None,
    Text,
    Int,
    Double,
    Bool,
    List,
    /// A text that is clicked and not typed.
    Link
};

class TreeCell final {
public:
    TreeCell() noexcept = default;

    CellKind GetKind() const { return m_kind; }
    /// The row or the panel may still be read-only.
    bool IsEditable() const { return HasFlag(c_editable); }
    /// Of numbers and truth values: without it the cell is empty. A list cell has a value when one
    /// of its list is chosen, text and link always.
    bool HasValue() const { return HasFlag(c_hasValue); }
    /// Whether the user may leave a number's or a truth value's editor empty.
    bool CanBeEmpty() const { return HasFlag(c_canBeEmpty); }
    /// A count that can be worked out again.
    bool IsRecalculable() const { return HasFlag(c_recalculable); }
    /// Of a link: the value does not agree with its source any more.
    bool IsOutdated() const { return HasFlag(c_outdated); }
    /// Of a text: it is a moment.
    bool IsMoment() const { return HasFlag(c_moment); }
    /// Of a link: a click opens an editor of the host rather than following it.
    bool OpensEditor() const { return HasFlag(c_opensEditor); }

    /// What an editor starts from, and what is read; both empty for all but text and link.
    const SharedText& GetText() const;
    const SharedText& GetShown() const;
    /// 0 without a value and for another kind, as in the next two.
    int GetInt() const { return m_kind == CellKind::Int ? static_cast<int>(GetNumber()) : 0; }
    double GetDouble() const { return m_kind == CellKind::Double ? GetNumber() : 0; }
    bool GetBool() const { return m_kind == CellKind::Bool && GetNumber() != 0; }
    /// -1 for none.
    int GetListIndex() const;
    /// What can be chosen, as it is shown.
    const std::vector<SharedText>& GetList() const;
    /// A LinkStyle.
    int GetLinkStyle() const { return HasFlag(c_liveLink) ? LinkStyleLive : LinkStyleDead; }

    bool HasLimits() const { return GetMin() != 0 || GetMax() != 0; }
    double GetMin() const { return GetTraits().min; }
    double GetMax() const { return GetTraits().max; }
    double GetStep() const { return GetTraits().step; }
    const SharedText& GetTip() const { return GetTraits().tip; }
    /// Null for none.
    IMenuItems* GetPopup() const { return GetTraits().popup.get(); }

    /// What the cell shows, whatever its kind, independent of the process's locale: numbers in
    /// their shortest form with a point, truth values as "yes" and "no", empty without value.
    SharedText GetShownText() const;
    /// Whether a user can leave that in the cell: it is editable and of the input's kind.
    bool Accepts(const CellInput& input) const;

private:
    friend class TreeTableRow;
    friend class CellWriter;

    enum : std::uint8_t {
        c_editable = 1,
        c_hasValue = 2,
        c_canBeEmpty = 4,
        c_recalculable = 8,
        c_outdated = 16,
        c_opensEditor = 32,
        c_liveLink = 64,
        c_moment = 128
    };

    /// A text that is not shown as it is.
    struct TwoTexts final : CountedPlainly<TwoTexts> {
        TwoTexts(SharedText first, SharedText second)
            : text(std::move(first)), shown(std::move(second)) {}

        SharedText text;
        SharedText shown;
    };
    using Content = std::variant<double, SharedText, boost::intrusive_ptr<const TwoTexts>>;

    bool HasFlag(std::uint8_t flag) const { return (m_flags & flag) != 0; }
    const CellTraits& GetTraits() const { return m_traits ? *m_traits : CellTraits::c_none; }

    /// The number, the truth value or the place in the list; 0 for a text.
    double GetNumber() const {
        const double* const number = std::get_if<double>(&m_content);
        return number ? *number : 0;
    }

    Content m_content;
    CellTraitsPtr m_traits;
    NameId m_column : 24 = 0;
    CellKind m_kind : 8 = CellKind::None;
    NameId m_icon : 24 = 0;
    std::uint8_t m_flags : 8 = 0;
};

static_assert(sizeof(void*) != 8 || sizeof(TreeCell) == 32);

} // namespace platform
