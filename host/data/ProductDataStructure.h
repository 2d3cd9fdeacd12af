// What the rows and the columns of the panel are made from.
#pragma once

#include "host/IfPropertyDescription.h"
#include "host/UniqueMetaObjectKey.h"
#include "host/data/IfProductDataAggregator.h"
#include "host/data/SpecificationStyles.h"

#include <string>
#include <vector>

/// What the rows are made from.
class IProductDataStructure {
public:
    virtual ~IProductDataStructure() = default;

    virtual IfProductDataAggregator& GetAggregator() const = 0;
    /// The object that the root row stands for.
    virtual UniqueMetaObjectKey GetRootKey() const = 0;
    /// The parts whose direct parts are laid out, in their order.
    virtual std::vector<UniqueMetaObjectKey> GetTopKeys() const = 0;
    /// The occurrence belongs to one of the top keys.
    virtual bool IsInTopKeys(const UniqueMetaObjectKey& occurrence,
                             const std::vector<UniqueMetaObjectKey>& topKeys) const = 0;
    /// The last word on whether an occurrence has a row.
    virtual bool IsShownInTree(const UniqueMetaObjectKey& occurrence) const = 0;
    /// The count of the object is a mark, present or not, and no number. Shown and set in
    /// embodiment mode alone.
    virtual bool IsCountMark(const UniqueMetaObjectKey& key) const = 0;
    virtual bool AreSectionRowsShown() const = 0;
    virtual meta_data::SP::StyleId GetCurrentStyleId() const = 0;
    /// Null when the document has no specification description.
    virtual SpcDescription* GetSpcDescription() const = 0;
    /// Sections have icons by their number; else all have one.
    virtual bool UsesSectionIcons() const = 0;
};

/// What the columns are made from.
class IProductDataColumns {
public:
    virtual ~IProductDataColumns() = default;

    /// Names the set of columns to show; order, widths and visibility are kept per key. Not empty.
    virtual std::string GetColumnSetKey() const = 0;
    /// Numbers of the properties that the user has chosen, in shown order.
    virtual std::vector<unsigned long> GetVisiblePropertyIds() const = 0;
    /// All properties that can be columns, among them 4 (marking) and 5 (name). Entries may be
    /// null. The descriptions live until the next BeginRebuild.
    virtual std::vector<const IfPropertyDescription*> GetPropertyDescriptions() const = 0;
    /// One of them by its column id; null when there is none.
    virtual const IfPropertyDescription*
    GetPropertyDescription(const std::wstring& columnId) const = 0;
    /// What the user has done to the columns, by their ids, to be remembered for the current set.
    /// Name and designation are not among them; an id that is no property of the document is
    /// ignored.
    virtual void SetColumnOrder(const std::vector<std::wstring>& columnIds) = 0;
    /// A column that becomes visible stands last.
    virtual void SetColumnVisible(const std::wstring& columnId, bool visible) = 0;
};
