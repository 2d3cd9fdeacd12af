#include "desktop/Document.h"
#include "desktop/LevelChoice.h"
#include "host/ProductProperties.h"
#include "platform/product/answers/MemoryProduct.h"
#include "platform/values/Utf8.h"
#include "tests/import/StepFileText.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <map>

namespace {

using desktop::step::MeasuredParts;
using desktop::step::Measures;
using desktop::step::StepDocument;
using desktop::step::StepOptions;
using platform::ToUtf8;

/// Real assemblies stand outside the repository; without them their tests are skipped.
class Assemblies : public testing::Test {
protected:
    void SetUp() override {
        const char* folder = std::getenv("PRODUCT_TREE_ASSEMBLIES");
        m_folder = folder ? folder : PRODUCT_TREE_ASSEMBLIES_DIR;
        if (!std::filesystem::is_directory(m_folder))
            GTEST_SKIP() << "no assemblies in " << m_folder;
    }

    std::unique_ptr<StepDocument> Read(const char* file, const StepOptions& options = {}) {
        auto result = StepDocument::Read(m_folder / file, options);
        const auto* error = std::get_if<desktop::FileError>(&result);
        EXPECT_FALSE(error) << file << ": " << (error ? error->reason : "");
        return error ? nullptr : std::move(std::get<0>(result));
    }

    std::string LoadBytes(const char* file) {
        std::ifstream stream(m_folder / file, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

    std::filesystem::path m_folder;
};

platform::ProductModel Level(const StepDocument& document, bool flatten) {
    platform::ProductModel model = document.GetModel();
    EXPECT_TRUE(std::holds_alternative<std::string>(desktop::ShowLevel(model, {"", flatten, ""})));
    return model;
}

std::size_t CountOccurrences(const platform::ProductModel& model) {
    std::size_t count = 0;
    for (const platform::ObjectRecord& object : model.objects)
        count += object.occurrences.size();
    return count;
}

Measures Measure(StepDocument& document, MeasuredParts parts) {
    const auto measuring = document.StartMeasuring(parts, {});
    measuring->Wait();
    return measuring->GetMeasures();
}

/// The masses that the objects of the document have once it is measured.
std::map<std::string, double> MassesByName(StepDocument& document, bool flatten = false) {
    platform::ProductModel measured = Level(document, flatten);
    desktop::ApplyMeasures(measured, Measure(document, MeasuredParts::WithDensity));
    const platform::MemoryProduct product(std::move(measured));
    std::map<std::string, double> masses;
    const auto note = [&](const platform::ObjectRecord& object) {
        const PropValue mass = product.GetValue({object.key, {}, L"mass", {}});
        if (!mass.IsEmpty())
            masses[ToUtf8(object.name.Str())] = mass.to_double();
    };
    note(product.GetModel().root);
    std::ranges::for_each(product.GetModel().objects, note);
    return masses;
}

/// The text of as1 with a density of 1 g/cm3 for each of its parts.
std::string WithDensities(std::string text) {
    std::string added = "#90001=(MASS_UNIT()NAMED_UNIT(*)SI_UNIT($,.GRAM.));\n"
                        "#90002=(LENGTH_UNIT()NAMED_UNIT(*)SI_UNIT(.CENTI.,.METRE.));\n"
                        "#90003=DERIVED_UNIT_ELEMENT(#90001,1.);\n"
                        "#90004=DERIVED_UNIT_ELEMENT(#90002,-3.);\n"
                        "#90005=DERIVED_UNIT((#90003,#90004));\n"
                        "#90006=MEASURE_REPRESENTATION_ITEM('',POSITIVE_RATIO_MEASURE(1.),#90005);\n"
                        "#90007=REPRESENTATION('density',(#90006),$);\n";
    int number = 90010;
    for (const char* part : {"#742", "#1122", "#1901", "#3795", "#6202"}) {
        const std::string property = "#" + std::to_string(number++);
        added += property + "=PROPERTY_DEFINITION('material property','density'," + part + ");\n#" +
                 std::to_string(number++) + "=PROPERTY_DEFINITION_REPRESENTATION(" + property + ",#90007);\n";
    }
    text.insert(text.rfind("ENDSEC;"), added);
    return text;
}

TEST_F(Assemblies, HaveTheProductsAndUsesThatTheirTextHas) {
    // Counted from the text of the files by a script that knows nothing of the reader.
    const struct {
        const char* file;
        const char* root;
        std::size_t objects, uses, parts, partUses;
    } cases[] = {
        {"PushDevice_Assembly.step", "Assembly 1", 67, 67, 67, 67},
        {"RasPiMouse_with_Pi4B.stp", "RasPiMouse&LIDAR", 2, 3, 13, 24},
        {"as1-oc-214.stp", "as1", 3, 4, 5, 18},
        {"as1_pe_203.stp", "AS1_PE_ASM", 3, 4, 5, 18},
        {"cubefactory_01_00_00-shredder_unit.STEP", "01_00_00-shredderunit", 2, 2, 40, 103},
        {"eight_cyl.stp", "eight_cyl", 8, 8, 8, 8},
        {"isometria_Switch.STEP", "Assem1", 5, 5, 5, 5},
        {"koch_Follower_Arm.STEP", "Follower_Arm", 12, 25, 12, 25},
        {"low_cost_robot_arm.step", "arm_my_v3 v1", 11, 11, 26, 115},
        {"makair_Pressure_Valve_V7.step", "Pressure Valve V7 v1", 18, 27, 23, 64},
        {"odrive_PCB_v3.5.step", "PCB", 180, 180, 40, 625},
        {"pp_Compression_V2.0.step", "00_compression Stripped 3D model v1", 7, 7, 46, 72},
        {"pp_Display_cubes.STEP", "cubes assembly", 4, 4, 9, 90},
        {"s1-c5-214/s1-c5-214.stp", "*MASTER", 4, 5, 4, 5},
    };
    for (const auto& known : cases) {
        const auto document = Read(known.file);
        ASSERT_TRUE(document);
        const platform::ProductModel& direct = document->GetModel();
        EXPECT_EQ(ToUtf8(direct.root.name.Str()), known.root);
        EXPECT_EQ(direct.objects.size(), known.objects) << known.file;
        EXPECT_EQ(CountOccurrences(direct), known.uses) << known.file;
        const platform::ProductModel flat = Level(*document, true);
        EXPECT_EQ(flat.objects.size(), known.parts) << known.file;
        EXPECT_EQ(CountOccurrences(flat), known.partUses) << known.file;
    }
}

TEST_F(Assemblies, KeepEveryLetterOfTheirNames) {
    EXPECT_EQ(tests::Dump(m_folder / "isometria_Switch.STEP", {"", false, "GBK"}),
              "Assem1\n20 bottom part_默认è_ x1\n20 bottom pin_默认è_ x1\n"
              "20 top shield_默认è_ x1\n20 copper button_默认è_ x1\n20 shrapnel_默认è_ x1\n");
    EXPECT_EQ(tests::Dump(m_folder / "RasPiMouse_with_Pi4B.stp", {"RasPiMouse_Wheel", false, ""}),
              "RasPiMouse_Wheel\n20 Whreel5_ネジ穴位置改良 [Whreel5_ネジ穴位置改良ver3] x1\n"
              "20 タイヤφ44用7.5mm幅_RT-T75-44-R x1\n");
}

TEST_F(Assemblies, SayHowManyOtherFilesTheyReferTo) {
    EXPECT_EQ(Read("s1-c5-214/s1-c5-214.stp")->GetNotes(),
              std::vector<std::string>{"4 other files are referred to and not followed"});
    EXPECT_TRUE(Read("as1-oc-214.stp")->GetNotes().empty());
}

TEST_F(Assemblies, HaveMaterialsAndMassesInTheirOwnUnits) {
    const auto document = Read("RasPiMouse_with_Pi4B.stp");
    std::map<std::string, std::string> materials;
    for (const platform::ObjectRecord& object : Level(*document, true).objects) {
        ASSERT_EQ(object.properties.size(), 2u) << ToUtf8(object.name.Str());
        EXPECT_EQ(object.properties[0].first, ProductProperties::GetPropId(L"material"));
        EXPECT_EQ(object.properties[1].first, ProductProperties::GetPropId(L"material.density"));
        materials[ToUtf8(object.properties[0].second.to_wstring().Str())] =
            ToUtf8(object.properties[1].second.to_wstring().Str());
    }
    EXPECT_EQ(materials, (std::map<std::string, std::string>{{"Aluminum-6061", "2710"},
                                                             {"アセタール樹脂、白", "1425"},
                                                             {"アルミニウム 6061", "2710"},
                                                             {"一般", "1000"}}));
    const std::map<std::string, double> masses = MassesByName(*document, true);
    EXPECT_EQ(masses.size(), 14u);
    EXPECT_NEAR(masses.at("アルミフレーム"), 0.0115 * 2.71, 0.001);
}

TEST_F(Assemblies, WeighWhatTheirOwnVolumesSay) {
    // The file tells the volume of each part; with 1 g/cm3 for all they are the masses.
    const tests::TemporaryFile file("as1.stp", WithDensities(LoadBytes("as1-oc-214.stp")));
    const auto result = StepDocument::Read(file.GetPath(), {});
    ASSERT_TRUE(std::holds_alternative<std::unique_ptr<StepDocument>>(result));
    StepDocument& document = *std::get<0>(result);

    const std::map<std::string, double> masses = MassesByName(document);
    ASSERT_EQ(masses.size(), 4u);
    EXPECT_NEAR(masses.at("plate"), 0.5305752, 1e-6);
    EXPECT_NEAR(masses.at("rod-assembly"), 0.0170371, 1e-6);
    EXPECT_NEAR(masses.at("l-bracket-assembly"), 0.1084539, 1e-6);
    EXPECT_NEAR(masses.at("as1"), 0.7645201, 1e-6);
}

TEST_F(Assemblies, HaveVolumesForPartsThatAreGivenADensityLater) {
    const auto document = Read("as1-oc-214.stp");
    EXPECT_TRUE(Measure(*document, MeasuredParts::WithDensity).volumes.empty());
    EXPECT_EQ(Measure(*document, MeasuredParts::All).volumes.size(), 5u);
}

TEST_F(Assemblies, AreWeighedButForTheirDamagedParts) {
    std::string text = LoadBytes("as1-oc-214.stp");
    // The last line of the file is an edge of the plate.
    const std::size_t line = text.rfind("= LINE('',#");
    ASSERT_NE(line, std::string::npos);
    const std::size_t point = text.find('#', line);
    text.replace(point, text.find(',', point) - point, "$");
    const tests::TemporaryFile file("as1.stp", WithDensities(text));
    const auto result = StepDocument::Read(file.GetPath(), {});
    const std::map<std::string, double> masses = MassesByName(*std::get<0>(result));
    EXPECT_EQ(masses.size(), 2u);
    EXPECT_TRUE(masses.contains("rod-assembly"));
    EXPECT_TRUE(masses.contains("l-bracket-assembly"));
}

TEST_F(Assemblies, AreRefusedWhereverTheyAreCut) {
    for (const char* name : {"as1-oc-214.stp", "eight_cyl.stp", "koch_Follower_Arm.STEP"}) {
        const std::string whole = LoadBytes(name);
        const std::size_t end = whole.rfind("END-ISO-10303-21;");
        for (std::size_t size = 1; size < end; size += whole.size() / 23) {
            const tests::TemporaryFile file("cut.stp", whole.substr(0, size));
            EXPECT_EQ(tests::Dump(file.GetPath(), {}).substr(0, 6), "error:") << name << " " << size;
        }
    }
}

} // namespace
