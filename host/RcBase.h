// Counting of what the host and the library hold together: rows, models, menus, row data. Held by
// boost::intrusive_ptr; the counter is plain, since everything here runs on the host's UI thread.
#pragma once

#include <boost/smart_ptr/intrusive_ptr.hpp>

/// Something counted. A new object has a count of 0 and is deleted by the Release that brings the
/// count back to 0.
class IRefItem {
public:
    virtual void AddRef() = 0;
    virtual void Release() = 0;

protected:
    virtual ~IRefItem() = default;
};

inline void intrusive_ptr_add_ref(IRefItem* item) {
    item->AddRef();
}

inline void intrusive_ptr_release(IRefItem* item) {
    item->Release();
}

/// The usual implementation of IRefItem, put in front of or below an interface that derives from
/// it.
template <class Base = IRefItem>
class RcBase : public Base {
public:
    RcBase() = default;
    RcBase(const RcBase&) = delete;
    RcBase& operator=(const RcBase&) = delete;

    void AddRef() final { ++m_count; }
    void Release() final {
        if (--m_count == 0)
            delete this;
    }

protected:
    ~RcBase() override = default;

private:
    unsigned m_count = 0;
};
