// The sorter of the panel: sections of the document's style, groups of like objects, single
// objects, and billets behind the object they belong to. The control makes one and calls Sort at
// each full build; all state is made anew there.
#pragma once

#include "host/data/Grouping.h"
#include "sorting/IProductTreeSorter.h"
#include "sorting/IndexedRows.h"
#include "sorting/PartRuns.h"
#include "sorting/SortSections.h"

#include <memory>
#include <set>
#include <unordered_map>
#include <vector>

class IfMetaProductData;
class IfProductDataAggregator;
class IfProductTreeData;

namespace productTree {

class StyleBasedProductTreeSorter final : public IProductTreeSorter {
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
    };
    using Uses = std::vector<Use>;

    void CollectObjects();
    void IndexParts();
    void IndexObjects();
    void DropAndSplit();
    void MakeComparator();
    void Distribute();
    Rows MakeRows();

    void AddSectionRow(SortSection& section, Rows& rows);
    Rows RowsOfParts(std::vector<ConstProductPart>& parts);
    void RowsOfRun(PartRun run, Rows& rows);
    void AddRowsOfUses(const Uses& uses, IndexedRows& rows) const;
    /// Puts a group of two or more in `groups`, with its billets behind it, anything else in
    /// `loose`.
    void GroupRow(const std::vector<const ConstProductPart*>& parts, Rows& groups,
                  IndexedRows& loose);
    void BilletRows(const std::set<UniqueMetaObjectKey>& keys, Rows& rows);
    void BilletGroupRow(PartRun run, Rows& rows);

    const Uses& GetUses(const UniqueMetaObjectKey& object);
    /// Takes them into m_uses, and gives the first index of all occurrences.
    InfObjIndex CollectUses(const UniqueMetaObjectKey& object, Uses& uses) const;
    bool IsShownInTree(const UniqueMetaObjectKey& occurrence) const;
    bool IsSeparate(const UniqueMetaObjectKey& key) const;
    bool IsInAnySpecification(const UniqueMetaObjectKey& key) const;
    bool IsBillet(const UniqueMetaObjectKey& key) const;
    InfObjIndex GetIndex(const UniqueMetaObjectKey& key) const;
    int CompareBillets(const ConstProductPart& a, const ConstProductPart& b) const;

    std::shared_ptr<IfProductTreeData> m_data;
    std::unique_ptr<meta_data::grouping::IfGroupingComparator> m_comparator;
    Keys m_objects;
    /// Sorted, for quick look-ups.
    Keys m_billets;
    Keys m_topKeys;
    /// Not changed any more once the objects are collected: the sorts of rows read it too.
    InfObjIndexMap m_index;
    Keys m_orderedParts;
    std::vector<SortSection> m_sections;
    SortSection m_noSection;
    /// By object, each asked of the host once.
    std::unordered_map<UniqueMetaObjectKey, Uses> m_uses;
    /// Room for the rows of the run at hand.
    IndexedRows m_loose;
    IndexedRows m_children;
};

} // namespace productTree
