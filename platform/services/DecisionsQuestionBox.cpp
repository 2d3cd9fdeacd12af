#include "platform/services/DecisionsQuestionBox.h"

#include "platform/services/Resources.h"

namespace platform {

namespace {

constexpr int c_refused = 0;
/// The captions of buttons have their numbers behind this one.
constexpr unsigned c_buttonTexts = 1000;
constexpr unsigned c_maxButton = 99;

} // namespace

int DecisionsQuestionBox::Ask(IGuiWindow* /*parent*/, const SharedText& title,
                              const SharedText& text, const std::vector<SharedText>& buttons) {
    const std::optional<std::size_t> answer = m_decisions.Ask({title, text, buttons});
    return answer == 0U ? c_yes : c_refused;
}

} // namespace platform

SharedText GetButtonCaption(int button) {
    const auto number = static_cast<unsigned>(button);
    if (number > platform::c_maxButton)
        return {};
    return platform::GetModuleText(platform::c_hostModule, platform::c_buttonTexts + number);
}
