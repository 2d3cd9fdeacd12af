#include "platform/product/answers/MemoryProductState.h"

#include "host/ProductProperties.h"
#include "platform/product/answers/MemoryStyle.h"
#include "platform/product/edits/MassRules.h"
#include "platform/product/index/Dependents.h"

#include <algorithm>
#include <utility>

namespace platform {

namespace {

/// Writes the values and gives the edit that holds those before; null when there is nothing to do.
std::unique_ptr<IModelEdit> Write(ModelEditor& editor, std::vector<HeldValue> values) {
    if (values.empty())
        return nullptr;
    auto edit = std::make_unique<ValuesEdit>(std::move(values));
    edit->Swap(editor, Direction::Forth);
    return edit;
}

} // namespace

MemoryProduct::Entrance::Entrance(std::shared_ptr<State> state, std::unique_ptr<Look> look)
    : m_state(std::move(state)), m_look(std::move(look)) {
    m_state->looks.push_back(m_look.get());
}

MemoryProduct::Entrance::~Entrance() {
    m_state->Forget(*m_look);
}

std::shared_ptr<MemoryProduct> MemoryProduct::Entrance::Split() const {
    const State& state = *operator->();
    auto look = std::make_unique<Look>();
    look->level = state.model.level;
    look->embodimentMode = state.model.embodimentMode;
    look->embodimentFilter = state.model.embodimentFilter;
    look->visibleProperties = state.model.visibleProperties;
    return std::shared_ptr<MemoryProduct>(new MemoryProduct(m_state, std::move(look)));
}

MemoryProduct::State::State(ProductModel&& filled) : model(std::move(filled)) {
    Renew();
}

void MemoryProduct::State::Renew() {
    RenewDescriptions();
    ModelEditor editor(model, index);
    ReadLevel(editor);
    Finish(editor);
    TellOfChange(true);
}

void MemoryProduct::State::ReadLevel(ModelEditor& editor) {
    editor.NoteEverything();
    Write(editor, FindAssemblyMasses(editor));
    Write(editor, FindProductMass(editor));
    RegroupLinkedObjects(editor.GetIndex());
    rows.Forget();
}

void MemoryProduct::State::Exchange(Look& other) {
    std::swap(model.embodimentMode, other.embodimentMode);
    model.embodimentFilter.swap(other.embodimentFilter);
    model.visibleProperties.swap(other.visibleProperties);
}

void MemoryProduct::State::TurnTo(Look& wanted) {
    // The first look is as the model is.
    if (!look) {
        look = &wanted;
        return;
    }
    look->level = model.level;
    Exchange(*look);
    look = &wanted;
    Exchange(wanted);
    if (wanted.level == model.level)
        return;
    // Its assembly may have gone by way of another look.
    const bool isThere = IsInProduct(model, wanted.level.assembly) &&
                         platform::EnterLevel(model, wanted.level) == LevelFault::None;
    if (!isThere) {
        NoteLook();
        if (!platform::HasLevels(model) ||
            platform::EnterLevel(model, platform::GetHome(model)) != LevelFault::None)
            return;
    }
    ModelEditor editor(model, index);
    ReadLevel(editor);
    // What was changed meanwhile was said of the parts of another level.
    look->turnedAt = GetStamp();
}

void MemoryProduct::State::Forget(Look& gone) {
    std::erase(looks, &gone);
    if (look != &gone)
        return;
    if (looks.empty()) {
        look = nullptr;
        return;
    }
    TurnTo(*looks.front());
}

void MemoryProduct::State::NoteTurn() {
    ++look->stamp;
    look->turnedAt = GetStamp();
}

void MemoryProduct::State::NoteLook() {
    NoteTurn();
    look->isRebuildRequired = true;
}

LevelFault MemoryProduct::State::Enter(const ProductLevel& level) {
    const LevelFault fault = platform::EnterLevel(model, level);
    if (fault != LevelFault::None)
        return fault;
    ModelEditor editor(model, index);
    ReadLevel(editor);
    NoteLook();
    return fault;
}

void MemoryProduct::State::RenewDescriptions() {
    style = model.style ? MakeSpcDescription(*model.style) : nullptr;
    for (Look* const panel : looks) {
        if (descriptions)
            panel->retired.push_back(descriptions);
    }
    descriptions = std::make_shared<PropertyDescriptions>(model.properties);
    properties.Use(*descriptions);
}

SharedText MemoryProduct::State::GetCaption(unsigned long number) const {
    const PropertyRecord* const record = descriptions->FindRecord(number);
    return record && !record->caption.empty() ? record->caption
                                              : ProductProperties::GetPath(number);
}

ProductInfObjChangesResult
MemoryProduct::State::MakeSet(std::shared_ptr<const ProductChange> change) const {
    ProductInfObjChangesResult changes;
    ValuePlan plan(index);
    if (change->Plan(GetRules(), plan) && !plan.IsEmpty()) {
        changes.changedProperties.insert(ProductProperties::GetPath(change->GetNumber()));
        changes.Add(std::move(change));
    }
    if (!refusal)
        refusal = plan.GetRefusal();
    return changes;
}

ProductInfObjChangesResult MemoryProduct::State::MakeSet(
    const std::vector<std::shared_ptr<const ProductChange>>& wanted) const {
    ProductInfObjChangesResult changes;
    for (const std::shared_ptr<const ProductChange>& change : wanted) {
        const ProductInfObjChangesResult made = MakeSet(change);
        changes += made;
        changes.changedProperties.insert(made.changedProperties.begin(),
                                         made.changedProperties.end());
    }
    return changes;
}

bool MemoryProduct::State::Do(Step step) {
    step.level = model.level;
    ModelEditor editor(model, index);
    step.Swap(editor, Direction::Forth);
    if (!editor.IsAnythingChanged())
        return false;
    if (editor.IsDocumentChanged())
        RenewDescriptions();
    // What the product weighs depends on what its parts do.
    if (auto edit = Write(editor, FindMassesByDensity(editor)))
        step.edits.push_back(std::move(edit));
    if (auto edit = Write(editor, FindAssemblyMasses(editor)))
        step.edits.push_back(std::move(edit));
    if (auto edit = Write(editor, FindProductMass(editor)))
        step.edits.push_back(std::move(edit));
    Finish(editor);
    history.Add(std::move(step));
    TellOfChange(editor.AreRowsChanged());
    return true;
}

void MemoryProduct::State::Go(Step* step, Direction direction) {
    if (!step)
        return;
    // The user is to see what is undone, and its keys are those of its level.
    const bool isElsewhere = !(step->level == model.level);
    if (isElsewhere)
        Enter(step->level);
    ModelEditor editor(model, index);
    step->Swap(editor, direction);
    if (editor.IsDocumentChanged())
        RenewDescriptions();
    // The step has brought back the masses of its day; volumes may be known since.
    Write(editor, FindMassesByDensity(editor));
    Write(editor, FindAssemblyMasses(editor));
    Write(editor, FindProductMass(editor));
    Finish(editor);
    TellOfChange(isElsewhere || editor.AreRowsChanged());
}

void MemoryProduct::State::Finish(ModelEditor& editor) {
    if (RegroupLinkedObjects(editor.GetIndex()))
        editor.NoteRows();
    if (editor.AreRowsChanged())
        rows.Forget();
    for (Look* const panel : looks)
        panel->isRebuildRequired |= editor.AreRowsChanged();
    if (editor.AreRowsChanged())
        log.Note({});
    else
        log.Note(
            {true,
             Dependents(index, rows).Find(editor.GetChangedParts(), editor.AreCountsChanged())});
}

void MemoryProduct::State::NoteColumns() {
    NoteLook();
    areColumnsUnsaved |= !model.isReadOnly;
}

void MemoryProduct::State::TellOfChange(bool structure) const {
    if (look && look->observer)
        look->observer->OnDocumentChanged(structure);
}

void MemoryProduct::State::TellAll(void (IProductObserver::*what)()) const {
    // Copied, since an answer may open or close a look.
    for (const Look* const panel : std::vector(looks)) {
        if (std::ranges::find(looks, panel) != looks.end() && panel->observer)
            (panel->observer->*what)();
    }
}

void MemoryProduct::State::TellOfLook() const {
    if (look->observer)
        look->observer->OnLookChanged();
}

} // namespace platform
