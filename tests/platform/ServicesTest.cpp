#include "host/MeasurementDataBase.h"
#include "host/ProductProperties.h"
#include "host/TeDocCodeMaker.h"
#include "host/frame/GuiApp.h"
#include "host/frame/TreeModelId.h"
#include "platform/services/DecisionsQuestionBox.h"
#include "platform/services/UserDecisions.h"

#include <gtest/gtest.h>

namespace {

TEST(Services, AQuestionIsAgreedToByItsFirstButtonOnly) {
    platform::ScriptedDecisions decisions;
    platform::DecisionsQuestionBox box(decisions);
    for (const std::optional<std::size_t> answer :
         {std::optional<std::size_t>(0), std::optional<std::size_t>(1), std::optional<std::size_t>()}) {
        decisions.AnswerNext(answer);
        const int given = box.Ask(nullptr, L"Delete", L"All?", {GetButtonCaption(8)});
        EXPECT_EQ(given == IQuestionBox::c_yes, answer == 0U);
    }
    EXPECT_EQ(decisions.GetQuestions().front().text.Str(), L"All?");
    EXPECT_EQ(GetButtonCaption(8).Str(), L"Yes");
    EXPECT_EQ(GetButtonCaption(1).Str(), L"Cancel");
    for (const int number : {-1, 0, 7, 99, 100})
        EXPECT_TRUE(GetButtonCaption(number).IsEmpty());
}

TEST(Services, TheDocumentCodeIsEnteredInPlace) {
    const struct {
        const wchar_t* text;
        bool isOnlyCode;
        std::optional<SharedText> entered;
        const wchar_t* result;
    } cases[] = {{L"AB.1-02  AD", false, SharedText(L"OM"), L"AB.1-02  \u2063OM"},
                 {L"AB.1-02", false, SharedText(L"AD"), L"AB.1-02 \u2063AD"},
                 {L"AB.1-02  AD", false, SharedText(L""), L"AB.1-02 \u2063"},
                 {L"AB.1 \u2063sb", false, SharedText(L"no code"), L"AB.1 \u2063no code"},
                 {L"AB.1-02  AD", false, SharedText(L"AD"), L"AB.1-02  AD"},
                 {L"AB.1-02  AD", false, std::nullopt, L"AB.1-02  AD"},
                 {L"AD", true, SharedText(L"any text"), L"any text"}};
    for (const auto& sample : cases) {
        platform::ScriptedDecisions decisions;
        const platform::UserDecisionsSlot slot(decisions);
        decisions.EnterNext(sample.entered);
        SharedText text = sample.text;
        TeDocCodeMaker::SetDocCode(text, true, sample.isOnlyCode, nullptr);
        EXPECT_EQ(text.Str(), sample.result);
    }
    SharedText text = L"AB.1 AD";
    TeDocCodeMaker::SetDocCode(text, true, false, nullptr); // nobody to ask
    EXPECT_EQ(text.Str(), L"AB.1 AD");
}

} // namespace
