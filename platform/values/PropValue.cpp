#include "host/PropValue.h"

#include <boost/property_tree/ptree.hpp>

PropValue::PropValue(SimplePropVal value, SharedText format)
    : m_value(std::move(value)), m_format(std::move(format)) {}

PropValue::PropValue(std::shared_ptr<const Tree> tree, SharedText format)
    : m_format(std::move(format)), m_tree(std::move(tree)) {}

const PropValue::Tree& PropValue::GetPropertyTree() const noexcept {
    static const Tree empty;
    return m_tree ? *m_tree : empty;
}

bool operator==(const PropValue& a, const PropValue& b) {
    if (!(a.m_value == b.m_value) || !(a.m_format == b.m_format))
        return false;
    return a.m_tree == b.m_tree || a.GetPropertyTree() == b.GetPropertyTree();
}
