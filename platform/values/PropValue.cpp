#include "host/PropValue.h"

#include <boost/property_tree/ptree.hpp>

PropValue::PropValue(SimplePropVal value, SharedText format) : PropValue(std::move(value)) {
    if (!format.IsEmpty())
        m_extra = new Extra{std::move(format), nullptr};
}

PropValue::PropValue(std::shared_ptr<const Tree> tree, SharedText format) {
    if (tree || !format.IsEmpty())
        m_extra = new Extra{std::move(format), std::move(tree)};
}

const SharedText& PropValue::GetFormat() const noexcept {
    static const SharedText none;
    return m_extra ? m_extra->format : none;
}

const PropValue::Tree& PropValue::GetPropertyTree() const noexcept {
    static const Tree empty;
    return HasTree() ? *m_extra->tree : empty;
}

bool operator==(const PropValue& a, const PropValue& b) {
    if (!(a.m_value == b.m_value))
        return false;
    if (a.m_extra == b.m_extra)
        return true;
    return a.GetFormat() == b.GetFormat() &&
           (a.SharesTree(b) || a.GetPropertyTree() == b.GetPropertyTree());
}
