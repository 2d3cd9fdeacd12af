// The head of a count column: that of the current embodiments, or that of single ones, which says
// which embodiment it counts and whether that is the one worked on.
#pragma once

#include "columns/headers/ProductTreeHeaderImpl.h"

namespace productTree {

class CountHeaderImpl final : public ProductTreeHeaderImpl {
public:
    using ProductTreeHeaderImpl::ProductTreeHeaderImpl;

    void InitEditor() override;
    /// Groups have counts of their own, so that a member of a selected group takes the count, too.
    TreeActionResult OnValueEdited() override;
};

} // namespace productTree
