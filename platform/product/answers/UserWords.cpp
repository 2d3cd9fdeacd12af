#include "platform/product/answers/UserWords.h"

#include "host/MeasurementDataBase.h"
#include "host/ProductProperties.h"

namespace platform {

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

} // namespace platform
