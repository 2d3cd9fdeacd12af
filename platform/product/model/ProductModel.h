// The plain data of a product document: what the product file stores, what the STEP import fills
// and what MemoryProduct answers from. Nothing here has behaviour; ValidateModel
// (ProductValidation.h) says whether a model makes sense.
#pragma once

#include "host/IfPropertyDescription.h"
#include "host/PropValue.h"
#include "host/SPCSection.h"
#include "host/UniqueMetaObjectKey.h"
#include "host/VariantMarking.h"
#include "host/data/PartHandler.h"
#include "host/data/PartKinds.h"

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace platform {

enum class BilletKind { None, Manual, Associative };

/// Values by property number, in stored units, each number once.
using PropertyValues = std::vector<std::pair<unsigned long, PropValue>>;

/// A property that shows the value of another one, wherever that stands. What its part holds for
/// the property itself is the value last shown, for the day on which the other one is gone.
struct LinkRecord {
    unsigned long property = 0;
    UniqueMetaObjectKey target;
    unsigned long targetProperty = 0;

    friend bool operator==(const LinkRecord&, const LinkRecord&) = default;
};

/// A count that was typed, in place of the one that follows from the product.
struct CountRecord {
    /// An embodiment; in a product without any the key of its root.
    UniqueMetaObjectKey embodiment;
    /// Empty: there is none.
    SharedText count;

    friend bool operator==(const CountRecord&, const CountRecord&) = default;
};

/// What objects and occurrences have in common.
struct PartRecord {
    UniqueMetaObjectKey key;
    int kind = PartKindDetail;
    bool isPhantom = false;
    /// A part without handler has the default attributes, and stands in no specification.
    bool hasHandler = true;
    ProductPart part;
    /// What a calculator answers for "in product"; no value: there is no calculator.
    std::optional<bool> calculatedInProduct;
    /// The group of like parts that speaks for this part; the null key for none.
    UniqueMetaObjectKey groupKey;
    /// The count is a mark, present or not.
    bool isCountMark = false;
    /// Of an object: all its values but name and marking. Of an occurrence: those that it has in
    /// place of its object's; an empty one says that it has none where the object may have one.
    PropertyValues properties;
    /// A property once at most.
    std::vector<LinkRecord> links;
    /// An embodiment once at most. Of an object that stands for a group: the counts of the group,
    /// which count its occurrences and not each of them.
    std::vector<CountRecord> counts;

    friend bool operator==(const PartRecord&, const PartRecord&) = default;
};

/// One use of an object.
struct OccurrenceRecord : PartRecord {
    /// The embodiments that hold the use; empty: all of them.
    std::vector<UniqueMetaObjectKey> embodiments;
    /// The last word on whether it has a row.
    bool isShown = true;

    friend bool operator==(const OccurrenceRecord&, const OccurrenceRecord&) = default;
};

/// What the file that an object came from said of it when it was last read: what still equals that
/// was not touched since, and follows the file.
struct SourceProduct {
    /// As the file writes them.
    SharedText id;
    SharedText name;
    /// Empty and no value: the file says nothing of it.
    SharedText material;
    std::optional<double> density;

    friend bool operator==(const SourceProduct&, const SourceProduct&) = default;
};

/// A file that belongs to an object: its drawing, a description of it.
struct DocumentRecord {
    /// UTF-8, absolute. It tells the documents of one object apart.
    std::string file;
    SharedText name;
    VariantMarking marking;
    /// Of its sheet.
    SharedText format;
    SharedText comment;
    /// The object has its format from here; true for one document at most.
    bool formatUsed = false;
    /// The object has name and designation from here; true for one document at most.
    bool isSource = false;
    /// That can't be changed.
    bool sourceLocked = false;

    friend bool operator==(const DocumentRecord&, const DocumentRecord&) = default;
};

struct ObjectRecord : PartRecord {
    SharedText name;
    VariantMarking marking;
    std::set<int> lockedMarkingParts;
    SPCSection section;
    /// 0 to 26, see IfProductTreeData::GetIconType.
    int iconType = 26;
    bool isActual = true;
    bool isExcludedFromCount = false;
    std::optional<bool> aggrIntoProduct;
    /// Values that can't be changed.
    std::set<unsigned long> readOnlyProperties;
    /// In cubic metres; no value where it is not known. With the density it makes the mass.
    std::optional<double> volume;
    /// The mass is the sum of those of all occurrences in the product or assembly. Counts for the
    /// root, and for objects that are assemblies (AssemblyRecord).
    bool sumsPartMasses = false;
    /// Numbering leaves the position alone and passes over it.
    bool keepsOwnPosition = false;
    bool isNameLinkedToSection = false;
    /// In the document's order. An object without any stands on the top level by itself.
    std::vector<OccurrenceRecord> occurrences;
    /// Objects that this one is a part of, below the top level.
    std::vector<UniqueMetaObjectKey> parents;
    /// Objects that own this one, for instance the document it was made in.
    std::vector<UniqueMetaObjectKey> owners;
    BilletKind billet = BilletKind::None;
    /// The object that a billet belongs to.
    UniqueMetaObjectKey billetOwner;
    /// No value: it did not come from the product's source.
    std::optional<SourceProduct> source;
    /// In the order in which they are listed.
    std::vector<DocumentRecord> documents;

    friend bool operator==(const ObjectRecord&, const ObjectRecord&) = default;
};

/// An object that is built up of others, while the model does not show its components.
struct AssemblyRecord {
    UniqueMetaObjectKey object;
    /// How its components stand in it: of each record only the key counts and what AssemblyLevels.h
    /// calls its standing.
    std::vector<ObjectRecord> components;
    /// The same for all parts below it, where these have something of their own there.
    std::vector<ObjectRecord> allParts;
    /// The object's section, while the assembly is the root of what is shown: as such it stands in
    /// none.
    SPCSection sectionAbove;

    friend bool operator==(const AssemblyRecord&, const AssemblyRecord&) = default;
};

/// What a model shows of a product with assemblies in it: the direct components of one of them, or
/// all parts at the ends of the structure below it.
struct ProductLevel {
    UniqueMetaObjectKey assembly;
    bool allParts = false;

    friend bool operator==(const ProductLevel&, const ProductLevel&) = default;
};

struct EmbodimentRecord {
    UniqueMetaObjectKey key;
    VariantMarking marking;

    friend bool operator==(const EmbodimentRecord&, const EmbodimentRecord&) = default;
};

/// A property that can be a column. System properties have theirs from a table; a record with the
/// number of one replaces it.
struct PropertyRecord {
    unsigned long number = 0;
    std::wstring caption;
    /// 0 integer, 1 double, 2 string, 3 boolean.
    unsigned type = value_type::String;
    double min = 0;
    double max = 0;
    std::vector<SimplePropVal> list;
    double unitCoefficient = 0;
    std::wstring unitCode;
    bool isVariable = false;
    /// Nobody's value can be changed.
    bool isReadOnly = false;

    friend bool operator==(const PropertyRecord&, const PropertyRecord&) = default;
};

/// A block of sections in a style and the user's choice for it.
struct StyleBlockRecord {
    int number = 0;
    SharedText name;
    bool isUsed = true;
    /// Numbers of the style's sections that the block holds.
    std::vector<int> sections;

    friend bool operator==(const StyleBlockRecord&, const StyleBlockRecord&) = default;
};

struct StyleSectionRecord {
    int number = 0;
    SharedText name;
    /// The user's choice: the section shows its blocks.
    bool addBlocks = false;
    /// The user's choices know the section; one that they do not know is not shown.
    bool isTuned = true;
    /// Its objects have positions; no value: as usual, which is all sections but documentation.
    std::optional<bool> isNumbered;
    std::vector<StyleBlockRecord> blocks;

    friend bool operator==(const StyleSectionRecord&, const StyleSectionRecord&) = default;
};

struct StyleRecord {
    /// The style can be had; a document may name one that is nowhere to be found.
    bool isAvailable = true;
    /// There are choices of the user's for the style.
    bool isTuned = true;
    bool sortBySections = true;
    /// Blocks of the whole specification.
    bool addBlocks = false;
    std::vector<StyleSectionRecord> sections;
    std::vector<StyleBlockRecord> blocks;

    friend bool operator==(const StyleRecord&, const StyleRecord&) = default;
};

/// What a file held, told by its size and a hash of its bytes.
struct ContentsMark {
    std::uint64_t size = 0;
    std::uint64_t hash = 0;

    friend bool operator==(const ContentsMark&, const ContentsMark&) = default;
};

/// A use that the source has and the user has deleted: it does not come back with the next reading.
struct DeletedUse {
    UniqueMetaObjectKey assembly;
    UniqueMetaObjectKey object;
    UniqueMetaObjectKey use;
    /// By which the object is known again when it is gone altogether.
    SharedText id;
    SharedText name;

    friend bool operator==(const DeletedUse&, const DeletedUse&) = default;
};

/// The file that a product was imported from.
struct SourceFile {
    /// UTF-8, absolute.
    std::string path;
    /// When it was last read.
    ContentsMark contents;
    /// What it was read with; empty: the usual one.
    std::string encoding;
    std::vector<DeletedUse> deletedUses;

    friend bool operator==(const SourceFile&, const SourceFile&) = default;
};

struct ProductModel {
    /// The object that the root row stands for: name, designation and values count, nothing else.
    ObjectRecord root;
    std::vector<ObjectRecord> objects;
    std::vector<EmbodimentRecord> embodiments;
    /// The embodiments whose parts are laid out; empty: all.
    std::vector<UniqueMetaObjectKey> currentEmbodiments;
    /// The embodiment that is worked on; the null key for none.
    UniqueMetaObjectKey activeEmbodiment;
    bool embodimentMode = false;
    /// Which embodiments are to be seen, in words of the panel's own.
    std::wstring embodimentFilter;
    bool isReadOnly = false;
    bool areSectionRowsShown = true;
    bool usesSectionIcons = true;
    bool isAggrIntoProductShown = false;
    bool isRegWithDescShown = false;
    /// Mass, density and material are plain values.
    bool isSimplified = false;
    /// No value: the document has no specification description.
    std::optional<StyleRecord> style;
    meta_data::SP::StyleId styleId = 1;
    /// The user's own properties, and system properties that differ from the table.
    std::vector<PropertyRecord> properties;
    std::string columnSetKey = "product";
    /// Numbers of the shown properties, in shown order.
    std::vector<unsigned long> visibleProperties;
    /// The product itself first, then the assemblies below it. Empty: nothing is known of what
    /// assemblies are built up of.
    std::vector<AssemblyRecord> assemblies;
    /// Objects that stand in assemblies which are not shown, and in the one that is shown neither
    /// as the root nor among its objects.
    std::vector<ObjectRecord> objectsBelow;
    /// What root and objects are. Counts where there are assemblies.
    ProductLevel level;
    /// No value: the product came from nowhere else.
    std::optional<SourceFile> source;

    friend bool operator==(const ProductModel&, const ProductModel&) = default;
};

} // namespace platform
