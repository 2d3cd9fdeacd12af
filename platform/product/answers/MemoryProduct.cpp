#include "platform/product/answers/MemoryProductState.h"

#include "host/ProductProperties.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

namespace platform {

MemoryProduct::MemoryProduct(ProductModel model)
    : MemoryProduct(std::make_shared<State>(std::move(model)), std::make_unique<Look>()) {}

MemoryProduct::MemoryProduct(std::shared_ptr<State> state, std::unique_ptr<Look> look)
    : m_state(std::move(state), std::move(look)) {}

MemoryProduct::~MemoryProduct() = default;

std::shared_ptr<MemoryProduct> MemoryProduct::MakeLook() {
    return m_state.Split();
}

const ProductModel& MemoryProduct::GetModel() const {
    return m_state->model;
}

void MemoryProduct::Change(const std::function<void(ProductModel&)>& change) {
    // The index points into the model, so that it is made anew even after half a change.
    try {
        change(m_state->model);
    } catch (...) {
        m_state->Renew();
        throw;
    }
    m_state->Renew();
}

void MemoryProduct::Replace(ProductModel model, const SharedText& name) {
    Step step{name, {}};
    step.edits.push_back(std::make_unique<DocumentEdit>(std::move(model)));
    m_state->Do(std::move(step));
    MarkSaved();
}

bool MemoryProduct::HasLevels() const {
    return platform::HasLevels(m_state->model);
}

const ProductLevel& MemoryProduct::GetLevel() const {
    return m_state->model.level;
}

bool MemoryProduct::EnterLevel(const ProductLevel& level) {
    const LevelFault fault = m_state->Enter(level);
    if (fault == LevelFault::TooManyParts)
        m_state->refusal = ProductText::RefusedTooManyParts;
    return fault == LevelFault::None;
}

UniqueMetaObjectKey MemoryProduct::FindAssembly(const UniqueMetaObjectKey& part) const {
    const PartEntry* const entry = m_state->index.Find(part);
    const bool opens = entry && !entry->isRoot && OpensLevel(m_state->model, entry->owner->key);
    return opens ? entry->owner->key : UniqueMetaObjectKey();
}

ProductModel MemoryProduct::MakeSaved() const {
    return platform::MakeSaved(m_state->model);
}

void MemoryProduct::SetDecisions(IUserDecisions* decisions) {
    m_state->look->decisions = decisions;
}

bool MemoryProduct::CanUndo() const {
    return m_state->history.PeekBack() != nullptr;
}

bool MemoryProduct::CanRedo() const {
    return m_state->history.PeekForth() != nullptr;
}

SharedText MemoryProduct::GetUndoName() const {
    const Step* const step = m_state->history.PeekBack();
    return step ? step->name : SharedText();
}

SharedText MemoryProduct::GetRedoName() const {
    const Step* const step = m_state->history.PeekForth();
    return step ? step->name : SharedText();
}

void MemoryProduct::Undo() {
    m_state->Go(m_state->history.StepBack(), Direction::Back);
}

void MemoryProduct::Redo() {
    m_state->Go(m_state->history.StepForth(), Direction::Forth);
}

SharedText MemoryProduct::TakeRefusal() {
    const std::optional<ProductText> reason = std::exchange(m_state->refusal, std::nullopt);
    return reason ? GetText(*reason) : SharedText();
}

SharedText MemoryProduct::TakeNote() {
    return std::exchange(m_state->note, {});
}

bool MemoryProduct::IsModified() const {
    return m_state->areColumnsUnsaved || !m_state->history.IsAtSaved();
}

void MemoryProduct::MarkSaved() {
    m_state->history.MarkSaved();
    m_state->areColumnsUnsaved = false;
}

std::uint64_t MemoryProduct::GetChangeStamp() const {
    return m_state->GetStamp();
}

bool MemoryProduct::IsReadOnly() const {
    return m_state->model.isReadOnly;
}

bool MemoryProduct::IsRebuildRequired() const {
    return m_state->look->isRebuildRequired;
}

void MemoryProduct::BeginRebuild() {
    m_state->look->retired.clear();
    m_state->look->isRebuildRequired = false;
}

void MemoryProduct::PrepareData() {}

void MemoryProduct::ExpectReads(const std::vector<UniqueMetaObjectKey>& keys) {
    m_state->index.ExpectReads(keys);
}

ChangedObjects MemoryProduct::GetChangedObjects(std::uint64_t since) const {
    const State& state = *m_state.operator->();
    const std::uint64_t stamp = state.GetStamp();
    if (since > stamp || since < state.look->turnedAt)
        return {};
    return state.log.FindLast(stamp - since);
}

void MemoryProduct::BeginRead() {
    m_state->index.BeginWalk();
}

void MemoryProduct::EndRead() {
    m_state->index.EndWalk();
}

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

void MemoryProduct::SetColumnOrder(const std::vector<std::wstring>& columnIds) {
    std::unordered_map<unsigned long, std::size_t> ranks;
    for (const std::wstring& id : columnIds)
        ranks.try_emplace(ProductProperties::GetPropId(id), ranks.size());
    // What the user does not see keeps its place behind the rest.
    const auto rank = [&](unsigned long number) {
        const auto found = ranks.find(number);
        return found == ranks.end() ? columnIds.size() : found->second;
    };
    std::vector<unsigned long> order = m_state->model.visibleProperties;
    std::ranges::stable_sort(order, {}, rank);
    if (order == m_state->model.visibleProperties)
        return;
    m_state->model.visibleProperties = std::move(order);
    m_state->NoteColumns();
}

void MemoryProduct::SetColumnVisible(const std::wstring& columnId, bool visible) {
    const unsigned long number = ProductProperties::GetPropId(columnId);
    const bool isFixed =
        number == ProductProperties::nameId || number == ProductProperties::markingId;
    if (isFixed || !m_state->descriptions->FindRecord(number))
        return;
    std::vector<unsigned long>& shown = m_state->model.visibleProperties;
    const bool isVisible = std::ranges::find(shown, number) != shown.end();
    if (isVisible == visible)
        return;
    if (visible)
        shown.push_back(number);
    else
        std::erase_if(shown, [number](unsigned long id) { return id == number; });
    m_state->NoteColumns();
}

bool MemoryProduct::HasEmbodiments() const {
    return !m_state->model.embodiments.empty();
}

bool MemoryProduct::IsEmbodimentMode() const {
    return m_state->model.embodimentMode;
}

void MemoryProduct::SetEmbodimentMode(bool on) {
    if (m_state->model.embodimentMode == on)
        return;
    m_state->model.embodimentMode = on;
    m_state->look->isRebuildRequired = true;
    m_state->NoteTurn();
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

std::wstring MemoryProduct::GetEmbodimentFilter() const {
    return m_state->model.embodimentFilter;
}

void MemoryProduct::SetEmbodimentFilter(const std::wstring& text) {
    m_state->model.embodimentFilter = text;
    m_state->areColumnsUnsaved |= !m_state->model.isReadOnly;
    m_state->NoteTurn();
}

} // namespace platform
