// The heads for the roughness of a surface and for whether objects are left uncut in sections. What
// is stored is a number made of the chosen place, not the list's element.
#pragma once

#include "columns/headers/PlainHeaders.h"

namespace productTree {

class RoughSignHeaderImpl final : public ListHeaderImpl {
public:
    using ListHeaderImpl::ListHeaderImpl;

    TreeActionResult OnValueEdited() override;
};

class RoughValueHeaderImpl final : public StringHeaderImpl {
public:
    using StringHeaderImpl::StringHeaderImpl;

    /// The dialog is for one object: the first selected row that can be edited.
    TreeActionResult OnPopupCommand(int command) override;
    boost::intrusive_ptr<IMenuItems> GetPopupMenu() override;
};

class NotSectedHeaderImpl final : public ListHeaderImpl {
public:
    using ListHeaderImpl::ListHeaderImpl;

    TreeActionResult OnValueEdited() override;
};

} // namespace productTree
