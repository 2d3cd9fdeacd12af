// The written pages of help, embedded when the program was built.
#pragma once

namespace desktop {

/// Markdown in UTF-8.
extern const char* const c_workingText;

} // namespace desktop
