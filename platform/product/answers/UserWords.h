// How names and units of a product are put to its user. Used by the questions that show properties
// as plain data.
#pragma once

#include "platform/product/index/ShownValues.h"
#include "platform/product/model/ProductModel.h"

namespace platform {

/// The name, or the designation where there is none. Both may be missing.
SharedText NameOf(const ShownValues& shown, const PartEntry& part);
SharedText MarkingText(const PropValue& value);

/// Empty for a property without a unit.
SharedText UnitOf(const PropertyRecord& record);
/// With its unit.
SharedText CaptionOf(const PropertyRecord& record);

/// What a stored number is multiplied with to be shown.
double CoefficientOf(const PropertyRecord& record);

} // namespace platform
