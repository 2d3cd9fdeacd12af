// The question box of an application whose questions are decided by IUserDecisions.
#pragma once

#include "host/frame/GuiApp.h"
#include "platform/services/UserDecisions.h"

namespace platform {

class DecisionsQuestionBox final : public IQuestionBox {
public:
    /// Must outlive the box.
    explicit DecisionsQuestionBox(IUserDecisions& decisions) : m_decisions(decisions) {}

    /// The decisions know best which window a question stands in front of.
    int Ask(IGuiWindow* parent, const SharedText& title, const SharedText& text,
            const std::vector<SharedText>& buttons) override;

private:
    IUserDecisions& m_decisions;
};

} // namespace platform
