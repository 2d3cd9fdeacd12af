#include "host/EventsBus.h"
#include "host/frame/GuiApp.h"
#include "platform/services/UserDecisions.h"
#include "platform/view/HostFrame.h"

#include <gtest/gtest.h>

namespace {

TEST(ViewFrame, QuestionsGoToTheDecisionsThatWereGiven) {
    platform::HostFrame frame(nullptr);
    ASSERT_NE(GuiApp(), nullptr);
    EXPECT_EQ(GuiApp()->GetQuestionBox(), nullptr);
    platform::ScriptedDecisions decisions;
    decisions.AnswerNext(0);
    decisions.AnswerNext(1);
    frame.SetDecisions(&decisions);
    IQuestionBox* const box = GuiApp()->GetQuestionBox();
    ASSERT_NE(box, nullptr);
    const auto ask = [box] { return box->Ask(GuiApp()->GetMainWindow(), L"Title", L"Text", {L"Yes", L"No"}); };
    EXPECT_EQ(ask(), IQuestionBox::c_yes);
    EXPECT_NE(ask(), IQuestionBox::c_yes);
    EXPECT_EQ(decisions.GetQuestions().size(), 2U);
    frame.SetDecisions(nullptr);
    EXPECT_EQ(GuiApp()->GetQuestionBox(), nullptr);
}

TEST(ViewFrame, OutsideChangesArePostedToWhoeverListensToDocuments) {
    platform::HostFrame frame(nullptr);
    EventsBusSubscriber listener;
    std::vector<unsigned long> received;
    listener.SetHandler(0x601, [&](unsigned long wParam, long lParam) {
        received.push_back(wParam);
        EXPECT_EQ(lParam, 0);
    });
    listener.Connect({0, 7});
    frame.TellDocumentChanged(true);
    frame.TellDocumentChanged(false);
    EXPECT_EQ(received, (std::vector<unsigned long>{15, 0}));
}

} // namespace
