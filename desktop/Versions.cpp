#include "desktop/Versions.h"

#ifdef PRODUCT_TREE_HAS_STEP
#include "desktop/import/ReaderVersion.h"
#endif

namespace desktop {

std::vector<PartVersion> ListVersions() {
    std::vector<PartVersion> versions{{"product-tree", PRODUCT_TREE_VERSION}};
#ifdef PRODUCT_TREE_HAS_STEP
    versions.push_back({"Open CASCADE", step::GetReaderVersion()});
#endif
    return versions;
}

} // namespace desktop
