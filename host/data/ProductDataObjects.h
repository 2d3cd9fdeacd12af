// What the objects of the rows are and what can be done with them: deleting, commands of one
// object, the boxes beside its name, its documents; and the commands of the panel as a whole.
#pragma once

#include "host/MbPath.h"
#include "host/SharedText.h"
#include "host/UniqueMetaObjectKey.h"
#include "host/VariantMarking.h"
#include "host/data/PartDocument.h"
#include "host/data/ProductInfObjChangesResult.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

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
