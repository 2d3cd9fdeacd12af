// The control as the view and the rows' items see it. The view gets it by SetController and calls
// it when the user has done something.
#pragma once

namespace productTree {

/// Operations are declared in a fixed order, and each joins in its place with the work behind it.
/// So far the panel shows and nothing is edited in it, so that the view has nothing to call.
class IfProductTreeCtrl {
public:
    virtual ~IfProductTreeCtrl() = default;
};

} // namespace productTree
