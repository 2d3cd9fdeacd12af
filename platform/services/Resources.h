// The texts of the modules and the resources that opened modules have entered. The library finds
// its own texts by ResourceModuleHandle; this is for the host's side: menus and captions by name.
#pragma once

#include "host/ResourceModule.h"

#include <string_view>

namespace platform {

/// The data file of all texts, embedded when the host was built. Sections begin with a line
/// "[module]"; each other line is "id<TAB>NAME<TAB>text", empty lines and those beginning with '#'
/// apart.
extern const std::wstring_view c_resourceTexts;

/// The resource of an opened module; null for a name that it does not have.
const ResourceRow* FindResource(std::string_view moduleName, const ResourceName& resource);

/// The module of the host's own texts.
inline constexpr std::string_view c_hostModule = "host";

/// The text with that id; empty for an unknown module or an id without text.
SharedText GetModuleText(std::string_view moduleName, unsigned id);

} // namespace platform
