#include "desktop/import/ProductSelection.h"

#include "desktop/import/MessageTexts.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

namespace desktop::step {

namespace {

constexpr std::size_t maxOccurrences = 2'000'000;
constexpr std::wstring_view blanks = L" \t\r\n\u00A0\u3000";

std::wstring_view Trim(std::wstring_view text) {
    const std::size_t begin = text.find_first_not_of(blanks);
    if (begin == std::wstring_view::npos)
        return {};
    return text.substr(begin, text.find_last_not_of(blanks) - begin + 1);
}

using Matcher = bool (*)(std::wstring_view text, std::wstring_view asked);

/// Some names have blanks at their ends that nobody types, and that alone tell them from others.
constexpr Matcher matchers[] = {
    [](std::wstring_view text, std::wstring_view asked) { return text == asked; },
    [](std::wstring_view text, std::wstring_view asked) { return Trim(text) == Trim(asked); },
};

std::vector<std::size_t> FindByName(const ProductStructure& structure, std::wstring_view name) {
    for (const Matcher matches : matchers) {
        std::vector<std::size_t> found;
        for (std::size_t i = 0; i < structure.definitions.size(); ++i) {
            const Product& product = structure.GetProduct(i);
            if (matches(product.name, name) || matches(product.id, name))
                found.push_back(i);
        }
        if (!found.empty())
            return found;
    }
    return {};
}

std::variant<RootChoice, FileError> ChooseByName(const ProductStructure& structure,
                                                 std::wstring_view name) {
    const std::vector<std::size_t> found = FindByName(structure, name);
    if (found.empty())
        return FileError{"no product is called " + Quote(name)};
    const auto isAssembly = [&](std::size_t i) { return structure.definitions[i].IsAssembly(); };
    const auto first = std::ranges::find_if(found, isAssembly);
    if (first == found.end())
        return FileError{Quote(name) + " is no assembly: it has no components"};
    const auto count = static_cast<std::size_t>(std::ranges::count_if(found, isAssembly));
    return RootChoice{*first, {*first}, count - 1};
}

/// Collects components by their product.
class ComponentList final {
public:
    explicit ComponentList(const ProductStructure& structure) : m_structure(structure) {}

    /// The component of that definition, made on its first use.
    Component& Get(std::size_t definition) {
        const std::size_t product = m_structure.definitions[definition].product;
        const auto [known, isNew] = m_places.emplace(product, m_components.size());
        if (isNew)
            m_components.push_back({product, definition, false, {}});
        Component& component = m_components[known->second];
        component.isAssembly |= m_structure.definitions[definition].IsAssembly();
        return component;
    }

    std::vector<Component> Take() { return std::move(m_components); }

private:
    const ProductStructure& m_structure;
    std::unordered_map<std::size_t, std::size_t> m_places;
    std::vector<Component> m_components;
};

} // namespace

std::variant<RootChoice, FileError> ChooseRoot(const ProductStructure& structure,
                                               std::wstring_view assembly) {
    if (!assembly.empty())
        return ChooseByName(structure, assembly);
    std::vector<std::size_t> roots = FindFreeRoots(structure);
    if (roots.empty())
        return FileError{"the file holds no product"};
    RootChoice choice;
    if (roots.size() == 1)
        choice.root = roots.front();
    choice.tops = std::move(roots);
    return choice;
}

std::vector<Component> DirectComponents(const ProductStructure& structure,
                                        const RootChoice& choice) {
    ComponentList components(structure);
    if (!choice.root) {
        for (const std::size_t top : choice.tops)
            components.Get(top).occurrences.push_back("top" + std::to_string(top));
        return components.Take();
    }
    for (const Use& use : structure.definitions[*choice.root].uses)
        components.Get(use.child).occurrences.push_back("use" + std::to_string(use.number));
    return components.Take();
}

std::variant<std::vector<Component>, FileError> LeafComponents(const ProductStructure& structure,
                                                               const RootChoice& choice) {
    const std::vector<std::size_t> counts =
        CountOccurrences(structure, choice.tops, maxOccurrences);
    ComponentList components(structure);
    std::size_t total = 0;
    for (std::size_t definition = 0; definition < counts.size(); ++definition) {
        if (counts[definition] == 0 || structure.definitions[definition].IsAssembly())
            continue;
        total += counts[definition];
        if (total > maxOccurrences)
            return FileError{"more than " + std::to_string(maxOccurrences) +
                             " parts when flattened"};
        std::vector<std::string>& occurrences = components.Get(definition).occurrences;
        for (std::size_t i = 0; i < counts[definition]; ++i)
            occurrences.push_back("part" + std::to_string(definition) + "." + std::to_string(i));
    }
    return components.Take();
}

} // namespace desktop::step
