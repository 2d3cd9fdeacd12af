// What runs when the host loads the library: the resource module is opened, and the maker of the
// wrapper is entered in the host's registry. There is no entry function.

#include "control/GrProductTreeWrapper.h"
#include "host/frame/ITreeWrapper.h"
#include "resources/ProductTreeResources.h"

#include <memory>

namespace {

const bool c_registered = [] {
    productTree::GetResourceModule();
    TreeWrapperRegistrar::Get().insert_or_assign(TreeWrapperRegistrar::c_productTree, [] {
        return std::unique_ptr<ITreeWrapper>(new GrProductTreeWrapper);
    });
    return true;
}();

} // namespace
