// The structure of the document's product: objects, their occurrences, billets and parts.
#pragma once

#include "host/SPCSection.h"
#include "host/SimplePropVal.h"
#include "host/UniqueMetaObjectKey.h"
#include "host/data/PartHandler.h"
#include "host/data/PartKinds.h"
#include "host/data/SpecificationStyles.h"

#include <set>
#include <string>
#include <vector>

class IfDocumentType;

namespace meta_data::grouping {
struct GroupingRecord;
}

/// One body of meta data. An aggregator has at least two: the document's parts (occurrences, in the
/// document's order) and its objects. Keys that a body does not know have neutral answers.
class IfMetaProductData {
public:
    virtual ~IfMetaProductData() = default;

    /// A PartKind; unknown for a key of another body.
    virtual int GetPartKind(const UniqueMetaObjectKey& key) const = 0;
    virtual SimplePropVal GetProperty(const UniqueMetaObjectKey& key,
                                      const std::wstring& property) const = 0;
    virtual std::vector<UniqueMetaObjectKey>
    GetDirectParts(const UniqueMetaObjectKey& key) const = 0;
    /// The billets of an object.
    virtual std::set<UniqueMetaObjectKey> GetBillets(const UniqueMetaObjectKey& key) const = 0;
    /// The object that a billet belongs to; the null key for anything else.
    virtual UniqueMetaObjectKey GetBilletOwner(const UniqueMetaObjectKey& key) const = 0;
    /// What meta_data::SP::IsAssociativeBillet answers for this body's keys.
    virtual bool IsAssociativeBillet(const UniqueMetaObjectKey& key) const = 0;
    virtual bool HasPartHandler(const UniqueMetaObjectKey& key) const = 0;
    virtual PartHandler GetPartHandler(const UniqueMetaObjectKey& key) const = 0;
    /// Empty for a part on the top level.
    virtual std::set<UniqueMetaObjectKey> GetParentParts(const UniqueMetaObjectKey& key) const = 0;
    /// In the order of their keys, each once.
    virtual std::vector<UniqueMetaObjectKey> GetPartsOfKinds(const std::set<int>& kinds) const = 0;
    /// The same parts in the host's order.
    virtual std::vector<UniqueMetaObjectKey>
    GetOrderedPartsOfKinds(const std::set<int>& kinds) const = 0;
    /// What the order of objects compares of the part, made by MakeGroupingRecord with the default
    /// options. Good until anything in the document changes. Null: the part is like no other, and
    /// stands by the document's order alone.
    virtual const meta_data::grouping::GroupingRecord*
    GetGroupingRecord(const UniqueMetaObjectKey& key) const = 0;
};

class IfProductDataAggregator {
public:
    virtual ~IfProductDataAggregator() = default;

    /// The body that gives the order of parts.
    virtual IfMetaProductData& GetPrimaryMetaData() const = 0;
    /// The body that gives the objects.
    virtual IfMetaProductData& GetMetaData() const = 0;
    /// The body that a part belongs to, and the body that any key belongs to.
    virtual IfMetaProductData& GetPartMetaData(const UniqueMetaObjectKey& key) const = 0;
    virtual IfMetaProductData& GetMetaDataOf(const UniqueMetaObjectKey& key) const = 0;
    /// The occurrences of an object in `within`, in all bodies when that is null.
    virtual std::vector<UniqueMetaObjectKey>
    GetOccurrences(const UniqueMetaObjectKey& object, const IfMetaProductData* within) const = 0;
    /// The null key for what is no occurrence.
    virtual UniqueMetaObjectKey GetOwnerObject(const UniqueMetaObjectKey& occurrence) const = 0;
    /// The key names an object and not an occurrence.
    virtual bool IsInfObject(const UniqueMetaObjectKey& key) const = 0;
    virtual GroupPartHandler GetGroupPartHandler(const UniqueMetaObjectKey& key) const = 0;
    /// Empty when nothing owns the part.
    virtual std::set<UniqueMetaObjectKey> GetOwners(const UniqueMetaObjectKey& key) const = 0;
    /// What the functions below answer for this aggregator's keys.
    virtual SPCSection GetSection(const UniqueMetaObjectKey& key) const = 0;
    virtual bool IsUsedInStyle(const UniqueMetaObjectKey& key,
                               meta_data::SP::StyleId style) const = 0;
    virtual bool IsManualBillet(const UniqueMetaObjectKey& key) const = 0;
};

/// The section that the object stands in, for documents of one type, or of any when that is null.
SPCSection FindSpcSection(const IfProductDataAggregator& aggregator, const UniqueMetaObjectKey& key,
                          const IfDocumentType* documentType);

namespace meta_data::SP {

/// The object stands in the specification of that style.
bool IsSPUsed(const IfProductDataAggregator& aggregator, const UniqueMetaObjectKey& key,
              StyleId style);
/// A billet that somebody has entered by hand, and one that follows another object's data.
bool IsManualBillet(const IfProductDataAggregator& aggregator, const UniqueMetaObjectKey& key);
bool IsAssociativeBillet(const IfMetaProductData& metaData, const UniqueMetaObjectKey& key);

} // namespace meta_data::SP
