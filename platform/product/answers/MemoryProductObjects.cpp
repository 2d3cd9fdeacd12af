#include "host/ProductProperties.h"
#include "platform/product/answers/ItemProperties.h"
#include "platform/product/answers/MemoryProductState.h"
#include "platform/product/edits/Deletion.h"
#include "platform/product/edits/FreeKeys.h"
#include "platform/product/edits/Positions.h"
#include "platform/product/model/PropertyNumbers.h"
#include "platform/services/UserDecisions.h"

#include <algorithm>

namespace platform {

namespace {

constexpr int c_otherIcon = 26;
/// CM_2D_COMPONENT_EDIT_OUT_PLACE.
constexpr int c_editInOwnWindow = 7020;

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

SharedText NameOf(const PartEntry& part) {
    const SharedText name = part.object->record->name;
    return name.IsEmpty()
               ? part.object->record->marking.Make(VariantMarkingData::MakeAll, false, false)
               : name;
}

} // namespace

bool MemoryProduct::CanHighlight(const UniqueMetaObjectKey& key) const {
    const PartEntry* const part = m_state->index.Find(key);
    return m_state->observer && part && !part->isRoot && part->isShown;
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

bool MemoryProduct::IsActual(const UniqueMetaObjectKey& key) const {
    const PartEntry* const part = m_state->index.Find(key);
    return !part || part->isActual;
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
        info.name = NameOf(*deletion.GetObject());
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
            ? GetText(ProductText::Deletion, {NameOf(*deletion.GetObject())})
            : GetText(ProductText::Deletions, {std::to_wstring(deletion.GetRowCount())});
    return m_state->Do({std::move(name), deletion.MakeEdits()});
}

// An object of this document is no billet of another one.

bool MemoryProduct::CanConvertToBillet(const UniqueMetaObjectKey& /*key*/) const {
    return false;
}

void MemoryProduct::ConvertToBillet(const UniqueMetaObjectKey& /*key*/) {}

bool MemoryProduct::CanShowItemProperties(const UniqueMetaObjectKey& key) const {
    return m_state->index.Find(key) != nullptr;
}

void MemoryProduct::ShowItemProperties(const UniqueMetaObjectKey& key) {
    const PartEntry* const part = m_state->index.Find(key);
    if (part && m_state->decisions)
        m_state->decisions->Tell(GetText(ProductText::ItemPropertiesTitle),
                                 ListProperties(m_state->index, *m_state->descriptions, *part));
}

// There is no tree of features beside the product.

bool MemoryProduct::CanGotoFeature(const UniqueMetaObjectKey& /*key*/) const {
    return false;
}

void MemoryProduct::GotoFeature(const UniqueMetaObjectKey& /*key*/) {}

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

bool MemoryProduct::CanEditSource(const UniqueMetaObjectKey& key) const {
    return !FindAssembly(key).IsEmpty();
}

int MemoryProduct::GetEditSourceCommand(const UniqueMetaObjectKey& /*key*/) const {
    return c_editInOwnWindow;
}

void MemoryProduct::EditSource(const UniqueMetaObjectKey& key) {
    EnterLevel({FindAssembly(key), false});
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
