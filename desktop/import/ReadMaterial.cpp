#include "desktop/import/ReadMaterial.h"

#include "desktop/import/DensityUnit.h"
#include "desktop/import/ReadText.h"

#include <StepBasic_DerivedUnit.hxx>
#include <StepBasic_MeasureValueMember.hxx>
#include <StepBasic_MeasureWithUnit.hxx>
#include <StepBasic_ProductDefinition.hxx>
#include <StepBasic_Unit.hxx>
#include <StepRepr_CharacterizedDefinition.hxx>
#include <StepRepr_DescriptiveRepresentationItem.hxx>
#include <StepRepr_HArray1OfRepresentationItem.hxx>
#include <StepRepr_MeasureRepresentationItem.hxx>
#include <StepRepr_ProductDefinitionShape.hxx>
#include <StepRepr_PropertyDefinition.hxx>
#include <StepRepr_PropertyDefinitionRepresentation.hxx>
#include <StepRepr_Representation.hxx>
#include <StepRepr_RepresentedDefinition.hxx>
#include <TCollection_HAsciiString.hxx>

#include <algorithm>
#include <cctype>
#include <cmath>

namespace desktop::step {

namespace {

std::string LowerText(const Handle(TCollection_HAsciiString) & text) {
    std::string lower = RawText(text.get());
    std::ranges::transform(lower, lower.begin(), [](unsigned char c) {
        return c < 0x80 ? static_cast<char>(std::tolower(c)) : static_cast<char>(c);
    });
    return lower;
}

/// Exporters put the material's own name into either text of the item, and a word for what it is
/// into the other.
std::string MaterialName(const StepRepr_DescriptiveRepresentationItem& item) {
    const std::string name = LowerText(item.Name());
    const bool isLabel = name.empty() || name == "material" || name == "material name";
    const std::string description = RawText(item.Description().get());
    return isLabel && !description.empty() ? description : RawText(item.Name().get());
}

void ReadDensity(const StepRepr_MeasureRepresentationItem& item, MaterialFacts& facts) {
    const Handle(StepBasic_MeasureWithUnit) measure = item.Measure();
    if (measure.IsNull() || measure->ValueComponentMember().IsNull())
        return;
    const double value = measure->ValueComponent();
    if (!(value > 0) || !std::isfinite(value))
        return;
    const std::optional<double> factor =
        FindDensityFactor(measure->UnitComponent().DerivedUnit().get());
    if (factor)
        facts.density = value * *factor;
    else
        facts.isDensityUnclear = true;
}

} // namespace

const StepBasic_ProductDefinition*
GetDefinitionOf(const StepRepr_PropertyDefinitionRepresentation& property) {
    const Handle(StepRepr_PropertyDefinition) definition =
        property.Definition().PropertyDefinition();
    if (definition.IsNull())
        return nullptr;
    const StepRepr_CharacterizedDefinition owner = definition->Definition();
    if (const Handle(StepRepr_ProductDefinitionShape) shape = owner.ProductDefinitionShape())
        return shape->Definition().ProductDefinition().get();
    return owner.ProductDefinition().get();
}

MaterialFacts ReadMaterial(const StepRepr_PropertyDefinitionRepresentation& property) {
    MaterialFacts facts;
    const Handle(StepRepr_PropertyDefinition) definition =
        property.Definition().PropertyDefinition();
    const Handle(StepRepr_Representation) representation = property.UsedRepresentation();
    if (definition.IsNull() || representation.IsNull() || representation->Items().IsNull())
        return facts;
    const std::string subject =
        LowerText(representation->Name()) + "\n" + LowerText(definition->Description());
    for (const Handle(StepRepr_RepresentationItem) & item : *representation->Items()) {
        const auto text = Handle(StepRepr_DescriptiveRepresentationItem)::DownCast(item);
        const auto measure = Handle(StepRepr_MeasureRepresentationItem)::DownCast(item);
        if (text && subject.find("material name") != std::string::npos && facts.name.empty())
            facts.name = MaterialName(*text);
        if (measure && subject.find("density") != std::string::npos && !facts.density)
            ReadDensity(*measure, facts);
    }
    return facts;
}

} // namespace desktop::step
