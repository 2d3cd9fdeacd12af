// The frame that every edit and every command runs in.
#pragma once

#include "cells/TreeActionResult.h"
#include "control/ProductTreeCtrl.h"
#include "control/SyncGuard.h"

namespace productTree {

// The guard goes before the result is applied: applying builds and reads.
template <class Work>
void ProductTreeCtrl::RunEdit(const Work& work, const TreeRowPtr& touched) {
    TreeActionResult result;
    {
        const SyncGuard guard(*this, m_wrapper);
        result = work();
    }
    ApplyResult(result, touched);
}

} // namespace productTree
