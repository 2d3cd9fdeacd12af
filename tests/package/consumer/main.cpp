// A host of somebody else's: it finds the maker of the product tree in the registry and uses what
// the library exports.
#include "columns/ColumnInfo.h"
#include "host/frame/FeatureTrees.h"
#include "host/frame/ITreeWrapper.h"

#include <iostream>
#include <memory>

int main() {
    const productTree::ColumnInfo column(L"count", L"Count", 45.0);
    const auto factory = TreeWrapperRegistrar::Get().find(3);
    if (factory == TreeWrapperRegistrar::Get().end()) {
        std::cerr << "the library has not registered its tree\n";
        return 1;
    }
    const std::unique_ptr<ITreeWrapper> wrapper = factory->second();
    if (wrapper->GetFeatureTree()->GetType() != 14 || column.GetWidth() != 45.0) {
        std::cerr << "the tree is not the product tree\n";
        return 1;
    }
    return 0;
}
