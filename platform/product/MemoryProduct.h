// A product document in memory, answering the library's questions from a ProductModel. It is what
// the program shows, whatever file the model came from, and what tests describe their products by.
// Sources of objects and links between properties are not among what a model holds: their questions
// have the neutral answers.
#pragma once

#include "host/data/IfProductTreeData.h"
#include "platform/product/ProductModel.h"

#include <functional>
#include <memory>

namespace platform {

class MemoryProduct : public IfProductTreeData {
public:
    /// The model should be one that ValidateModel accepts; of any other, what makes no sense has no
    /// effect.
    explicit MemoryProduct(ProductModel model);
    MemoryProduct(const MemoryProduct&) = delete;
    MemoryProduct& operator=(const MemoryProduct&) = delete;
    ~MemoryProduct() override;

    const ProductModel& GetModel() const;
    /// Changes the document: the change stamp moves, also when `change` throws. Not to be called
    /// from inside a question or between BeginRead and EndRead.
    void Change(const std::function<void(ProductModel&)>& change);

    std::uint64_t GetChangeStamp() const override;
    bool IsReadOnly() const override;
    void BeginRebuild() override;
    void PrepareData() override;
    void BeginRead() override;
    void EndRead() override;

    IfProductDataAggregator& GetAggregator() const override;
    UniqueMetaObjectKey GetRootKey() const override;
    std::vector<UniqueMetaObjectKey> GetTopKeys() const override;
    bool IsInTopKeys(const UniqueMetaObjectKey& occurrence,
                     const std::vector<UniqueMetaObjectKey>& topKeys) const override;
    bool IsShownInTree(const UniqueMetaObjectKey& occurrence) const override;
    bool IsCountMark(const UniqueMetaObjectKey& key) const override;
    bool AreSectionRowsShown() const override;
    meta_data::SP::StyleId GetCurrentStyleId() const override;
    SpcDescription* GetSpcDescription() const override;
    bool UsesSectionIcons() const override;

    std::string GetColumnSetKey() const override;
    std::vector<unsigned long> GetVisiblePropertyIds() const override;
    std::vector<const IfPropertyDescription*> GetPropertyDescriptions() const override;
    const IfPropertyDescription*
    GetPropertyDescription(const std::wstring& columnId) const override;

    /// An occurrence has the values of its object.
    PropValue GetValue(const PropertyRef& ref) const override;
    bool IsReadOnly(const PropertyRef& ref) const override;
    std::optional<bool> GetBySource(const PropertyRef& ref) const override;
    std::set<int> GetLockedMarkingParts(const UniqueMetaObjectKey& key) const override;

    bool IsHypertext(const PropertyRef& ref) const override;
    bool AreHypertext(const std::vector<UniqueMetaObjectKey>& keys,
                      const std::wstring& columnId) const override;
    bool IsHypertextActive(const PropertyRef& ref) const override;

    int GetIconType(const UniqueMetaObjectKey& key) const override;
    bool IsActual(const UniqueMetaObjectKey& key) const override;
    bool IsExcludedFromCount(const UniqueMetaObjectKey& key) const override;

    bool IsAggrIntoProductShown() const override;
    std::optional<bool> GetAggrIntoProduct(const UniqueMetaObjectKey& key) const override;
    bool IsRegWithDescShown() const override;

    bool HasEmbodiments() const override;
    bool IsEmbodimentMode() const override;
    /// How the document is looked at and no change of it: the stamp stays.
    void SetEmbodimentMode(bool on) override;
    const EmbodimentsModel& GetEmbodiments() const override;
    bool HasActiveEmbodiment() const override;
    UniqueMetaObjectKey GetActiveEmbodiment() const override;

private:
    struct State;

    std::unique_ptr<State> m_state;
};

} // namespace platform
