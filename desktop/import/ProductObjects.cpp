#include "desktop/import/ProductObjects.h"

#include <limits>
#include <map>
#include <unordered_map>
#include <utility>

namespace desktop::step {

namespace {

/// Collects uses by the objects that are used.
class ComponentList final {
public:
    explicit ComponentList(const ProductObjects& objects) : m_objects(objects) {}

    void Add(std::size_t definition, std::string use) {
        const std::size_t object = m_objects.PlaceOf(definition);
        const auto [known, isNew] = m_places.emplace(object, m_components.size());
        if (isNew)
            m_components.push_back({object, {}});
        m_components[known->second].uses.push_back(std::move(use));
    }

    std::vector<Component> Take() { return std::move(m_components); }

private:
    const ProductObjects& m_objects;
    std::unordered_map<std::size_t, std::size_t> m_places;
    std::vector<Component> m_components;
};

constexpr std::size_t c_none = std::numeric_limits<std::size_t>::max();

} // namespace

std::variant<FileRoots, FileError> FindRoots(const ProductStructure& structure) {
    FileRoots roots{std::nullopt, FindFreeRoots(structure)};
    if (roots.tops.empty())
        return FileError{"the file holds no product"};
    if (roots.tops.size() == 1)
        roots.root = roots.tops.front();
    return roots;
}

ProductObjects::ProductObjects(const ProductStructure& structure,
                               const std::vector<std::size_t>& tops)
    : m_places(structure.definitions.size(), c_none) {
    std::vector<bool> isBelow(structure.definitions.size());
    for (const std::size_t definition : SortByUse(structure, tops))
        isBelow[definition] = true;
    std::map<std::size_t, std::size_t> parts;
    std::map<std::size_t, int> objectsOfProduct;
    for (std::size_t i = 0; i < structure.definitions.size(); ++i) {
        if (!isBelow[i])
            continue;
        const std::size_t product = structure.definitions[i].product;
        const bool isPart = !structure.definitions[i].IsAssembly();
        if (const auto part = parts.find(product); isPart && part != parts.end()) {
            m_places[i] = part->second;
            continue;
        }
        std::string key = "product" + std::to_string(structure.products[product].number);
        if (const int others = objectsOfProduct[product]++)
            key += '.' + std::to_string(others + 1);
        m_places[i] = m_objects.size();
        if (isPart)
            parts.emplace(product, m_objects.size());
        m_objects.push_back({UniqueMetaObjectKey(std::move(key)), i});
    }
}

std::vector<Component> ListComponents(const ProductObjects& objects, const std::vector<Use>& uses) {
    ComponentList components(objects);
    for (const Use& use : uses)
        components.Add(use.child, "use" + std::to_string(use.number));
    return components.Take();
}

std::vector<Component> ListComponents(const ProductObjects& objects,
                                      const std::vector<std::size_t>& tops) {
    ComponentList components(objects);
    for (const std::size_t top : tops)
        components.Add(top, "top" + std::to_string(top));
    return components.Take();
}

} // namespace desktop::step
