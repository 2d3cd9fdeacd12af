#include "platform/product/answers/MemoryProductState.h"

#include "host/ProductProperties.h"
#include "platform/product/answers/MemoryStyle.h"
#include "platform/product/edits/MassRules.h"

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

MemoryProduct::State::State(ProductModel&& filled) : model(std::move(filled)) {
    Renew();
}

void MemoryProduct::State::Renew() {
    RenewDescriptions();
    ModelEditor editor(model, index);
    editor.NoteEverything();
    Write(editor, FindAssemblyMasses(editor));
    Write(editor, FindProductMass(editor));
    Finish(editor);
}

LevelFault MemoryProduct::State::Enter(const ProductLevel& level) {
    const LevelFault fault = platform::EnterLevel(model, level);
    if (fault == LevelFault::None)
        Renew();
    return fault;
}

void MemoryProduct::State::RenewDescriptions() {
    style = model.style ? MakeSpcDescription(*model.style) : nullptr;
    if (descriptions)
        retired.push_back(std::move(descriptions));
    descriptions = std::make_unique<PropertyDescriptions>(model.properties);
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
    return true;
}

void MemoryProduct::State::Go(Step* step, Direction direction) {
    if (!step)
        return;
    // The user is to see what is undone, and its keys are those of its level.
    if (!(step->level == model.level))
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
}

void MemoryProduct::State::Finish(ModelEditor& editor) {
    if (RegroupLinkedObjects(editor.GetIndex()))
        editor.NoteRows();
    if (editor.AreRowsChanged())
        rows.Forget();
    isRebuildRequired |= editor.AreRowsChanged();
    ++stamp;
}

void MemoryProduct::State::NoteColumns() {
    ++stamp;
    isRebuildRequired = true;
    areColumnsUnsaved |= !model.isReadOnly;
}

} // namespace platform
