// The sorter of the panel: sections of the document's style, groups of like objects, single
// objects, and billets behind the object they belong to. The control makes one and calls Sort at
// each full build; all state is made anew there.
#pragma once

#include "host/data/Grouping.h"
#include "sorting/IProductTreeSorter.h"
#include "sorting/IndexedRows.h"
#include "sorting/KeyMap.h"
#include "sorting/PartRuns.h"
#include "sorting/SortSections.h"

#include <memory>
#include <set>
#include <span>
#include <vector>

class IfMetaProductData;
class IfProductDataAggregator;
class IfProductTreeData;

namespace productTree {

class StyleBasedProductTreeSorter final : public IProductTreeSorter, private IfInfObjOrder {
public:
    explicit StyleBasedProductTreeSorter(std::shared_ptr<IfProductTreeData> data);

    std::vector<ProductTreeRowInfo> Sort() override;

private:
    using Keys = std::vector<UniqueMetaObjectKey>;
    using Rows = std::vector<ProductTreeRowInfo>;

    /// An occurrence of an object that stands in one of the top keys, with its place in the order.
    struct Use {
        UniqueMetaObjectKey key;
        InfObjIndex index;
        bool isShown = false;
    };
    using Uses = std::span<const Use>;

    /// A part with the number of its object.
    struct NumberedPart {
        const ConstProductPart* part;
        std::uint32_t number;
    };

    void CollectObjects();
    void IndexParts();
    void IndexObjects();
    void DropAndSplit();
    void MakeComparator();
    void Distribute();
    Rows MakeRows();

    void AddSectionRow(SortSection& section, Rows& rows);
    Rows RowsOfParts(SortSection& section);
    void RowsOfRun(const PartRun& run, const std::vector<std::uint32_t>& numbers, Rows& rows);
    void AddRowsOfUses(Uses uses, IndexedRows& rows) const;
    /// Puts a group of two or more in `groups`, with its billets behind it, anything else in
    /// `loose`.
    void GroupRow(const std::vector<NumberedPart>& parts, Rows& groups, IndexedRows& loose);
    void BilletRows(const std::set<UniqueMetaObjectKey>& keys, Rows& rows);
    void BilletGroupRow(std::span<const ConstProductPart> run, Rows& rows) const;

    /// Appends the uses of the object to `uses`, and gives the first index of all its occurrences.
    InfObjIndex AppendUses(const UniqueMetaObjectKey& object, std::vector<Use>& uses) const;
    Uses GetUses(std::uint32_t number) const;
    bool IsShownInTree(const UniqueMetaObjectKey& occurrence) const;
    bool IsSeparate(const UniqueMetaObjectKey& key) const;
    bool IsInAnySpecification(const UniqueMetaObjectKey& key) const;
    bool IsBillet(const UniqueMetaObjectKey& key) const;
    InfObjIndex GetIndex(const UniqueMetaObjectKey& key) const override;
    int CompareBillets(const ConstProductPart& a, const ConstProductPart& b) const;

    std::shared_ptr<IfProductTreeData> m_data;
    std::unique_ptr<meta_data::grouping::IfGroupingComparator> m_comparator;
    /// In collection order, which numbers them.
    Keys m_objects;
    /// Sorted, for quick look-ups.
    Keys m_billets;
    Keys m_topKeys;
    /// Not changed any more once the objects are collected: the sorts of rows read it too.
    KeyMap<InfObjIndex> m_index;
    Keys m_orderedParts;
    std::vector<SortSection> m_sections;
    SortSection m_noSection;
    /// The uses of all objects, each asked of the host once, and by number of an object where its
    /// uses begin; one more at the end.
    std::vector<Use> m_uses;
    std::vector<std::uint32_t> m_firstUses;
    /// Numbers of the objects that are to be placed.
    std::vector<std::uint32_t> m_placed;
    /// By number of an object that is to be placed.
    std::vector<bool> m_areSeparate;
    /// Room for the run at hand.
    std::vector<NumberedPart> m_joined;
    IndexedRows m_loose;
    IndexedRows m_children;
};

} // namespace productTree
