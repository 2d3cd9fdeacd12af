#include "desktop/SampleFile.h"

#include <cstdlib>

namespace desktop {

std::filesystem::path FindSampleFile() {
    if (const char* named = std::getenv("PRODUCT_TREE_SAMPLE"); named && *named)
        return named;
    std::error_code error;
    const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", error);
    if (!error) {
        const std::filesystem::path installed =
            program.parent_path() / PRODUCT_TREE_SAMPLE_FROM_PROGRAM;
        if (std::filesystem::exists(installed, error))
            return installed.lexically_normal();
    }
    return PRODUCT_TREE_SAMPLE_IN_SOURCES;
}

} // namespace desktop
