// What a MemoryProduct holds, and how a step is made: shared by the files that its operations are
// spread over by theme, and by nobody else.
#pragma once

#include "platform/product/answers/MemoryAggregator.h"
#include "platform/product/answers/MemoryProduct.h"
#include "platform/product/edits/EditHistory.h"
#include "platform/product/edits/ProductChanges.h"
#include "platform/product/model/AssemblyLevels.h"
#include "platform/product/model/ModelEmbodiments.h"
#include "platform/product/model/ProductTexts.h"

namespace platform {

struct MemoryProduct::State {
    explicit State(ProductModel&& filled);

    /// Everything is made anew from the model, whatever was done to it.
    void Renew();
    EditRules GetRules() const { return {model, index, properties, rows, counts}; }
    /// The caption of the property, else its path.
    SharedText GetCaption(unsigned long number) const;
    const PropertyTraits& GetTraits(const PropertyRef& ref) {
        return properties.Get(ref.propertyId);
    }

    /// The property is asked about as a count in an embodiment.
    static bool IsCount(const PropertyTraits& property, const PropertyRef& ref) {
        return property.number == number::count && !ref.secondKey.IsEmpty();
    }
    /// The set that holds the change, when there is something to change.
    ProductInfObjChangesResult MakeSet(std::shared_ptr<const ProductChange> change) const;

    /// Makes the step with what follows from it, and remembers it. False: there was nothing to do.
    bool Do(Step step);
    /// Shows another level of the product, which is no step.
    LevelFault Enter(const ProductLevel& level);
    /// Nothing can come or go: all parts are what the assemblies have.
    bool IsStructureFixed() const { return model.isReadOnly || model.level.allParts; }
    /// Goes a step that is remembered. Null is no step.
    void Go(Step* step, Direction direction);
    /// Which columns are shown was changed.
    void NoteColumns();

    ProductModel model;
    ProductIndex index;
    MemoryAggregator aggregator{index, model};
    ModelEmbodiments embodiments{model};
    PropertyLookup properties;
    RowRules rows{model, index};
    PartCounts counts{model, index, rows};
    std::unique_ptr<SpcDescription> style;
    std::unique_ptr<PropertyDescriptions> descriptions;
    /// Those of earlier states of the document: whoever holds them may do so until BeginRebuild.
    std::vector<std::unique_ptr<PropertyDescriptions>> retired;
    EditHistory history;
    IUserDecisions* decisions = nullptr;
    IProductObserver* observer = nullptr;
    std::vector<UniqueMetaObjectKey> selected;
    std::optional<Highlighting> highlighting;
    std::weak_ptr<std::function<void()>> highlightDone;
    /// Why the last value was not taken; what the last step is to be told of. Both until they are
    /// asked for.
    mutable std::optional<ProductText> refusal;
    SharedText note;
    std::uint64_t stamp = 0;
    bool isRebuildRequired = true;
    bool areColumnsUnsaved = false;

private:
    /// What is made of the parts of the model that steps leave alone but for DocumentEdit.
    void RenewDescriptions();
    void Finish(ModelEditor& editor);
};

} // namespace platform
