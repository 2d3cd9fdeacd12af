#include "desktop/import/ModelBuilder.h"

#include "desktop/import/StandardParts.h"
#include "host/ProductProperties.h"

#include <array>
#include <utility>

namespace desktop::step {

namespace {

/// What a component is for the panel.
struct ComponentKind {
    PartKind kind;
    int section;
    int iconType;
};

constexpr ComponentKind assemblyKind{PartKindAssembly, 15, 0};
constexpr ComponentKind detailKind{PartKindDetail, 20, 1};
constexpr ComponentKind standardKind{PartKindStandard, 25, 2};

constexpr const wchar_t* materialPath = L"material";
constexpr const wchar_t* densityPath = L"material.density";

/// What is shown of an assembly beside names and designations.
constexpr std::array shownPaths = {L"position",         L"count", L"SPCSection", L"material",
                                   L"material.density", L"mass",  L"comment"};

const char* const rootKey = "root";

ComponentKind KindOf(const Product& product, bool isAssembly) {
    if (isAssembly)
        return assemblyKind;
    const bool isStandard = NamesStandard(product.name) || NamesStandard(product.id);
    return isStandard ? standardKind : detailKind;
}

ProductPart StandsIn(const platform::ProductModel& model) {
    ProductPart part;
    part.used = meta_data::SPUsed({model.styleId});
    return part;
}

/// Name and designation; an id that only repeats the name is none.
void SetTitle(platform::ObjectRecord& object, const Product& product) {
    object.name = product.GetTitle();
    if (product.id != product.GetTitle())
        object.marking.SetBase(product.id);
}

void SetMaterial(platform::ObjectRecord& object, const Material& material) {
    if (!material.name.empty())
        object.properties.emplace_back(ProductProperties::GetPropId(materialPath),
                                       PropValue(SimplePropVal(SharedText(material.name))));
    if (material.density)
        object.properties.emplace_back(ProductProperties::GetPropId(densityPath),
                                       PropValue(SimplePropVal(*material.density)));
}

platform::ObjectRecord MakeObject(const ProductStructure& structure, const Component& component,
                                  const ProductPart& part) {
    const Product& product = structure.products[component.product];
    const ComponentKind kind = KindOf(product, component.isAssembly);
    platform::ObjectRecord object;
    object.key = GetObjectKey(structure, component);
    object.kind = kind.kind;
    object.part = part;
    object.section.numbers[0] = kind.section;
    object.section.name = GetDefaultSectionNumbName(kind.section);
    object.iconType = kind.iconType;
    SetTitle(object, product);
    SetMaterial(object, structure.definitions[component.definition].material);

    platform::OccurrenceRecord occurrence;
    occurrence.kind = kind.kind;
    occurrence.part = part;
    object.occurrences.reserve(component.occurrences.size());
    for (const std::string& name : component.occurrences) {
        occurrence.key = UniqueMetaObjectKey(name);
        object.occurrences.push_back(occurrence);
    }
    return object;
}

platform::ObjectRecord MakeRoot(const ProductStructure& structure, const RootChoice& choice,
                                const std::wstring& title, const ProductPart& part) {
    platform::ObjectRecord root;
    root.key = UniqueMetaObjectKey(rootKey);
    root.kind = assemblyKind.kind;
    root.iconType = assemblyKind.iconType;
    root.part = part;
    root.name = title;
    if (!choice.root)
        return root;
    const Definition& definition = structure.definitions[*choice.root];
    SetTitle(root, structure.GetProduct(*choice.root));
    SetMaterial(root, definition.material);
    if (!definition.IsAssembly()) {
        root.kind = detailKind.kind;
        root.iconType = detailKind.iconType;
    }
    return root;
}

} // namespace

UniqueMetaObjectKey GetObjectKey(const ProductStructure& structure, const Component& component) {
    const int number = structure.products[component.product].number;
    return UniqueMetaObjectKey("product" + std::to_string(number));
}

platform::ProductModel BuildModel(const ProductStructure& structure, const RootChoice& choice,
                                  const std::vector<Component>& components,
                                  const std::wstring& title) {
    platform::ProductModel model;
    const ProductPart part = StandsIn(model);
    model.root = MakeRoot(structure, choice, title, part);
    model.objects.reserve(components.size());
    for (const Component& component : components)
        model.objects.push_back(MakeObject(structure, component, part));
    model.root.sumsPartMasses = !model.objects.empty();
    model.isSimplified = true;
    for (const wchar_t* path : shownPaths)
        model.visibleProperties.push_back(ProductProperties::GetPropId(path));
    return model;
}

} // namespace desktop::step
