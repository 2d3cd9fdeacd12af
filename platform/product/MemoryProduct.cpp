#include "platform/product/MemoryProduct.h"

#include "host/ProductProperties.h"
#include "platform/product/MemoryAggregator.h"
#include "platform/product/MemoryStyle.h"
#include "platform/product/ModelEmbodiments.h"
#include "platform/product/PathNumbers.h"
#include "platform/product/ProductIndex.h"
#include "platform/product/PropertyDescriptions.h"

namespace platform {

namespace {

constexpr int c_otherIcon = 26;

} // namespace

struct MemoryProduct::State {
    explicit State(ProductModel&& filled) : model(std::move(filled)) { Rebuild(); }

    void Rebuild() {
        index.Rebuild(model);
        style = model.style ? MakeSpcDescription(*model.style) : nullptr;
        if (descriptions)
            retired.push_back(std::move(descriptions));
        descriptions = std::make_unique<PropertyDescriptions>(model.properties);
        ++stamp;
    }

    const ObjectRecord* FindObject(const UniqueMetaObjectKey& key) const {
        const PartEntry* const part = index.Find(key);
        return part ? part->object->record : nullptr;
    }

    ProductModel model;
    ProductIndex index;
    MemoryAggregator aggregator{index, model};
    ModelEmbodiments embodiments{model};
    PathNumbers pathNumbers;
    std::unique_ptr<SpcDescription> style;
    std::unique_ptr<PropertyDescriptions> descriptions;
    /// Those of earlier states of the document: whoever holds them may do so until BeginRebuild.
    std::vector<std::unique_ptr<PropertyDescriptions>> retired;
    std::uint64_t stamp = 0;
};

MemoryProduct::MemoryProduct(ProductModel model)
    : m_state(std::make_unique<State>(std::move(model))) {}

MemoryProduct::~MemoryProduct() = default;

const ProductModel& MemoryProduct::GetModel() const {
    return m_state->model;
}

void MemoryProduct::Change(const std::function<void(ProductModel&)>& change) {
    // The index points into the model, so that it is made anew even after half a change.
    try {
        change(m_state->model);
    } catch (...) {
        m_state->Rebuild();
        throw;
    }
    m_state->Rebuild();
}

std::uint64_t MemoryProduct::GetChangeStamp() const {
    return m_state->stamp;
}

bool MemoryProduct::IsReadOnly() const {
    return m_state->model.isReadOnly;
}

void MemoryProduct::BeginRebuild() {
    m_state->retired.clear();
}

void MemoryProduct::PrepareData() {}

void MemoryProduct::BeginRead() {}

void MemoryProduct::EndRead() {}

IfProductDataAggregator& MemoryProduct::GetAggregator() const {
    return m_state->aggregator;
}

UniqueMetaObjectKey MemoryProduct::GetRootKey() const {
    return m_state->model.root.key;
}

std::vector<UniqueMetaObjectKey> MemoryProduct::GetTopKeys() const {
    return m_state->index.GetTopParts().GetCurrentKeys();
}

bool MemoryProduct::IsInTopKeys(const UniqueMetaObjectKey& occurrence,
                                const std::vector<UniqueMetaObjectKey>& topKeys) const {
    const PartEntry* const part = m_state->index.Find(occurrence);
    return part && m_state->index.IsInTopParts(*part, topKeys);
}

bool MemoryProduct::IsShownInTree(const UniqueMetaObjectKey& occurrence) const {
    const PartEntry* const part = m_state->index.Find(occurrence);
    return part && part->isShown;
}

bool MemoryProduct::IsCountMark(const UniqueMetaObjectKey& key) const {
    const PartEntry* const part = m_state->index.Find(key);
    return part && part->isCountMark;
}

bool MemoryProduct::AreSectionRowsShown() const {
    return m_state->model.areSectionRowsShown;
}

meta_data::SP::StyleId MemoryProduct::GetCurrentStyleId() const {
    return m_state->model.styleId;
}

SpcDescription* MemoryProduct::GetSpcDescription() const {
    return m_state->style.get();
}

bool MemoryProduct::UsesSectionIcons() const {
    return m_state->model.usesSectionIcons;
}

std::string MemoryProduct::GetColumnSetKey() const {
    return m_state->model.columnSetKey;
}

std::vector<unsigned long> MemoryProduct::GetVisiblePropertyIds() const {
    return m_state->model.visibleProperties;
}

std::vector<const IfPropertyDescription*> MemoryProduct::GetPropertyDescriptions() const {
    return m_state->descriptions->GetAll();
}

const IfPropertyDescription*
MemoryProduct::GetPropertyDescription(const std::wstring& columnId) const {
    return m_state->descriptions->Find(columnId);
}

PropValue MemoryProduct::GetValue(const PropertyRef& ref) const {
    const PartEntry* const part = m_state->index.Find(ref.objectKey);
    if (!part)
        return {};
    const unsigned long number = m_state->pathNumbers.Get(ref.propertyId);
    if (number == ProductProperties::nameId)
        return part->object->name;
    if (number == ProductProperties::markingId)
        return part->object->marking;
    const PropValue* const value = m_state->index.FindProperty(*part->object, number);
    return value ? *value : PropValue();
}

bool MemoryProduct::IsReadOnly(const PropertyRef& ref) const {
    return m_state->model.isReadOnly || !m_state->index.Find(ref.objectKey);
}

std::optional<bool> MemoryProduct::GetBySource(const PropertyRef& /*ref*/) const {
    return std::nullopt;
}

std::set<int> MemoryProduct::GetLockedMarkingParts(const UniqueMetaObjectKey& key) const {
    const PartEntry* const part = m_state->index.Find(key);
    if (!part || !part->hasLockedMarkingParts)
        return {};
    return part->object->record->lockedMarkingParts;
}

bool MemoryProduct::IsHypertext(const PropertyRef& /*ref*/) const {
    return false;
}

bool MemoryProduct::AreHypertext(const std::vector<UniqueMetaObjectKey>& /*keys*/,
                                 const std::wstring& /*columnId*/) const {
    return false;
}

bool MemoryProduct::IsHypertextActive(const PropertyRef& /*ref*/) const {
    return false;
}

int MemoryProduct::GetIconType(const UniqueMetaObjectKey& key) const {
    const PartEntry* const part = m_state->index.Find(key);
    return part ? part->iconType : c_otherIcon;
}

bool MemoryProduct::IsActual(const UniqueMetaObjectKey& key) const {
    const PartEntry* const part = m_state->index.Find(key);
    return !part || part->isActual;
}

bool MemoryProduct::IsExcludedFromCount(const UniqueMetaObjectKey& key) const {
    const PartEntry* const part = m_state->index.Find(key);
    return part && part->isExcludedFromCount;
}

bool MemoryProduct::IsAggrIntoProductShown() const {
    return m_state->model.isAggrIntoProductShown;
}

std::optional<bool> MemoryProduct::GetAggrIntoProduct(const UniqueMetaObjectKey& key) const {
    const ObjectRecord* const object = m_state->FindObject(key);
    return object ? object->aggrIntoProduct : std::nullopt;
}

bool MemoryProduct::IsRegWithDescShown() const {
    return m_state->model.isRegWithDescShown;
}

bool MemoryProduct::HasEmbodiments() const {
    return !m_state->model.embodiments.empty();
}

bool MemoryProduct::IsEmbodimentMode() const {
    return m_state->model.embodimentMode;
}

void MemoryProduct::SetEmbodimentMode(bool on) {
    m_state->model.embodimentMode = on;
}

const EmbodimentsModel& MemoryProduct::GetEmbodiments() const {
    return m_state->embodiments;
}

bool MemoryProduct::HasActiveEmbodiment() const {
    return !m_state->model.activeEmbodiment.IsEmpty();
}

UniqueMetaObjectKey MemoryProduct::GetActiveEmbodiment() const {
    return m_state->model.activeEmbodiment;
}

} // namespace platform
