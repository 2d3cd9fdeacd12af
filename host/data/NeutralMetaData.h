// Structure for a host to begin with, as NeutralProductData is for its values: a body of meta data
// without billets, handlers and records, and an aggregator in which one body holds the parts and
// another the objects.
#pragma once

#include "host/data/IfProductDataAggregator.h"

/// To be answered: GetPartKind, GetDirectParts, GetParentParts, GetPartsOfKinds; and
/// GetGroupingRecord where like objects are to share a group row.
class NeutralMetaData : public IfMetaProductData {
public:
    SimplePropVal GetProperty(const UniqueMetaObjectKey&, const std::wstring&) const override {
        return {};
    }
    std::set<UniqueMetaObjectKey> GetBillets(const UniqueMetaObjectKey&) const override {
        return {};
    }
    UniqueMetaObjectKey GetBilletOwner(const UniqueMetaObjectKey&) const override { return {}; }
    bool IsAssociativeBillet(const UniqueMetaObjectKey&) const override { return false; }
    bool HasPartHandler(const UniqueMetaObjectKey&) const override { return false; }
    PartHandler GetPartHandler(const UniqueMetaObjectKey&) const override { return {}; }
    std::vector<UniqueMetaObjectKey>
    GetOrderedPartsOfKinds(const std::set<int>& kinds) const override {
        return GetPartsOfKinds(kinds);
    }
    const meta_data::grouping::GroupingRecord*
    GetGroupingRecord(const UniqueMetaObjectKey&) const override {
        return nullptr;
    }
};

/// To be answered: GetPrimaryMetaData, GetMetaData, GetOccurrences, GetOwnerObject; and GetSection
/// where objects stand in sections.
class NeutralAggregator : public IfProductDataAggregator {
public:
    IfMetaProductData& GetPartMetaData(const UniqueMetaObjectKey& key) const override {
        return GetMetaDataOf(key);
    }
    IfMetaProductData& GetMetaDataOf(const UniqueMetaObjectKey& key) const override {
        return IsInfObject(key) ? GetMetaData() : GetPrimaryMetaData();
    }
    bool IsInfObject(const UniqueMetaObjectKey& key) const override {
        return GetOwnerObject(key).IsEmpty();
    }
    GroupPartHandler GetGroupPartHandler(const UniqueMetaObjectKey&) const override { return {}; }
    std::set<UniqueMetaObjectKey> GetOwners(const UniqueMetaObjectKey&) const override {
        return {};
    }
    SPCSection GetSection(const UniqueMetaObjectKey&) const override { return {}; }
    bool IsUsedInStyle(const UniqueMetaObjectKey&, meta_data::SP::StyleId) const override {
        return true;
    }
    bool IsManualBillet(const UniqueMetaObjectKey&) const override { return false; }
};
