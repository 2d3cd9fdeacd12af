// Which embodiments of the document have a count column in embodiment mode. The user chooses them
// by a list of blocks of ten and by a text of numbers and ranges such as "3,5-9,21"; numbers are
// places in the list of embodiments, from 0. The choice outlives a change of the list as far as it
// can, and is stored with the document as text.
#pragma once

#include "host/UniqueMetaObjectKey.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

class IfProductTreeData;

namespace productTree {

struct EmbodimentGroup {
    /// Two groups with the same keys are the same embodiment.
    std::set<UniqueMetaObjectKey> rawKeys;
    /// Short, for the head of the count column.
    std::wstring name;
};

/// The numbers of a range list in the order in which they are written, those above `limit` left
/// out. A range may be written from either end. What is no number or range between its commas is
/// passed over, and so is a number of more than 64 bits. However wide a range is, only what counts
/// is looked at.
std::vector<std::size_t> ParseRanges(std::wstring_view text, std::size_t limit);
/// The numbers as a range list, the shortest that there is: "1-3,7".
std::wstring FormatRanges(const std::set<std::size_t>& numbers);

class EmbodimentFilter {
public:
    /// One line of the check list.
    struct Block {
        std::wstring text;
        /// No value: some of its embodiments are chosen and some are not.
        std::optional<bool> state;
    };

    /// In the document's order, without those that have no keys.
    static std::vector<EmbodimentGroup> ReadEmbodiments(const IfProductTreeData& data);

    /// Takes a new list of embodiments. A pick of which no embodiment is left is dropped.
    void Update(std::vector<EmbodimentGroup> groups);
    /// The same, and the choice that was stored with the document; an empty text is none.
    void ApplyStoredText(std::vector<EmbodimentGroup> groups, const std::wstring& text);
    /// What is to be stored for the present choice.
    std::wstring GetStoredText() const;

    /// Chooses those of a range list; a list of nothing usable chooses the last block.
    void SetFromText(std::wstring_view text);
    /// Ticks or unticks the block of that text.
    void Toggle(std::wstring_view text, bool checked);
    /// The line for all embodiments was clicked.
    void ToggleAll();

    bool AreAllShown() const;
    std::vector<EmbodimentGroup> GetShown() const;
    /// The range list of those shown; empty without embodiments.
    std::wstring FormatText() const;
    std::vector<Block> GetBlocks() const;

private:
    enum Mode : std::int32_t { Picked = 0, LastBlock = 1, All = 2 };

    std::size_t GetLastBlockStart() const;
    /// Of those shown where they are not picked.
    std::size_t GetFirstShown() const;
    /// The numbers of those shown.
    std::set<std::size_t> GetShownNumbers() const;
    /// Of the block from `start` to before `end`.
    std::optional<bool> GetBlockState(std::size_t start, std::size_t end) const;
    std::vector<std::size_t> Parse(std::wstring_view text) const;
    /// An empty pick falls back to the last block.
    void Normalize();

    Mode m_mode = LastBlock;
    std::vector<EmbodimentGroup> m_groups;
    /// Of mode Picked alone; not empty there.
    std::set<std::size_t> m_picked;
};

} // namespace productTree
