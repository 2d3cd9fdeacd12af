#include "desktop/import/ReaderVersion.h"

#include <Standard_Version.hxx>

namespace desktop::step {

std::string GetReaderVersion() {
    return OCC_VERSION_COMPLETE;
}

} // namespace desktop::step
