// A property value as the product data gives and takes it: a simple value, or a structured one as a
// property tree, with an optional format text.
#pragma once

#include "host/SimplePropVal.h"

#include <boost/property_tree/ptree_fwd.hpp>
#include <boost/smart_ptr/intrusive_ptr.hpp>
#include <memory>
#include <utility>

class PropValue {
public:
    using Tree = boost::property_tree::wptree;

    PropValue() = default;
    explicit PropValue(SimplePropVal value) : m_value(std::move(value)) {}
    PropValue(SimplePropVal value, SharedText format);
    /// A structured value. The tree is shared by all copies and must not change any more.
    explicit PropValue(std::shared_ptr<const Tree> tree, SharedText format = {});

    bool IsEmpty() const noexcept { return m_value.IsEmpty() && !HasTree(); }
    const SimplePropVal& GetSimpleValue() const noexcept { return m_value; }
    const SharedText& GetFormat() const noexcept;
    /// The value as a person reads it: the simple value's text; empty for a structured value.
    SharedText GetLabel() const { return m_value.to_wstring(); }
    /// The structure; an empty tree when there is none.
    const Tree& GetPropertyTree() const noexcept;
    /// Both have one structure in memory: a cheap test that never says the same wrongly.
    bool SharesTree(const PropValue& other) const noexcept {
        return HasTree() && other.HasTree() && m_extra->tree == other.m_extra->tree;
    }
    /// Both are copies of one value with structure or format: a test that looks at neither.
    bool SharesExtra(const PropValue& other) const noexcept {
        return m_extra && m_extra == other.m_extra;
    }

    /// What the value holds, to be looked at for as long as the value stands.
    struct PropData {
        const SimplePropVal* simple;
        const Tree* tree;
    };
    PropData GetPropData() const noexcept { return {&m_value, &GetPropertyTree()}; }

    SharedText to_wstring() const { return m_value.to_wstring(); }
    int to_int() const { return m_value.to_int(); }
    double to_double() const { return m_value.to_double(); }
    bool to_bool() const { return m_value.to_bool(); }

    /// Equal simple value, format and structure.
    friend bool operator==(const PropValue& a, const PropValue& b);

private:
    struct Extra {
        SharedText format;
        std::shared_ptr<const Tree> tree;
        mutable unsigned count = 0;

        friend void intrusive_ptr_add_ref(const Extra* extra) noexcept { ++extra->count; }
        friend void intrusive_ptr_release(const Extra* extra) noexcept {
            if (--extra->count == 0)
                Destroy(extra);
        }
        // Apart from its callers: inlined, it makes each of them bigger.
        [[gnu::noinline]] static void Destroy(const Extra* extra) noexcept { delete extra; }
    };

    bool HasTree() const noexcept { return m_extra && m_extra->tree; }

    SimplePropVal m_value;
    /// Null for most values, which are copied a million times a refresh and have neither format nor
    /// structure.
    boost::intrusive_ptr<const Extra> m_extra;
};

/// A value that somebody else holds, lent for the time of a call.
class PropValueRef {
public:
    explicit PropValueRef(const PropValue::PropData& data) noexcept : m_data(data) {}

    const SimplePropVal& GetSimpleValue() const noexcept { return *m_data.simple; }
    /// An empty tree for a value without structure.
    const PropValue::Tree& GetPropertyTree() const noexcept { return *m_data.tree; }

private:
    PropValue::PropData m_data;
};
