// A product document in memory, answering the library's questions from a ProductModel. It is what
// the program shows and edits, whatever file the model came from, and what tests describe their
// products by. Each change that the user makes is one step, which can be undone by name.
//
// What comes by source is what an occurrence has from its object. A model holds no features:
// questions about them have the neutral answers.
#pragma once

#include "host/data/IfProductTreeData.h"
#include "platform/product/edits/MassRules.h"
#include "platform/product/model/ProductModel.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>

namespace platform {

class IDocumentFiles;
class ISourceFiles;
class IUserDecisions;
class ItemProperties;

/// Whoever shows one of the looks at a document. Called at the end of what the product does, when
/// it may be asked and changed again. A panel that is at work itself drops what it is told
/// meanwhile.
class IProductObserver {
public:
    virtual ~IProductObserver() = default;

    /// The document was changed by way of this look: all panels on it are to be told. `structure`:
    /// which rows there are, and not values alone.
    virtual void OnDocumentChanged(bool structure) = 0;
    /// Other columns are to be shown in this look, or another level.
    virtual void OnLookChanged() = 0;
    /// The selection, which all looks at the document have in common, was changed by any of them.
    virtual void OnSelectionChanged() = 0;
    /// Something is highlighted now in all looks, or nothing any more.
    virtual void OnHighlightChanged() = 0;
};

/// An object as the file had it that the document was imported from.
struct SourcePart {
    UniqueMetaObjectKey object;
    SourceProduct product;
};

struct Highlighting {
    /// The part that was chosen, and the object that it is or is a use of: another look may know
    /// the object alone.
    UniqueMetaObjectKey key;
    UniqueMetaObjectKey object;
    SharedText name;
};

class MemoryProduct : public IfProductTreeData {
public:
    /// The model should be one that ValidateModel accepts; of any other, what makes no sense has no
    /// effect.
    explicit MemoryProduct(ProductModel model);
    MemoryProduct(const MemoryProduct&) = delete;
    MemoryProduct& operator=(const MemoryProduct&) = delete;
    ~MemoryProduct() override;

    /// Another look at the same document, for another panel. It begins as this one looks: the
    /// level, the columns and which embodiments are seen are its own from then on. All else is the
    /// document's, which lives as long as the last of them.
    std::shared_ptr<MemoryProduct> MakeLook();

    const ProductModel& GetModel() const;
    /// Changes the document, but not as a step of the user's: it can't be undone and leaves nothing
    /// to be saved. The change stamp moves, also when `change` throws. Not to be called from inside
    /// a question or between BeginRead and EndRead.
    void Change(const std::function<void(ProductModel&)>& change);
    /// Takes another state of the document, for instance that of its file read again, as one step
    /// of that name. Nothing is to be saved then.
    void Replace(ProductModel model, const SharedText& name);

    /// What of a product with assemblies in it is shown, and showing something else of it, which is
    /// no step and no change: false, with a reason, where there is no such level. Undo and Redo go
    /// to the level of their step.
    bool HasLevels() const;
    const ProductLevel& GetLevel() const;
    bool EnterLevel(const ProductLevel& level);
    /// The assembly that the part is a use of, or is; the null key for any other.
    UniqueMetaObjectKey FindAssembly(const UniqueMetaObjectKey& part) const;
    /// How the product is to be stored, whatever level is shown.
    ProductModel MakeSaved() const;

    /// Who is asked where a command of this look needs an answer; null at first: nobody, and such a
    /// command does nothing. Must outlive the product.
    void SetDecisions(IUserDecisions* decisions);

    /// Who gets at the file that the document was imported from; null, as at first: nobody. Must
    /// outlive the document.
    void SetSourceFiles(ISourceFiles* files);
    /// What that file holds now, so that objects which came from it agree with it or not; no value
    /// where that is not known. The change stamp moves when it makes a difference.
    void NoteSource(const std::optional<ContentsMark>& onDisk);
    bool IsSourceChanged() const;
    /// The part's object, or it by itself; no value for one that did not come from the file.
    std::optional<SourcePart> FindSourcePart(const UniqueMetaObjectKey& part) const;

    /// Who gets at the files of documents; null, as at first: nobody, and none can be opened. Must
    /// outlive the document.
    void SetDocumentFiles(IDocumentFiles* files);
    /// Adds these files to the documents of the part's object, and tells which of them can't be.
    /// How many were added.
    std::size_t AddDocumentFiles(const UniqueMetaObjectKey& key,
                                 const std::vector<std::filesystem::path>& paths);
    /// Asks what the document that is listed with that file is called. True: it was changed.
    bool CanEditDocument(const UniqueMetaObjectKey& key, const std::wstring& file) const;
    bool EditDocument(const UniqueMetaObjectKey& key, const std::wstring& file);

    /// Of this look. Null at first and after the observer has gone: nothing can be highlighted
    /// then.
    void SetObserver(IProductObserver* observer);
    /// What is highlighted; no value for nothing.
    const std::optional<Highlighting>& GetHighlighting() const;
    /// The user is done with it.
    void EndHighlighting();

    bool CanUndo() const;
    bool CanRedo() const;
    /// What the next step back or forth did, in the user's words; empty when there is none.
    SharedText GetUndoName() const;
    SharedText GetRedoName() const;
    /// The change stamp moves when there is a step.
    void Undo();
    void Redo();
    /// Why a value was not taken since the last time that this was asked, in the user's words;
    /// empty where nothing is to be said.
    SharedText TakeRefusal();
    /// What the user should know of the values that were taken since then: in which of several
    /// embodiments a count stands.
    SharedText TakeNote();
    /// That a count which is typed goes to that embodiment; empty for one that the product lacks.
    SharedText MakeCountNote(const UniqueMetaObjectKey& embodiment) const;
    /// The user has changed something since the document was saved, and not taken it back.
    bool IsModified() const;
    void MarkSaved();

    /// Mass, density and material are plain values from now on, or no more: one step. Nothing
    /// happens in a read-only document.
    void SetSimplified(bool isSimplified);
    /// What the mass of the part's object is added up from (MassRules.h), and the part by itself
    /// where it is no sum.
    MassesBelow FindMassesBelow(const UniqueMetaObjectKey& part) const;
    MassesBelow FindOwnMass(const UniqueMetaObjectKey& part) const;

    std::uint64_t GetChangeStamp() const override;
    bool IsReadOnly() const override;
    bool IsRebuildRequired() const override;
    void BeginRebuild() override;
    void PrepareData() override;
    void ExpectReads(const std::vector<UniqueMetaObjectKey>& keys) override;
    ChangedObjects GetChangedObjects(std::uint64_t since) const override;
    void BeginRead() override;
    void EndRead() override;

    IfProductDataAggregator& GetAggregator() const override;
    UniqueMetaObjectKey GetRootKey() const override;
    std::vector<UniqueMetaObjectKey> GetTopKeys() const override;
    bool IsInTopKeys(const UniqueMetaObjectKey& occurrence,
                     const std::vector<UniqueMetaObjectKey>& topKeys) const override;
    bool IsShownInTree(const UniqueMetaObjectKey& occurrence) const override;
    bool IsCountMark(const UniqueMetaObjectKey& key) const override;
    bool AreSectionRowsShown() const override;
    meta_data::SP::StyleId GetCurrentStyleId() const override;
    SpcDescription* GetSpcDescription() const override;
    bool UsesSectionIcons() const override;

    std::string GetColumnSetKey() const override;
    std::vector<unsigned long> GetVisiblePropertyIds() const override;
    std::vector<const IfPropertyDescription*> GetPropertyDescriptions() const override;
    const IfPropertyDescription*
    GetPropertyDescription(const std::wstring& columnId) const override;
    /// Which columns are shown is a change of the document that is saved, but no step.
    void SetColumnOrder(const std::vector<std::wstring>& columnIds) override;
    void SetColumnVisible(const std::wstring& columnId, bool visible) override;

    /// An occurrence has its object's value where it has none of its own; a linked property has the
    /// value of the one that it leads to.
    PropValue GetValue(const PropertyRef& ref) const override;
    /// Also when nobody describes the property.
    bool IsReadOnly(const PropertyRef& ref) const override;
    /// A count takes any text that fits (ValueFitting.h); one that follows from the product anyhow
    /// is not kept. A text takes what FitValue (ValueFitting.h) takes, a designation the structured
    /// value or the text of one with the same locked parts, a section one of those that EditSection
    /// offers; a linked value takes nothing. What an occurrence has by source is written to its
    /// object.
    ProductInfObjChangesResult MakeValueChanges(const PropertyRef& ref,
                                                const PropValue& value) override;
    /// No value but for occurrences, and there not for what belongs to the object alone.
    std::optional<bool> GetBySource(const PropertyRef& ref) const override;
    ProductInfObjChangesResult MakeBySourceChanges(const PropertyRef& ref, bool bySource) override;
    /// Refuses a set when one of its changes can't be made any more.
    void CommitChanges(ProductInfObjChangesResult& changes) override;
    bool CanTransmitToSource(const UniqueMetaObjectKey& key,
                             const std::wstring& columnId) const override;
    /// Objects take the values, which then come by source to their occurrences. They are converted
    /// back from shown units (FitShownValue); one that its property does not take is passed over.
    void
    TransmitToSource(const std::wstring& columnId,
                     const std::vector<std::pair<UniqueMetaObjectKey, PropValue>>& values) override;

    bool IsSimplifiedMode() const override;
    /// Objects whose values can't be changed keep them; where that goes for all, nobody is asked.
    /// The density goes with the material.
    bool EditMip(const std::vector<UniqueMetaObjectKey>& keys, MipSource source) override;

    /// Asks for the sign and the text together. A part of which neither can be changed is refused.
    bool EditRoughSign(const UniqueMetaObjectKey& key,
                       ProductInfObjChangesResult& changes) override;

    std::set<int> GetLockedMarkingParts(const UniqueMetaObjectKey& key) const override;
    bool IsMarkingChangeAllowed(const UniqueMetaObjectKey& key,
                                const PropValue& marking) const override;
    VariantMarking ChooseMarking(const VariantMarking& marking) override;

    /// Offers the sections that have rows in the document's style, the default ones without a
    /// style. Nothing can be chosen where nobody is asked.
    SectionChoice EditSection(const PropValueRef& value, bool nameLinked) override;
    ProductInfObjChangesResult MakeSectionNameChanges(const UniqueMetaObjectKey& key,
                                                      bool linked) override;
    bool IsSortedBySection() const override;

    bool IsHypertext(const PropertyRef& ref) const override;
    bool AreHypertext(const std::vector<UniqueMetaObjectKey>& keys,
                      const std::wstring& columnId) const override;
    /// What the link leads to is there and has a value.
    bool IsHypertextActive(const PropertyRef& ref) const override;
    bool CanInsertHypertext(const PropertyRef& ref, unsigned type) const override;
    bool CanEditHypertext(const PropertyRef& ref) const override;
    bool CanDestroyHypertext(const PropertyRef& ref) const override;
    bool InsertHypertext(const std::vector<PropertyRef>& refs) override;
    bool EditHypertext(const std::vector<PropertyRef>& refs) override;
    void DestroyHypertext(const std::vector<PropertyRef>& refs) override;
    bool CanInsertExtendedReference(const UniqueMetaObjectKey& key) const override;
    bool IsExtendedReference(const UniqueMetaObjectKey& key) const override;
    bool InsertExtendedReference(const std::vector<UniqueMetaObjectKey>& keys) override;

    bool CanHighlight(const UniqueMetaObjectKey& key) const override;
    bool CanDelete(const UniqueMetaObjectKey& key) const override;
    bool IsSelectableBillet(const UniqueMetaObjectKey& key) const override;
    bool IsSectionNameLinked(const UniqueMetaObjectKey& key) const override;
    int GetIconType(const UniqueMetaObjectKey& key) const override;
    /// False for an object whose source has changed since it was last read.
    bool IsActual(const UniqueMetaObjectKey& key) const override;
    bool IsExcludedFromCount(const UniqueMetaObjectKey& key) const override;

    /// Counts rows: a deleted occurrence is one, and so is an object without any.
    DeleteInfo GetDeleteInfo(const std::set<UniqueMetaObjectKey>& keys) const override;
    /// An occurrence goes alone unless it is the last of its object; an object goes with all its
    /// occurrences and billets. What was part of it below the top level moves up.
    bool DeleteObjects(const std::set<UniqueMetaObjectKey>& keys) override;

    bool CanConvertToBillet(const UniqueMetaObjectKey& key) const override;
    void ConvertToBillet(const UniqueMetaObjectKey& key) override;
    bool CanShowItemProperties(const UniqueMetaObjectKey& key) const override;
    void ShowItemProperties(const UniqueMetaObjectKey& key) override;
    bool CanGotoFeature(const UniqueMetaObjectKey& key) const override;
    void GotoFeature(const UniqueMetaObjectKey& key) override;
    bool CanAddBillet(const UniqueMetaObjectKey& key) const override;
    /// A manual billet in its owner's section, without name and designation.
    UniqueMetaObjectKey AddBillet(const UniqueMetaObjectKey& key) override;
    /// The source of an assembly is its own level, that of any other imported object its file.
    bool CanEditSource(const UniqueMetaObjectKey& key) const override;
    int GetEditSourceCommand(const UniqueMetaObjectKey& key) const override;
    void EditSource(const UniqueMetaObjectKey& key) override;

    bool IsAggrIntoProductShown() const override;
    std::optional<bool> GetAggrIntoProduct(const UniqueMetaObjectKey& key) const override;
    bool IsAggrIntoProductReadOnly(const UniqueMetaObjectKey& key) const override;
    /// Counts for all uses of the object.
    ProductInfObjChangesResult MakeAggrIntoProductChanges(const UniqueMetaObjectKey& key,
                                                          bool value) override;
    bool IsRegWithDescShown() const override;
    std::optional<bool> GetRegWithDesc(const UniqueMetaObjectKey& key) const override;
    bool IsRegWithDescReadOnly(const UniqueMetaObjectKey& key) const override;
    /// Of a group all objects that share its row, with all their uses.
    ProductInfObjChangesResult MakeRegWithDescChanges(const UniqueMetaObjectKey& key,
                                                      std::optional<bool> inGroup,
                                                      bool value) override;

    /// An object that came from the product's source has that as its first document.
    std::vector<PartDocument> GetPartDocuments(const UniqueMetaObjectKey& key) const override;
    bool CanAddDocument(const UniqueMetaObjectKey& key) const override;
    ProductInfObjChangesResult AddDocument(const UniqueMetaObjectKey& key) override;
    bool CanRemoveDocuments(const UniqueMetaObjectKey& key,
                            const std::vector<std::wstring>& files) const override;
    ProductInfObjChangesResult RemoveDocument(const UniqueMetaObjectKey& key,
                                              const PartDocument& document) override;
    bool CanOpenDocument(const UniqueMetaObjectKey& key,
                         const PartDocument& document) const override;
    void OpenDocument(const PartDocument& document, const VariantMarking& marking,
                      const MbPath& path) override;
    bool CanPreviewDocument(const UniqueMetaObjectKey& key,
                            const PartDocument& document) const override;
    bool CanChangeDocumentSource(const UniqueMetaObjectKey& key,
                                 const PartDocument& document) const override;
    ProductInfObjChangesResult SetDocumentSource(const UniqueMetaObjectKey& key,
                                                 const PartDocument& document) override;
    ProductInfObjChangesResult ClearDocumentSource(const UniqueMetaObjectKey& key,
                                                   const PartDocument& document) override;
    bool CanUseDocumentFormat(const UniqueMetaObjectKey& key, const PartDocument& document,
                              const std::wstring& format) const override;
    ProductInfObjChangesResult UseDocumentFormat(const UniqueMetaObjectKey& key,
                                                 const PartDocument& document,
                                                 const std::wstring& format) override;
    ProductInfObjChangesResult ClearDocumentFormat(const UniqueMetaObjectKey& key,
                                                   const PartDocument& document) override;

    std::vector<UniqueMetaObjectKey> GetSelectedKeys() const override;
    void SetSelectedKeys(const std::vector<UniqueMetaObjectKey>& keys) override;

    bool CanAddObject() const override;
    /// A part in the section of what is selected, behind it, with one use; of the kind that the
    /// section is for. The key is that of the use.
    UniqueMetaObjectKey AddObject() override;
    /// Reads the source again and follows it, as one step that keeps all that the user has done
    /// (SourceUpdate.h). Asks what is to become of parts that are gone; what can't be read is told
    /// of and changes nothing.
    void UpdateAll() override;
    std::int64_t GetDocumentId() const override;
    bool RunPanelCommand() override;
    void Highlight(const UniqueMetaObjectKey& key, const SharedText& name,
                   std::weak_ptr<std::function<void()>> done) override;
    /// Asks which columns are to be shown.
    void ManageProperties() override;

    bool HasEmbodiments() const override;
    bool IsEmbodimentMode() const override;
    /// How the document is looked at and no change of it: the stamp stays.
    void SetEmbodimentMode(bool on) override;
    const EmbodimentsModel& GetEmbodiments() const override;
    bool HasActiveEmbodiment() const override;
    UniqueMetaObjectKey GetActiveEmbodiment() const override;
    std::wstring GetEmbodimentFilter() const override;
    /// A change of the document that is saved, but no step.
    void SetEmbodimentFilter(const std::wstring& text) override;

    /// Those whose parts are laid out.
    std::set<UniqueMetaObjectKey> GetCurrentEmbodiments() const override;
    /// The embodiment that is worked on, if it is one of these and holds the part, else the first
    /// in the document's order that does. The null key for an object that the document lacks.
    UniqueMetaObjectKey GetCountKey(const UniqueMetaObjectKey& key,
                                    const std::set<UniqueMetaObjectKey>& embodiments,
                                    bool inGroup) const override;
    /// The sum of what the rows of the group show in the same column, unless another count was
    /// typed for the group in the first embodiment.
    PropValue GetGroupCount(const UniqueMetaObjectKey& key,
                            const std::set<UniqueMetaObjectKey>& embodiments) const override;
    /// Where a count was typed that is another than the one that follows from the product
    /// (PartCounts.h).
    bool IsRecalcAvailable(const PropertyRef& ref) const override;
    /// Forgets the count that was typed.
    ProductInfObjChangesResult MakeRecalcChanges(const UniqueMetaObjectKey& key,
                                                 const UniqueMetaObjectKey& embodiment) override;

    bool CanCalculatePositions() const override;
    unsigned GetFirstPosition() const override;
    bool CanStartPositions() const override;
    bool CanSetPosition(const UniqueMetaObjectKey& key) const override;
    bool KeepsOwnPosition(const UniqueMetaObjectKey& key) const override;
    bool CanClearPosition(const UniqueMetaObjectKey& key) const override;
    bool IsSectionNumbered(const SPCSection& section) const override;

    PropertyReading ReadProperty(const UniqueMetaObjectKey& objectKey,
                                 const SharedText& propertyId) const override;

private:
    struct State;
    struct Look;

    /// The way to the state of the document, which is turned to this look before it is asked.
    class Entrance {
    public:
        Entrance(std::shared_ptr<State> state, std::unique_ptr<Look> look);
        Entrance(const Entrance&) = delete;
        Entrance& operator=(const Entrance&) = delete;
        ~Entrance();

        State* operator->() const;
        /// A look at the same document like this one.
        std::shared_ptr<MemoryProduct> Split() const;

    private:
        std::shared_ptr<State> m_state;
        std::unique_ptr<Look> m_look;
    };

    MemoryProduct(std::shared_ptr<State> state, std::unique_ptr<Look> look);

    /// Asks for the property that these are to show, which have a link or have none yet.
    bool ChooseLinks(const std::vector<PropertyRef>& refs, bool areNew);
    bool ChooseMaterial(const std::vector<UniqueMetaObjectKey>& keys);
    bool TakeMaterialsAway(const std::vector<UniqueMetaObjectKey>& keys);
    /// Makes the part what the lines say. False, with the reasons in the lines, when it can't be.
    bool CommitProperties(ItemProperties& properties);

    Entrance m_state;
};

} // namespace platform
