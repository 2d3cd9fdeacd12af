// The cells of the name column. The name is the row's own label, so that they show through the row
// and have no cell slot there.
#pragma once

#include "cells/GroupCellImpl.h"

namespace productTree {

/// The name of one object, with the postfix of a billet.
class NameCellImpl final : public ProductTreeCellImpl {
public:
    using ProductTreeCellImpl::ProductTreeCellImpl;

    void InitEditor() override;
    void Update() override;
};

/// The members' common name with their count, or the count alone.
class NameGroupCellImpl final : public GroupCellImpl {
public:
    using GroupCellImpl::GroupCellImpl;

    void InitEditor() override;
    void Update() override;
};

} // namespace productTree
