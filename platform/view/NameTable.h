// Small numbers for texts of which a view sees few, but each of them very often: column ids, icon
// names, tips. Rows and cells keep the number.
#pragma once

#include "host/SharedText.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace platform {

/// A text of the table; 0 is the empty text. It fits 24 bits.
using NameId = std::uint32_t;

class NameTable final {
public:
    static constexpr NameId c_maxId = 0xFFFFFF;
    /// Of a text that the table does not have.
    static constexpr NameId c_unknown = c_maxId + 1;

    NameTable() : m_names(1) {}

    /// Texts are kept for good. When c_maxId of them are there, a new one counts as empty.
    NameId IdOf(const SharedText& name);
    NameId IdOf(const std::wstring& name);
    NameId Find(const std::wstring& name) const;
    const SharedText& NameOf(NameId id) const { return m_names[id]; }

private:
    struct Recent {
        SharedText name;
        NameId id = 0;
    };

    NameId Add(const SharedText& name);

    /// By the place in memory of the text, two to a place. Holding the text keeps its place its
    /// own.
    std::array<Recent, 128> m_recent;
    std::vector<SharedText> m_names;
    /// The keys are the texts of m_names.
    std::unordered_map<std::wstring_view, NameId> m_ids;
};

} // namespace platform
