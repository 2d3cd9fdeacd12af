#include "host/ProductProperties.h"
#include "platform/services/Resources.h"

#include <array>

namespace {

using Type = ProductProperties::SystemFeatureTypeEnum;

/// Texts of the kinds, from that of the first known one on.
constexpr unsigned c_firstText = 1101;
constexpr std::size_t c_count = static_cast<std::size_t>(Type::Orvex);

using Texts = std::array<SharedText, c_count>;

Texts ReadTexts() {
    Texts texts;
    for (std::size_t i = 0; i < texts.size(); ++i)
        texts[i] =
            platform::GetModuleText(platform::c_hostModule, c_firstText + static_cast<unsigned>(i));
    return texts;
}

} // namespace

const wchar_t* GetFeatureTypeStr(Type type) {
    // Held on to, since the caller keeps a bare pointer.
    static const Texts texts = ReadTexts();
    const auto number = static_cast<std::size_t>(type);
    return number == 0 || number > texts.size() ? nullptr : texts[number - 1].Str().c_str();
}
