// The product data of a document, cut by theme into small roles. A host implements it role by role;
// the library sees only the whole. Questions never change anything and never call back. An
// operation stands here from the day on which the library calls it.
#pragma once

#include "host/IfPropertyDescription.h"
#include "host/PropValue.h"
#include "host/PropertyRef.h"
#include "host/UniqueMetaObjectKey.h"
#include "host/data/EmbodimentsModel.h"
#include "host/data/IfProductDataAggregator.h"
#include "host/data/SpecificationStyles.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

/// When the panel has to catch up.
class IProductDataRefresh {
public:
    virtual ~IProductDataRefresh() = default;

    /// Changes when the document does, and only then.
    virtual std::uint64_t GetChangeStamp() const = 0;
    /// Nothing in the document can be changed now.
    virtual bool IsReadOnly() const = 0;
    /// Called at the begin of each full build, before anything is read for it.
    virtual void BeginRebuild() = 0;
    /// Called before the objects are sorted into rows.
    virtual void PrepareData() = 0;
    /// Bracket each walk that reads the values of all rows.
    virtual void BeginRead() = 0;
    virtual void EndRead() = 0;
};

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
    /// The count of the object is a mark, present or not, and no number.
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
};

/// The values of the cells.
class IProductDataValues {
public:
    virtual ~IProductDataValues() = default;

    /// In stored units. Empty when the object has no such value.
    virtual PropValue GetValue(const PropertyRef& ref) const = 0;
    /// The value can't be changed now.
    virtual bool IsReadOnly(const PropertyRef& ref) const = 0;
    /// Whether the value comes from the object's source; no value when it has none.
    virtual std::optional<bool> GetBySource(const PropertyRef& ref) const = 0;
    /// Numbers of the designation's parts that are fixed for the object.
    virtual std::set<int> GetLockedMarkingParts(const UniqueMetaObjectKey& key) const = 0;
};

/// Links between properties.
class IProductDataHypertext {
public:
    virtual ~IProductDataHypertext() = default;

    /// The value is a link, to be shown as one.
    virtual bool IsHypertext(const PropertyRef& ref) const = 0;
    /// All these objects have the same link in that property. No keys: false.
    virtual bool AreHypertext(const std::vector<UniqueMetaObjectKey>& keys,
                              const std::wstring& columnId) const = 0;
    /// What the link leads to is there.
    virtual bool IsHypertextActive(const PropertyRef& ref) const = 0;
};

/// What a row shows beside its values.
class IProductDataRows {
public:
    virtual ~IProductDataRows() = default;

    /// 0 to 26, a kind of object; any other number shows as 26.
    virtual int GetIconType(const UniqueMetaObjectKey& key) const = 0;
    /// The object agrees with its source.
    virtual bool IsActual(const UniqueMetaObjectKey& key) const = 0;
    /// The object counts nowhere.
    virtual bool IsExcludedFromCount(const UniqueMetaObjectKey& key) const = 0;
};

/// The two attributes beside a row's name: aggregate into product, register with description.
class IProductDataAttributes {
public:
    virtual ~IProductDataAttributes() = default;

    virtual bool IsAggrIntoProductShown() const = 0;
    /// No value: the question does not apply to the object.
    virtual std::optional<bool> GetAggrIntoProduct(const UniqueMetaObjectKey& key) const = 0;
    virtual bool IsRegWithDescShown() const = 0;
};

class IProductDataEmbodiments {
public:
    virtual ~IProductDataEmbodiments() = default;

    virtual bool HasEmbodiments() const = 0;
    /// One count column an embodiment stands in place of the count column.
    virtual bool IsEmbodimentMode() const = 0;
    virtual void SetEmbodimentMode(bool on) = 0;
    virtual const EmbodimentsModel& GetEmbodiments() const = 0;
    /// The embodiment that is worked on.
    virtual bool HasActiveEmbodiment() const = 0;
    virtual UniqueMetaObjectKey GetActiveEmbodiment() const = 0;
};

class IfProductTreeData : public IProductDataRefresh,
                          public IProductDataStructure,
                          public IProductDataColumns,
                          public IProductDataValues,
                          public IProductDataHypertext,
                          public IProductDataRows,
                          public IProductDataAttributes,
                          public IProductDataEmbodiments {
public:
    using IProductDataRefresh::IsReadOnly;
    using IProductDataValues::IsReadOnly;
};
