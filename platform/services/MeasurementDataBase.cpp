#include "host/MeasurementDataBase.h"

#include <algorithm>
#include <string_view>

namespace {

struct Unit {
    std::wstring_view code;
    std::wstring_view name;
};

// clang-format off
constexpr Unit c_units[] = {
    {L"mm",    L"mm"},
    {L"cm",    L"cm"},
    {L"m",     L"m"},
    {L"km",    L"km"},
    {L"um",    L"\u00B5m"},
    {L"in",    L"in"},
    {L"ft",    L"ft"},
    {L"mm2",   L"mm\u00B2"},
    {L"cm2",   L"cm\u00B2"},
    {L"m2",    L"m\u00B2"},
    {L"mm3",   L"mm\u00B3"},
    {L"cm3",   L"cm\u00B3"},
    {L"m3",    L"m\u00B3"},
    {L"l",     L"l"},
    {L"g",     L"g"},
    {L"kg",    L"kg"},
    {L"t",     L"t"},
    {L"lb",    L"lb"},
    {L"g/cm3", L"g/cm\u00B3"},
    {L"kg/m3", L"kg/m\u00B3"},
    {L"deg",   L"\u00B0"},
    {L"rad",   L"rad"},
    {L"s",     L"s"},
    {L"min",   L"min"},
    {L"h",     L"h"},
    {L"N",     L"N"},
    {L"kN",    L"kN"},
    {L"Nm",    L"N\u00B7m"},
    {L"Pa",    L"Pa"},
    {L"MPa",   L"MPa"},
    {L"bar",   L"bar"},
    {L"W",     L"W"},
    {L"kW",    L"kW"},
    {L"V",     L"V"},
    {L"A",     L"A"},
    {L"Hz",    L"Hz"},
    {L"K",     L"K"},
    {L"degC",  L"\u00B0C"},
    {L"%",     L"%"},
    {L"pcs",   L"pcs"},
};
// clang-format on

class MeasurementDataBase final : public IfMeasurementDataBaseMng {
public:
    std::wstring GetUnitName(const std::wstring& unitCode) const override {
        const auto found = std::find_if(std::begin(c_units), std::end(c_units),
                                        [&](const Unit& unit) { return unit.code == unitCode; });
        return found == std::end(c_units) ? std::wstring() : std::wstring(found->name);
    }
};

} // namespace

const IfMeasurementDataBaseMng* GetMeasurementDataBaseMng() {
    static const MeasurementDataBase dataBase;
    return &dataBase;
}
