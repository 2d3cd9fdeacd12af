// The products of a STEP file and how they are used in each other, as plain data, and the questions
// to it that need all of it: what is free, what contains itself, how often a part is used. Filled
// by the reading of the file; knows nothing of geometry and of the panel.
#pragma once

#include "desktop/messages/FileError.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace desktop::step {

/// What a part is made of, in kg/m3; no value where the file does not say.
struct Material {
    std::wstring name;
    std::optional<double> density;

    bool IsEmpty() const { return name.empty() && !density; }
};

struct Product {
    /// The number of its record in the file.
    int number = 0;
    std::wstring id;
    std::wstring name;

    /// What people call it: its name, or its id where it has no name.
    const std::wstring& GetTitle() const { return name.empty() ? id : name; }
};

/// A use of one definition as a component of another.
struct Use {
    int number = 0;
    std::size_t child = 0;
};

/// A product as it is built: a product may have several, of which each has its own components.
struct Definition {
    /// Its rank in the reader's model.
    int entity = 0;
    std::size_t product = 0;
    bool hasShape = false;
    Material material;
    /// In the order of the file.
    std::vector<Use> uses;
    bool isUsed = false;

    bool IsAssembly() const { return !uses.empty(); }
};

struct ProductStructure {
    std::vector<Product> products;
    /// In the order of the file.
    std::vector<Definition> definitions;

    const Product& GetProduct(std::size_t definition) const {
        return products[definitions[definition].product];
    }
};

/// The definitions that no other one uses, without those that have neither shape nor components.
std::vector<std::size_t> FindFreeRoots(const ProductStructure& structure);

/// A definition that is, through others or by itself, its own component.
std::optional<std::size_t> FindCycle(const ProductStructure& structure);

/// All definitions below and with `roots`, each once and after all that use it. Only for a
/// structure without cycle.
std::vector<std::size_t> SortByUse(const ProductStructure& structure,
                                   const std::vector<std::size_t>& roots);

} // namespace desktop::step
