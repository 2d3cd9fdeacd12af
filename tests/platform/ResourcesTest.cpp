#include "platform/services/Resources.h"
#include "host/ResourceModule.h"
#include "host/SPCSection.h"

#include <gtest/gtest.h>
#include <set>

namespace {

constexpr unsigned c_strings[] = {31000, 31001, 31002, 31003, 31004, 31005, 31006, 31007, 31008, 31009,
                                  31010, 31011, 31012, 31013, 31014, 31015, 31021, 31022, 31023, 31024,
                                  31025, 31026, 31027, 31060, 31065, 31066, 31067, 31068};
constexpr unsigned c_commands[] = {7745, 7746, 7747, 7752, 7753, 7754, 7755,  7757,  7758, 7759,
                                   7761, 7762, 7763, 7764, 7765, 7766, 7787,  7789,  7790, 7791,
                                   7792, 7793, 7794, 7795, 7020, 5707, 31064, 31069, 31070};

TEST(Resources, EachStringAndCommandOfTheModuleHasAText) {
    const ResourceModuleHandle module("oProductTree", {});
    for (const unsigned id : c_strings)
        EXPECT_FALSE(module.GetText(id).IsEmpty()) << id;
    std::set<std::wstring> captions;
    for (const unsigned id : c_commands) {
        EXPECT_FALSE(module.GetText(id).IsEmpty()) << id;
        EXPECT_TRUE(captions.insert(module.GetText(id)).second) << id;
    }
}

TEST(Resources, TextsAreReadable) {
    const ResourceModuleHandle module("oProductTree", {});
    EXPECT_EQ(module.GetText(31021).Str(), L"Product tree");
    EXPECT_EQ(module.GetText(31022).Str(), L"billet");
    EXPECT_EQ(module.GetText(31065).Str(), L"Delete \u201C%1%\u201D?");
    EXPECT_TRUE(module.GetText(31021).IsSame(module.GetText(31021)));
}

TEST(Resources, AnUnknownModuleOrIdHasNoText) {
    EXPECT_TRUE(ResourceModuleHandle("oProductTree", {}).GetText(1).IsEmpty());
    EXPECT_TRUE(ResourceModuleHandle("noSuchModule", {}).GetText(31021).IsEmpty());
}

TEST(Resources, RowsOfAnOpenedModuleAreFoundByNameAndKind) {
    static constexpr ResourceRow rows[] = {{"SAME", ResourceKind::String, 1}, {"SAME", ResourceKind::Command, 2}};
    const ResourceModuleHandle module("testModule", rows);
    EXPECT_EQ(platform::FindResource("testModule", {"SAME", ResourceKind::Command})->id, 2U);
    EXPECT_EQ(platform::FindResource("testModule", {"SAME", ResourceKind::String})->id, 1U);
    EXPECT_EQ(platform::FindResource("testModule", {"OTHER"}), nullptr);
    EXPECT_EQ(platform::FindResource("noSuchModule", {"SAME"}), nullptr);
}

} // namespace
