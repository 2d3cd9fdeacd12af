// The syntax of one statement of a STEP file. The reader goes on behind a statement that it does
// not understand and may not survive it, so that each one is checked before the reader sees it.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace desktop::step {

struct SyntaxError {
    const char* what = nullptr;
    /// Where in the statement.
    std::size_t position = 0;
};

/// `statement` ends with its semicolon and has neither comments nor quotes inside strings. No
/// value: well formed.
std::optional<SyntaxError> CheckSyntax(std::string_view statement);

} // namespace desktop::step
