// The library's resources: the table of names and ids of the module "oProductTree", and the handle
// by which the host gives their texts. Everything that is looked up goes through here.
#pragma once

#include "host/ResourceModule.h"

#include <span>
#include <string_view>

namespace productTree {

/// The 55 rows of the module. Ids of commands and texts are those of the host's resource file.
std::span<const ResourceRow> GetResourceRows();

/// Opens the module on first use.
const ResourceModuleHandle& GetResourceModule();

/// 0 for a name that the table does not have.
unsigned FindResourceId(const ResourceName& resource);

/// The text of a string resource by its name; empty for an unknown one.
SharedText GetResourceText(std::string_view name);

} // namespace productTree
