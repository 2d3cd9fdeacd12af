// Runs the program as a user does: with arguments, in a folder, without a display.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace run_tests {

struct Outcome {
    /// The exit status; 128 and the number of the signal when one has ended the program.
    int status = -1;
    std::string out;
    std::string err;
};

/// A folder of its own for a test, gone with it.
class Folder {
public:
    Folder();
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
    ~Folder();

    const std::filesystem::path& Path() const { return m_path; }
    std::filesystem::path Write(const std::string& name, const std::string& content) const;
    bool Has(const std::string& name) const { return std::filesystem::exists(m_path / name); }

private:
    std::filesystem::path m_path;
};

/// `folder` is the current folder of the run.
Outcome RunProgram(const Folder& folder, const std::vector<std::string>& arguments);

} // namespace run_tests
