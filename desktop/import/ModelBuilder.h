// Makes the document that the panel shows: all products of a file as objects, with what each is
// built up of.
#pragma once

#include "desktop/import/ProductObjects.h"
#include "platform/product/model/ProductModel.h"

#include <string>

namespace desktop::step {

/// The direct components of the root are shown. `title` names the root where no product does. A
/// file of a single part has no components, unless it is asked for as one of its own.
platform::ProductModel BuildModel(const ProductStructure& structure, const FileRoots& roots,
                                  const ProductObjects& objects, const std::wstring& title,
                                  bool isPartItsOwn);

} // namespace desktop::step
