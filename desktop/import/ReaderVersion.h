// The version of what reads STEP files.
#pragma once

#include <string>

namespace desktop::step {

std::string GetReaderVersion();

} // namespace desktop::step
