// Which rows the panel makes of the parts of a product: what a count adds up, what a deletion takes
// away and what one position numbers is what one row shows. These rules say again, of the model,
// what the panel's sorter does with the answers of the product; a test compares both.
#pragma once

#include "platform/product/index/ProductIndex.h"

#include <map>
#include <span>
#include <vector>

namespace platform {

class RowRules {
public:
    /// Both must outlive it and belong together.
    RowRules(const ProductModel& model, const ProductIndex& index)
        : m_model(model), m_index(index) {}

    /// Parts have come or gone, or say other things of themselves.
    void Forget() { m_areClassesMade = false; }

    /// A row stands for the use. Manual billets have one for all their uses.
    bool HasRow(const PartEntry& use) const;
    /// The objects whose uses share a row with those of this one wherever they have rows, itself
    /// among them.
    std::span<const PartEntry* const> GetRowMates(const PartEntry& object) const;
    /// Rows that stand for the object and its uses; the row of a group is none of theirs.
    std::size_t CountRows(const PartEntry& object) const;
    /// Of all rows of the object, and of those it shares them with, the position is one. It is
    /// given in the row of this part; any other row of an object that shares none shows it again. A
    /// billet that stands at several places is numbered at none.
    bool IsNumberedAt(const PartEntry& part) const;
    /// A row of the object or of one that shares it stands in the current specification.
    bool IsInCurrentSpecification(const PartEntry& object) const;
    /// The object's rows stand in a section whose rows have positions.
    bool IsNumbered(const PartEntry& object) const;
    /// Objects of the section have positions.
    bool IsSectionNumbered(const SPCSection& section) const;

private:
    bool IsSeparate(const PartEntry& object) const;
    bool IsDropped(const PartEntry& object) const;
    bool HasPlainRow(const PartEntry& object) const;
    /// Without any use, and part of nothing.
    bool StandsByItself(const PartEntry& object) const;
    /// How often the rows of the object's billets are shown.
    std::size_t CountBilletPlaces(const PartEntry& owner) const;
    std::size_t CountBilletRows(const PartEntry& billet) const;
    bool IsInAnySpecification(const PartEntry& part) const;
    bool IsRowOfBillets(const PartEntry& billet) const;
    bool IsCollected(const PartEntry& object) const;
    /// Behind whose rows those of a billet stand; else the object itself.
    const PartEntry& GetRowOwner(const PartEntry& object) const;
    /// The place in the order of sections under which the object stands; objects without a section
    /// of the style stand together.
    int FindSectionRow(const PartEntry& object) const;
    int Compare(const PartEntry& a, const PartEntry& b) const;
    void MakeSections() const;
    void MakeClasses() const;

    const ProductModel& m_model;
    const ProductIndex& m_index;
    /// The places of the sections that have rows; empty where all objects stand in one list.
    mutable std::map<decltype(SPCSection::numbers), int> m_sections;
    mutable bool m_areSectionRows = false;
    /// All objects, those that share rows next to each other, and by an object's place among all
    /// of them the places of the first and behind the last of its row.
    mutable std::vector<const PartEntry*> m_byRow;
    mutable std::vector<std::pair<std::uint32_t, std::uint32_t>> m_classes;
    mutable bool m_areClassesMade = false;
};

} // namespace platform
