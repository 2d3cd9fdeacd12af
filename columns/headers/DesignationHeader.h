// The head of the designations, which is filled part by part: the parts that the user leaves there
// make a designation, and its document code can be chosen for all selected rows.
#pragma once

#include "columns/headers/ProductTreeHeaderImpl.h"

namespace productTree {

class DesignationHeaderImpl final : public ProductTreeHeaderImpl {
public:
    using ProductTreeHeaderImpl::ProductTreeHeaderImpl;

    void InitEditor() override;
    /// Changed designations build the rows anew: they are sorted and grouped by them.
    TreeActionResult OnValueEdited() override;

    /// Lets the user choose a document code, which each selected row takes that may have another
    /// one; the rest of its designation stays as it is shown.
    TreeActionResult EditDocCode();
};

} // namespace productTree
