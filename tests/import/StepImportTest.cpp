#include "tests/import/StepFileText.h"

#include "desktop/LevelChoice.h"
#include "host/ProductProperties.h"

#include <gtest/gtest.h>

#include <set>

namespace {

using tests::DumpText;
using tests::StepFileText;

/// car: 2 axles of an axle tube and 2 wheels each, and one more wheel.
StepFileText MakeCar() {
    StepFileText file;
    const int car = file.AddProduct("C-1", "car");
    const int axle = file.AddProduct("axle", "axle");
    const int wheel = file.AddPart("W-1", "wheel");
    const int tube = file.AddPart("T-1", "");
    file.AddUse(car, axle);
    file.AddUse(car, wheel);
    file.AddUse(axle, wheel);
    file.AddUse(axle, tube);
    file.AddUse(car, axle);
    file.AddUse(axle, wheel);
    return file;
}

TEST(StepImport, ShowsDirectComponentsWithTheirUses) {
    EXPECT_EQ(DumpText(MakeCar().Text()), "car [C-1]\n15 axle x2\n20 wheel [W-1] x1\n");
}

TEST(StepImport, ShowsAllPartsWithTheirOccurrencesWhenFlat) {
    EXPECT_EQ(DumpText(MakeCar().Text(), {"", true, ""}), "car [C-1]\n20 wheel [W-1] x5\n20 T-1 x2\n");
}

TEST(StepImport, TakesASubAssemblyAsTheRoot) {
    EXPECT_EQ(DumpText(MakeCar().Text(), {"axle", false, ""}), "axle\n20 wheel [W-1] x2\n20 T-1 x1\n");
    EXPECT_EQ(DumpText(MakeCar().Text(), {"wheel", false, ""}),
              "error: \"wheel\" is no assembly: it has no components");
    EXPECT_EQ(DumpText(MakeCar().Text(), {"bonnet", false, ""}), "error: no product is called \"bonnet\"");
}

TEST(StepImport, PutsSeveralFreeProductsUnderARootWithTheFilesName) {
    StepFileText file;
    file.AddPart("1", "left");
    file.AddProduct("2", "neither shape nor components");
    const int right = file.AddProduct("3", "right");
    file.AddUse(right, file.AddPart("4", "ISO 4762"));
    EXPECT_EQ(DumpText(file.Text()), "sample\n20 left [1] x1\n15 right [3] x1\n");
    EXPECT_EQ(DumpText(file.Text(), {"", true, ""}), "sample\n20 left [1] x1\n25 ISO 4762 [4] x1\n");
}

TEST(StepImport, ShowsASinglePartAsTheRootAlone) {
    StepFileText file;
    file.AddPart("1", "bracket");
    EXPECT_EQ(DumpText(file.Text()), "bracket [1]\n");
    EXPECT_EQ(DumpText(file.Text(), {"", true, ""}), "bracket [1]\n20 bracket [1] x1\n");
}

TEST(StepImport, BringsAllTextIntact) {
    StepFileText file;
    const int root = file.AddProduct(R"(\X2\30B9\X0\)", "O''Neil, 6'',a");
    file.AddUse(root, file.AddPart("a\\X\n\\C", "\\X2\\30\r\nB930\nC6\\X0\\"));
    file.AddUse(root, file.AddPart("~", "\xC4\xAC\xC8\xCF"));
    EXPECT_EQ(DumpText(file.Text(), {"", false, "GBK"}), "O'Neil, 6',a [ス]\n20 ステ [a\\X\\C] x1\n20 默认 [~] x1\n");
    EXPECT_EQ(DumpText(file.Text(), {"", false, "klingon"}), "error: unknown encoding \"klingon\"");
}

TEST(StepImport, SaysOnceHowManyOtherFilesAreReferredTo) {
    StepFileText file = MakeCar();
    for (const char* name : {"a.stp", "b.stp", "a.stp"})
        file.Add("DOCUMENT_FILE('" + std::string(name) + "','','',$,'',$)");
    EXPECT_EQ(DumpText(file.Text()), "car [C-1]\n15 axle x2\n20 wheel [W-1] x1\n"
                                     "note: 2 other files are referred to and not followed\n");
}

TEST(StepImport, SaysThatAnAssemblysNameIsNotTheOnlyOne) {
    StepFileText file = MakeCar();
    const int axle = file.AddProduct("other", "axle");
    file.AddUse(axle, file.AddPart("nut", "nut"));
    EXPECT_EQ(DumpText(file.Text(), {"axle", false, ""}),
              "axle\n20 wheel [W-1] x2\n20 T-1 x1\n"
              "note: 1 other assembly has the same name as the one shown\n");
}

TEST(StepImport, RefusesWhatIsNoProductStructure) {
    StepFileText cycle = MakeCar();
    cycle.AddUse(6, 3);
    StepFileText broken = MakeCar();
    broken.AddUse(3, 99);
    StepFileText unread = MakeCar();
    unread.Add("PRODUCT('a' 'b'");
    const std::string whole = MakeCar().Text();
    const struct {
        std::string text;
        const char* reason;
    } cases[] = {
        {"", "the file is empty"},
        {"solid cube\nfacet normal", "not a STEP file"},
        {"{\"format\": 1}", "not a STEP file"},
        {whole.substr(0, whole.size() / 2), "line 18: the file is cut off here"},
        {whole.substr(0, whole.size() - 3), "line 29: the file is cut off here"},
        {StepFileText().Text(), "the file holds no product"},
        {cycle.Text(), "the product \"car\" is a component of itself"},
        {broken.Text(), "damaged: the use of a product in record #21 leads to nothing"},
    };
    for (const auto& bad : cases)
        EXPECT_EQ(DumpText(bad.text), std::string("error: ") + bad.reason);

    StepFileText noProduct;
    noProduct.Add("APPLICATION_CONTEXT('')");
    EXPECT_EQ(DumpText(noProduct.Text()), "error: the file holds no product");
    EXPECT_EQ(DumpText(unread.Text()).substr(0, 14), "error: line 28");
}

TEST(StepImport, RefusesWhatIsNoFile) {
    const tests::TemporaryFile file("a.step", "");
    EXPECT_EQ(tests::Dump(file.GetPath().parent_path(), {}), "error: Is a directory");
    EXPECT_EQ(tests::Dump(file.GetPath().parent_path() / "b", {}), "error: No such file or directory");
    EXPECT_EQ(tests::Dump("/dev/null", {}), "error: not a regular file");
}

TEST(StepImport, MakesADocumentThatThePanelCanShow) {
    const tests::TemporaryFile file("car.step", MakeCar().Text());
    const auto result = desktop::step::StepDocument::Read(file.GetPath(), {"", true, ""});
    platform::ProductModel model = std::get<0>(result)->GetModel();
    EXPECT_EQ(std::get<std::string>(desktop::ShowLevel(model, {"", true, ""})), "");
    EXPECT_TRUE(model.areSectionRowsShown);
    EXPECT_FALSE(model.style);
    EXPECT_TRUE(model.isSimplified);
    EXPECT_TRUE(model.root.sumsPartMasses);
    EXPECT_EQ(model.visibleProperties.size(), 7u);
    for (const unsigned long number : model.visibleProperties)
        EXPECT_NE(ProductProperties::GetPath(number), L"");

    std::set<UniqueMetaObjectKey> keys{model.root.key};
    std::size_t count = 1;
    const auto visit = [&](const platform::PartRecord& part) {
        keys.insert(part.key);
        ++count;
        EXPECT_TRUE(part.part.used.IsSPUsed(model.styleId));
        EXPECT_EQ(part.kind, PartKindDetail);
    };
    for (const platform::ObjectRecord& object : model.objects) {
        visit(object);
        for (const platform::OccurrenceRecord& occurrence : object.occurrences)
            visit(occurrence);
    }
    EXPECT_EQ(count, 10u);
    EXPECT_EQ(keys.size(), count);
}

} // namespace
