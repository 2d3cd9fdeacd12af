// Between the UTF-8 of the product file and the wide texts of the product.
#pragma once

#include <string>
#include <string_view>

namespace desktop::store {

/// `utf8` must be valid, as the JSON parser guarantees.
std::wstring ToWide(std::string_view utf8);
/// What is no Unicode character becomes U+FFFD.
std::string ToUtf8(std::wstring_view wide);

} // namespace desktop::store
