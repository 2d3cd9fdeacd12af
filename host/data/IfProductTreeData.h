// The product data of a document, cut by theme into small roles. A host implements it role by role;
// the library sees only the whole. Questions never change anything and never call back; operations
// that change the document may tell of it, on the bus or by the wrapper, from inside the call. An
// operation stands here from the day on which the library calls it.
#pragma once

#include "host/IfPropertyDescription.h"
#include "host/MbPath.h"
#include "host/PropValue.h"
#include "host/PropertyRef.h"
#include "host/SPCSection.h"
#include "host/UniqueMetaObjectKey.h"
#include "host/VariantMarking.h"
#include "host/data/EmbodimentsModel.h"
#include "host/data/IfProductDataAggregator.h"
#include "host/data/PartDocument.h"
#include "host/data/ProductInfObjChangesResult.h"
#include "host/data/SpecificationStyles.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

/// Which objects' rows have to be read again.
struct ChangedObjects {
    /// False: any row may have to be.
    bool isKnown = false;
    /// In any order. More than there need be, an object named twice and one without a row do no
    /// harm.
    std::vector<UniqueMetaObjectKey> keys;
};

/// When the panel has to catch up.
class IProductDataRefresh {
public:
    virtual ~IProductDataRefresh() = default;

    /// Changes when the document does, and only then.
    virtual std::uint64_t GetChangeStamp() const = 0;
    /// Nothing in the document can be changed now.
    virtual bool IsReadOnly() const = 0;
    /// What has changed since the last BeginRebuild needs other rows or columns, not only other
    /// values in them.
    virtual bool IsRebuildRequired() const = 0;
    /// Called at the beginning of each full build, before anything is read for it.
    virtual void BeginRebuild() = 0;
    /// Called before the objects are sorted into rows.
    virtual void PrepareData() = 0;
    /// The objects of the rows that a full build has made, in the order in which they will be read
    /// from now on; of several rows of one object the first is meant. Called before the BeginRead
    /// of each full build. A host need not do anything with it: it is for having at hand what will
    /// be asked for next.
    virtual void ExpectReads(const std::vector<UniqueMetaObjectKey>&) {}
    /// All objects about which any question of a row may be answered otherwise now than when the
    /// change stamp was `since`. A part is one of them where its value came from an object or by a
    /// link that changed, where it is counted in another number, and where another row shows it.
    /// Rows that stand for others, and the root row, are read again whenever one below them is.
    /// What concerns all rows, as a document that becomes read-only, is not known. A host that
    /// can't tell says so, and has all rows read at each refresh. Called at the beginning of a
    /// refresh.
    virtual ChangedObjects GetChangedObjects(std::uint64_t /*since*/) const { return {}; }
    /// Bracket each walk that reads the values of rows: of all of them, or of those that have
    /// changed.
    virtual void BeginRead() = 0;
    virtual void EndRead() = 0;
};

/// What the rows are made from.
class IProductDataStructure {
public:
    virtual ~IProductDataStructure() = default;

    virtual IfProductDataAggregator& GetAggregator() const = 0;
    /// The object that the root row stands for.
    virtual UniqueMetaObjectKey GetRootKey() const = 0;
    /// The parts whose direct parts are laid out, in their order.
    virtual std::vector<UniqueMetaObjectKey> GetTopKeys() const = 0;
    /// The occurrence belongs to one of the top keys.
    virtual bool IsInTopKeys(const UniqueMetaObjectKey& occurrence,
                             const std::vector<UniqueMetaObjectKey>& topKeys) const = 0;
    /// The last word on whether an occurrence has a row.
    virtual bool IsShownInTree(const UniqueMetaObjectKey& occurrence) const = 0;
    /// The count of the object is a mark, present or not, and no number. Shown and set in
    /// embodiment mode alone.
    virtual bool IsCountMark(const UniqueMetaObjectKey& key) const = 0;
    virtual bool AreSectionRowsShown() const = 0;
    virtual meta_data::SP::StyleId GetCurrentStyleId() const = 0;
    /// Null when the document has no specification description.
    virtual SpcDescription* GetSpcDescription() const = 0;
    /// Sections have icons by their number; else all have one.
    virtual bool UsesSectionIcons() const = 0;
};

/// What the columns are made from.
class IProductDataColumns {
public:
    virtual ~IProductDataColumns() = default;

    /// Names the set of columns to show; order, widths and visibility are kept per key. Not empty.
    virtual std::string GetColumnSetKey() const = 0;
    /// Numbers of the properties that the user has chosen, in shown order.
    virtual std::vector<unsigned long> GetVisiblePropertyIds() const = 0;
    /// All properties that can be columns, among them 4 (marking) and 5 (name). Entries may be
    /// null. The descriptions live until the next BeginRebuild.
    virtual std::vector<const IfPropertyDescription*> GetPropertyDescriptions() const = 0;
    /// One of them by its column id; null when there is none.
    virtual const IfPropertyDescription*
    GetPropertyDescription(const std::wstring& columnId) const = 0;
    /// What the user has done to the columns, by their ids, to be remembered for the current set.
    /// Name and designation are not among them; an id that is no property of the document is
    /// ignored.
    virtual void SetColumnOrder(const std::vector<std::wstring>& columnIds) = 0;
    /// A column that becomes visible stands last.
    virtual void SetColumnVisible(const std::wstring& columnId, bool visible) = 0;
};

/// What there is to know about a value in order to show it; see the operations of these names.
struct PropertyReading {
    /// The value where it is kept, good until anything in the document changes: millions are read
    /// only to be found unchanged. Null: it is made for the reading, and `made` holds it.
    const PropValue* kept = nullptr;
    PropValue made;
    bool isReadOnly = true;
    bool isHypertext = false;
    std::optional<bool> bySource;

    const PropValue& GetValue() const noexcept { return kept ? *kept : made; }
};

/// The values of the cells, and the two steps of a change: operations named Make... build a change
/// set and change nothing, CommitChanges applies one.
class IProductDataValues {
public:
    virtual ~IProductDataValues() = default;

    /// In stored units. Empty when the object has no such value.
    virtual PropValue GetValue(const PropertyRef& ref) const = 0;
    /// The value can't be changed now.
    virtual bool IsReadOnly(const PropertyRef& ref) const = 0;
    /// A new value, in stored units; an empty one takes the value away. The set is empty when the
    /// value is the one that stands there, and when the object does not take it.
    virtual ProductInfObjChangesResult MakeValueChanges(const PropertyRef& ref,
                                                        const PropValue& value) = 0;
    /// Whether the value comes from the object's source; no value when it has none.
    virtual std::optional<bool> GetBySource(const PropertyRef& ref) const = 0;
    /// Ties the value to the source, or unties it with the value that it has.
    virtual ProductInfObjChangesResult MakeBySourceChanges(const PropertyRef& ref,
                                                           bool bySource) = 0;
    /// Applies the whole set as one step of the document, or nothing of it: `changes` is empty then
    /// and no change is left half done. An empty set is nothing to do.
    virtual void CommitChanges(ProductInfObjChangesResult& changes) = 0;
    /// The object's source would take the value that the column shows.
    virtual bool CanTransmitToSource(const UniqueMetaObjectKey& key,
                                     const std::wstring& columnId) const = 0;
    /// Writes the values of the column into the objects' sources, in one step. They are in shown
    /// units, as the cells have them: what is stored may have more digits. Of a group they are all
    /// one, which may be a text that joins those of the members.
    virtual void
    TransmitToSource(const std::wstring& columnId,
                     const std::vector<std::pair<UniqueMetaObjectKey, PropValue>>& values) = 0;
};

/// On what road the user has come to the dialog of mass, density and material.
enum class MipSource : int {
    /// A click on a link or on the head of a column.
    Link = 0,
    /// He wants to choose a material from the book of them.
    FromBook = 1,
    /// He wants to take the material away.
    TakeAway = 2,
};

/// What is particular about mass, density and material. Their cells are links that lead to one
/// dialog, or plain values.
class IProductDataMaterials {
public:
    virtual ~IProductDataMaterials() = default;

    /// They are plain values without a link to a material's record, and are typed.
    virtual bool IsSimplifiedMode() const = 0;
    /// Lets the user choose mass, density and material of all these objects, which may be none and
    /// may be read-only, and applies what he has chosen in one step. A key may stand there twice.
    /// True when anything was changed.
    virtual bool EditMip(const std::vector<UniqueMetaObjectKey>& keys, MipSource source) = 0;
};

/// What is particular about the roughness of a surface: "specRoughSign" is the place of a sign in
/// the list of its property, "specRoughValue" a text.
class IProductDataRoughness {
public:
    virtual ~IProductDataRoughness() = default;

    /// Lets the user choose both in a dialog and adds what he has chosen to `changes`, which is
    /// empty and may stay so; it changes nothing by itself. True when he has confirmed.
    virtual bool EditRoughSign(const UniqueMetaObjectKey& key,
                               ProductInfObjChangesResult& changes) = 0;
};

/// What is particular about designations.
class IProductDataMarking {
public:
    virtual ~IProductDataMarking() = default;

    /// Numbers of the designation's parts that are fixed for the object.
    virtual std::set<int> GetLockedMarkingParts(const UniqueMetaObjectKey& key) const = 0;
    /// `marking` is a designation's structured value. Asked before MakeValueChanges.
    virtual bool IsMarkingChangeAllowed(const UniqueMetaObjectKey& key,
                                        const PropValue& marking) const = 0;
    /// Lets the user choose a designation from a book of them; `marking` when he chooses none.
    virtual VariantMarking ChooseMarking(const VariantMarking& marking) = 0;
};

/// What the user has left in the dialog of sections.
struct SectionChoice {
    /// He has confirmed it; else the rest says nothing.
    bool ok = false;
    /// The name is to follow the section.
    bool nameLinked = false;
    /// The structured value of the property "SPCSection".
    PropValue value;
};

/// What is particular about the sections that objects stand in. The value of the property
/// "SPCSection" is a structured one (host/SPCSection.h).
class IProductDataSections {
public:
    virtual ~IProductDataSections() = default;

    /// Lets the user choose a section and whether the name follows it. The dialog begins with
    /// `value`, which is empty where several objects differ or have none, and with `nameLinked`. It
    /// changes nothing. `value` is good during the call alone.
    virtual SectionChoice EditSection(const PropValueRef& value, bool nameLinked) = 0;
    /// Records whether the object's name follows its section, which is what IsSectionNameLinked
    /// answers afterwards. The name itself is changed by its own. The set is empty when it is so
    /// already, and when nothing can be changed.
    virtual ProductInfObjChangesResult MakeSectionNameChanges(const UniqueMetaObjectKey& key,
                                                              bool linked) = 0;
    /// The rows' places depend on the sections of their objects: they are built anew when one
    /// changes.
    virtual bool IsSortedBySection() const = 0;
};

/// Links between properties. The operations that ask the user answer whether anything was changed;
/// each takes all its values in one step.
class IProductDataHypertext {
public:
    virtual ~IProductDataHypertext() = default;

    /// The value is a link, to be shown as one.
    virtual bool IsHypertext(const PropertyRef& ref) const = 0;
    /// All these objects have the same link in that property. No keys: false.
    virtual bool AreHypertext(const std::vector<UniqueMetaObjectKey>& keys,
                              const std::wstring& columnId) const = 0;
    /// What the link leads to is there.
    virtual bool IsHypertextActive(const PropertyRef& ref) const = 0;
    /// `type` is the value type of the column, as IfPropertyDescription::GetType.
    virtual bool CanInsertHypertext(const PropertyRef& ref, unsigned type) const = 0;
    virtual bool CanEditHypertext(const PropertyRef& ref) const = 0;
    virtual bool CanDestroyHypertext(const PropertyRef& ref) const = 0;
    /// Asks the user what to link to.
    virtual bool InsertHypertext(const std::vector<PropertyRef>& refs) = 0;
    virtual bool EditHypertext(const std::vector<PropertyRef>& refs) = 0;
    /// Each value stays as it is shown, without the link.
    virtual void DestroyHypertext(const std::vector<PropertyRef>& refs) = 0;
    /// A name can be composed of references to other properties; such a name is an extended
    /// reference.
    virtual bool CanInsertExtendedReference(const UniqueMetaObjectKey& key) const = 0;
    virtual bool IsExtendedReference(const UniqueMetaObjectKey& key) const = 0;
    virtual bool InsertExtendedReference(const std::vector<UniqueMetaObjectKey>& keys) = 0;
};

/// What a row shows beside its values, and what can be done with it.
class IProductDataRows {
public:
    virtual ~IProductDataRows() = default;

    /// The object can be marked where the document shows it.
    virtual bool CanHighlight(const UniqueMetaObjectKey& key) const = 0;
    virtual bool CanDelete(const UniqueMetaObjectKey& key) const = 0;
    /// A billet that is told to the document when its row is selected.
    virtual bool IsSelectableBillet(const UniqueMetaObjectKey& key) const = 0;
    /// The object's name follows its section.
    virtual bool IsSectionNameLinked(const UniqueMetaObjectKey& key) const = 0;
    /// 0 to 26, a kind of object; any other number shows as 26.
    virtual int GetIconType(const UniqueMetaObjectKey& key) const = 0;
    /// The object agrees with its source.
    virtual bool IsActual(const UniqueMetaObjectKey& key) const = 0;
    /// The object counts nowhere.
    virtual bool IsExcludedFromCount(const UniqueMetaObjectKey& key) const = 0;
};

/// What deleting would take away.
struct DeleteInfo {
    /// Of the one object that all keys belong to, whatever goes along with it; no value for several
    /// objects.
    std::optional<SharedText> name;
    /// Objects that go, those that go along included; no value when that can't be told.
    std::optional<int> count;
};

class IProductDataDeleting {
public:
    virtual ~IProductDataDeleting() = default;

    /// For the question to the user, about the keys that DeleteObjects is then given.
    virtual DeleteInfo GetDeleteInfo(const std::set<UniqueMetaObjectKey>& keys) const = 0;
    /// In one step. True when anything was deleted.
    virtual bool DeleteObjects(const std::set<UniqueMetaObjectKey>& keys) = 0;
};

/// Commands on single objects. An operation that the host does not offer for an object does
/// nothing; its Can... says so before.
class IProductDataObjectCommands {
public:
    virtual ~IProductDataObjectCommands() = default;

    virtual bool CanConvertToBillet(const UniqueMetaObjectKey& key) const = 0;
    virtual void ConvertToBillet(const UniqueMetaObjectKey& key) = 0;
    virtual bool CanShowItemProperties(const UniqueMetaObjectKey& key) const = 0;
    /// The host's dialog of the object's properties.
    virtual void ShowItemProperties(const UniqueMetaObjectKey& key) = 0;
    virtual bool CanGotoFeature(const UniqueMetaObjectKey& key) const = 0;
    /// Shows the object in the host's tree of features.
    virtual void GotoFeature(const UniqueMetaObjectKey& key) = 0;
    virtual bool CanAddBillet(const UniqueMetaObjectKey& key) const = 0;
    /// A new billet of the object. The null key when there is none after all.
    virtual UniqueMetaObjectKey AddBillet(const UniqueMetaObjectKey& key) = 0;
    virtual bool CanEditSource(const UniqueMetaObjectKey& key) const = 0;
    /// Which of the two commands opens the object's source: CM_2D_COMPONENT_EDIT_OUT_PLACE or
    /// CM_EDIT_INSERTFRG_SOURCE.
    virtual int GetEditSourceCommand(const UniqueMetaObjectKey& key) const = 0;
    virtual void EditSource(const UniqueMetaObjectKey& key) = 0;
};

/// The two attributes beside a row's name: aggregate into product, register with description.
class IProductDataAttributes {
public:
    virtual ~IProductDataAttributes() = default;

    virtual bool IsAggrIntoProductShown() const = 0;
    /// No value: the question does not apply to the object. Asked for each row at each reading, as
    /// are the next, and the two of the other attribute.
    virtual std::optional<bool> GetAggrIntoProduct(const UniqueMetaObjectKey& key) const = 0;
    virtual bool IsAggrIntoProductReadOnly(const UniqueMetaObjectKey& key) const = 0;
    virtual ProductInfObjChangesResult MakeAggrIntoProductChanges(const UniqueMetaObjectKey& key,
                                                                  bool value) = 0;
    virtual bool IsRegWithDescShown() const = 0;
    virtual std::optional<bool> GetRegWithDesc(const UniqueMetaObjectKey& key) const = 0;
    virtual bool IsRegWithDescReadOnly(const UniqueMetaObjectKey& key) const = 0;
    /// `inGroup`: the object's row stands below a group row; no value where `key` is that of a
    /// group row itself, and the group is meant as a whole.
    virtual ProductInfObjChangesResult MakeRegWithDescChanges(const UniqueMetaObjectKey& key,
                                                              std::optional<bool> inGroup,
                                                              bool value) = 0;
};

/// The documents that are attached to objects. Questions and changes alike are about one object, by
/// the key of its row, and one of its documents as GetPartDocuments has given it.
class IProductDataDocuments {
public:
    virtual ~IProductDataDocuments() = default;

    /// In the order in which they are listed. The empty key stands for no row, or several.
    virtual std::vector<PartDocument> GetPartDocuments(const UniqueMetaObjectKey& key) const = 0;
    virtual bool CanAddDocument(const UniqueMetaObjectKey& key) const = 0;
    /// Lets the user choose what to add. The set is empty when he has chosen nothing.
    virtual ProductInfObjChangesResult AddDocument(const UniqueMetaObjectKey& key) = 0;
    /// All of them; `files` is not empty.
    virtual bool CanRemoveDocuments(const UniqueMetaObjectKey& key,
                                    const std::vector<std::wstring>& files) const = 0;
    /// Of several documents that go at once each is asked for in turn, and all are one set. The
    /// host may ask the user at the first.
    virtual ProductInfObjChangesResult RemoveDocument(const UniqueMetaObjectKey& key,
                                                      const PartDocument& document) = 0;
    virtual bool CanOpenDocument(const UniqueMetaObjectKey& key,
                                 const PartDocument& document) const = 0;
    /// Opens it in whatever program it is for. `path` is that of the document.
    virtual void OpenDocument(const PartDocument& document, const VariantMarking& marking,
                              const MbPath& path) = 0;
    /// There may be something to see of it. Asked at each change of the selection: no file need be
    /// read for it.
    virtual bool CanPreviewDocument(const UniqueMetaObjectKey& key,
                                    const PartDocument& document) const = 0;
    virtual bool CanChangeDocumentSource(const UniqueMetaObjectKey& key,
                                         const PartDocument& document) const = 0;
    /// The object takes name and designation from the document; another one that was its source is
    /// it no more. Cleared, it keeps both.
    virtual ProductInfObjChangesResult SetDocumentSource(const UniqueMetaObjectKey& key,
                                                         const PartDocument& document) = 0;
    virtual ProductInfObjChangesResult ClearDocumentSource(const UniqueMetaObjectKey& key,
                                                           const PartDocument& document) = 0;
    /// `format` is the document's and not empty.
    virtual bool CanUseDocumentFormat(const UniqueMetaObjectKey& key, const PartDocument& document,
                                      const std::wstring& format) const = 0;
    virtual ProductInfObjChangesResult UseDocumentFormat(const UniqueMetaObjectKey& key,
                                                         const PartDocument& document,
                                                         const std::wstring& format) = 0;
    virtual ProductInfObjChangesResult ClearDocumentFormat(const UniqueMetaObjectKey& key,
                                                           const PartDocument& document) = 0;
};

/// The objects that are selected in the document, in all its views.
class IProductDataSelection {
public:
    virtual ~IProductDataSelection() = default;

    virtual std::vector<UniqueMetaObjectKey> GetSelectedKeys() const = 0;
    /// What the user has selected in the panel; a key may stand there twice. The document may tell
    /// its views of it, the panel that has called included, from inside the call.
    virtual void SetSelectedKeys(const std::vector<UniqueMetaObjectKey>& keys) = 0;
};

/// Commands of the document as a whole.
class IProductDataCommands {
public:
    virtual ~IProductDataCommands() = default;

    virtual bool CanAddObject() const = 0;
    /// A new object, where the host thinks fit: it knows what is selected. It may ask the user. The
    /// null key when there is none after all.
    virtual UniqueMetaObjectKey AddObject() = 0;
    /// Brings all objects that do not agree with their sources up to date.
    virtual void UpdateAll() = 0;
    /// By which the application knows the document.
    virtual std::int64_t GetDocumentId() const = 0;
    /// The host's own command of the panel. True when rows or columns have to be built anew.
    virtual bool RunPanelCommand() = 0;
    /// Shows the object where the document shows it, under that name, until the user is done; the
    /// selection may be used for it. `done` is run then, if it is still there: a newer highlight
    /// has let go of it otherwise. Never from inside this call.
    virtual void Highlight(const UniqueMetaObjectKey& key, const SharedText& name,
                           std::weak_ptr<std::function<void()>> done) = 0;
    /// The host's dialog of the columns and properties of the document.
    virtual void ManageProperties() = 0;
};

class IProductDataEmbodiments {
public:
    virtual ~IProductDataEmbodiments() = default;

    virtual bool HasEmbodiments() const = 0;
    /// One count column an embodiment stands in place of the count column.
    virtual bool IsEmbodimentMode() const = 0;
    virtual void SetEmbodimentMode(bool on) = 0;
    virtual const EmbodimentsModel& GetEmbodiments() const = 0;
    /// The embodiment that is worked on.
    virtual bool HasActiveEmbodiment() const = 0;
    virtual UniqueMetaObjectKey GetActiveEmbodiment() const = 0;
    /// Which embodiments the user has chosen to see, in words of the panel's own: kept with the
    /// document and given back as they are. Empty: nothing was chosen.
    virtual std::wstring GetEmbodimentFilter() const = 0;
    virtual void SetEmbodimentFilter(const std::wstring& text) = 0;
};

/// How often objects stand in the product. An object has one count an embodiment, under the
/// property "count": PropertyRef::objectKey names the object or the use of one that a row stands
/// for, `secondKey` the embodiment. GetValue, IsReadOnly, MakeValueChanges and what is asked about
/// links all take such references. A reference with the key of a group row is about the group as a
/// whole; `inGroup` is false then and for rows that stand alone, true for rows below a group row,
/// and without value where it makes no difference.
///
/// A count is a text to the library, stored as it is shown: a number, a number with a unit, a mark.
/// The text "x" is a mark that is set, no value one that is not (see IsCountMark).
class IProductDataCounts {
public:
    virtual ~IProductDataCounts() = default;

    /// The embodiments that the one column "count" stands for. Never empty: a product without
    /// embodiments has a key of the host's for itself here. Asked while cells are made, once for
    /// each row.
    virtual std::set<UniqueMetaObjectKey> GetCurrentEmbodiments() const = 0;
    /// The embodiment whose count of the object a column shows that stands for several of them; one
    /// of `embodiments`, which is not empty. `inGroup`: the object's row stands below a group row.
    /// Asked while cells are made, and good until the next full build.
    virtual UniqueMetaObjectKey GetCountKey(const UniqueMetaObjectKey& key,
                                            const std::set<UniqueMetaObjectKey>& embodiments,
                                            bool inGroup) const = 0;
    /// The count of a whole group in a column that stands for two embodiments or more; with one, it
    /// is GetValue that is asked. `key` is that of the group row. Empty for no count.
    virtual PropValue GetGroupCount(const UniqueMetaObjectKey& key,
                                    const std::set<UniqueMetaObjectKey>& embodiments) const = 0;
    /// The count could be worked out from the product and has another value, for instance one that
    /// the user has typed. Asked at each reading of a count.
    virtual bool IsRecalcAvailable(const PropertyRef& ref) const = 0;
    /// The change set that gives the object, or the group, the count that follows from the product.
    /// Empty when that is the one it has. Of a group only what is its own changes, not the counts
    /// of its members, whose changes may stand in the same set before it.
    virtual ProductInfObjChangesResult MakeRecalcChanges(const UniqueMetaObjectKey& key,
                                                         const UniqueMetaObjectKey& embodiment) = 0;
};

/// The numbering of objects in the specification.
class IProductDataPositions {
public:
    virtual ~IProductDataPositions() = default;

    /// The command that numbers the whole tree is offered now. Asked when the state of commands is
    /// shown; a document that could be numbered may still answer false, for instance while the user
    /// works on something else.
    virtual bool CanCalculatePositions() const = 0;
    /// The number that numbering begins with, 1 or more.
    virtual unsigned GetFirstPosition() const = 0;
    /// The root row may number its children. Asked when numbering runs; false keeps every position
    /// as it is, whoever has given the command.
    virtual bool CanStartPositions() const = 0;
    virtual bool CanSetPosition(const UniqueMetaObjectKey& key) const = 0;
    /// The object has a position of its own that numbering leaves alone and passes over.
    virtual bool KeepsOwnPosition(const UniqueMetaObjectKey& key) const = 0;
    /// The object has a position that numbering takes away, since it gives it none.
    virtual bool CanClearPosition(const UniqueMetaObjectKey& key) const = 0;
    /// Objects of the section have positions.
    virtual bool IsSectionNumbered(const SPCSection& section) const = 0;
};

class IfProductTreeData : public IProductDataRefresh,
                          public IProductDataStructure,
                          public IProductDataColumns,
                          public IProductDataValues,
                          public IProductDataMaterials,
                          public IProductDataRoughness,
                          public IProductDataMarking,
                          public IProductDataSections,
                          public IProductDataHypertext,
                          public IProductDataRows,
                          public IProductDataDeleting,
                          public IProductDataObjectCommands,
                          public IProductDataAttributes,
                          public IProductDataDocuments,
                          public IProductDataSelection,
                          public IProductDataCommands,
                          public IProductDataEmbodiments,
                          public IProductDataCounts,
                          public IProductDataPositions {
public:
    using IProductDataRefresh::IsReadOnly;
    using IProductDataValues::IsReadOnly;

    /// The four questions that a cell has each time it shows its value. Answers as they do one by
    /// one for that property of the object, without embodiment and group; a host that looks for the
    /// object at each of them can do with one look here, and lend the value instead of copying it.
    virtual PropertyReading ReadProperty(const UniqueMetaObjectKey& objectKey,
                                         const SharedText& propertyId) const {
        const PropertyRef ref{objectKey, {}, propertyId, std::nullopt};
        return {nullptr, GetValue(ref), IsReadOnly(ref), IsHypertext(ref), GetBySource(ref)};
    }
};
