// Separates the panel's own writes from outside changes. While a guard lives, nothing is built or
// read again, and what the host tells of the change that is being written is dropped: only the
// result of the write decides what follows.
#pragma once

class GrProductTreeWrapper;

namespace productTree {

class ProductTreeCtrl;

class SyncGuard {
public:
    /// Takes the debts of a hidden panel over and clears them.
    SyncGuard(ProductTreeCtrl& control, GrProductTreeWrapper& wrapper);
    SyncGuard(const SyncGuard&) = delete;
    SyncGuard& operator=(const SyncGuard&) = delete;
    /// Gives the debts back as they were, whatever was added meanwhile.
    ~SyncGuard();

private:
    ProductTreeCtrl& m_control;
    GrProductTreeWrapper& m_wrapper;
    bool m_needSynchronize;
    bool m_needRefresh;
};

} // namespace productTree
