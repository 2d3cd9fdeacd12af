// Where the sample lies that is shown when no file is named.
#pragma once

#include <filesystem>

namespace desktop {

/// The file named by the environment variable PRODUCT_TREE_SAMPLE, else the one installed beside
/// the program, else that of the source tree the program was built from.
std::filesystem::path FindSampleFile();

} // namespace desktop
