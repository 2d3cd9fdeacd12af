// The sign and the text of a surface's roughness, which are asked for together.
#include "host/ProductProperties.h"
#include "platform/services/UserDecisions.h"
#include "tests/support/ProductBuilder.h"

#include <gtest/gtest.h>

namespace {

using platform::RoughnessDecision;
using platform::RoughnessRequest;
using support::Key;
using support::Product;
using Place = std::optional<std::size_t>;

class RoughnessTest : public testing::Test {
protected:
    void Make(const Product& product) {
        m_product = product.Make();
        m_product->SetDecisions(&m_decisions);
    }
    /// Whether the user has confirmed; what he wants is committed.
    bool Edit() {
        ProductInfObjChangesResult changes;
        const bool isConfirmed = m_product->EditRoughSign(Key("plate#1"), changes);
        m_product->CommitChanges(changes);
        return isConfirmed;
    }
    PropValue Value(const wchar_t* path) const { return m_product->GetValue({Key("plate"), {}, path, {}}); }
    const RoughnessRequest& Request() const { return m_decisions.GetRoughnessRequests().back(); }

    platform::ScriptedDecisions m_decisions;
    std::shared_ptr<platform::MemoryProduct> m_product;
};

TEST_F(RoughnessTest, IsChangedAsOneStepWhereTheUserConfirms) {
    Make(Product().Object("plate").Value(L"specRoughSign", SimplePropVal(1)).Uses());
    const struct {
        std::optional<RoughnessDecision> decision;
        bool isConfirmed;
        PropValue sign;
        const wchar_t* text;
    } cases[] = {
        {RoughnessDecision{0, L"Ra 3.2"}, true, PropValue(SimplePropVal(0)), L"Ra 3.2"},
        {std::nullopt, false, PropValue(SimplePropVal(0)), L"Ra 3.2"},
        {RoughnessDecision{0, L"Ra 3.2"}, true, PropValue(SimplePropVal(0)), L"Ra 3.2"},
        {RoughnessDecision{std::nullopt, L"as cast"}, true, PropValue(), L"as cast"},
        {RoughnessDecision{2, L""}, true, PropValue(SimplePropVal(2)), L""},
    };
    EXPECT_FALSE(Edit()) << "the script is empty";
    EXPECT_EQ(Request().present.sign, Place(1));
    EXPECT_EQ(Request().signs.at(2).text.Str(), L"Not machined");
    EXPECT_EQ(Request().signs.at(2).process, RoughnessRequest::Process::NotMachined);
    for (const auto& sample : cases) {
        m_decisions.ChooseNextRoughness(sample.decision);
        EXPECT_EQ(Edit(), sample.isConfirmed);
        EXPECT_EQ(Value(L"specRoughSign"), sample.sign);
        EXPECT_EQ(Value(L"specRoughValue").to_wstring().Str(), sample.text);
    }
    for (int steps = 3; steps > 0; --steps)
        m_product->Undo();
    EXPECT_FALSE(m_product->CanUndo());
}

TEST_F(RoughnessTest, IsAskedAgainWithTheReasonWhenTheTextIsRefused) {
    Make(Product().Object("plate").Uses());
    m_decisions.ChooseNextRoughness(RoughnessDecision{1, SharedText(std::wstring(10'001, L'x'))});
    EXPECT_FALSE(Edit());
    EXPECT_EQ(Request().refusal.Str(), L"it does not fit the property");
    EXPECT_EQ(Request().present.sign, Place(1));
    EXPECT_FALSE(m_product->CanUndo());
    EXPECT_TRUE(m_product->TakeRefusal().IsEmpty());
}

TEST_F(RoughnessTest, IsAskedForAsFarAsItCanBeChanged) {
    Make(Product().Object("pin").Value(L"note", SimplePropVal(L"Ra 6.3")).Object("plate").Uses());
    m_product->Change([](platform::ProductModel& model) {
        model.objects[1].links.push_back({30, Key("pin"), ProductProperties::GetPropId(L"note")});
    });
    m_decisions.ChooseNextRoughness(RoughnessDecision{1, L"Ra 3.2"});
    EXPECT_TRUE(Edit());
    EXPECT_EQ(Request().present.text.Str(), L"Ra 6.3");
    EXPECT_FALSE(Request().canChangeText);
    EXPECT_EQ(Value(L"specRoughSign"), PropValue(SimplePropVal(1)));
    EXPECT_EQ(Value(L"specRoughValue").to_wstring().Str(), L"Ra 6.3");

    m_product->Change([](platform::ProductModel& model) { model.isReadOnly = true; });
    m_decisions.ChooseNextRoughness(RoughnessDecision{0, L"Ra 3.2"});
    EXPECT_FALSE(Edit());
    EXPECT_EQ(m_decisions.GetRoughnessRequests().size(), 1U);
    EXPECT_EQ(m_product->TakeRefusal().Str(), L"it can't be changed");
}

} // namespace
