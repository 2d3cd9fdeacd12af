// Which objects of the panel the products of a STEP file become, and how they are used in each
// other.
#pragma once

#include "desktop/import/ProductStructure.h"
#include "desktop/messages/FileError.h"
#include "host/UniqueMetaObjectKey.h"

#include <cstddef>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace desktop::step {

/// What nothing else uses.
struct FileRoots {
    /// No value where several stand under a root that the file itself lends its name.
    std::optional<std::size_t> root;
    std::vector<std::size_t> tops;
};

std::variant<FileRoots, FileError> FindRoots(const ProductStructure& structure);

/// All definitions of a product that have no components of their own are one object. Those with
/// components are built up differently, and are one each.
struct ProductObject {
    UniqueMetaObjectKey key;
    /// The first of its definitions in the file.
    std::size_t definition = 0;
};

class ProductObjects {
public:
    /// Of what stands below and with `tops`.
    ProductObjects(const ProductStructure& structure, const std::vector<std::size_t>& tops);

    /// In the order of the file.
    const std::vector<ProductObject>& Get() const { return m_objects; }
    /// The place of a definition's object among them.
    std::size_t PlaceOf(std::size_t definition) const { return m_places[definition]; }

private:
    std::vector<ProductObject> m_objects;
    std::vector<std::size_t> m_places;
};

/// An object as a component, with a name for each use, unlike that of any other use in the file.
struct Component {
    std::size_t object = 0;
    std::vector<std::string> uses;
};

/// In the order of their first use.
std::vector<Component> ListComponents(const ProductObjects& objects, const std::vector<Use>& uses);
std::vector<Component> ListComponents(const ProductObjects& objects,
                                      const std::vector<std::size_t>& tops);

} // namespace desktop::step
