// What the product data says about a property that can be a column.
#pragma once

#include "host/SimplePropVal.h"

#include <list>

/// The types of values that a property can have.
namespace value_type {

enum ValueType : unsigned { Integer = 0, Double = 1, String = 2, Boolean = 3 };

} // namespace value_type

class IfPropertyDescription {
public:
    virtual ~IfPropertyDescription() = default;

    /// The property's number, which ProductProperties::GetPath turns into a column id. Above 999: a
    /// property of the user's own.
    virtual unsigned long GetId() const = 0;
    /// A value_type::ValueType. A column of any other type has no cells and no head.
    virtual unsigned GetType() const = 0;
    /// May be null, which stands for an empty caption. Lives as long as the description.
    virtual const wchar_t* GetCaption() const = 0;
    /// Limits in stored units, both ends allowed; both 0 when there is no range.
    virtual double GetMin() const = 0;
    virtual double GetMax() const = 0;
    virtual bool HasList() const = 0;
    /// The values that the property may take, in stored units.
    virtual std::list<SimplePropVal> GetList() const = 0;
    /// Multiplier from stored to shown units; 0 when there is none.
    virtual double GetUnitCoefficient() const = 0;
    /// Code of the shown unit in the measurement data base; empty when there is none.
    virtual std::wstring GetUnitCode() const = 0;
    /// The range is not binding for a variable property.
    virtual bool IsVariable() const = 0;
};
