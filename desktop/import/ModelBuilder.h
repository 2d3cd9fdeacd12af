// Turns the chosen products of a STEP file into a product document for the panel.
#pragma once

#include "desktop/import/ProductSelection.h"
#include "desktop/import/ProductStructure.h"
#include "platform/product/ProductModel.h"

#include <string>
#include <vector>

namespace desktop::step {

/// The key of the object that a component becomes.
UniqueMetaObjectKey GetObjectKey(const ProductStructure& structure, const Component& component);

/// `title` names the root where no product of the file does.
platform::ProductModel BuildModel(const ProductStructure& structure, const RootChoice& choice,
                                  const std::vector<Component>& components,
                                  const std::wstring& title);

} // namespace desktop::step
