// A property description of the test's own making.
#pragma once

#include "host/IfPropertyDescription.h"

#include <list>
#include <string>
#include <utility>

struct TestDescription final : IfPropertyDescription {
    TestDescription(unsigned long number_, unsigned type_, std::wstring caption_)
        : number(number_), type(type_), caption(std::move(caption_)) {}

    unsigned long GetId() const override { return number; }
    unsigned GetType() const override { return type; }
    const wchar_t* GetCaption() const override { return hasCaption ? caption.c_str() : nullptr; }
    double GetMin() const override { return min; }
    double GetMax() const override { return max; }
    bool HasList() const override { return !list.empty(); }
    std::list<SimplePropVal> GetList() const override { return list; }
    double GetUnitCoefficient() const override { return coefficient; }
    std::wstring GetUnitCode() const override { return unitCode; }
    bool IsVariable() const override { return isVariable; }

    unsigned long number;
    unsigned type;
    std::wstring caption;
    bool hasCaption = true;
    double min = 0;
    double max = 0;
    double coefficient = 0;
    std::list<SimplePropVal> list;
    std::wstring unitCode;
    bool isVariable = false;
};
