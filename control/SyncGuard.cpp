#include "control/SyncGuard.h"

#include "control/GrProductTreeWrapper.h"
#include "control/ProductTreeCtrl.h"

namespace productTree {

SyncGuard::SyncGuard(ProductTreeCtrl& control, GrProductTreeWrapper& wrapper)
    : m_control(control), m_wrapper(wrapper),
      m_needSynchronize(wrapper.GetTreeId()->IsNeedSyncronize()),
      m_needRefresh(wrapper.GetTreeId()->IsNeedRefresh()) {
    m_wrapper.GetTreeId()->SetNeedSyncronize(false);
    m_wrapper.GetTreeId()->SetNeedRefresh(false);
    m_control.m_guarded = true;
}

SyncGuard::~SyncGuard() {
    m_wrapper.GetTreeId()->SetNeedSyncronize(m_needSynchronize);
    m_wrapper.GetTreeId()->SetNeedRefresh(m_needRefresh);
    m_control.m_guarded = false;
}

} // namespace productTree
