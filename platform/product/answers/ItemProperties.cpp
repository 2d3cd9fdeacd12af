#include "platform/product/answers/ItemProperties.h"

#include "host/MeasurementDataBase.h"
#include "host/NumberTexts.h"
#include "host/ProductProperties.h"
#include "platform/product/model/ProductTexts.h"

namespace platform {

namespace {

constexpr int c_shownDigits = 6;

SharedText InShownUnits(const PropValue& value, const IfPropertyDescription& description) {
    const SimplePropVal::Type type = value.GetSimpleValue().GetType();
    const double coefficient = description.GetUnitCoefficient();
    const bool isNumber = type == SimplePropVal::TypeInt || type == SimplePropVal::TypeDouble;
    if (!isNumber || coefficient == 0)
        return value.GetLabel();
    std::wstring text =
        orvex::sys::ToString(value.to_double() * coefficient, true, c_shownDigits).Str();
    const IfMeasurementDataBaseMng* const units = GetMeasurementDataBaseMng();
    const std::wstring unit = units ? units->GetUnitName(description.GetUnitCode()) : L"";
    return unit.empty() ? text : text + L' ' + unit;
}

SharedText ShownText(const PropValue& value, const IfPropertyDescription& description) {
    if (description.GetId() != ProductProperties::markingId)
        return InShownUnits(value, description);
    VariantMarking marking;
    marking.FromPropertyTree(value.GetPropertyTree());
    return marking.Make(VariantMarkingData::MakeAll, false, false);
}

} // namespace

SharedText ListProperties(const ProductIndex& index, const PropertyDescriptions& descriptions,
                          const PartEntry& part) {
    const ShownValues shown(index);
    std::wstring text;
    for (const IfPropertyDescription* const description : descriptions.GetAll()) {
        const PropValue value = shown.Get(part, description->GetId());
        if (value.IsEmpty())
            continue;
        if (!text.empty())
            text += L'\n';
        text += GetText(ProductText::ItemPropertyLine,
                        {description->GetCaption(), ShownText(value, *description)})
                    .Str();
    }
    return text;
}

} // namespace platform
