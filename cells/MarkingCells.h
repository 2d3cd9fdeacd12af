// The cells of the designation column. The seven parts stand in the row's marking editor, which the
// item reads and writes for them.
#pragma once

#include "cells/GroupCellImpl.h"

namespace productTree {

/// The designation of one object.
class MarkingCellImpl final : public ProductTreeCellImpl {
public:
    using ProductTreeCellImpl::ProductTreeCellImpl;

    void InitEditor() override;
    void Update() override;
};

/// The members' common designation, or none.
class MarkingGroupCellImpl final : public GroupCellImpl {
public:
    using GroupCellImpl::GroupCellImpl;

    void InitEditor() override;
    void Update() override;
};

} // namespace productTree
