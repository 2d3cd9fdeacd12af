#include "desktop/JsonPrint.h"
#include "columns/ColumnInfo.h"
#include "desktop/Session.h"
#include "platform/view/TreeTableView.h"
#include "tests/support/ProductBuilder.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace {

using Json = nlohmann::json;

desktop::Session MakeSession(const platform::ProductModel& model) {
    desktop::Document document;
    document.path = "test.json";
    document.model = model;
    return desktop::Session(std::move(document));
}

TEST(JsonPrint, ARowSaysAllThatTheViewShowsOfIt) {
    const desktop::Session session = MakeSession(support::Product()
                                                     .Root(L"Gearbox", L"AB.100")
                                                     .Columns({L"mass"})
                                                     .Simplified()
                                                     .Object("nut", L"Nut \"M8\"", L"AB.101")
                                                     .Section(20, L"Parts")
                                                     .Icon(1)
                                                     .Mass(0.25)
                                                     .Uses(2));
    const Json json = Json::parse(desktop::PrintJson(session.GetView()));
    EXPECT_EQ(json["caption"], "Product tree");
    EXPECT_EQ(json["columns"][0]["id"], "name");
    EXPECT_EQ(json["columns"][1]["id"], "marking");
    EXPECT_EQ(json["columns"][2], (Json{{"id", "mass"}, {"caption", "Mass, kg"}, {"width", 75.75}}));

    const Json& root = json["root"];
    EXPECT_EQ(root["text"], "Gearbox");
    EXPECT_EQ(root["marking"], "AB.100");
    EXPECT_EQ(root["expanded"], true);
    const Json& section = root["children"][0];
    EXPECT_EQ(section["section"], true);
    EXPECT_EQ(section["expanded"], false);
    const Json& group = section["children"][0];
    EXPECT_EQ(group["name"], "Nut \"M8\"");
    EXPECT_EQ(group["text"], "Nut \"M8\" (x2)");
    EXPECT_EQ(group["children"].size(), 2U);
    EXPECT_EQ(group["children"][1], (Json{{"name", "Nut \"M8\""},
                                          {"text", "Nut \"M8\""},
                                          {"marking", "AB.101"},
                                          {"icon", 63247},
                                          {"section", false},
                                          {"expanded", false},
                                          {"selected", false},
                                          {"cells", {{"mass", "0.25"}}},
                                          {"children", Json::array()}}));
}

TEST(JsonPrint, TextThatIsNoUnicodeIsReplaced) {
    const std::wstring name{L'a', wchar_t{0xD800}, wchar_t{0x110000}, L'\n', wchar_t{0x1F600}};
    const desktop::Session session = MakeSession(support::Product().Root(name));
    const Json json = Json::parse(desktop::PrintJson(session.GetView()));
    EXPECT_EQ(json["root"]["name"], "a\xEF\xBF\xBD\xEF\xBF\xBD\n\xF0\x9F\x98\x80");
}

TEST(JsonPrint, AViewWithoutRowsHasANullRoot) {
    const boost::intrusive_ptr<platform::TreeTableView> view(new platform::TreeTableView);
    EXPECT_TRUE(Json::parse(desktop::PrintJson(*view))["root"].is_null());
}

} // namespace
