// A cell of a group row. It owns no value: it mixes what the cells of the same column show in the
// rows directly below, and answers every question by asking them.
#pragma once

#include "cells/ProductTreeCellImpl.h"

namespace productTree {

class GroupCellImpl : public ProductTreeCellImpl {
public:
    using ProductTreeCellImpl::ProductTreeCellImpl;

    /// As soon as one member is.
    bool IsEditable() override;
    /// All members have a link, and it is the same one. Never in embodiment mode.
    bool HasHypertext() override;
    /// All members are; true without members.
    bool IsHypertextActive() override;

protected:
    /// The members' cells of this column, until `callback` answers false.
    template <class Callback>
    void ForEachMember(const Callback& callback) const;
};

} // namespace productTree
