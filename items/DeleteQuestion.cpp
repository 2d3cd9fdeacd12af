#include "items/DeleteQuestion.h"

#include "host/FormatLabelUtils.h"
#include "host/data/IfProductTreeData.h"
#include "host/frame/GuiApp.h"
#include "resources/ProductTreeResources.h"

namespace productTree {

namespace {

// The host's numbers of the buttons that agree and refuse.
constexpr int c_agree = 8;
constexpr int c_refuse = 1;

} // namespace

SharedText FormatResourceText(std::string_view name, const std::vector<SharedText>& arguments) {
    return format_label_utils::FormatText(GetResourceText(name), arguments).value_or(SharedText());
}

bool AskAndDelete(IfProductTreeData& data, const std::set<UniqueMetaObjectKey>& keys,
                  std::string_view titleName, const SharedText& text) {
    IGuiApp* const app = GuiApp();
    IQuestionBox* const box = app ? app->GetQuestionBox() : nullptr;
    if (!box)
        return false;
    const int answer = box->Ask(app->GetMainWindow(), GetResourceText(titleName), text,
                                {GetButtonCaption(c_agree), GetButtonCaption(c_refuse)});
    return answer == IQuestionBox::c_yes && data.DeleteObjects(keys);
}

} // namespace productTree
