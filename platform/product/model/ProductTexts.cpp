#include "platform/product/model/ProductTexts.h"

#include "host/FormatLabelUtils.h"
#include "platform/services/Resources.h"

namespace platform {

SharedText GetText(ProductText text, const std::vector<SharedText>& arguments) {
    const SharedText pattern = GetModuleText(c_hostModule, static_cast<unsigned>(text));
    return format_label_utils::FormatText(pattern, arguments).value_or(SharedText());
}

} // namespace platform
