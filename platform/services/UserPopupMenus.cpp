#include "host/frame/UserPopupMenus.h"

bool FillUserPopupMenu(TeeTypPopupIns, boost::intrusive_ptr<IMenuItems>) {
    return false;
}

void GetCommandArrayFromPopupMenu(SArray<int>&, TeeTypPopupIns) {}

void GetStringFromPopupMenu(SharedText& text, unsigned, TeeTypPopupIns) {
    text = {};
}
