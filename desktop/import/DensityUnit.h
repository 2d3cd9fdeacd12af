// The meaning of a density's unit, worked out from the units that it is made of.
#pragma once

#include <optional>

class StepBasic_DerivedUnit;

namespace desktop::step {

/// What a value in that unit is multiplied with to be in kg/m3; no value when the unit is not one
/// of mass per volume or there is none. The sign of the exponents is not looked at, since exporters
/// forget it.
std::optional<double> FindDensityFactor(const StepBasic_DerivedUnit* unit);

} // namespace desktop::step
