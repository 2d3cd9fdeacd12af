#include "platform/product/model/SheetFormats.h"

#include <algorithm>
#include <cmath>

namespace platform {

namespace {

struct Sheet {
    const wchar_t* name;
    double shortSide;
    double longSide;
};

// Those of ISO 216 first, then the elongated ones of ISO 5457.
// clang-format off
constexpr Sheet c_sheets[] = {
    {L"A0",   841,  1189},
    {L"A1",   594,  841},
    {L"A2",   420,  594},
    {L"A3",   297,  420},
    {L"A4",   210,  297},
    {L"A5",   148,  210},
    {L"A6",   105,  148},
    {L"B0",   1000, 1414},
    {L"B1",   707,  1000},
    {L"B2",   500,  707},
    {L"B3",   353,  500},
    {L"B4",   250,  353},
    {L"B5",   176,  250},
    {L"A0x2", 1189, 1682},
    {L"A0x3", 1189, 2523},
    {L"A1x3", 841,  1783},
    {L"A1x4", 841,  2378},
    {L"A2x3", 594,  1261},
    {L"A2x4", 594,  1682},
    {L"A2x5", 594,  2102},
    {L"A3x3", 420,  891},
    {L"A3x4", 420,  1189},
    {L"A3x5", 420,  1486},
    {L"A3x6", 420,  1783},
    {L"A3x7", 420,  2080},
    {L"A4x3", 297,  630},
    {L"A4x4", 297,  841},
    {L"A4x5", 297,  1051},
    {L"A4x6", 297,  1261},
    {L"A4x7", 297,  1471},
    {L"A4x8", 297,  1682},
    {L"A4x9", 297,  1892},
};
// clang-format on

constexpr double c_tolerance = 2;

} // namespace

SharedText FindSheetFormat(double width, double height) {
    const auto isIt = [&](const Sheet& sheet) {
        return std::abs(std::min(width, height) - sheet.shortSide) <= c_tolerance &&
               std::abs(std::max(width, height) - sheet.longSide) <= c_tolerance;
    };
    const auto* const found = std::ranges::find_if(c_sheets, isIt);
    return found == std::ranges::end(c_sheets) ? SharedText() : SharedText(found->name);
}

} // namespace platform
