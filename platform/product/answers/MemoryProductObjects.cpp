#include "host/ProductProperties.h"
#include "platform/product/answers/ItemProperties.h"
#include "platform/product/answers/MemoryProductState.h"
#include "platform/product/edits/Deletion.h"
#include "platform/product/edits/FreeKeys.h"
#include "platform/product/edits/Positions.h"
#include "platform/product/model/PropertyNumbers.h"
#include "platform/product/model/SourceProduct.h"
#include "platform/services/UserDecisions.h"

#include <algorithm>

namespace platform {

namespace {

constexpr int c_otherIcon = 26;

ObjectRecord MakeBillet(const ObjectRecord& owner, UniqueMetaObjectKey key) {
    ObjectRecord billet;
    billet.key = std::move(key);
    billet.kind = owner.kind;
    billet.part.used = owner.part.used;
    billet.section = owner.section;
    billet.iconType = owner.iconType;
    billet.billet = BilletKind::Manual;
    billet.billetOwner = owner.key;
    return billet;
}

bool HasBillet(const ProductModel& model, const UniqueMetaObjectKey& owner) {
    return std::ranges::any_of(model.objects, [&](const ObjectRecord& object) {
        return object.billet != BilletKind::None && object.billetOwner == owner;
    });
}

/// What the object can become a billet of.
ObjectRequest MakeOwnersRequest(const ProductModel& model, const ObjectRecord& billet) {
    ObjectRequest request;
    request.title = GetText(ProductText::BilletOwnerTitle);
    for (const ObjectRecord& object : model.objects) {
        if (object.billet == BilletKind::None && !(object.key == billet.key))
            request.objects.push_back(
                {object.key, object.name,
                 object.marking.Make(VariantMarkingData::MakeAll, false, false)});
    }
    return request;
}

} // namespace

bool MemoryProduct::CanHighlight(const UniqueMetaObjectKey& key) const {
    const PartEntry* const part = m_state->index.Find(key);
    return m_state->look->observer && part && !part->isRoot && part->isShown;
}

bool MemoryProduct::CanDelete(const UniqueMetaObjectKey& key) const {
    const PartEntry* const part = m_state->index.Find(key);
    return part && !part->isRoot && !m_state->IsStructureFixed();
}

bool MemoryProduct::IsSelectableBillet(const UniqueMetaObjectKey& key) const {
    return m_state->index.Find(key) != nullptr;
}

bool MemoryProduct::IsSectionNameLinked(const UniqueMetaObjectKey& key) const {
    const PartEntry* const part = m_state->index.Find(key);
    return part && part->object->record->isNameLinkedToSection;
}

int MemoryProduct::GetIconType(const UniqueMetaObjectKey& key) const {
    const PartEntry* const part = m_state->index.Find(key);
    return part ? part->iconType : c_otherIcon;
}

bool MemoryProduct::IsExcludedFromCount(const UniqueMetaObjectKey& key) const {
    const PartEntry* const part = m_state->index.Find(key);
    return part && part->isExcludedFromCount;
}

DeleteInfo MemoryProduct::GetDeleteInfo(const std::set<UniqueMetaObjectKey>& keys) const {
    const Deletion deletion(m_state->index, m_state->rows, keys);
    DeleteInfo info;
    info.count = static_cast<int>(deletion.GetRowCount());
    if (deletion.IsOneObject(keys))
        info.name = TitleOf(*deletion.GetObject()->object->record);
    return info;
}

bool MemoryProduct::DeleteObjects(const std::set<UniqueMetaObjectKey>& keys) {
    if (m_state->IsStructureFixed())
        return false;
    const Deletion deletion(m_state->index, m_state->rows, keys);
    if (deletion.IsEmpty())
        return false;
    SharedText name =
        deletion.IsOneObject(keys)
            ? GetText(ProductText::Deletion, {TitleOf(*deletion.GetObject()->object->record)})
            : GetText(ProductText::Deletions, {std::to_wstring(deletion.GetRowCount())});
    return m_state->Do({std::move(name), deletion.MakeEdits(m_state->model.root.key)});
}

// What is used several times, built up of others or has a billet itself is none.
bool MemoryProduct::CanConvertToBillet(const UniqueMetaObjectKey& key) const {
    const PartEntry* const part = m_state->index.Find(key);
    if (!part || part->isRoot || m_state->IsStructureFixed() || !m_state->look->decisions)
        return false;
    const ObjectRecord& object = *part->object->record;
    return object.billet == BilletKind::None && object.occurrences.size() <= 1 &&
           !OpensLevel(m_state->model, object.key) && !HasBillet(m_state->model, object.key) &&
           !MakeOwnersRequest(m_state->model, object).objects.empty();
}

// Billets have no uses: they stand behind their owner.
void MemoryProduct::ConvertToBillet(const UniqueMetaObjectKey& key) {
    if (!CanConvertToBillet(key))
        return;
    const UniqueMetaObjectKey object = m_state->index.Find(key)->owner->key;
    const std::optional<UniqueMetaObjectKey> chosen = m_state->look->decisions->ChooseObject(
        MakeOwnersRequest(m_state->model, *m_state->index.Find(key)->object->record));
    const PartEntry* const owner = chosen ? m_state->index.Find(*chosen) : nullptr;
    const PartEntry* const part = m_state->index.Find(object);
    if (!owner || owner->isUse || owner->isRoot || !part || owner == part)
        return;
    ObjectRecord billet = *part->object->record;
    billet.occurrences.clear();
    billet.section = owner->object->record->section;
    billet.billet = BilletKind::Manual;
    billet.billetOwner = owner->key;
    std::erase_if(billet.properties,
                  [](const auto& value) { return value.first == number::position; });
    const std::size_t ownerPlace = m_state->index.GetPlace(*owner).object;
    const bool isBefore = m_state->index.GetPlace(*part).object < ownerPlace;
    StructureChange gone;
    gone.objects = RecordsSwap<ObjectRecord>(std::vector{object});
    StructureChange come;
    come.objects = RecordsSwap<ObjectRecord>(std::move(billet), ownerPlace + (isBefore ? 0 : 1));
    Step step;
    step.name = GetText(ProductText::BilletConversion, {TitleOf(*part->object->record)});
    step.edits.push_back(std::make_unique<StructureEdit>(std::move(gone)));
    step.edits.push_back(std::make_unique<StructureEdit>(std::move(come)));
    m_state->Do(std::move(step));
}

bool MemoryProduct::CanShowItemProperties(const UniqueMetaObjectKey& key) const {
    return m_state->index.Find(key) != nullptr;
}

bool MemoryProduct::CommitProperties(ItemProperties& properties) {
    const auto wanted = properties.MakeChanges();
    if (!wanted)
        return false;
    ProductInfObjChangesResult changes = m_state->MakeSet(*wanted);
    if (!changes.IsExistsChanges())
        return true;
    CommitChanges(changes);
    if (!changes.IsExistsChanges())
        properties.RefuseAll();
    return changes.IsExistsChanges();
}

void MemoryProduct::ShowItemProperties(const UniqueMetaObjectKey& key) {
    // Asked again with what was refused, until all is taken or the user gives up. The document may
    // be another one after each answer, so that nothing of it is kept meanwhile.
    std::vector<ItemPropertyInput> inputs;
    for (bool isAnswered = false;; isAnswered = true) {
        const PartEntry* const part = m_state->index.Find(key);
        IUserDecisions* const decisions = m_state->look->decisions;
        if (!part || !decisions)
            return;
        ItemProperties properties(m_state->GetRules(), *m_state->descriptions, *part,
                                  GetCountKey(key, GetCurrentEmbodiments(), false));
        properties.Take(inputs);
        if (isAnswered && CommitProperties(properties))
            return;
        const auto answer = decisions->EditItemProperties(properties.GetRequest());
        if (!answer)
            return;
        inputs.insert(inputs.end(), answer->begin(), answer->end());
    }
}

// In a list of all parts, where a part stands in the structure is its assembly.

bool MemoryProduct::CanGotoFeature(const UniqueMetaObjectKey& key) const {
    const PartEntry* const part = m_state->index.Find(key);
    return part && !part->isRoot && m_state->model.level.allParts;
}

void MemoryProduct::GotoFeature(const UniqueMetaObjectKey& key) {
    if (!CanGotoFeature(key))
        return;
    const UniqueMetaObjectKey object = m_state->index.Find(key)->owner->key;
    const UniqueMetaObjectKey user =
        FindUser(m_state->model, m_state->model.level.assembly, object);
    if (user.IsEmpty() || !EnterLevel({user, false}))
        return;
    const PartEntry* const part = m_state->index.Find(object);
    const std::span<const PartEntry> uses =
        part ? m_state->index.GetUsesOf(*part) : std::span<const PartEntry>();
    SetSelectedKeys({uses.empty() ? object : uses.front().key});
}

bool MemoryProduct::CanAddBillet(const UniqueMetaObjectKey& key) const {
    const PartEntry* const part = m_state->index.Find(key);
    return part && !part->isRoot && !m_state->IsStructureFixed() &&
           part->object->record->billet == BilletKind::None;
}

UniqueMetaObjectKey MemoryProduct::AddBillet(const UniqueMetaObjectKey& key) {
    if (!CanAddBillet(key))
        return {};
    const PartEntry& owner = *m_state->index.Find(key)->owner;
    UniqueMetaObjectKey billet =
        MakeFreeKey(m_state->model, m_state->index, owner.key.String() + "-billet");
    StructureChange change;
    change.objects = RecordsSwap<ObjectRecord>(MakeBillet(*owner.object->record, billet),
                                               m_state->index.GetPlace(owner).object + 1);
    Step step;
    step.name = GetText(ProductText::NewBillet);
    step.edits.push_back(std::make_unique<StructureEdit>(std::move(change)));
    m_state->Do(std::move(step));
    return billet;
}

bool MemoryProduct::CanCalculatePositions() const {
    return !m_state->model.isReadOnly;
}

unsigned MemoryProduct::GetFirstPosition() const {
    return 1;
}

bool MemoryProduct::CanStartPositions() const {
    return !m_state->model.isReadOnly;
}

bool MemoryProduct::CanSetPosition(const UniqueMetaObjectKey& key) const {
    const PartEntry* const part = m_state->index.Find(key);
    return part && TakesNumber(m_state->GetRules(), *part);
}

bool MemoryProduct::KeepsOwnPosition(const UniqueMetaObjectKey& key) const {
    const PartEntry* const part = m_state->index.Find(key);
    return part && KeepsPosition(*part);
}

bool MemoryProduct::CanClearPosition(const UniqueMetaObjectKey& key) const {
    const PartEntry* const part = m_state->index.Find(key);
    return part && LosesPosition(m_state->GetRules(), *part);
}

bool MemoryProduct::IsSectionNumbered(const SPCSection& section) const {
    return m_state->rows.IsSectionNumbered(section);
}

} // namespace platform
