#include "host/TeDocCodeMaker.h"

#include "host/FormatLabelUtils.h"
#include "host/VariantMarking.h"
#include "platform/services/Resources.h"
#include "platform/services/UserDecisions.h"

namespace {

constexpr unsigned c_titleText = 1304;
constexpr unsigned c_questionText = 1305;

platform::TextRequest MakeRequest(const VariantMarking& marking, const SharedText& code) {
    const SharedText designation = marking.Make(VariantMarkingData::MakeWithoutCode, false, false);
    const SharedText pattern = platform::GetModuleText(platform::c_hostModule, c_questionText);
    return {platform::GetModuleText(platform::c_hostModule, c_titleText),
            format_label_utils::FormatText(pattern, {designation}).value_or(SharedText()), code};
}

} // namespace

void TeDocCodeMaker::SetDocCode(SharedText& text, bool withDelimiter, bool onlyCode,
                                IGuiWindow* /*parent*/) {
    platform::IUserDecisions* const decisions = platform::GetUserDecisions();
    if (!decisions)
        return;
    VariantMarking marking;
    if (onlyCode)
        marking.SetCode(text);
    else
        marking.Parse(text);
    const std::optional<SharedText> code =
        decisions->EnterText(MakeRequest(marking, marking.GetCode()));
    // For several designations at once even no code is a choice.
    const bool isForSeveral = !onlyCode && text.IsEmpty();
    if (!code || (*code == marking.GetCode() && !isForSeveral))
        return;
    if (onlyCode) {
        text = *code;
        return;
    }
    marking.SetCode(*code);
    if (!withDelimiter)
        marking.SetCodeDelim(0);
    text = marking.Make(VariantMarkingData::MakeAll, true, false);
}
