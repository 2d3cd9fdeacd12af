#include "platform/product/validation/ProductValidation.h"

#include "host/ProductProperties.h"
#include "platform/product/model/AssemblyLevels.h"
#include "platform/product/model/PropertyLookup.h"
#include "platform/product/model/PropertyNumbers.h"
#include "platform/product/validation/DocumentValidation.h"
#include "platform/product/validation/LinkValidation.h"
#include "platform/product/validation/ModelPath.h"
#include "platform/product/validation/ReferenceValidation.h"
#include "platform/values/Utf8.h"

#include <algorithm>
#include <boost/property_tree/ptree.hpp>
#include <cmath>
#include <cstdint>
#include <limits>
#include <set>
#include <string_view>
#include <type_traits>
#include <unordered_set>

namespace platform {

namespace {

constexpr int c_maxKind = PartKindService;
constexpr int c_maxIconType = 26;
constexpr int c_markingParts = 7;
constexpr unsigned c_maxValueType = 3;
constexpr int c_maxTreeDepth = 20;
constexpr int c_maxNumber = std::numeric_limits<int>::max();
/// 0001-01-01 to 9999-12-31, the years that ISO 8601 writes with four digits.
constexpr std::int64_t c_minMoment = -62135596800;
constexpr std::int64_t c_maxMoment = 253402300799;

bool IsUnicode(std::wstring_view text) {
    return std::ranges::all_of(text,
                               [](wchar_t c) { return IsCodePoint(static_cast<char32_t>(c)); });
}

using Tree = boost::property_tree::wptree;

bool IsSoundTree(const Tree& tree, int depth) {
    return depth <= c_maxTreeDepth && IsUnicode(tree.data()) &&
           std::ranges::all_of(tree, [depth](const Tree::value_type& child) {
               return IsUnicode(child.first) && IsSoundTree(child.second, depth + 1);
           });
}

/// Looks at values one by one and remembers the first that is wrong. References are not its matter.
class ValueValidator final {
public:
    explicit ValueValidator(const ProductModel& model) : m_model(model) {}

    std::optional<ModelFault> Validate() {
        const ModelPath product;
        CheckNumber({product, "styleId"}, m_model.styleId, 1, c_maxNumber);
        Check({product, "columnSet"}, !m_model.columnSetKey.empty(), "a text is needed");
        CheckDefinitions({product, "properties"});
        CheckColumns({product, "columns"});
        if (m_model.source)
            CheckSource({product, "source"}, *m_model.source);
        if (m_model.style)
            CheckStyle({product, "style"}, *m_model.style);
        CheckEmbodiments({product, "embodiments"});
        for (const AssemblyRecord& assembly : m_model.assemblies)
            m_assemblies.insert(assembly.object);
        CheckRoot({product, "product"});
        CheckObjects({product, "objects"});
        CheckObjectsBelow({product, "objectsBelow"});
        CheckAssemblies({product, "assemblies"});
        return std::move(m_fault);
    }

private:
    bool Check(const ModelPath& path, bool isRight, std::string_view reason) {
        if (!isRight && !m_fault)
            m_fault = ModelFault{path.ToText(), m_object, std::string(reason)};
        return isRight;
    }

    void CheckNumber(const ModelPath& path, std::int64_t number, std::int64_t min,
                     std::int64_t max) {
        if (number < min || number > max)
            Check(path, false,
                  "a number from " + std::to_string(min) + " to " + std::to_string(max) +
                      " is expected");
    }

    void CheckFinite(const ModelPath& path, double number) {
        Check(path, std::isfinite(number), "a finite number is expected");
    }

    void CheckText(const ModelPath& path, const std::wstring& text) {
        Check(path, IsUnicode(text), "the text is not Unicode");
    }

    void CheckMarking(const ModelPath& path, const VariantMarking& marking) {
        CheckText(path, marking.GetBase());
        CheckText(path, marking.GetEmbodimentNum());
        CheckText(path, marking.GetAdditionalNum());
        CheckText(path, marking.GetCode());
        const wchar_t delims[] = {marking.GetEmbodimentNumDelim(), marking.GetAdditionalNumDelim(),
                                  marking.GetCodeDelim()};
        CheckText(path, std::wstring(delims, std::size(delims)));
    }

    void CheckSimpleValue(const ModelPath& path, const SimplePropVal& value) {
        std::visit(
            [&](const auto& held) {
                using Held = std::decay_t<decltype(held)>;
                if constexpr (std::is_same_v<Held, SharedText>)
                    CheckText(path, held.Str());
                else if constexpr (std::is_same_v<Held, double>)
                    CheckFinite(path, held);
                else if constexpr (std::is_same_v<Held, DateTime>)
                    CheckNumber(path, held.seconds, c_minMoment, c_maxMoment);
            },
            value.GetValue());
    }

    void CheckValues(const ModelPath& path, const PropertyValues& values) {
        std::set<unsigned long> met;
        for (std::size_t i = 0; i < values.size(); ++i) {
            const ModelPath place(path, i);
            const auto& [number, value] = values[i];
            const bool isOwn = number == ProductProperties::nameId || IsStructured(number);
            Check(place, !isOwn, "name, designation and section are members of the object itself");
            CheckProperty(place, number);
            Check(place, met.insert(number).second, "the property has a value already");
            CheckSimpleValue(place, value.GetSimpleValue());
            CheckText(place, value.GetFormat().Str());
            Check(place, IsSoundTree(value.GetPropertyTree(), 0),
                  "the structure is nested too deep or holds a text that is not Unicode");
        }
    }

    void CheckLinks(const ModelPath& path, const std::vector<LinkRecord>& links) {
        std::set<unsigned long> met;
        for (std::size_t i = 0; i < links.size(); ++i) {
            const ModelPath place(path, i);
            CheckProperty(place, links[i].property);
            Check(place, !IsStructured(links[i].property),
                  "a designation or a section can't be a link");
            Check(place, met.insert(links[i].property).second, "the property has a link already");
            Check({place, "object"}, !links[i].target.IsEmpty(), "a key is needed");
            CheckProperty({place, "property"}, links[i].targetProperty);
            Check({place, "property"}, !IsStructured(links[i].targetProperty),
                  "a link can't lead to a designation or a section");
        }
    }

    void CheckUse(const ModelPath& path, const OccurrenceRecord& use) {
        CheckPart(path, use);
        const ModelPath values(path, "properties");
        CheckValues(values, use.properties);
        for (std::size_t i = 0; i < use.properties.size(); ++i)
            CheckIsOwn({values, i}, use.properties[i].first);
        const ModelPath links(path, "links");
        CheckLinks(links, use.links);
        for (std::size_t i = 0; i < use.links.size(); ++i)
            CheckIsOwn({links, i}, use.links[i].property);
    }

    void CheckIsOwn(const ModelPath& path, unsigned long number) {
        Check(path, !BelongsToObject(number), "only the object itself has the property");
    }

    void CheckProperty(const ModelPath& path, unsigned long number) {
        const bool isKnown = number > ProductProperties::lastSystemId
                                 ? m_userProperties.contains(number)
                                 : !ProductProperties::GetPath(number).empty();
        if (!isKnown)
            Check(path, false, "there is no property " + std::to_string(number));
    }

    void CheckDefinitions(const ModelPath& path) {
        std::set<unsigned long> met;
        for (std::size_t i = 0; i < m_model.properties.size(); ++i) {
            const PropertyRecord& record = m_model.properties[i];
            const ModelPath place(path, i);
            const ModelPath property(place, "property");
            if (record.number > ProductProperties::lastSystemId)
                m_userProperties.insert(record.number);
            CheckProperty(property, record.number);
            Check(property, met.insert(record.number).second, "the property stands here twice");
            CheckText({place, "name"}, record.caption);
            CheckNumber({place, "type"}, record.type, 0, c_maxValueType);
            CheckFinite({place, "min"}, record.min);
            CheckFinite({place, "max"}, record.max);
            Check({place, "max"}, record.min <= record.max, "the range ends before it begins");
            CheckFinite({place, "unitCoefficient"}, record.unitCoefficient);
            Check({place, "unitCoefficient"}, record.unitCoefficient >= 0,
                  "a positive number is expected, or 0 for none");
            CheckText({place, "unit"}, record.unitCode);
            const ModelPath list(place, "list");
            for (std::size_t j = 0; j < record.list.size(); ++j)
                CheckSimpleValue({list, j}, record.list[j]);
        }
    }

    void CheckColumns(const ModelPath& path) {
        std::set<unsigned long> met;
        for (std::size_t i = 0; i < m_model.visibleProperties.size(); ++i) {
            const unsigned long number = m_model.visibleProperties[i];
            CheckProperty({path, i}, number);
            Check({path, i}, met.insert(number).second, "the column stands here twice");
        }
    }

    void CheckBlocks(const ModelPath& path, const std::vector<StyleBlockRecord>& blocks,
                     const std::set<int>& sections) {
        std::set<int> met;
        for (std::size_t i = 0; i < blocks.size(); ++i) {
            const ModelPath place(path, i);
            const ModelPath number(place, "number");
            CheckNumber(number, blocks[i].number, 0, c_maxNumber);
            Check(number, met.insert(blocks[i].number).second,
                  "another block here has the number " + std::to_string(blocks[i].number));
            CheckText({place, "name"}, blocks[i].name.Str());
            const ModelPath list(place, "sections");
            for (std::size_t j = 0; j < blocks[i].sections.size(); ++j)
                Check({list, j}, sections.contains(blocks[i].sections[j]),
                      "the style has no section " + std::to_string(blocks[i].sections[j]));
        }
    }

    void CheckStyle(const ModelPath& path, const StyleRecord& style) {
        const ModelPath list(path, "sections");
        std::set<int> numbers;
        for (std::size_t i = 0; i < style.sections.size(); ++i) {
            const ModelPath place(list, i);
            const ModelPath numberPlace(place, "number");
            const int number = style.sections[i].number;
            CheckNumber(numberPlace, number, 0, c_maxNumber);
            Check(numberPlace, numbers.insert(number).second,
                  "another section has the number " + std::to_string(number));
            CheckText({place, "name"}, style.sections[i].name.Str());
        }
        for (std::size_t i = 0; i < style.sections.size(); ++i) {
            const ModelPath place(list, i);
            CheckBlocks({place, "blocks"}, style.sections[i].blocks, numbers);
        }
        CheckBlocks({path, "blocks"}, style.blocks, numbers);
    }

    void CheckEmbodiments(const ModelPath& path) {
        for (std::size_t i = 0; i < m_model.embodiments.size(); ++i) {
            const ModelPath place(path, i);
            CheckMarking({place, "designation"}, m_model.embodiments[i].marking);
        }
    }

    void CheckPart(const ModelPath& path, const PartRecord& part) {
        CheckNumber({path, "kind"}, part.kind, 0, c_maxKind);
        const ModelPath styles(path, "specifications");
        const std::vector<meta_data::SP::StyleId>& used = part.part.used.GetStyles();
        for (std::size_t i = 0; i < used.size(); ++i)
            CheckNumber({styles, i}, used[i], 1, c_maxNumber);
        const ModelPath counts(path, "counts");
        for (std::size_t i = 0; i < part.counts.size(); ++i)
            CheckText({{counts, i}, "count"}, part.counts[i].count.Str());
    }

    void CheckObject(const ModelPath& path, const ObjectRecord& object) {
        CheckPart(path, object);
        CheckText({path, "name"}, object.name.Str());
        CheckMarking({path, "designation"}, object.marking);
        const ModelPath section(path, "section");
        for (const std::int32_t number : object.section.numbers)
            CheckNumber(section, number, 0, c_maxNumber);
        CheckText(section, object.section.name.Str());
        CheckNumber({path, "icon"}, object.iconType, 0, c_maxIconType);
        for (const int part : object.lockedMarkingParts)
            CheckNumber({path, "lockedDesignationParts"}, part, 1, c_markingParts);
        if (object.volume)
            Check({path, "volume"}, std::isfinite(*object.volume) && *object.volume > 0,
                  "a positive number is expected");
        if (object.source)
            CheckSource({path, "source"}, *object.source);
        CheckValues({path, "properties"}, object.properties);
        for (const unsigned long number : object.readOnlyProperties)
            CheckProperty({path, "readOnlyProperties"}, number);
        CheckLinks({path, "links"}, object.links);
        const ModelPath uses(path, "uses");
        for (std::size_t i = 0; i < object.occurrences.size(); ++i)
            CheckUse({uses, i}, object.occurrences[i]);
    }

    void CheckSource(const ModelPath& path, const SourceFile& source) {
        const auto checkUtf8 = [&](const ModelPath& place, const std::string& text) {
            Check(place, FromUtf8(text).has_value() && text.find('\0') == std::string::npos,
                  "a UTF-8 text without null characters is expected");
        };
        Check({path, "file"}, !source.path.empty(), "a path is needed");
        checkUtf8({path, "file"}, source.path);
        checkUtf8({path, "encoding"}, source.encoding);
        const ModelPath list(path, "deleted");
        for (std::size_t i = 0; i < source.deletedUses.size(); ++i) {
            const ModelPath place(list, i);
            const DeletedUse& use = source.deletedUses[i];
            for (const auto& [name, key] :
                 {std::pair("assembly", &use.assembly), std::pair("object", &use.object),
                  std::pair("use", &use.use)})
                Check({place, name}, IsSoundKey(*key), "a key is expected");
            CheckText({place, "id"}, use.id.Str());
            CheckText({place, "name"}, use.name.Str());
        }
    }

    void CheckSource(const ModelPath& path, const SourceProduct& source) {
        CheckText({path, "id"}, source.id.Str());
        CheckText({path, "name"}, source.name.Str());
        CheckText({path, "material"}, source.material.Str());
        CheckFinite({path, "density"}, source.density.value_or(0));
    }

    void CheckRoot(const ModelPath& path) {
        const ObjectRecord& root = m_model.root;
        m_object = root.key;
        CheckObject(path, root);
        Check({path, "uses"}, root.occurrences.empty(), "the product itself has no uses");
        Check({path, "parents"}, root.parents.empty(), "the product itself is part of nothing");
        Check({path, "owners"}, root.owners.empty(), "nothing owns the product itself");
        Check({path, "billet"}, root.billet == BilletKind::None && root.billetOwner.IsEmpty(),
              "the product itself is no billet");
        m_object = {};
    }

    void CheckObjects(const ModelPath& path) {
        for (std::size_t i = 0; i < m_model.objects.size() && !m_fault; ++i) {
            m_object = m_model.objects[i].key;
            const ModelPath place(path, i);
            CheckObject(place, m_model.objects[i]);
            CheckMassOfParts(place, m_model.objects[i]);
        }
    }

    void CheckMassOfParts(const ModelPath& path, const ObjectRecord& object) {
        Check({path, "massOfParts"}, !object.sumsPartMasses || m_assemblies.contains(object.key),
              "only the product itself and its assemblies have their mass from their parts");
    }

    void CheckObjectsBelow(const ModelPath& path) {
        std::unordered_set<UniqueMetaObjectKey> keys{m_model.root.key};
        for (const ObjectRecord& object : m_model.objects)
            keys.insert(object.key);
        for (std::size_t i = 0; i < m_model.objectsBelow.size() && !m_fault; ++i) {
            const ObjectRecord& object = m_model.objectsBelow[i];
            m_object = object.key;
            const ModelPath place(path, i);
            const ModelPath key(place, "key");
            Check(key, IsSoundKey(object.key), "a key is needed, UTF-8 without '|'");
            Check(key, keys.insert(object.key).second,
                  "the key '" + object.key.String() + "' is taken already");
            CheckObject(place, object);
            CheckMassOfParts(place, object);
            Check(place,
                  object.occurrences.empty() && object.parents.empty() && object.owners.empty() &&
                      object.counts.empty() && object.groupKey.IsEmpty() &&
                      object.billet == BilletKind::None && object.billetOwner.IsEmpty(),
                  "how the object is used stands in the assembly that uses it");
        }
        m_object = {};
        m_known = std::move(keys);
    }

    static bool IsSoundKey(const UniqueMetaObjectKey& key) {
        return !key.IsEmpty() && key.String().find('|') == std::string::npos &&
               FromUtf8(key.String()).has_value();
    }

    void CheckAssemblies(const ModelPath& path) {
        if (m_model.assemblies.empty()) {
            Check({ModelPath(), "objectsBelow"}, m_model.objectsBelow.empty(),
                  "no assembly uses these objects");
            return;
        }
        Check(path, m_model.embodiments.empty(),
              "a product with embodiments can't have assemblies of its own");
        Check({{path, std::size_t{0}}, "object"}, m_model.assemblies[0].object == m_model.root.key,
              "the product itself is expected");
        Check({{path, std::size_t{0}}, "components"}, m_model.assemblies[0].components.empty(),
              "the components of the product itself are its objects");
        std::unordered_set<UniqueMetaObjectKey> met;
        for (std::size_t i = 0; i < m_model.assemblies.size() && !m_fault; ++i) {
            const AssemblyRecord& assembly = m_model.assemblies[i];
            m_object = assembly.object;
            const ModelPath place(path, i);
            const ModelPath object(place, "object");
            CheckIsKnown(object, assembly.object);
            Check(object, met.insert(assembly.object).second, "the assembly stands here twice");
            CheckComponents({place, "components"}, assembly.components);
            CheckComponents({place, "allParts"}, assembly.allParts);
        }
        m_object = {};
        if (const AssemblyRecord* const cycle = m_fault ? nullptr : FindAssemblyCycle(m_model))
            Check({path, static_cast<std::size_t>(cycle - m_model.assemblies.data())}, false,
                  "the assembly '" + cycle->object.String() + "' is a component of itself");
    }

    void CheckIsKnown(const ModelPath& path, const UniqueMetaObjectKey& key) {
        Check(path, m_known.contains(key), "there is no object '" + key.String() + "'");
    }

    void CheckComponents(const ModelPath& path, const std::vector<ObjectRecord>& components) {
        for (std::size_t i = 0; i < components.size() && !m_fault; ++i) {
            const ModelPath place(path, i);
            CheckIsKnown({place, "object"}, components[i].key);
            CheckValues({place, "properties"}, components[i].properties);
            CheckLinks({place, "links"}, components[i].links);
            for (const auto& [number, value] : components[i].properties)
                CheckStands({place, "properties"}, number);
            for (const LinkRecord& link : components[i].links)
                CheckStands({place, "links"}, link.property);
            const ModelPath uses(place, "uses");
            for (std::size_t j = 0; j < components[i].occurrences.size(); ++j)
                CheckUse({uses, j}, components[i].occurrences[j]);
        }
    }

    void CheckStands(const ModelPath& path, unsigned long number) {
        Check(path, number == number::position, "only the position belongs to the assembly");
    }

    const ProductModel& m_model;
    std::unordered_set<UniqueMetaObjectKey> m_assemblies;
    std::unordered_set<UniqueMetaObjectKey> m_known;
    std::set<unsigned long> m_userProperties;
    UniqueMetaObjectKey m_object;
    std::optional<ModelFault> m_fault;
};

} // namespace

std::optional<ModelFault> ValidateModel(const ProductModel& model) {
    if (std::optional<ModelFault> fault = ValueValidator(model).Validate())
        return fault;
    if (std::optional<ModelFault> fault = ValidateDocuments(model))
        return fault;
    if (std::optional<ModelFault> fault = ValidateReferences(model))
        return fault;
    return ValidateLinks(model);
}

} // namespace platform
