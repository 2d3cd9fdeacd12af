// Which level of a product the command line asks for: an assembly by its name, its direct
// components or all parts below it.
#pragma once

#include "desktop/import/StepImport.h"
#include "desktop/messages/FileError.h"

#include <string>
#include <variant>

namespace desktop {

/// Shows what the options say, else nothing changes and there is an error. The text is what the
/// user should know about the choice; empty: nothing. An assembly is asked for by its name or its
/// designation.
std::variant<std::string, FileError> ShowLevel(platform::ProductModel& model,
                                               const step::StepOptions& options);

/// The first object that is called so, by its name or its designation; the root for an empty name.
std::variant<UniqueMetaObjectKey, FileError> FindObject(const platform::ProductModel& model,
                                                        const std::string& name);

} // namespace desktop
