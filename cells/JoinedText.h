// Texts that are put together anew at each reading and are nearly always the same as last time.
#pragma once

#include "host/SharedText.h"

#include <initializer_list>
#include <span>
#include <string_view>

namespace productTree {

/// The parts in a row; `last` itself when that is what it says, so that a reading of a hundred
/// thousand unchanged rows makes no texts.
inline SharedText JoinTexts(const SharedText& last, std::span<const std::wstring_view> parts) {
    std::wstring_view rest = last.Str();
    bool isSame = true;
    for (const std::wstring_view part : parts) {
        isSame = isSame && rest.starts_with(part);
        if (isSame)
            rest.remove_prefix(part.size());
    }
    if (isSame && rest.empty())
        return last;
    std::wstring joined;
    for (const std::wstring_view part : parts)
        joined += part;
    return joined;
}

inline SharedText JoinTexts(const SharedText& last,
                            std::initializer_list<std::wstring_view> parts) {
    return JoinTexts(last, std::span(parts.begin(), parts.size()));
}

} // namespace productTree
