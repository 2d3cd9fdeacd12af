#include "host/MeasurementDataBase.h"
#include "host/frame/TreeModelId.h"
#include "platform/services/GuiAppSlot.h"
#include "platform/services/UserDecisions.h"

#include <gtest/gtest.h>

namespace {

class AppWithoutWindow final : public IGuiApp {
public:
    ITreeModelProvider* GetTreeModelProvider() override { return nullptr; }
};

TEST(Services, TheApplicationRunsWhileItsSlotLives) {
    AppWithoutWindow outer;
    AppWithoutWindow inner;
    EXPECT_EQ(GuiApp(), nullptr);
    {
        const platform::GuiAppSlot slot(outer);
        {
            const platform::GuiAppSlot nested(inner);
            EXPECT_EQ(GuiApp(), &inner);
        }
        EXPECT_EQ(GuiApp(), &outer);
    }
    EXPECT_EQ(GuiApp(), nullptr);
}

TEST(Services, EachTreeHasAnIdOfItsOwn) {
    const TreeModelId first;
    const TreeModelId second;
    EXPECT_NE(first.Value(), second.Value());
    EXPECT_EQ(TreeModelId(first.Value()).Value(), first.Value());
}

TEST(Services, UnitsHaveShortNames) {
    const IfMeasurementDataBaseMng& units = *GetMeasurementDataBaseMng();
    EXPECT_EQ(units.GetUnitName(L"kg"), L"kg");
    EXPECT_EQ(units.GetUnitName(L"kg/m3"), L"kg/m\u00B3");
    EXPECT_EQ(units.GetUnitName(L"furlong"), L"");
    EXPECT_EQ(units.GetUnitName(L""), L"");
}

TEST(Services, AScriptAnswersInItsOrderAndThenNoMore) {
    platform::ScriptedDecisions decisions;
    decisions.AnswerNext(1);
    decisions.AnswerNext(std::nullopt);
    decisions.ChooseNext("gear.step");
    EXPECT_EQ(decisions.Ask({L"Delete", L"All?", {L"Yes", L"No"}}), 1U);
    EXPECT_EQ(decisions.Ask({}), std::nullopt);
    EXPECT_EQ(decisions.Ask({}), std::nullopt);
    EXPECT_EQ(decisions.ChooseFile({}), "gear.step");
    EXPECT_EQ(decisions.ChooseFile({}), std::nullopt);
    decisions.Tell(L"Title", L"Done");
    EXPECT_EQ(decisions.GetQuestions().size(), 3U);
    EXPECT_EQ(decisions.GetQuestions().front().buttons.back().Str(), L"No");
    EXPECT_EQ(decisions.GetMessages().front().Str(), L"Done");
}

} // namespace
