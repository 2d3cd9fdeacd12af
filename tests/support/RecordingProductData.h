// A product in memory that notes what it is asked, can throw at the n-th call and can refuse to do
// what it is told, as a host may at any time.
#pragma once

#include "platform/product/MemoryProduct.h"

#include <cstddef>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace support {

struct HostError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

class RecordingProductData final : public platform::MemoryProduct {
public:
    using Base = platform::MemoryProduct;
    using Key = UniqueMetaObjectKey;
    using Changes = ProductInfObjChangesResult;
    using Base::Base;

    /// Throws HostError at the call of that number from now on; 0: never.
    void ThrowAt(std::size_t call) {
        m_throwAt = call;
        m_count = 0;
    }
    std::size_t GetCallCount() const { return m_count; }
    /// Names of the calls since the last time, in order.
    std::vector<std::string> TakeCalls() { return std::exchange(m_calls, {}); }

    /// The next operation that would change the document does nothing, and says so.
    void RefuseNext() { m_refusesNext = true; }

    // clang-format off
    std::uint64_t GetChangeStamp() const override { return Note("GetChangeStamp"), Base::GetChangeStamp(); }
    bool IsReadOnly() const override { return Note("IsReadOnly"), Base::IsReadOnly(); }
    bool IsReadOnly(const PropertyRef& ref) const override { return Note("IsReadOnly"), Base::IsReadOnly(ref); }
    bool IsRebuildRequired() const override { return Note("IsRebuildRequired"), Base::IsRebuildRequired(); }
    void BeginRebuild() override { Note("BeginRebuild"), Base::BeginRebuild(); }
    void PrepareData() override { Note("PrepareData"), Base::PrepareData(); }
    void ExpectReads(const std::vector<Key>& keys) override { Note("ExpectReads"), Base::ExpectReads(keys); }
    void BeginRead() override { Note("BeginRead"), Base::BeginRead(); }
    void EndRead() override { Note("EndRead"), Base::EndRead(); }
    IfProductDataAggregator& GetAggregator() const override { return Note("GetAggregator"), Base::GetAggregator(); }
    Key GetRootKey() const override { return Note("GetRootKey"), Base::GetRootKey(); }
    std::vector<Key> GetTopKeys() const override { return Note("GetTopKeys"), Base::GetTopKeys(); }
    bool IsShownInTree(const Key& key) const override { return Note("IsShownInTree"), Base::IsShownInTree(key); }
    bool AreSectionRowsShown() const override { return Note("AreSectionRowsShown"), Base::AreSectionRowsShown(); }
    SpcDescription* GetSpcDescription() const override { return Note("GetSpcDescription"), Base::GetSpcDescription(); }
    bool UsesSectionIcons() const override { return Note("UsesSectionIcons"), Base::UsesSectionIcons(); }
    std::string GetColumnSetKey() const override { return Note("GetColumnSetKey"), Base::GetColumnSetKey(); }
    std::vector<unsigned long> GetVisiblePropertyIds() const override { return Note("GetVisiblePropertyIds"), Base::GetVisiblePropertyIds(); }
    std::vector<const IfPropertyDescription*> GetPropertyDescriptions() const override { return Note("GetPropertyDescriptions"), Base::GetPropertyDescriptions(); }
    void SetColumnOrder(const std::vector<std::wstring>& ids) override { Note("SetColumnOrder"), Base::SetColumnOrder(ids); }
    void SetColumnVisible(const std::wstring& id, bool visible) override { Note("SetColumnVisible"), Base::SetColumnVisible(id, visible); }
    PropertyReading ReadProperty(const Key& key, const SharedText& id) const override { return Note("ReadProperty"), Base::ReadProperty(key, id); }
    PropValue GetValue(const PropertyRef& ref) const override { return Note("GetValue"), Base::GetValue(ref); }
    Changes MakeValueChanges(const PropertyRef& ref, const PropValue& value) override { return Note("MakeValueChanges"), Base::MakeValueChanges(ref, value); }
    std::optional<bool> GetBySource(const PropertyRef& ref) const override { return Note("GetBySource"), Base::GetBySource(ref); }
    Changes MakeBySourceChanges(const PropertyRef& ref, bool bySource) override { return Note("MakeBySourceChanges"), Base::MakeBySourceChanges(ref, bySource); }
    void CommitChanges(Changes& changes) override {
        Note("CommitChanges");
        if (Refuses())
            return changes.Clear();
        Base::CommitChanges(changes);
    }
    bool CanTransmitToSource(const Key& key, const std::wstring& id) const override { return Note("CanTransmitToSource"), Base::CanTransmitToSource(key, id); }
    void TransmitToSource(const std::wstring& id, const std::vector<std::pair<Key, PropValue>>& values) override {
        Note("TransmitToSource");
        if (!Refuses())
            Base::TransmitToSource(id, values);
    }
    bool IsSimplifiedMode() const override { return Note("IsSimplifiedMode"), Base::IsSimplifiedMode(); }
    std::set<int> GetLockedMarkingParts(const Key& key) const override { return Note("GetLockedMarkingParts"), Base::GetLockedMarkingParts(key); }
    bool IsHypertext(const PropertyRef& ref) const override { return Note("IsHypertext"), Base::IsHypertext(ref); }
    bool IsMarkingChangeAllowed(const Key& key, const PropValue& marking) const override { return Note("IsMarkingChangeAllowed"), Base::IsMarkingChangeAllowed(key, marking); }
    VariantMarking ChooseMarking(const VariantMarking& marking) override { return Note("ChooseMarking"), Base::ChooseMarking(marking); }
    SectionChoice EditSection(const PropValueRef& value, bool nameLinked) override { return Note("EditSection"), Base::EditSection(value, nameLinked); }
    Changes MakeSectionNameChanges(const Key& key, bool linked) override { return Note("MakeSectionNameChanges"), Base::MakeSectionNameChanges(key, linked); }
    bool IsSortedBySection() const override { return Note("IsSortedBySection"), Base::IsSortedBySection(); }
    bool AreHypertext(const std::vector<Key>& keys, const std::wstring& id) const override { return Note("AreHypertext"), Base::AreHypertext(keys, id); }
    bool IsHypertextActive(const PropertyRef& ref) const override { return Note("IsHypertextActive"), Base::IsHypertextActive(ref); }
    bool CanInsertHypertext(const PropertyRef& ref, unsigned type) const override { return Note("CanInsertHypertext"), Base::CanInsertHypertext(ref, type); }
    bool CanEditHypertext(const PropertyRef& ref) const override { return Note("CanEditHypertext"), Base::CanEditHypertext(ref); }
    bool CanDestroyHypertext(const PropertyRef& ref) const override { return Note("CanDestroyHypertext"), Base::CanDestroyHypertext(ref); }
    bool InsertHypertext(const std::vector<PropertyRef>& refs) override { return Note("InsertHypertext"), !Refuses() && Base::InsertHypertext(refs); }
    bool EditHypertext(const std::vector<PropertyRef>& refs) override { return Note("EditHypertext"), !Refuses() && Base::EditHypertext(refs); }
    void DestroyHypertext(const std::vector<PropertyRef>& refs) override {
        Note("DestroyHypertext");
        if (!Refuses())
            Base::DestroyHypertext(refs);
    }
    bool CanInsertExtendedReference(const Key& key) const override { return Note("CanInsertExtendedReference"), Base::CanInsertExtendedReference(key); }
    bool IsExtendedReference(const Key& key) const override { return Note("IsExtendedReference"), Base::IsExtendedReference(key); }
    bool InsertExtendedReference(const std::vector<Key>& keys) override { return Note("InsertExtendedReference"), Base::InsertExtendedReference(keys); }
    bool CanHighlight(const Key& key) const override { return Note("CanHighlight"), Base::CanHighlight(key); }
    bool CanDelete(const Key& key) const override { return Note("CanDelete"), Base::CanDelete(key); }
    bool IsSelectableBillet(const Key& key) const override { return Note("IsSelectableBillet"), Base::IsSelectableBillet(key); }
    bool IsSectionNameLinked(const Key& key) const override { return Note("IsSectionNameLinked"), Base::IsSectionNameLinked(key); }
    DeleteInfo GetDeleteInfo(const std::set<Key>& keys) const override { return Note("GetDeleteInfo"), Base::GetDeleteInfo(keys); }
    bool DeleteObjects(const std::set<Key>& keys) override { return Note("DeleteObjects"), !Refuses() && Base::DeleteObjects(keys); }
    bool CanConvertToBillet(const Key& key) const override { return Note("CanConvertToBillet"), Base::CanConvertToBillet(key); }
    void ConvertToBillet(const Key& key) override { Note("ConvertToBillet"), Base::ConvertToBillet(key); }
    bool CanShowItemProperties(const Key& key) const override { return Note("CanShowItemProperties"), Base::CanShowItemProperties(key); }
    void ShowItemProperties(const Key& key) override { Note("ShowItemProperties"), Base::ShowItemProperties(key); }
    bool CanGotoFeature(const Key& key) const override { return Note("CanGotoFeature"), Base::CanGotoFeature(key); }
    void GotoFeature(const Key& key) override { Note("GotoFeature"), Base::GotoFeature(key); }
    bool CanAddBillet(const Key& key) const override { return Note("CanAddBillet"), Base::CanAddBillet(key); }
    Key AddBillet(const Key& key) override { return Note("AddBillet"), Refuses() ? Key() : Base::AddBillet(key); }
    bool CanEditSource(const Key& key) const override { return Note("CanEditSource"), Base::CanEditSource(key); }
    int GetEditSourceCommand(const Key& key) const override { return Note("GetEditSourceCommand"), Base::GetEditSourceCommand(key); }
    void EditSource(const Key& key) override { Note("EditSource"), Base::EditSource(key); }
    int GetIconType(const Key& key) const override { return Note("GetIconType"), Base::GetIconType(key); }
    bool IsActual(const Key& key) const override { return Note("IsActual"), Base::IsActual(key); }
    bool IsExcludedFromCount(const Key& key) const override { return Note("IsExcludedFromCount"), Base::IsExcludedFromCount(key); }
    bool IsAggrIntoProductShown() const override { return Note("IsAggrIntoProductShown"), Base::IsAggrIntoProductShown(); }
    std::optional<bool> GetAggrIntoProduct(const Key& key) const override { return Note("GetAggrIntoProduct"), Base::GetAggrIntoProduct(key); }
    bool IsRegWithDescShown() const override { return Note("IsRegWithDescShown"), Base::IsRegWithDescShown(); }
    bool HasActiveEmbodiment() const override { return Note("HasActiveEmbodiment"), Base::HasActiveEmbodiment(); }
    std::set<Key> GetCurrentEmbodiments() const override { return Note("GetCurrentEmbodiments"), Base::GetCurrentEmbodiments(); }
    Key GetCountKey(const Key& key, const std::set<Key>& keys, bool inGroup) const override { return Note("GetCountKey"), Base::GetCountKey(key, keys, inGroup); }
    PropValue GetGroupCount(const Key& key, const std::set<Key>& keys) const override { return Note("GetGroupCount"), Base::GetGroupCount(key, keys); }
    bool IsRecalcAvailable(const PropertyRef& ref) const override { return Note("IsRecalcAvailable"), Base::IsRecalcAvailable(ref); }
    Changes MakeRecalcChanges(const Key& key, const Key& embodiment) override { return Note("MakeRecalcChanges"), Base::MakeRecalcChanges(key, embodiment); }
    bool CanCalculatePositions() const override { return Note("CanCalculatePositions"), Base::CanCalculatePositions(); }
    unsigned GetFirstPosition() const override { return Note("GetFirstPosition"), Base::GetFirstPosition(); }
    bool CanStartPositions() const override { return Note("CanStartPositions"), Base::CanStartPositions(); }
    bool CanSetPosition(const Key& key) const override { return Note("CanSetPosition"), Base::CanSetPosition(key); }
    bool KeepsOwnPosition(const Key& key) const override { return Note("KeepsOwnPosition"), Base::KeepsOwnPosition(key); }
    bool CanClearPosition(const Key& key) const override { return Note("CanClearPosition"), Base::CanClearPosition(key); }
    bool IsSectionNumbered(const SPCSection& section) const override { return Note("IsSectionNumbered"), Base::IsSectionNumbered(section); }
    bool IsEmbodimentMode() const override { return Note("IsEmbodimentMode"), Base::IsEmbodimentMode(); }
    // clang-format on

private:
    void Note(const char* call) const {
        m_calls.emplace_back(call);
        if (++m_count == m_throwAt)
            throw HostError(call);
    }

    bool Refuses() { return std::exchange(m_refusesNext, false); }

    bool m_refusesNext = false;
    std::size_t m_throwAt = 0;
    mutable std::size_t m_count = 0;
    mutable std::vector<std::string> m_calls;
};

} // namespace support
