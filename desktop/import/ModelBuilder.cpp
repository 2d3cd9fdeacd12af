#include "desktop/import/ModelBuilder.h"

#include "desktop/import/StandardParts.h"
#include "host/ProductProperties.h"
#include "platform/product/model/AssemblyLevels.h"
#include "platform/product/model/SectionKinds.h"
#include "platform/product/model/SourceProduct.h"

#include <array>
#include <utility>

namespace desktop::step {

namespace {

/// What is shown of an assembly beside names and designations.
constexpr std::array shownPaths = {L"position",         L"count", L"SPCSection", L"material",
                                   L"material.density", L"mass",  L"comment"};

const char* const rootKey = "root";
constexpr std::size_t c_noPlace = static_cast<std::size_t>(-1);

PartKind KindOf(const Product& product, bool isAssembly) {
    if (isAssembly)
        return PartKindAssembly;
    const bool isStandard = NamesStandard(product.name) || NamesStandard(product.id);
    return isStandard ? PartKindStandard : PartKindDetail;
}

ProductPart StandsIn(const platform::ProductModel& model) {
    ProductPart part;
    part.used = meta_data::SPUsed({model.styleId});
    return part;
}

platform::ObjectRecord MakeObject(const ProductStructure& structure, const ProductObject& source,
                                  const ProductPart& part) {
    const Definition& definition = structure.definitions[source.definition];
    const Product& product = structure.GetProduct(source.definition);
    const platform::SectionKind kind =
        platform::FindUsualSection(KindOf(product, definition.IsAssembly()));
    platform::ObjectRecord object;
    object.key = source.key;
    object.kind = kind.kind;
    object.part = part;
    object.section.numbers[0] = kind.section;
    object.section.name = GetDefaultSectionNumbName(kind.section);
    object.iconType = kind.iconType;
    object.sumsPartMasses = definition.IsAssembly();
    platform::TakeOver(
        object, {product.id, product.name, definition.material.name, definition.material.density});
    return object;
}

/// The product itself: nothing says in which section it stands.
platform::ObjectRecord MakeRoot(const ProductStructure& structure, const FileRoots& roots,
                                const ProductObjects& objects, const std::wstring& title,
                                const ProductPart& part) {
    platform::ObjectRecord root;
    if (roots.root) {
        root = MakeObject(structure, objects.Get()[objects.PlaceOf(*roots.root)], part);
        root.section = {};
        return root;
    }
    root.kind = PartKindAssembly;
    root.iconType = platform::FindUsualSection(PartKindAssembly).iconType;
    root.part = part;
    platform::TakeOver(root, {{}, title, {}, {}});
    return root;
}

/// The components as they stand in an assembly.
std::vector<platform::ObjectRecord> MakeStandings(const platform::ProductModel& model,
                                                  const std::vector<Component>& components) {
    std::vector<platform::ObjectRecord> standings;
    standings.reserve(components.size());
    for (const Component& component : components) {
        const platform::ObjectRecord& object = model.objectsBelow[component.object];
        platform::ObjectRecord& standing = standings.emplace_back();
        standing.key = object.key;
        platform::OccurrenceRecord use;
        use.kind = object.kind;
        use.part = object.part;
        standing.occurrences.reserve(component.uses.size());
        for (const std::string& name : component.uses) {
            use.key = UniqueMetaObjectKey(name);
            standing.occurrences.push_back(use);
        }
    }
    return standings;
}

} // namespace

platform::ProductModel BuildModel(const ProductStructure& structure, const FileRoots& roots,
                                  const ProductObjects& objects, const std::wstring& title,
                                  bool isPartItsOwn) {
    platform::ProductModel model;
    const ProductPart part = StandsIn(model);
    for (const ProductObject& object : objects.Get())
        model.objectsBelow.push_back(MakeObject(structure, object, part));
    platform::ObjectRecord root = MakeRoot(structure, roots, objects, title, part);
    const bool isRootAnObject =
        roots.root && (structure.definitions[*roots.root].IsAssembly() || !isPartItsOwn);
    if (!isRootAnObject) {
        root.key = UniqueMetaObjectKey(rootKey);
        root.sumsPartMasses = true;
    }
    const std::size_t rootPlace = isRootAnObject ? objects.PlaceOf(*roots.root) : c_noPlace;
    const auto add = [&](const UniqueMetaObjectKey& key, const std::vector<Component>& components) {
        model.assemblies.push_back({key, MakeStandings(model, components), {}, {}});
    };
    add(root.key, isRootAnObject ? ListComponents(objects, structure.definitions[*roots.root].uses)
                                 : ListComponents(objects, roots.tops));
    for (std::size_t i = 0; i < objects.Get().size(); ++i) {
        const Definition& definition = structure.definitions[objects.Get()[i].definition];
        if (i != rootPlace && definition.IsAssembly())
            add(objects.Get()[i].key, ListComponents(objects, definition.uses));
    }
    if (isRootAnObject)
        model.objectsBelow[rootPlace] = std::move(root);
    else
        model.objectsBelow.push_back(std::move(root));
    platform::TakeAllOut(model);
    model.isSimplified = true;
    for (const wchar_t* path : shownPaths)
        model.visibleProperties.push_back(ProductProperties::GetPropId(path));
    return model;
}

} // namespace desktop::step
