// The UTF-8 of the product file as the wide texts of the product.
#pragma once

#include "platform/values/Utf8.h"

#include <string>
#include <string_view>

namespace desktop::store {

/// `utf8` must be valid, as the JSON parser guarantees.
inline std::wstring ToWide(std::string_view utf8) {
    return platform::FromUtf8(utf8).value_or(std::wstring());
}

} // namespace desktop::store
