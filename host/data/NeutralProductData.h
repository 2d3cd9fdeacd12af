// Product data for a host to begin with: every question that a product may leave open is answered
// as by one that offers nothing of it, and an operation that nothing offers does nothing. What
// stays pure virtual is what every host has to answer. A host that wants more overrides more, role
// by role; one that wants to hear of each new operation of the contract derives from
// IfProductTreeData itself.
#pragma once

#include "host/data/IfProductTreeData.h"

#include "host/ProductProperties.h"

/// To be answered: GetChangeStamp; GetAggregator, GetRootKey, GetTopKeys; GetColumnSetKey,
/// GetVisiblePropertyIds, GetPropertyDescriptions; GetValue, MakeValueChanges, CommitChanges.
class NeutralProductData : public IfProductTreeData {
public:
    using IfProductTreeData::IsReadOnly;

    // Everything can be changed, and after a change the rows are built anew.
    bool IsReadOnly() const override { return false; }
    bool IsRebuildRequired() const override { return true; }
    void BeginRebuild() override {}
    void PrepareData() override {}
    void BeginRead() override {}
    void EndRead() override {}

    // One top level, every use of which has a row; no specification style, so no sections.
    bool IsInTopKeys(const UniqueMetaObjectKey&,
                     const std::vector<UniqueMetaObjectKey>&) const override {
        return true;
    }
    bool IsShownInTree(const UniqueMetaObjectKey&) const override { return true; }
    bool IsCountMark(const UniqueMetaObjectKey&) const override { return false; }
    bool AreSectionRowsShown() const override { return true; }
    meta_data::SP::StyleId GetCurrentStyleId() const override {
        return meta_data::SP::AllStyleId();
    }
    SpcDescription* GetSpcDescription() const override { return nullptr; }
    bool UsesSectionIcons() const override { return false; }

    // What the user does to the columns lasts as long as the panel does.
    const IfPropertyDescription*
    GetPropertyDescription(const std::wstring& columnId) const override {
        for (const IfPropertyDescription* description : GetPropertyDescriptions()) {
            if (description && ProductProperties::GetPath(description->GetId()) == columnId)
                return description;
        }
        return nullptr;
    }
    void SetColumnOrder(const std::vector<std::wstring>&) override {}
    void SetColumnVisible(const std::wstring&, bool) override {}

    // No value has a source.
    bool IsReadOnly(const PropertyRef&) const override { return false; }
    std::optional<bool> GetBySource(const PropertyRef&) const override { return std::nullopt; }
    ProductInfObjChangesResult MakeBySourceChanges(const PropertyRef&, bool) override { return {}; }
    bool CanTransmitToSource(const UniqueMetaObjectKey&, const std::wstring&) const override {
        return false;
    }
    void TransmitToSource(const std::wstring&,
                          const std::vector<std::pair<UniqueMetaObjectKey, PropValue>>&) override {}

    // There is no dialog of materials, and none of roughness.
    bool IsSimplifiedMode() const override { return true; }
    bool EditMip(const std::vector<UniqueMetaObjectKey>&, MipSource) override { return false; }
    bool EditRoughSign(const UniqueMetaObjectKey&, ProductInfObjChangesResult&) override {
        return false;
    }

    std::set<int> GetLockedMarkingParts(const UniqueMetaObjectKey&) const override { return {}; }
    bool IsMarkingChangeAllowed(const UniqueMetaObjectKey&, const PropValue&) const override {
        return true;
    }
    VariantMarking ChooseMarking(const VariantMarking& marking) override { return marking; }

    SectionChoice EditSection(const PropValueRef&, bool) override { return {}; }
    ProductInfObjChangesResult MakeSectionNameChanges(const UniqueMetaObjectKey&, bool) override {
        return {};
    }
    bool IsSortedBySection() const override { return true; }

    bool IsHypertext(const PropertyRef&) const override { return false; }
    bool AreHypertext(const std::vector<UniqueMetaObjectKey>&, const std::wstring&) const override {
        return false;
    }
    bool IsHypertextActive(const PropertyRef&) const override { return false; }
    bool CanInsertHypertext(const PropertyRef&, unsigned) const override { return false; }
    bool CanEditHypertext(const PropertyRef&) const override { return false; }
    bool CanDestroyHypertext(const PropertyRef&) const override { return false; }
    bool InsertHypertext(const std::vector<PropertyRef>&) override { return false; }
    bool EditHypertext(const std::vector<PropertyRef>&) override { return false; }
    void DestroyHypertext(const std::vector<PropertyRef>&) override {}
    bool CanInsertExtendedReference(const UniqueMetaObjectKey&) const override { return false; }
    bool IsExtendedReference(const UniqueMetaObjectKey&) const override { return false; }
    bool InsertExtendedReference(const std::vector<UniqueMetaObjectKey>&) override { return false; }

    bool CanHighlight(const UniqueMetaObjectKey&) const override { return false; }
    bool CanDelete(const UniqueMetaObjectKey&) const override { return false; }
    bool IsSelectableBillet(const UniqueMetaObjectKey&) const override { return false; }
    bool IsSectionNameLinked(const UniqueMetaObjectKey&) const override { return false; }
    int GetIconType(const UniqueMetaObjectKey&) const override { return 0; }
    bool IsActual(const UniqueMetaObjectKey&) const override { return true; }
    bool IsExcludedFromCount(const UniqueMetaObjectKey&) const override { return false; }

    DeleteInfo GetDeleteInfo(const std::set<UniqueMetaObjectKey>&) const override { return {}; }
    bool DeleteObjects(const std::set<UniqueMetaObjectKey>&) override { return false; }

    bool CanConvertToBillet(const UniqueMetaObjectKey&) const override { return false; }
    void ConvertToBillet(const UniqueMetaObjectKey&) override {}
    bool CanShowItemProperties(const UniqueMetaObjectKey&) const override { return false; }
    void ShowItemProperties(const UniqueMetaObjectKey&) override {}
    bool CanGotoFeature(const UniqueMetaObjectKey&) const override { return false; }
    void GotoFeature(const UniqueMetaObjectKey&) override {}
    bool CanAddBillet(const UniqueMetaObjectKey&) const override { return false; }
    UniqueMetaObjectKey AddBillet(const UniqueMetaObjectKey&) override { return {}; }
    bool CanEditSource(const UniqueMetaObjectKey&) const override { return false; }
    int GetEditSourceCommand(const UniqueMetaObjectKey&) const override { return 0; }
    void EditSource(const UniqueMetaObjectKey&) override {}

    bool IsAggrIntoProductShown() const override { return false; }
    std::optional<bool> GetAggrIntoProduct(const UniqueMetaObjectKey&) const override {
        return std::nullopt;
    }
    bool IsAggrIntoProductReadOnly(const UniqueMetaObjectKey&) const override { return true; }
    ProductInfObjChangesResult MakeAggrIntoProductChanges(const UniqueMetaObjectKey&,
                                                          bool) override {
        return {};
    }
    bool IsRegWithDescShown() const override { return false; }
    std::optional<bool> GetRegWithDesc(const UniqueMetaObjectKey&) const override {
        return std::nullopt;
    }
    bool IsRegWithDescReadOnly(const UniqueMetaObjectKey&) const override { return true; }
    ProductInfObjChangesResult MakeRegWithDescChanges(const UniqueMetaObjectKey&,
                                                      std::optional<bool>, bool) override {
        return {};
    }

    // No object has documents.
    std::vector<PartDocument> GetPartDocuments(const UniqueMetaObjectKey&) const override {
        return {};
    }
    bool CanAddDocument(const UniqueMetaObjectKey&) const override { return false; }
    ProductInfObjChangesResult AddDocument(const UniqueMetaObjectKey&) override { return {}; }
    bool CanRemoveDocuments(const UniqueMetaObjectKey&,
                            const std::vector<std::wstring>&) const override {
        return false;
    }
    ProductInfObjChangesResult RemoveDocument(const UniqueMetaObjectKey&,
                                              const PartDocument&) override {
        return {};
    }
    bool CanOpenDocument(const UniqueMetaObjectKey&, const PartDocument&) const override {
        return false;
    }
    void OpenDocument(const PartDocument&, const VariantMarking&, const MbPath&) override {}
    bool CanPreviewDocument(const UniqueMetaObjectKey&, const PartDocument&) const override {
        return false;
    }
    bool CanChangeDocumentSource(const UniqueMetaObjectKey&, const PartDocument&) const override {
        return false;
    }
    ProductInfObjChangesResult SetDocumentSource(const UniqueMetaObjectKey&,
                                                 const PartDocument&) override {
        return {};
    }
    ProductInfObjChangesResult ClearDocumentSource(const UniqueMetaObjectKey&,
                                                   const PartDocument&) override {
        return {};
    }
    bool CanUseDocumentFormat(const UniqueMetaObjectKey&, const PartDocument&,
                              const std::wstring&) const override {
        return false;
    }
    ProductInfObjChangesResult UseDocumentFormat(const UniqueMetaObjectKey&, const PartDocument&,
                                                 const std::wstring&) override {
        return {};
    }
    ProductInfObjChangesResult ClearDocumentFormat(const UniqueMetaObjectKey&,
                                                   const PartDocument&) override {
        return {};
    }

    // What is selected in the panel is remembered, and told to nobody.
    std::vector<UniqueMetaObjectKey> GetSelectedKeys() const override { return m_selected; }
    void SetSelectedKeys(const std::vector<UniqueMetaObjectKey>& keys) override {
        m_selected = keys;
    }

    bool CanAddObject() const override { return false; }
    UniqueMetaObjectKey AddObject() override { return {}; }
    void UpdateAll() override {}
    std::int64_t GetDocumentId() const override { return 0; }
    bool RunPanelCommand() override { return false; }
    void Highlight(const UniqueMetaObjectKey&, const SharedText&,
                   std::weak_ptr<std::function<void()>>) override {}
    void ManageProperties() override {}

    bool HasEmbodiments() const override { return false; }
    bool IsEmbodimentMode() const override { return false; }
    void SetEmbodimentMode(bool) override {}
    const EmbodimentsModel& GetEmbodiments() const override {
        static const NoEmbodiments none;
        return none;
    }
    bool HasActiveEmbodiment() const override { return false; }
    UniqueMetaObjectKey GetActiveEmbodiment() const override { return {}; }
    std::wstring GetEmbodimentFilter() const override { return {}; }
    void SetEmbodimentFilter(const std::wstring&) override {}

    // The one count of an object is asked of GetValue.
    std::set<UniqueMetaObjectKey> GetCurrentEmbodiments() const override { return {GetRootKey()}; }
    UniqueMetaObjectKey GetCountKey(const UniqueMetaObjectKey&,
                                    const std::set<UniqueMetaObjectKey>& embodiments,
                                    bool) const override {
        return *embodiments.begin();
    }
    PropValue GetGroupCount(const UniqueMetaObjectKey&,
                            const std::set<UniqueMetaObjectKey>&) const override {
        return {};
    }
    bool IsRecalcAvailable(const PropertyRef&) const override { return false; }
    ProductInfObjChangesResult MakeRecalcChanges(const UniqueMetaObjectKey&,
                                                 const UniqueMetaObjectKey&) override {
        return {};
    }

    bool CanCalculatePositions() const override { return false; }
    unsigned GetFirstPosition() const override { return 1; }
    bool CanStartPositions() const override { return false; }
    bool CanSetPosition(const UniqueMetaObjectKey&) const override { return false; }
    bool KeepsOwnPosition(const UniqueMetaObjectKey&) const override { return false; }
    bool CanClearPosition(const UniqueMetaObjectKey&) const override { return false; }
    bool IsSectionNumbered(const SPCSection&) const override { return false; }

private:
    class NoEmbodiments final : public EmbodimentsModel {
    public:
        std::size_t GetCount() const override { return 0; }
        std::set<UniqueMetaObjectKey> GetRawKeys(std::size_t) const override { return {}; }
        VariantMarking GetEmbodimentMarking(std::size_t) const override { return {}; }
    };

    std::vector<UniqueMetaObjectKey> m_selected;
};
