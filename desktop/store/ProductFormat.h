// The members of the product file, each once: its name, the value it stands for, and the value that
// it has when it is left out. Reading and writing are two archives that walk the same lists, so
// that they cannot come apart. A new member is one more line here; a file without it stays
// readable.
#pragma once

#include "desktop/store/PropertyNames.h"
#include "platform/product/model/ProductModel.h"

#include <array>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <unordered_map>

namespace desktop::store {

inline constexpr std::string_view c_format = "product-tree 1";
inline constexpr std::string_view c_rootKey = "product";

inline constexpr std::array<std::string_view, 9> c_kinds = {
    "unknown", "document", "feature", "view", "assembly", "detail", "standard", "other", "service"};
inline constexpr std::array<std::string_view, 3> c_billets = {"none", "manual", "associative"};
/// In the order of ValueType.
inline constexpr std::array<std::string_view, 5> c_valueTypes = {"integer", "number", "text",
                                                                 "boolean", "time"};
/// A single value can be a moment, a property can't be one of moments.
inline constexpr std::span<const std::string_view> c_propertyTypes =
    std::span(c_valueTypes).first<4>();

/// Reading fills the record, writing only looks at it.
template <class Archive, class Record>
using In = std::conditional_t<Archive::c_isReading, Record&, const Record&>;

/// The icon type of an object that names none.
inline int PlainIcon(int kind) {
    switch (kind) {
    case PartKindAssembly:
        return 0;
    case PartKindDetail:
        return 1;
    case PartKindStandard:
        return 2;
    default:
        return 26;
    }
}

/// The key of a use that has none of its own.
inline std::string UseKey(const platform::ObjectRecord& object, std::size_t index) {
    return object.key.String() + '#' + std::to_string(index + 1);
}

/// The objects of a product by their keys, for what is said of them elsewhere.
class ObjectsByKey {
public:
    /// The model must stay as it is.
    void Use(const platform::ProductModel& model) {
        m_objects.clear();
        if (model.objectsBelow.empty())
            return;
        for (const auto* const list : {&model.objects, &model.objectsBelow}) {
            for (const platform::ObjectRecord& object : *list)
                m_objects.emplace(object.key, &object);
        }
    }
    /// An empty record for one that is not there.
    const platform::ObjectRecord& Get(const UniqueMetaObjectKey& key) const {
        const auto found = m_objects.find(key);
        return found == m_objects.end() ? m_none : *found->second;
    }

private:
    std::unordered_map<UniqueMetaObjectKey, const platform::ObjectRecord*> m_objects;
    platform::ObjectRecord m_none;
};

template <class Archive>
void Describe(Archive& file, In<Archive, platform::EmbodimentRecord> record) {
    file.Value("key", record.key);
    file.Value("designation", record.marking);
}

template <class Archive>
void Describe(Archive& file, In<Archive, platform::CountRecord> record) {
    file.Value("embodiment", record.embodiment);
    file.Value("count", record.count);
}

template <class Archive>
void Describe(Archive& file, In<Archive, platform::PropertyRecord> record) {
    file.Property("property", record.number);
    file.Value("name", record.caption);
    file.Word("type", record.type, c_propertyTypes, static_cast<unsigned>(ValueType::Text));
    file.Value("min", record.min);
    file.Value("max", record.max);
    file.Literals("list", record.list, static_cast<ValueType>(record.type));
    file.Value("unit", record.unitCode);
    file.Value("unitCoefficient", record.unitCoefficient);
    file.Value("variable", record.isVariable);
    file.Value("readOnly", record.isReadOnly);
}

/// A link stands under the name of its own property.
template <class Archive>
void Describe(Archive& file, In<Archive, platform::LinkRecord> record) {
    file.Value("object", record.target);
    file.NamedProperty("property", record.targetProperty);
}

template <class Archive>
void Describe(Archive& file, In<Archive, platform::StyleBlockRecord> record) {
    file.Value("number", record.number);
    file.Value("name", record.name);
    file.Value("used", record.isUsed, true);
    file.Value("sections", record.sections);
}

template <class Archive>
void Describe(Archive& file, In<Archive, platform::StyleSectionRecord> record) {
    file.Value("number", record.number);
    file.Value("name", record.name);
    file.Value("tuned", record.isTuned, true);
    file.Value("numbered", record.isNumbered);
    file.Value("addBlocks", record.addBlocks);
    file.Records("blocks", record.blocks);
}

template <class Archive>
void Describe(Archive& file, In<Archive, platform::StyleRecord> record) {
    file.Value("available", record.isAvailable, true);
    file.Value("tuned", record.isTuned, true);
    file.Value("sortBySections", record.sortBySections, true);
    file.Records("sections", record.sections);
    file.Value("addBlocks", record.addBlocks);
    file.Records("blocks", record.blocks);
}

/// `plain` has what the part is taken to be unless it says otherwise.
template <class Archive>
void DescribePart(Archive& file, In<Archive, platform::PartRecord> part,
                  const platform::PartRecord& plain) {
    file.Word("kind", part.kind, c_kinds, plain.kind);
    file.Value("specifications", part.part.used, plain.part.used);
    const PartAttributes& attributes = plain.part.attributes;
    file.Value("inProduct", part.part.attributes.inProduct, attributes.inProduct);
    file.Value("calculatedInProduct", part.calculatedInProduct, plain.calculatedInProduct);
    file.Value("separate", part.part.attributes.separate, attributes.separate);
    file.Value("hiddenA", part.part.attributes.hiddenA, attributes.hiddenA);
    file.Value("hiddenB", part.part.attributes.hiddenB, attributes.hiddenB);
    file.Value("phantom", part.isPhantom, plain.isPhantom);
    file.Value("handler", part.hasHandler, plain.hasHandler);
    file.Value("group", part.groupKey, plain.groupKey);
    file.Value("countMark", part.isCountMark, plain.isCountMark);
}

/// An id that is left out is that of a product whose id and name are the same.
template <class Archive>
void Describe(Archive& file, In<Archive, platform::SourceProduct> record) {
    file.Value("name", record.name);
    file.Value("id", record.id, SharedText(record.name));
    file.Value("material", record.material);
    file.Value("density", record.density);
}

template <class Archive>
void Describe(Archive& file, In<Archive, platform::DocumentRecord> record) {
    file.Path("file", record.file);
    file.Value("designation", record.marking);
    file.Value("name", record.name);
    file.Value("format", record.format);
    file.Value("comment", record.comment);
    file.Value("formatUsed", record.formatUsed);
    file.Value("isSource", record.isSource);
    file.Value("sourceLocked", record.sourceLocked);
}

template <class Archive>
void Describe(Archive& file, In<Archive, platform::DeletedUse> record) {
    file.Value("assembly", record.assembly);
    file.Value("object", record.object);
    file.Value("use", record.use);
    file.Value("name", record.name);
    file.Value("id", record.id, SharedText(record.name));
}

template <class Archive>
void Describe(Archive& file, In<Archive, platform::SourceFile> record) {
    file.Path("file", record.path);
    file.Contents("contents", record.contents);
    file.Value("encoding", record.encoding);
    file.Records("deleted", record.deletedUses);
}

/// A use is taken to be like its object.
template <class Archive>
void DescribeUse(Archive& file, In<Archive, platform::OccurrenceRecord> use,
                 const platform::ObjectRecord& object, std::size_t index) {
    file.Value("key", use.key, UniqueMetaObjectKey(UseKey(object, index)));
    file.Value("embodiments", use.embodiments);
    file.Value("shown", use.isShown, true);
    DescribePart(file, use, object);
    file.Values("properties", use.properties);
    file.Links("links", use.links);
    file.Records("counts", use.counts);
}

template <class Archive>
void DescribeObject(Archive& file, In<Archive, platform::ObjectRecord> object,
                    const platform::ObjectRecord& plain) {
    file.Value("key", object.key, plain.key);
    file.Value("designation", object.marking);
    file.Value("name", object.name);
    file.Section("section", object.section);
    DescribePart(file, object, plain);
    file.Word("billet", object.billet, c_billets, platform::BilletKind::None);
    file.Value("billetOwner", object.billetOwner);
    file.Value("parents", object.parents);
    file.Value("owners", object.owners);
    file.Value("icon", object.iconType, PlainIcon(object.kind));
    file.Value("lockedDesignationParts", object.lockedMarkingParts);
    file.Value("actual", object.isActual, true);
    file.Value("excludedFromCount", object.isExcludedFromCount);
    file.Value("aggregateIntoProduct", object.aggrIntoProduct);
    file.Value("ownPosition", object.keepsOwnPosition);
    file.Value("nameLinkedToSection", object.isNameLinkedToSection);
    file.Value("volume", object.volume);
    file.Value("massOfParts", object.sumsPartMasses);
    file.Record("source", object.source);
    file.Records("documents", object.documents);
    file.Values("properties", object.properties);
    file.Properties("readOnlyProperties", object.readOnlyProperties);
    file.Links("links", object.links);
    file.Records("counts", object.counts);
    file.Uses("uses", object, object);
}

/// How an object stands in an assembly.
template <class Archive>
void DescribeComponent(Archive& file, In<Archive, platform::ObjectRecord> component,
                       const platform::ObjectRecord& object) {
    file.Value("object", component.key);
    file.Word("billet", component.billet, c_billets, platform::BilletKind::None);
    file.Value("billetOwner", component.billetOwner);
    file.Value("parents", component.parents);
    file.Value("owners", component.owners);
    file.Value("group", component.groupKey);
    file.Values("properties", component.properties);
    file.Links("links", component.links);
    file.Records("counts", component.counts);
    file.Uses("uses", component, object);
}

template <class Archive>
void Describe(Archive& file, In<Archive, platform::AssemblyRecord> assembly) {
    file.Value("object", assembly.object);
    file.Components("components", assembly.components);
    file.Components("allParts", assembly.allParts);
}

/// What an object is taken to be: it stands in the document's own specification.
inline platform::ObjectRecord PlainObject(const platform::ProductModel& model,
                                          std::string_view key = {}) {
    platform::ObjectRecord plain;
    plain.key = UniqueMetaObjectKey(std::string(key));
    plain.part.used = meta_data::SPUsed({model.styleId});
    return plain;
}

/// Everything that objects are read by.
template <class Archive>
void DescribeSettings(Archive& file, In<Archive, platform::ProductModel> model) {
    const platform::ProductModel plain;
    file.Value("readOnly", model.isReadOnly);
    file.Records("properties", model.properties);
    file.UseProperties(model.properties);
    file.Value("columnSet", model.columnSetKey, plain.columnSetKey);
    file.Properties("columns", model.visibleProperties);
    file.Value("aggregateIntoProductShown", model.isAggrIntoProductShown);
    file.Value("registerWithDescriptionShown", model.isRegWithDescShown);
    file.Value("simplifiedMode", model.isSimplified);
    file.Value("sectionRows", model.areSectionRowsShown, true);
    file.Value("sectionIcons", model.usesSectionIcons, true);
    file.Value("styleId", model.styleId, plain.styleId);
    file.Record("style", model.style);
    file.UseStyle(model.style);
    file.Records("embodiments", model.embodiments);
    file.Value("currentEmbodiments", model.currentEmbodiments);
    file.Value("activeEmbodiment", model.activeEmbodiment);
    file.Value("embodimentMode", model.embodimentMode);
    file.Value("embodimentFilter", model.embodimentFilter);
}

template <class Archive>
void Describe(Archive& file, In<Archive, platform::ProductModel> model) {
    file.Format("format", c_format);
    file.Place("product");
    file.Record("source", model.source);
    DescribeSettings(file, model);
    file.Object("product", model.root, PlainObject(model, c_rootKey));
    file.Objects("objects", model.objects, PlainObject(model));
    file.Objects("objectsBelow", model.objectsBelow, PlainObject(model));
    file.UseObjects(model);
    file.Records("assemblies", model.assemblies);
}

} // namespace desktop::store
