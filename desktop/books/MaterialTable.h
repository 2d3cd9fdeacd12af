// The program's own table of materials, embedded when the program was built.
#pragma once

namespace desktop {

/// As docs/materials.md describes a book, in UTF-8.
extern const char* const c_materialTable;

} // namespace desktop
