#include "tests/desktop/ProgramRun.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

namespace run_tests {

namespace {

std::string ReadAll(const std::filesystem::path& path) {
    std::ostringstream content;
    content << std::ifstream(path, std::ios::binary).rdbuf();
    return content.str();
}

/// Becomes the program; does not come back.
[[noreturn]] void Become(const Folder& folder, const std::vector<std::string>& arguments, const std::string& out,
                         const std::string& err) {
    const int outFile = open(out.c_str(), O_CREAT | O_WRONLY | O_TRUNC, 0600);
    const int errFile = open(err.c_str(), O_CREAT | O_WRONLY | O_TRUNC, 0600);
    dup2(outFile, STDOUT_FILENO);
    dup2(errFile, STDERR_FILENO);
    if (chdir(folder.Path().c_str()) != 0)
        _exit(127);
    for (const char* variable : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
        unsetenv(variable);
    std::vector<char*> argv;
    std::string name = "product-tree";
    argv.push_back(name.data());
    std::vector<std::string> copies = arguments;
    for (std::string& argument : copies)
        argv.push_back(argument.data());
    argv.push_back(nullptr);
    execv(PRODUCT_TREE_PROGRAM, argv.data());
    _exit(127);
}

} // namespace

Folder::Folder() {
    std::string name = testing::TempDir() + "product-tree-XXXXXX";
    if (!mkdtemp(name.data()))
        throw std::runtime_error("no folder for the test");
    m_path = name;
}

Folder::~Folder() { std::filesystem::remove_all(m_path); }

std::filesystem::path Folder::Write(const std::string& name, const std::string& content) const {
    std::ofstream(m_path / name, std::ios::binary) << content;
    return m_path / name;
}

Outcome RunProgram(const Folder& folder, const std::vector<std::string>& arguments) {
    const Folder output;
    const std::filesystem::path out = output.Path() / "out";
    const std::filesystem::path err = output.Path() / "err";
    const pid_t child = fork();
    if (child == 0)
        Become(folder, arguments, out.string(), err.string());
    int status = 0;
    waitpid(child, &status, 0);
    Outcome outcome;
    outcome.status = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    outcome.out = ReadAll(out);
    outcome.err = ReadAll(err);
    return outcome;
}

} // namespace run_tests
