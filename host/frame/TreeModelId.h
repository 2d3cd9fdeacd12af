// The id of a tree panel with the two debts that a hidden panel has.
#pragma once

class TreeModelId {
public:
    /// A new id, different from all before it.
    TreeModelId();
    explicit TreeModelId(unsigned long value) : m_value(value) {}

    unsigned long Value() const noexcept { return m_value; }
    /// A full build is owed.
    bool IsNeedSyncronize() const noexcept { return m_needSynchronize; }
    void SetNeedSyncronize(bool need) noexcept { m_needSynchronize = need; }
    /// A refresh is owed.
    bool IsNeedRefresh() const noexcept { return m_needRefresh; }
    void SetNeedRefresh(bool need) noexcept { m_needRefresh = need; }

private:
    unsigned long m_value;
    bool m_needSynchronize = false;
    bool m_needRefresh = false;
};
