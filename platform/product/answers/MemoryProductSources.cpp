// Where imported objects come from: whether they agree with that still, bringing them up to date,
// and editing it.

#include "platform/product/answers/MemoryProductState.h"
#include "platform/product/answers/SourceFiles.h"
#include "platform/product/model/SourceProduct.h"
#include "platform/services/UserDecisions.h"

#include <iterator>

namespace platform {

namespace {

/// CM_2D_COMPONENT_EDIT_OUT_PLACE and CM_EDIT_INSERTFRG_SOURCE.
constexpr int c_editInOwnWindow = 7020;
constexpr int c_editFragmentSource = 5707;

/// More lines than that would make a question taller than a screen.
constexpr std::size_t c_mostLines = 15;

std::wstring LineOf(const GonePart& gone) {
    if (gone.uses > 0)
        return GetText(ProductText::GoneUses,
                       {gone.part, gone.assembly, std::to_wstring(gone.uses)});
    return gone.assembly.IsEmpty() ? gone.part.Str()
                                   : GetText(ProductText::GoneIn, {gone.part, gone.assembly}).Str();
}

SharedText ListGone(const SourceFile& source, const std::vector<GonePart>& gone) {
    std::wstring text = GetText(ProductText::GoneQuestion, {FileNameOf(source)});
    const std::size_t shown = gone.size() > c_mostLines ? c_mostLines - 1 : gone.size();
    for (std::size_t i = 0; i < shown; ++i)
        text += L'\n' + LineOf(gone[i]);
    if (shown < gone.size())
        text +=
            L'\n' + GetText(ProductText::GoneMore, {std::to_wstring(gone.size() - shown)}).Str();
    return text;
}

SharedText ReasonOf(UpdateFault fault) {
    return GetText(fault == UpdateFault::Cycle ? ProductText::UpdateCycle
                                               : ProductText::UpdateEmbodiments);
}

} // namespace

bool MemoryProduct::IsActual(const UniqueMetaObjectKey& key) const {
    const PartEntry* const part = m_state->index.Find(key);
    return !part || (part->isActual && !(part->hasSource && IsSourceChanged()));
}

void MemoryProduct::SetSourceFiles(ISourceFiles* files) {
    m_state->sourceFiles = files;
}

void MemoryProduct::NoteSource(const std::optional<ContentsMark>& onDisk) {
    const bool wasChanged = IsSourceChanged();
    m_state->sourceOnDisk = onDisk;
    if (wasChanged == IsSourceChanged())
        return;
    m_state->log.Note({});
    m_state->TellOfChange(false);
}

bool MemoryProduct::IsSourceChanged() const {
    const std::optional<SourceFile>& source = m_state->model.source;
    return source && m_state->sourceOnDisk && !(*m_state->sourceOnDisk == source->contents);
}

void MemoryProduct::UpdateAll() {
    if (!m_state->model.source || !m_state->sourceFiles)
        return;
    // Copied, since other looks may be asked while the user is.
    const SourceFile source = *m_state->model.source;
    const auto tell = [&](const SharedText& reason) {
        if (m_state->look->decisions)
            m_state->look->decisions->Tell(
                GetText(ProductText::UpdateRefused, {FileNameOf(source)}), reason);
    };
    if (m_state->model.isReadOnly)
        return tell(GetText(ProductText::UpdateReadOnly));
    const auto read = m_state->sourceFiles->Read(m_state->model);
    const ProductModel* const fresh = std::get_if<ProductModel>(&read);
    if (!fresh)
        return tell(std::get<SharedText>(read));
    NoteSource(fresh->source->contents);
    if (!IsSourceChanged())
        return;
    const ProductModel present = MakeSaved();
    SourceUpdate update = UpdateFromSource(present, *fresh, GoneParts::Remove);
    if (update.fault == UpdateFault::None && !update.gone.empty()) {
        const std::optional<GoneParts> answer = m_state->AskAboutGone(source, update.gone);
        if (!answer)
            return;
        if (answer == GoneParts::Keep)
            update = UpdateFromSource(present, *fresh, GoneParts::Keep);
    }
    if (update.fault != UpdateFault::None)
        return tell(ReasonOf(update.fault));
    // The user stays where he is, if that is still there.
    platform::EnterLevel(update.model, m_state->model.level);
    Step step{GetText(ProductText::Update, {FileNameOf(source)}), {}};
    step.edits.push_back(std::make_unique<DocumentEdit>(std::move(update.model)));
    m_state->Do(std::move(step));
    m_state->sourceFiles->OnUpdated(update);
}

std::optional<GoneParts> MemoryProduct::State::AskAboutGone(const SourceFile& source,
                                                            const std::vector<GonePart>& gone) {
    if (!look->decisions)
        return std::nullopt;
    constexpr GoneParts answers[] = {GoneParts::Remove, GoneParts::Keep};
    const std::optional<std::size_t> answer =
        look->decisions->Ask({GetText(ProductText::UpdateTitle),
                              ListGone(source, gone),
                              {GetText(ProductText::GoneRemove), GetText(ProductText::GoneKeep),
                               GetText(ProductText::GoneCancel)}});
    return answer && *answer < std::size(answers) ? std::optional(answers[*answer]) : std::nullopt;
}

std::optional<SourcePart> MemoryProduct::FindSourcePart(const UniqueMetaObjectKey& part) const {
    const PartEntry* const found = m_state->index.Find(part);
    if (!found || !m_state->model.source)
        return std::nullopt;
    const ObjectRecord& object = *found->owner->object->record;
    return object.source ? std::optional(SourcePart{object.key, *object.source}) : std::nullopt;
}

bool MemoryProduct::CanEditSource(const UniqueMetaObjectKey& key) const {
    if (!FindAssembly(key).IsEmpty())
        return true;
    const PartEntry* const part = m_state->index.Find(key);
    return part && part->hasSource && m_state->model.source && m_state->sourceFiles &&
           m_state->sourceFiles->IsThere(*m_state->model.source);
}

int MemoryProduct::GetEditSourceCommand(const UniqueMetaObjectKey& key) const {
    return FindAssembly(key).IsEmpty() ? c_editFragmentSource : c_editInOwnWindow;
}

void MemoryProduct::EditSource(const UniqueMetaObjectKey& key) {
    if (!CanEditSource(key))
        return;
    if (const UniqueMetaObjectKey assembly = FindAssembly(key); !assembly.IsEmpty()) {
        EnterLevel({assembly, false});
        return;
    }
    const SourceFile& source = *m_state->model.source;
    if (!m_state->sourceFiles->Open(source) && m_state->look->decisions)
        m_state->look->decisions->Tell(GetText(ProductText::OpenRefused, {FileNameOf(source)}),
                                       GetText(ProductText::OpenNoProgram));
}

} // namespace platform
