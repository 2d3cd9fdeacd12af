#include "desktop/import/DensityUnit.h"

#include <StepBasic_ConversionBasedUnit.hxx>
#include <StepBasic_DerivedUnit.hxx>
#include <StepBasic_DerivedUnitElement.hxx>
#include <StepBasic_HArray1OfDerivedUnitElement.hxx>
#include <StepBasic_MeasureWithUnit.hxx>
#include <StepBasic_SiUnit.hxx>
#include <StepBasic_Unit.hxx>

#include <array>
#include <cmath>

namespace desktop::step {

namespace {

enum class Dimension { Length, Mass };

/// A unit as a multiple of the metre or the kilogram. The power of ten stands apart, so that grams
/// per cubic centimetre come out as 1000 and not as 999.9999.
struct UnitScale {
    Dimension dimension;
    int power;
    double factor = 1;
};

/// In the order of the reader's enumeration.
constexpr std::array prefixPowers{18, 15, 12, 9, 6, 3, 2, 1, -1, -2, -3, -6, -9, -12, -15, -18};
static_assert(StepBasic_spExa == 0 && StepBasic_spAtto == prefixPowers.size() - 1);

std::optional<UnitScale> ScaleOf(const StepBasic_SiUnit& unit) {
    const int power = unit.HasPrefix() ? prefixPowers[static_cast<std::size_t>(unit.Prefix())] : 0;
    if (unit.Name() == StepBasic_sunMetre)
        return UnitScale{Dimension::Length, power};
    if (unit.Name() == StepBasic_sunGram)
        return UnitScale{Dimension::Mass, power - 3};
    return std::nullopt;
}

/// Inches and pounds are told by a factor and another unit, which may be such a unit again.
std::optional<UnitScale> ScaleOf(Handle(StepBasic_NamedUnit) unit) {
    static constexpr int maxSteps = 8;
    double factor = 1;
    for (int step = 0; step < maxSteps; ++step) {
        if (const auto si = Handle(StepBasic_SiUnit)::DownCast(unit)) {
            std::optional<UnitScale> scale = ScaleOf(*si);
            if (scale)
                scale->factor = factor;
            return scale;
        }
        const auto converted = Handle(StepBasic_ConversionBasedUnit)::DownCast(unit);
        if (converted.IsNull() || converted->ConversionFactor().IsNull())
            return std::nullopt;
        factor *= converted->ConversionFactor()->ValueComponent();
        unit = converted->ConversionFactor()->UnitComponent().NamedUnit();
    }
    return std::nullopt;
}

} // namespace

std::optional<double> FindDensityFactor(const StepBasic_DerivedUnit* unit) {
    if (!unit || unit->Elements().IsNull())
        return std::nullopt;
    double factor = 1;
    double power = 0;
    double massExponent = 0;
    double lengthExponent = 0;
    for (const Handle(StepBasic_DerivedUnitElement) & element : *unit->Elements()) {
        const std::optional<UnitScale> scale =
            element.IsNull() ? std::nullopt : ScaleOf(element->Unit());
        if (!scale)
            return std::nullopt;
        const double size = std::abs(element->Exponent());
        const bool isMass = scale->dimension == Dimension::Mass;
        const double exponent = isMass ? size : -size;
        (isMass ? massExponent : lengthExponent) += exponent;
        factor *= std::pow(scale->factor, exponent);
        power += scale->power * exponent;
    }
    const double whole = factor * std::pow(10.0, power);
    if (massExponent != 1 || lengthExponent != -3 || !std::isfinite(whole) || !(whole > 0))
        return std::nullopt;
    return whole;
}

} // namespace desktop::step
