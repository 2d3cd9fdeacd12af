// What a MemoryProduct holds, and how a step is made: shared by the files that its operations are
// spread over by theme, and by nobody else.
#pragma once

#include "platform/product/answers/DocumentList.h"
#include "platform/product/answers/MemoryAggregator.h"
#include "platform/product/answers/MemoryProduct.h"
#include "platform/product/edits/ChangeLog.h"
#include "platform/product/edits/EditHistory.h"
#include "platform/product/edits/ProductChanges.h"
#include "platform/product/edits/SourceUpdate.h"
#include "platform/product/model/AssemblyLevels.h"
#include "platform/product/model/ModelEmbodiments.h"
#include "platform/product/model/ProductTexts.h"

namespace platform {

/// How one panel looks at the document. The first four are in the model, and the model's here,
/// while the look is the present one.
struct MemoryProduct::Look {
    ProductLevel level;
    bool embodimentMode = false;
    std::wstring embodimentFilter;
    std::vector<unsigned long> visibleProperties;

    IUserDecisions* decisions = nullptr;
    IProductObserver* observer = nullptr;
    /// Counts what was changed in the look and not in the document.
    std::uint64_t stamp = 0;
    /// The change stamp after the last time that all rows may have become others by it.
    std::uint64_t turnedAt = 0;
    bool isRebuildRequired = true;
    /// Of earlier states of the document: the panel may hold them until BeginRebuild.
    std::vector<std::shared_ptr<const PropertyDescriptions>> retired;
};

// The document stands at one level at a time, so that all that answers, edits and counts knows just
// one. Whoever asks has it go to his: two panels at different levels of one product pay for each
// turn what entering a level costs, and all others nothing.
struct MemoryProduct::State {
    explicit State(ProductModel&& filled);

    /// Everything is made anew from the model, whatever was done to it.
    void Renew();
    EditRules GetRules() const { return {model, index, properties, rows, counts}; }
    /// The caption of the property, else its path.
    SharedText GetCaption(unsigned long number) const;
    /// Of a step that makes such changes alone.
    SharedText NameStep(const ProductChange& change) const;
    const PropertyTraits& GetTraits(const PropertyRef& ref) {
        return properties.Get(ref.propertyId);
    }

    /// The property is asked about as a count in an embodiment.
    static bool IsCount(const PropertyTraits& property, const PropertyRef& ref) {
        return property.number == number::count && !ref.secondKey.IsEmpty();
    }
    /// The set that holds the change, when there is something to change.
    ProductInfObjChangesResult MakeSet(std::shared_ptr<const ProductChange> change) const;
    /// The same with several changes.
    ProductInfObjChangesResult
    MakeSet(const std::vector<std::shared_ptr<const ProductChange>>& wanted) const;

    /// From now on the model is as that look has it.
    void TurnTo(Look& wanted);
    void Forget(Look& gone);
    /// As the panel of the present look knows it.
    std::uint64_t GetStamp() const { return log.GetStamp() + look->stamp; }
    /// The present look is another one: all rows may show other values.
    void NoteTurn();
    /// Other columns or another level are to be seen in it.
    void NoteLook();

    /// Makes the step with what follows from it, and remembers it. False: there was nothing to do.
    bool Do(Step step);
    /// The present look goes to another level of the product, which is no step.
    LevelFault Enter(const ProductLevel& level);
    /// Nothing can come or go: all parts are what the assemblies have.
    bool IsStructureFixed() const { return model.isReadOnly || model.level.allParts; }
    /// Goes a step that is remembered. Null is no step.
    void Go(Step* step, Direction direction);
    /// Which columns are shown in the present look was changed.
    void NoteColumns();
    void TellOfChange(bool structure) const;
    void TellOfLook() const;
    /// The observers of all looks hear of it.
    void TellAll(void (IProductObserver::*what)()) const;
    std::optional<DocumentList> FindDocuments(const UniqueMetaObjectKey& key) const;
    /// What is kept of the document that is listed so; null for none.
    const DocumentRecord* FindDocument(const UniqueMetaObjectKey& key,
                                       const std::wstring& file) const;
    /// Of the files that can be added to those of the object. The user is told of the rest.
    std::vector<DocumentRecord> MakeDocuments(const UniqueMetaObjectKey& key,
                                              const std::vector<std::filesystem::path>& paths);
    /// Asks before documents go. True also where none does.
    bool MayRemove(const ProductInfObjChangesResult& changes) const;
    ProductInfObjChangesResult MakeSourceSet(const UniqueMetaObjectKey& key,
                                             const PartDocument& document, bool isSource) const;
    ProductInfObjChangesResult MakeFormatSet(const UniqueMetaObjectKey& key,
                                             const PartDocument& document, bool isUsed) const;
    /// The change can be had, or is so already. Nobody is told why not.
    bool CanMake(const ProductChange& change) const;
    /// The user of the present look. No value: nothing is to happen.
    std::optional<GoneParts> AskAboutGone(const SourceFile& source,
                                          const std::vector<GonePart>& gone);

    ProductModel model;
    ProductIndex index;
    MemoryAggregator aggregator{index, model};
    ModelEmbodiments embodiments{model};
    PropertyLookup properties;
    RowRules rows{model, index};
    PartCounts counts{model, index, rows};
    std::unique_ptr<SpcDescription> style;
    std::shared_ptr<const PropertyDescriptions> descriptions;
    EditHistory history;
    /// The present one; null before the first has come and after the present one has gone.
    Look* look = nullptr;
    std::vector<Look*> looks;
    ISourceFiles* sourceFiles = nullptr;
    IDocumentFiles* documentFiles = nullptr;
    std::optional<ContentsMark> sourceOnDisk;
    std::vector<UniqueMetaObjectKey> selected;
    std::optional<Highlighting> highlighting;
    std::weak_ptr<std::function<void()>> highlightDone;
    /// Why the last value was not taken; what the last step is to be told of. Both until they are
    /// asked for.
    mutable std::optional<ProductText> refusal;
    SharedText note;
    ChangeLog log;
    bool areColumnsUnsaved = false;

private:
    /// What the look has and what the model shows change places, but for the level.
    void Exchange(Look& other);
    /// The index, and what follows from the parts that are shown now.
    void ReadLevel(ModelEditor& editor);
    /// What is made of the parts of the model that steps leave alone but for DocumentEdit.
    void RenewDescriptions();
    void Finish(ModelEditor& editor);
};

inline MemoryProduct::State* MemoryProduct::Entrance::operator->() const {
    if (m_state->look != m_look.get())
        m_state->TurnTo(*m_look);
    return m_state.get();
}

} // namespace platform
