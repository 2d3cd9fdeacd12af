#include "platform/product/answers/UserWords.h"

#include "host/MeasurementDataBase.h"
#include "host/ProductProperties.h"

#include <array>
#include <charconv>

namespace platform {

namespace {

/// As many decimal digits as any double keeps.
constexpr int c_digits = 15;

} // namespace

SharedText NameOf(const ShownValues& shown, const PartEntry& part) {
    const SharedText name = shown.Get(part, ProductProperties::nameId).to_wstring();
    return name.IsEmpty() ? MarkingText(shown.Get(part, ProductProperties::markingId)) : name;
}

SharedText MarkingText(const PropValue& value) {
    VariantMarking marking;
    marking.FromPropertyTree(value.GetPropertyTree());
    return marking.Make(VariantMarkingData::MakeAll, false, false);
}

SharedText UnitOf(const PropertyRecord& record) {
    const IfMeasurementDataBaseMng* const units = GetMeasurementDataBaseMng();
    return units ? SharedText(units->GetUnitName(record.unitCode)) : SharedText();
}

SharedText CaptionOf(const PropertyRecord& record) {
    const SharedText unit = UnitOf(record);
    return unit.IsEmpty() ? SharedText(record.caption)
                          : SharedText(record.caption + L", " + unit.Str());
}

double CoefficientOf(const PropertyRecord& record) {
    return record.unitCoefficient == 0 ? 1 : record.unitCoefficient;
}

double Rounded(double value) {
    std::array<char, 32> text;
    const auto end = std::to_chars(text.data(), text.data() + text.size(), value,
                                   std::chars_format::scientific, c_digits - 1);
    double rounded = value;
    std::from_chars(text.data(), end.ptr, rounded);
    return rounded;
}

} // namespace platform
