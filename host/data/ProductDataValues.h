// What stands in the cells, and how it is changed: values and where they come from, materials,
// roughness, designations, sections and links.
#pragma once

#include "host/PropValue.h"
#include "host/PropertyRef.h"
#include "host/SPCSection.h"
#include "host/UniqueMetaObjectKey.h"
#include "host/VariantMarking.h"
#include "host/data/ProductInfObjChangesResult.h"

#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

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
