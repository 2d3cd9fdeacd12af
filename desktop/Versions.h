// What the program is made of.
#pragma once

#include <string>
#include <vector>

namespace desktop {

struct PartVersion {
    std::string name;
    std::string version;
};

/// The program first; the reader of STEP files where one is built in.
std::vector<PartVersion> ListVersions();

} // namespace desktop
