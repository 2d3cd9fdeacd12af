// A property value as the product data gives and takes it: a simple value, or a structured one as a
// property tree, with an optional format text.
#pragma once

#include "host/SimplePropVal.h"

#include <boost/property_tree/ptree_fwd.hpp>
#include <memory>

class PropValue {
public:
    using Tree = boost::property_tree::wptree;

    PropValue() = default;
    explicit PropValue(SimplePropVal value, SharedText format = {});
    /// A structured value. The tree is shared by all copies and must not change any more.
    explicit PropValue(std::shared_ptr<const Tree> tree, SharedText format = {});

    bool IsEmpty() const noexcept { return m_value.IsEmpty() && !m_tree; }
    const SimplePropVal& GetSimpleValue() const noexcept { return m_value; }
    const SharedText& GetFormat() const noexcept { return m_format; }
    /// The value as a person reads it: the simple value's text; empty for a structured value.
    SharedText GetLabel() const { return m_value.to_wstring(); }
    /// The structure; an empty tree when there is none.
    const Tree& GetPropertyTree() const noexcept;

    SharedText to_wstring() const { return m_value.to_wstring(); }
    int to_int() const { return m_value.to_int(); }
    double to_double() const { return m_value.to_double(); }
    bool to_bool() const { return m_value.to_bool(); }

    /// Equal simple value, format and structure.
    friend bool operator==(const PropValue& a, const PropValue& b);

private:
    SimplePropVal m_value;
    SharedText m_format;
    std::shared_ptr<const Tree> m_tree;
};
