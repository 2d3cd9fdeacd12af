// A cell whose property value is more than what it shows.
#pragma once

#include "host/PropValue.h"

namespace productTree {

/// Most cells show their property value as it is. Those that show something made of it remember it
/// beside.
template <class Base>
class CellWithPropValue : public Base {
public:
    using Base::Base;

    PropValue GetShownPropValue() const override { return m_propValue; }

protected:
    PropValue m_propValue;
};

} // namespace productTree
