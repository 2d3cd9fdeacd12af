#include "desktop/import/Masses.h"

#include "desktop/import/MeasureApart.h"
#include "host/ProductProperties.h"
#include "tests/import/StepFileText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <poll.h>
#include <unistd.h>

namespace {

using namespace desktop::step;
using testing::ElementsAre;
using testing::Eq;
using testing::IsEmpty;
using testing::Optional;
using testing::UnorderedElementsAre;

/// Two bolts of 0.5 m3 and a plate of 2 m3 in an assembly, twice in the root.
ProductStructure MakeFrame() {
    ProductStructure structure;
    structure.products.resize(4);
    structure.definitions.resize(4);
    for (std::size_t i = 0; i < 4; ++i)
        structure.definitions[i].product = i;
    structure.definitions[0].uses = {{1, 1}, {2, 1}};
    structure.definitions[1].uses = {{3, 2}, {4, 2}, {5, 3}};
    structure.definitions[2].material.density = 8000;
    structure.definitions[3].material.density = 1000;
    return structure;
}

TEST(Masses, AreMeasuredOfPartsThatHaveOrMayGetADensity) {
    ProductStructure structure = MakeFrame();
    EXPECT_THAT(FindPartsToMeasure(structure, {0}, MeasuredParts::WithDensity), UnorderedElementsAre(2, 3));
    structure.definitions[3].material.density.reset();
    EXPECT_THAT(FindPartsToMeasure(structure, {0}, MeasuredParts::WithDensity), ElementsAre(2));
    EXPECT_THAT(FindPartsToMeasure(structure, {0}, MeasuredParts::All), UnorderedElementsAre(2, 3));
}

TEST(MeasuringApart, GoesOnBehindAPartThatEndsItsProcess) {
    std::vector<double> shares;
    MeasuringApart measuring(4, [](std::size_t part, const Progress& progress) -> std::optional<double> {
        progress(0.5);
        if (part == 1)
            std::abort();
        if (part == 2)
            return std::nullopt;
        return static_cast<double>(part) + 0.25;
    });
    while (measuring.Advance()) {
        pollfd news{measuring.GetDescriptor(), POLLIN, 0};
        poll(&news, 1, -1);
        shares.push_back(measuring.GetShareDone());
    }
    shares.push_back(measuring.GetShareDone());
    EXPECT_THAT(measuring.GetValues(), ElementsAre(Optional(0.25), Eq(std::nullopt), Eq(std::nullopt), Optional(3.25)));
    EXPECT_TRUE(std::ranges::is_sorted(shares));
    EXPECT_EQ(shares.back(), 1);
}

TEST(MeasuringApart, StopsEvenWhileAPartIsSilent) {
    const Measure endless = [](std::size_t, const Progress&) -> std::optional<double> {
        while (true)
            pause();
    };
    MeasuringApart measuring(1, endless);
    EXPECT_TRUE(measuring.Advance());
    EXPECT_EQ(measuring.GetShareDone(), 0);
}

TEST(MeasuringApart, OfNothingIsDoneAtOnce) {
    const Measure none = [](std::size_t, const Progress&) { return std::optional<double>(); };
    MeasuringApart measuring(0, none);
    EXPECT_FALSE(measuring.Advance());
    EXPECT_THAT(measuring.GetValues(), IsEmpty());
}

struct DensityCase {
    const char* what;
    std::vector<const char*> elements;
    const char* value;
    std::optional<double> density;
};

TEST(Density, IsReadInTheUnitsOfTheFile) {
    const char* kilogram = "(MASS_UNIT()NAMED_UNIT(*)SI_UNIT(.KILO.,.GRAM.))";
    const char* gram = "(MASS_UNIT()NAMED_UNIT(*)SI_UNIT($,.GRAM.))";
    const char* metre = "(LENGTH_UNIT()NAMED_UNIT(*)SI_UNIT($,.METRE.))";
    const char* centimetre = "(LENGTH_UNIT()NAMED_UNIT(*)SI_UNIT(.CENTI.,.METRE.))";
    const char* inch = "(CONVERSION_BASED_UNIT('INCH',#3)LENGTH_UNIT()NAMED_UNIT(#1))";
    const DensityCase cases[] = {
        {"kilograms per cubic metre", {kilogram, "1.", metre, "-3."}, "7850.", 7850.0},
        {"an exponent without its sign", {kilogram, "1.", metre, "3."}, "7850.", 7850.0},
        {"grams per cubic centimetre", {gram, "1.", centimetre, "-3."}, "2.71", 2710.0},
        {"kilograms per cubic inch", {kilogram, "1.", inch, "-3."}, "0.016387064", 1000.0},
        {"no mass", {metre, "-3."}, "7850.", std::nullopt},
        {"an area", {kilogram, "1.", metre, "-2."}, "7850.", std::nullopt},
        {"a mass and a square of it", {gram, "3.", centimetre, "2."}, "7.85E-06", std::nullopt},
        {"nothing", {kilogram, "1.", metre, "-3."}, "0.", std::nullopt},
    };
    for (const DensityCase& density : cases) {
        tests::StepFileText file;
        file.Add("DIMENSIONAL_EXPONENTS(1.,0.,0.,0.,0.,0.,0.)");
        file.Add("(LENGTH_UNIT()NAMED_UNIT(*)SI_UNIT(.MILLI.,.METRE.))");
        file.Add("LENGTH_MEASURE_WITH_UNIT(LENGTH_MEASURE(25.4),#2)");
        std::string elements;
        for (std::size_t i = 0; i < density.elements.size(); i += 2) {
            const int unit = file.Add(density.elements[i]);
            const int element =
                file.Add("DERIVED_UNIT_ELEMENT(#" + std::to_string(unit) + "," + density.elements[i + 1] + ")");
            elements += (i ? ",#" : "#") + std::to_string(element);
        }
        const int unit = file.Add("DERIVED_UNIT((" + elements + "))");
        file.AddDensity(file.AddPart("1", "part"), density.value, unit);

        const tests::TemporaryFile saved("density.step", file.Text());
        const auto result = StepDocument::Read(saved.GetPath(), {});
        const platform::ProductModel& model = std::get<0>(result)->GetModel();
        std::optional<double> read;
        for (const auto& [number, value] : model.root.properties) {
            if (number == ProductProperties::GetPropId(L"material.density"))
                read = value.to_double();
        }
        EXPECT_EQ(read.has_value(), density.density.has_value()) << density.what;
        EXPECT_DOUBLE_EQ(read.value_or(0), density.density.value_or(0)) << density.what;
    }
}

} // namespace
