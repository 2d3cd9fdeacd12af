// All properties of a part at once: what the user is shown of them, and what becomes of his answer.
#include "platform/product/model/PropertyNumbers.h"
#include "platform/services/UserDecisions.h"
#include "tests/support/ProductBuilder.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using platform::ItemPropertiesRequest;
using platform::ScriptedDecisions;
using support::Key;
using support::Product;

/// A shaft with one use, which has its own comment, and a note from a pin.
Product Shaft() {
    return Product()
        .UserProperty(1001, L"Length", value_type::Double, 0, 10)
        .LastPropertyUnit(L"mm", 1000)
        .UserProperty(1002, L"Spare", value_type::Boolean)
        .UserProperty(1003, L"Finish", value_type::String)
        .LastPropertyList({SimplePropVal(L"Painted"), SimplePropVal(L"Plated")})
        .Object("pin", L"Pin")
        .Value(L"note", SimplePropVal(L"ISO 2341"))
        .Uses()
        .Object("shaft", L"Shaft", L"AB.1")
        .Value(L"user.1001", SimplePropVal(0.0123))
        .Value(L"user.1003", SimplePropVal(L"Plated"))
        .Uses()
        .Value(L"comment", SimplePropVal(L"Left"))
        .Link(L"note", "pin", L"note");
}

class ItemPropertiesTest : public testing::Test {
protected:
    ItemPropertiesTest() : m_product(Shaft().Make()) { m_product->SetDecisions(&m_decisions); }

    void Open() { m_product->ShowItemProperties(Key("shaft#1")); }
    const ItemPropertiesRequest& Request() const { return m_decisions.GetItemPropertiesRequests().back(); }
    std::size_t Place(const wchar_t* caption) const {
        const auto& lines = Request().lines;
        const auto line = std::ranges::find(lines, SharedText(caption), &ItemPropertiesRequest::Line::caption);
        return static_cast<std::size_t>(line - lines.begin());
    }
    const ItemPropertiesRequest::Line& Line(const wchar_t* caption) const { return Request().lines.at(Place(caption)); }
    std::wstring Value(const wchar_t* path) const {
        return m_product->GetValue({Key("shaft#1"), {}, path, {}}).to_wstring().Str();
    }

    ScriptedDecisions m_decisions;
    std::shared_ptr<platform::MemoryProduct> m_product;
};

TEST_F(ItemPropertiesTest, AreShownInTheirUnitsWithWhereTheyComeFrom) {
    Open();
    EXPECT_EQ(Request().title.Str(), L"Properties of Shaft");
    struct {
        const wchar_t* caption;
        ItemPropertiesRequest::Value value;
        bool canChange;
        const wchar_t* source;
    } const expected[] = {
        {L"Name", SharedText(L"Shaft"), true, L"From the object"},
        {L"Designation", SharedText(L"AB.1"), true, L"From the object"},
        {L"Comment", SharedText(L"Left"), true, L"Own"},
        {L"Note", SharedText(L"ISO 2341"), false, L"Linked to Note of Pin"},
        {L"Length, mm", 12.3, true, L"From the object"},
        {L"Spare", {}, true, L""},
        {L"Section", std::size_t{3}, true, L"From the object"},
        {L"Finish", std::size_t{1}, true, L"From the object"},
        {L"Count", SharedText(L"1"), true, L"Counted in the product"},
    };
    for (const auto& line : expected) {
        EXPECT_EQ(Line(line.caption).value, line.value);
        EXPECT_EQ(Line(line.caption).canChange, line.canChange);
        EXPECT_EQ(Line(line.caption).source.Str(), line.source);
    }
    EXPECT_FALSE(m_product->CanUndo());
    m_product->Change([](platform::ProductModel& model) { model.isReadOnly = true; });
    Open();
    EXPECT_TRUE(std::ranges::none_of(Request().lines, &ItemPropertiesRequest::Line::canChange));
}

TEST_F(ItemPropertiesTest, AllThatWasChangedIsOneStep) {
    Open();
    m_decisions.EditNextItemProperties({{{Place(L"Length, mm"), 0.3},
                                         {Place(L"Spare"), true},
                                         {Place(L"Finish"), std::size_t{0}},
                                         {Place(L"Section"), std::size_t{4}},
                                         {Place(L"Count"), SharedText(L"3")},
                                         {Place(L"Note"), SharedText(L"not for me")}}});
    Open();
    EXPECT_EQ(m_product->GetValue({Key("shaft"), {}, L"user.1001", {}}).to_double(), 0.0003);
    EXPECT_EQ(Value(L"user.1003"), L"Painted");
    EXPECT_EQ(m_product->GetModel().objects[1].section.numbers[0], 25);
    EXPECT_EQ(Value(L"note"), L"ISO 2341");
    Open();
    EXPECT_EQ(Line(L"Count").source.Str(), L"Own, in place of the count");
    EXPECT_EQ(Line(L"Spare").value, ItemPropertiesRequest::Value(true));
    m_product->Undo();
    EXPECT_FALSE(m_product->CanUndo());
    EXPECT_EQ(Value(L"user.1003"), L"Plated");
}

TEST_F(ItemPropertiesTest, WhatIsRefusedIsAskedAgainAndNothingIsTakenBefore) {
    Open();
    m_decisions.EditNextItemProperties({{{Place(L"Length, mm"), 20000.0},
                                         {Place(L"Mass, kg"), SharedText(L"2 kg")},
                                         {Place(L"Count"), SharedText(L"many")},
                                         {Place(L"Comment"), SharedText(L"Right")}}});
    Open();
    EXPECT_EQ(Line(L"Length, mm").refusal.Str(), L"from 0 to 10000 is allowed");
    EXPECT_EQ(Line(L"Length, mm").value, ItemPropertiesRequest::Value(20000.0));
    EXPECT_EQ(Line(L"Mass, kg").refusal.Str(), L"a number is expected");
    EXPECT_EQ(Line(L"Count").refusal.Str(), L"a number from 0 on is expected, with a unit if it has one");
    EXPECT_TRUE(Line(L"Comment").refusal.IsEmpty());
    EXPECT_FALSE(m_product->CanUndo()) << "the user has given up";

    m_decisions.EditNextItemProperties({{{Place(L"Mass, kg"), -1.0}, {Place(L"Comment"), SharedText(L"Right")}}});
    m_decisions.EditNextItemProperties({{{Place(L"Mass, kg"), 2.5}}});
    Open();
    EXPECT_EQ(Line(L"Mass, kg").refusal.Str(), L"0 or more is allowed");
    EXPECT_EQ(Value(L"comment"), L"Right");
    EXPECT_EQ(Value(L"mass"), L"2.5");
}

TEST_F(ItemPropertiesTest, StoreTheNumbersThatStandForTheirWords) {
    const auto stored = [&] { return m_product->GetValue({Key("shaft#1"), {}, L"notSected", {}}); };
    for (const SimplePropVal& held : {SimplePropVal(753), SimplePropVal(L"No")}) {
        m_product->Change([&](platform::ProductModel& model) {
            model.objects[1].properties = {{platform::number::notSected, PropValue(held)}};
        });
        Open();
        EXPECT_EQ(Line(L"Not cut in sections").value, ItemPropertiesRequest::Value(std::size_t{1}));
    }
    m_decisions.EditNextItemProperties(
        {{{Place(L"Not cut in sections"), std::size_t{0}}, {Place(L"Roughness sign"), std::size_t{2}}}});
    Open();
    EXPECT_EQ(stored(), PropValue(SimplePropVal(752)));
    EXPECT_EQ(Value(L"specRoughSign"), L"2");
}

} // namespace
