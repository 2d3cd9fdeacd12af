// A product in memory that notes what it is asked, can throw at the n-th call and can refuse to do
// what it is told, as a host may at any time.
#pragma once

#include "platform/product/answers/MemoryProduct.h"

#include <cstddef>
#include <functional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace support {

struct HostError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// Derived from the contract and not from the product, so that an operation that joins it can't be
/// forgotten here.
class RecordingProductData final : public IfProductTreeData {
public:
    using Key = UniqueMetaObjectKey;
    using Changes = ProductInfObjChangesResult;

    explicit RecordingProductData(platform::ProductModel model) : m_product(std::move(model)) {}

    /// The product itself: what is asked of it so is not noted.
    platform::MemoryProduct& Product() { return m_product; }

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

    /// Answer the two dialogs in place of the product, where they are given.
    std::function<bool(const std::vector<Key>& keys, MipSource source)> chooseMaterial;
    std::function<bool(const Key& key, Changes& changes)> chooseRoughness;
    /// Null: as the product has it.
    std::function<bool(const PartDocument& document)> canPreview;

    // clang-format off
    std::uint64_t GetChangeStamp() const override { return Note("GetChangeStamp"), m_product.GetChangeStamp(); }
    bool IsReadOnly() const override { return Note("IsReadOnly"), m_product.IsReadOnly(); }
    bool IsReadOnly(const PropertyRef& ref) const override { return Note("IsReadOnly"), m_product.IsReadOnly(ref); }
    bool IsRebuildRequired() const override { return Note("IsRebuildRequired"), m_product.IsRebuildRequired(); }
    void BeginRebuild() override { Note("BeginRebuild"), m_product.BeginRebuild(); }
    void PrepareData() override { Note("PrepareData"), m_product.PrepareData(); }
    void ExpectReads(const std::vector<Key>& keys) override { Note("ExpectReads"), m_product.ExpectReads(keys); }
    ChangedObjects GetChangedObjects(std::uint64_t since) const override { return Note("GetChangedObjects"), m_product.GetChangedObjects(since); }
    void BeginRead() override { Note("BeginRead"), m_product.BeginRead(); }
    void EndRead() override { Note("EndRead"), m_product.EndRead(); }
    IfProductDataAggregator& GetAggregator() const override { return Note("GetAggregator"), m_product.GetAggregator(); }
    Key GetRootKey() const override { return Note("GetRootKey"), m_product.GetRootKey(); }
    std::vector<Key> GetTopKeys() const override { return Note("GetTopKeys"), m_product.GetTopKeys(); }
    bool IsInTopKeys(const Key& key, const std::vector<Key>& tops) const override { return Note("IsInTopKeys"), m_product.IsInTopKeys(key, tops); }
    bool IsCountMark(const Key& key) const override { return Note("IsCountMark"), m_product.IsCountMark(key); }
    meta_data::SP::StyleId GetCurrentStyleId() const override { return Note("GetCurrentStyleId"), m_product.GetCurrentStyleId(); }
    const IfPropertyDescription* GetPropertyDescription(const std::wstring& id) const override { return Note("GetPropertyDescription"), m_product.GetPropertyDescription(id); }
    bool HasEmbodiments() const override { return Note("HasEmbodiments"), m_product.HasEmbodiments(); }
    void SetEmbodimentMode(bool on) override { Note("SetEmbodimentMode"), m_product.SetEmbodimentMode(on); }
    const EmbodimentsModel& GetEmbodiments() const override { return Note("GetEmbodiments"), m_product.GetEmbodiments(); }
    Key GetActiveEmbodiment() const override { return Note("GetActiveEmbodiment"), m_product.GetActiveEmbodiment(); }
    bool IsShownInTree(const Key& key) const override { return Note("IsShownInTree"), m_product.IsShownInTree(key); }
    bool AreSectionRowsShown() const override { return Note("AreSectionRowsShown"), m_product.AreSectionRowsShown(); }
    SpcDescription* GetSpcDescription() const override { return Note("GetSpcDescription"), m_product.GetSpcDescription(); }
    bool UsesSectionIcons() const override { return Note("UsesSectionIcons"), m_product.UsesSectionIcons(); }
    std::string GetColumnSetKey() const override { return Note("GetColumnSetKey"), m_product.GetColumnSetKey(); }
    std::vector<unsigned long> GetVisiblePropertyIds() const override { return Note("GetVisiblePropertyIds"), m_product.GetVisiblePropertyIds(); }
    std::vector<const IfPropertyDescription*> GetPropertyDescriptions() const override { return Note("GetPropertyDescriptions"), m_product.GetPropertyDescriptions(); }
    void SetColumnOrder(const std::vector<std::wstring>& ids) override { Note("SetColumnOrder"), m_product.SetColumnOrder(ids); }
    void SetColumnVisible(const std::wstring& id, bool visible) override { Note("SetColumnVisible"), m_product.SetColumnVisible(id, visible); }
    PropertyReading ReadProperty(const Key& key, const SharedText& id) const override { return Note("ReadProperty"), m_product.ReadProperty(key, id); }
    PropValue GetValue(const PropertyRef& ref) const override { return Note("GetValue"), m_product.GetValue(ref); }
    Changes MakeValueChanges(const PropertyRef& ref, const PropValue& value) override { return Note("MakeValueChanges"), m_product.MakeValueChanges(ref, value); }
    std::optional<bool> GetBySource(const PropertyRef& ref) const override { return Note("GetBySource"), m_product.GetBySource(ref); }
    Changes MakeBySourceChanges(const PropertyRef& ref, bool bySource) override { return Note("MakeBySourceChanges"), m_product.MakeBySourceChanges(ref, bySource); }
    void CommitChanges(Changes& changes) override {
        Note("CommitChanges");
        if (Refuses())
            return changes.Clear();
        m_product.CommitChanges(changes);
    }
    bool CanTransmitToSource(const Key& key, const std::wstring& id) const override { return Note("CanTransmitToSource"), m_product.CanTransmitToSource(key, id); }
    void TransmitToSource(const std::wstring& id, const std::vector<std::pair<Key, PropValue>>& values) override {
        Note("TransmitToSource");
        if (!Refuses())
            m_product.TransmitToSource(id, values);
    }
    bool IsSimplifiedMode() const override { return Note("IsSimplifiedMode"), m_product.IsSimplifiedMode(); }
    bool EditMip(const std::vector<Key>& keys, MipSource source) override { return Note("EditMip"), !Refuses() && (chooseMaterial ? chooseMaterial(keys, source) : m_product.EditMip(keys, source)); }
    bool EditRoughSign(const Key& key, Changes& changes) override { return Note("EditRoughSign"), chooseRoughness ? chooseRoughness(key, changes) : m_product.EditRoughSign(key, changes); }
    std::set<int> GetLockedMarkingParts(const Key& key) const override { return Note("GetLockedMarkingParts"), m_product.GetLockedMarkingParts(key); }
    bool IsHypertext(const PropertyRef& ref) const override { return Note("IsHypertext"), m_product.IsHypertext(ref); }
    bool IsMarkingChangeAllowed(const Key& key, const PropValue& marking) const override { return Note("IsMarkingChangeAllowed"), m_product.IsMarkingChangeAllowed(key, marking); }
    VariantMarking ChooseMarking(const VariantMarking& marking) override { return Note("ChooseMarking"), m_product.ChooseMarking(marking); }
    SectionChoice EditSection(const PropValueRef& value, bool nameLinked) override { return Note("EditSection"), m_product.EditSection(value, nameLinked); }
    Changes MakeSectionNameChanges(const Key& key, bool linked) override { return Note("MakeSectionNameChanges"), m_product.MakeSectionNameChanges(key, linked); }
    bool IsSortedBySection() const override { return Note("IsSortedBySection"), m_product.IsSortedBySection(); }
    bool AreHypertext(const std::vector<Key>& keys, const std::wstring& id) const override { return Note("AreHypertext"), m_product.AreHypertext(keys, id); }
    bool IsHypertextActive(const PropertyRef& ref) const override { return Note("IsHypertextActive"), m_product.IsHypertextActive(ref); }
    bool CanInsertHypertext(const PropertyRef& ref, unsigned type) const override { return Note("CanInsertHypertext"), m_product.CanInsertHypertext(ref, type); }
    bool CanEditHypertext(const PropertyRef& ref) const override { return Note("CanEditHypertext"), m_product.CanEditHypertext(ref); }
    bool CanDestroyHypertext(const PropertyRef& ref) const override { return Note("CanDestroyHypertext"), m_product.CanDestroyHypertext(ref); }
    bool InsertHypertext(const std::vector<PropertyRef>& refs) override { return Note("InsertHypertext"), !Refuses() && m_product.InsertHypertext(refs); }
    bool EditHypertext(const std::vector<PropertyRef>& refs) override { return Note("EditHypertext"), !Refuses() && m_product.EditHypertext(refs); }
    void DestroyHypertext(const std::vector<PropertyRef>& refs) override {
        Note("DestroyHypertext");
        if (!Refuses())
            m_product.DestroyHypertext(refs);
    }
    bool CanInsertExtendedReference(const Key& key) const override { return Note("CanInsertExtendedReference"), m_product.CanInsertExtendedReference(key); }
    bool IsExtendedReference(const Key& key) const override { return Note("IsExtendedReference"), m_product.IsExtendedReference(key); }
    bool InsertExtendedReference(const std::vector<Key>& keys) override { return Note("InsertExtendedReference"), m_product.InsertExtendedReference(keys); }
    bool CanHighlight(const Key& key) const override { return Note("CanHighlight"), m_product.CanHighlight(key); }
    bool CanDelete(const Key& key) const override { return Note("CanDelete"), m_product.CanDelete(key); }
    bool IsSelectableBillet(const Key& key) const override { return Note("IsSelectableBillet"), m_product.IsSelectableBillet(key); }
    bool IsSectionNameLinked(const Key& key) const override { return Note("IsSectionNameLinked"), m_product.IsSectionNameLinked(key); }
    DeleteInfo GetDeleteInfo(const std::set<Key>& keys) const override { return Note("GetDeleteInfo"), m_product.GetDeleteInfo(keys); }
    bool DeleteObjects(const std::set<Key>& keys) override { return Note("DeleteObjects"), !Refuses() && m_product.DeleteObjects(keys); }
    bool CanConvertToBillet(const Key& key) const override { return Note("CanConvertToBillet"), m_product.CanConvertToBillet(key); }
    void ConvertToBillet(const Key& key) override { Note("ConvertToBillet"), m_product.ConvertToBillet(key); }
    bool CanShowItemProperties(const Key& key) const override { return Note("CanShowItemProperties"), m_product.CanShowItemProperties(key); }
    void ShowItemProperties(const Key& key) override { Note("ShowItemProperties"), m_product.ShowItemProperties(key); }
    bool CanGotoFeature(const Key& key) const override { return Note("CanGotoFeature"), m_product.CanGotoFeature(key); }
    void GotoFeature(const Key& key) override { Note("GotoFeature"), m_product.GotoFeature(key); }
    bool CanAddBillet(const Key& key) const override { return Note("CanAddBillet"), m_product.CanAddBillet(key); }
    Key AddBillet(const Key& key) override { return Note("AddBillet"), Refuses() ? Key() : m_product.AddBillet(key); }
    bool CanEditSource(const Key& key) const override { return Note("CanEditSource"), m_product.CanEditSource(key); }
    int GetEditSourceCommand(const Key& key) const override { return Note("GetEditSourceCommand"), m_product.GetEditSourceCommand(key); }
    void EditSource(const Key& key) override { Note("EditSource"), m_product.EditSource(key); }
    int GetIconType(const Key& key) const override { return Note("GetIconType"), m_product.GetIconType(key); }
    bool IsActual(const Key& key) const override { return Note("IsActual"), m_product.IsActual(key); }
    bool IsExcludedFromCount(const Key& key) const override { return Note("IsExcludedFromCount"), m_product.IsExcludedFromCount(key); }
    bool IsAggrIntoProductShown() const override { return Note("IsAggrIntoProductShown"), m_product.IsAggrIntoProductShown(); }
    std::optional<bool> GetAggrIntoProduct(const Key& key) const override { return Note("GetAggrIntoProduct"), m_product.GetAggrIntoProduct(key); }
    bool IsRegWithDescShown() const override { return Note("IsRegWithDescShown"), m_product.IsRegWithDescShown(); }
    bool IsAggrIntoProductReadOnly(const Key& key) const override { return Note("IsAggrIntoProductReadOnly"), m_product.IsAggrIntoProductReadOnly(key); }
    Changes MakeAggrIntoProductChanges(const Key& key, bool value) override { return Note("MakeAggrIntoProductChanges"), m_product.MakeAggrIntoProductChanges(key, value); }
    std::optional<bool> GetRegWithDesc(const Key& key) const override { return Note("GetRegWithDesc"), m_product.GetRegWithDesc(key); }
    bool IsRegWithDescReadOnly(const Key& key) const override { return Note("IsRegWithDescReadOnly"), m_product.IsRegWithDescReadOnly(key); }
    Changes MakeRegWithDescChanges(const Key& key, std::optional<bool> inGroup, bool value) override { return Note("MakeRegWithDescChanges"), m_product.MakeRegWithDescChanges(key, inGroup, value); }
    std::vector<Key> GetSelectedKeys() const override { return Note("GetSelectedKeys"), m_product.GetSelectedKeys(); }
    void SetSelectedKeys(const std::vector<Key>& keys) override { Note("SetSelectedKeys"), m_product.SetSelectedKeys(keys); }
    bool CanAddObject() const override { return Note("CanAddObject"), m_product.CanAddObject(); }
    Key AddObject() override { return Note("AddObject"), m_product.AddObject(); }
    void UpdateAll() override { Note("UpdateAll"), m_product.UpdateAll(); }
    std::int64_t GetDocumentId() const override { return Note("GetDocumentId"), m_product.GetDocumentId(); }
    bool RunPanelCommand() override { return Note("RunPanelCommand"), m_product.RunPanelCommand(); }
    void Highlight(const Key& key, const SharedText& name, std::weak_ptr<std::function<void()>> done) override { Note("Highlight"), m_product.Highlight(key, name, std::move(done)); }
    void ManageProperties() override { Note("ManageProperties"), m_product.ManageProperties(); }
    std::wstring GetEmbodimentFilter() const override { return Note("GetEmbodimentFilter"), m_product.GetEmbodimentFilter(); }
    void SetEmbodimentFilter(const std::wstring& text) override { Note("SetEmbodimentFilter"), m_product.SetEmbodimentFilter(text); }
    bool HasActiveEmbodiment() const override { return Note("HasActiveEmbodiment"), m_product.HasActiveEmbodiment(); }
    std::set<Key> GetCurrentEmbodiments() const override { return Note("GetCurrentEmbodiments"), m_product.GetCurrentEmbodiments(); }
    Key GetCountKey(const Key& key, const std::set<Key>& keys, bool inGroup) const override { return Note("GetCountKey"), m_product.GetCountKey(key, keys, inGroup); }
    PropValue GetGroupCount(const Key& key, const std::set<Key>& keys) const override { return Note("GetGroupCount"), m_product.GetGroupCount(key, keys); }
    bool IsRecalcAvailable(const PropertyRef& ref) const override { return Note("IsRecalcAvailable"), m_product.IsRecalcAvailable(ref); }
    Changes MakeRecalcChanges(const Key& key, const Key& embodiment) override { return Note("MakeRecalcChanges"), m_product.MakeRecalcChanges(key, embodiment); }
    bool CanCalculatePositions() const override { return Note("CanCalculatePositions"), m_product.CanCalculatePositions(); }
    unsigned GetFirstPosition() const override { return Note("GetFirstPosition"), m_product.GetFirstPosition(); }
    bool CanStartPositions() const override { return Note("CanStartPositions"), m_product.CanStartPositions(); }
    bool CanSetPosition(const Key& key) const override { return Note("CanSetPosition"), m_product.CanSetPosition(key); }
    bool KeepsOwnPosition(const Key& key) const override { return Note("KeepsOwnPosition"), m_product.KeepsOwnPosition(key); }
    bool CanClearPosition(const Key& key) const override { return Note("CanClearPosition"), m_product.CanClearPosition(key); }
    bool IsSectionNumbered(const SPCSection& section) const override { return Note("IsSectionNumbered"), m_product.IsSectionNumbered(section); }
    bool IsEmbodimentMode() const override { return Note("IsEmbodimentMode"), m_product.IsEmbodimentMode(); }
    std::vector<PartDocument> GetPartDocuments(const Key& key) const override { return Note("GetPartDocuments"), m_product.GetPartDocuments(key); }
    bool CanAddDocument(const Key& key) const override { return Note("CanAddDocument"), m_product.CanAddDocument(key); }
    Changes AddDocument(const Key& key) override { return Note("AddDocument"), m_product.AddDocument(key); }
    bool CanRemoveDocuments(const Key& key, const std::vector<std::wstring>& files) const override { return Note("CanRemoveDocuments"), m_product.CanRemoveDocuments(key, files); }
    Changes RemoveDocument(const Key& key, const PartDocument& document) override { return Note("RemoveDocument"), m_product.RemoveDocument(key, document); }
    bool CanOpenDocument(const Key& key, const PartDocument& document) const override { return Note("CanOpenDocument"), m_product.CanOpenDocument(key, document); }
    void OpenDocument(const PartDocument& document, const VariantMarking& marking, const MbPath& path) override { Note("OpenDocument"), m_product.OpenDocument(document, marking, path); }
    bool CanPreviewDocument(const Key& key, const PartDocument& document) const override { return Note("CanPreviewDocument"), canPreview ? canPreview(document) : m_product.CanPreviewDocument(key, document); }
    bool CanChangeDocumentSource(const Key& key, const PartDocument& document) const override { return Note("CanChangeDocumentSource"), m_product.CanChangeDocumentSource(key, document); }
    Changes SetDocumentSource(const Key& key, const PartDocument& document) override { return Note("SetDocumentSource"), m_product.SetDocumentSource(key, document); }
    Changes ClearDocumentSource(const Key& key, const PartDocument& document) override { return Note("ClearDocumentSource"), m_product.ClearDocumentSource(key, document); }
    bool CanUseDocumentFormat(const Key& key, const PartDocument& document, const std::wstring& format) const override { return Note("CanUseDocumentFormat"), m_product.CanUseDocumentFormat(key, document, format); }
    Changes UseDocumentFormat(const Key& key, const PartDocument& document, const std::wstring& format) override { return Note("UseDocumentFormat"), m_product.UseDocumentFormat(key, document, format); }
    Changes ClearDocumentFormat(const Key& key, const PartDocument& document) override { return Note("ClearDocumentFormat"), m_product.ClearDocumentFormat(key, document); }
    // clang-format on

private:
    void Note(const char* call) const {
        m_calls.emplace_back(call);
        if (++m_count == m_throwAt)
            throw HostError(call);
    }

    bool Refuses() { return std::exchange(m_refusesNext, false); }

    platform::MemoryProduct m_product;
    bool m_refusesNext = false;
    std::size_t m_throwAt = 0;
    mutable std::size_t m_count = 0;
    mutable std::vector<std::string> m_calls;
};

} // namespace support
