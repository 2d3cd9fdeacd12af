// Commands of the document, what is selected and highlighted in it, and the two attributes.

#include "host/ProductProperties.h"
#include "platform/product/answers/MemoryProductState.h"
#include "platform/product/edits/FreeKeys.h"
#include "platform/product/model/SectionKinds.h"
#include "platform/services/UserDecisions.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace platform {

namespace {

ObjectRecord MakeObject(UniqueMetaObjectKey key, const SPCSection& section, int styleId) {
    const SectionKind kind = FindSectionKind(section.numbers[0]);
    ObjectRecord object;
    object.kind = kind.kind;
    object.iconType = kind.iconType;
    object.section = section;
    object.part.used = meta_data::SPUsed({styleId});
    OccurrenceRecord use;
    use.key = UniqueMetaObjectKey(key.String() + "#1");
    use.kind = object.kind;
    use.part.used = object.part.used;
    object.key = std::move(key);
    object.occurrences.push_back(std::move(use));
    return object;
}

} // namespace

bool MemoryProduct::IsAggrIntoProductShown() const {
    return m_state->model.isAggrIntoProductShown;
}

std::optional<bool> MemoryProduct::GetAggrIntoProduct(const UniqueMetaObjectKey& key) const {
    const PartEntry* const part = m_state->index.Find(key);
    return part && part->hasAggrIntoProduct ? std::optional(part->isAggrIntoProduct) : std::nullopt;
}

bool MemoryProduct::IsRegWithDescShown() const {
    return m_state->model.isRegWithDescShown;
}

bool MemoryProduct::IsAggrIntoProductReadOnly(const UniqueMetaObjectKey& /*key*/) const {
    return m_state->model.isReadOnly;
}

ProductInfObjChangesResult MemoryProduct::MakeAggrIntoProductChanges(const UniqueMetaObjectKey& key,
                                                                     bool value) {
    return m_state->MakeSet(std::make_shared<AggregationChange>(key, value));
}

std::optional<bool> MemoryProduct::GetRegWithDesc(const UniqueMetaObjectKey& key) const {
    const PartEntry* const part = m_state->index.Find(key);
    return part && !part->isRoot ? std::optional(part->isUsedInCurrentStyle) : std::nullopt;
}

bool MemoryProduct::IsRegWithDescReadOnly(const UniqueMetaObjectKey& /*key*/) const {
    return m_state->model.isReadOnly;
}

ProductInfObjChangesResult MemoryProduct::MakeRegWithDescChanges(const UniqueMetaObjectKey& key,
                                                                 std::optional<bool> inGroup,
                                                                 bool value) {
    return m_state->MakeSet(std::make_shared<RegistrationChange>(key, !inGroup, value));
}

void MemoryProduct::SetObserver(IProductObserver* observer) {
    m_state->look->observer = observer;
}

std::vector<UniqueMetaObjectKey> MemoryProduct::GetSelectedKeys() const {
    return m_state->selected;
}

void MemoryProduct::SetSelectedKeys(const std::vector<UniqueMetaObjectKey>& keys) {
    if (m_state->selected == keys)
        return;
    m_state->selected = keys;
    m_state->TellAll(&IProductObserver::OnSelectionChanged);
}

const std::optional<Highlighting>& MemoryProduct::GetHighlighting() const {
    return m_state->highlighting;
}

void MemoryProduct::Highlight(const UniqueMetaObjectKey& key, const SharedText& name,
                              std::weak_ptr<std::function<void()>> done) {
    if (!CanHighlight(key))
        return;
    m_state->highlighting = Highlighting{key, m_state->index.Find(key)->owner->key, name};
    m_state->highlightDone = std::move(done);
    m_state->TellAll(&IProductObserver::OnHighlightChanged);
}

void MemoryProduct::EndHighlighting() {
    if (!m_state->highlighting)
        return;
    m_state->highlighting.reset();
    const std::shared_ptr<std::function<void()>> done = m_state->highlightDone.lock();
    m_state->highlightDone.reset();
    m_state->TellAll(&IProductObserver::OnHighlightChanged);
    if (done)
        (*done)();
}

bool MemoryProduct::CanAddObject() const {
    return !m_state->IsStructureFixed();
}

UniqueMetaObjectKey MemoryProduct::AddObject() {
    if (!CanAddObject())
        return {};
    const PartEntry* const beside =
        m_state->selected.empty() ? nullptr : m_state->index.Find(m_state->selected.front());
    SPCSection section;
    section.numbers[0] = c_usualSectionKind.section;
    std::size_t place = m_state->model.objects.size();
    if (beside && !beside->isRoot) {
        section = beside->object->record->section;
        place = m_state->index.GetPlace(*beside->owner).object + 1;
    }
    ObjectRecord object = MakeObject(MakeFreeKey(m_state->model, m_state->index, "part"), section,
                                     m_state->model.styleId);
    const UniqueMetaObjectKey key = object.occurrences.front().key;
    StructureChange change;
    change.objects = RecordsSwap<ObjectRecord>(std::move(object), place);
    Step step;
    step.name = GetText(ProductText::NewObject);
    step.edits.push_back(std::make_unique<StructureEdit>(std::move(change)));
    m_state->Do(std::move(step));
    return key;
}

std::int64_t MemoryProduct::GetDocumentId() const {
    return 0;
}

bool MemoryProduct::RunPanelCommand() {
    return false;
}

void MemoryProduct::ManageProperties() {
    IUserDecisions* const decisions = m_state->look->decisions;
    if (!decisions)
        return;
    ListRequest request;
    request.title = GetText(ProductText::ColumnsTitle);
    std::vector<unsigned long> offered;
    const std::vector<unsigned long> shown = m_state->model.visibleProperties;
    for (const IfPropertyDescription* const description : GetPropertyDescriptions()) {
        const unsigned long number = description->GetId();
        if (number == ProductProperties::nameId || number == ProductProperties::markingId)
            continue;
        request.lines.push_back(
            {m_state->GetCaption(number), std::ranges::find(shown, number) != shown.end()});
        offered.push_back(number);
    }
    const std::optional<std::vector<bool>> chosen = decisions->ChooseSeveral(request);
    for (std::size_t i = 0; chosen && i < offered.size() && i < chosen->size(); ++i)
        SetColumnVisible(ProductProperties::GetPath(offered[i]), (*chosen)[i]);
    if (m_state->model.visibleProperties != shown)
        m_state->TellOfLook();
}

} // namespace platform
