// Looks for steps after which a panel is not what a fresh one would be, for as long as it may. Each
// run has a process of its own, so that a crash or a hang is shrunk as any other fault.

#include "tests/support/PanelSteps.h"

#include <chrono>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using support::PanelRun;

constexpr unsigned c_stepsPerRun = 60;
/// A run takes less than one second, with sanitizers too.
constexpr unsigned c_longestRun = 60;

struct Limits {
    unsigned seed = 1;
    unsigned steps = 20000;
    unsigned seconds = 3600;
};

/// What is wrong is told on stderr when `isLoud`.
bool Fails(const PanelRun& run, bool isLoud) {
    const pid_t child = fork();
    if (child == 0) {
        alarm(c_longestRun);
        if (!isLoud && !std::freopen("/dev/null", "w", stderr))
            _exit(2);
        const std::optional<std::string> fault = FindDifference(run);
        if (fault)
            std::cerr << *fault << std::endl;
        _exit(fault ? 1 : 0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    if (isLoud && WIFSIGNALED(status))
        std::cerr << strsignal(WTERMSIG(status)) << '\n';
    return status != 0;
}

bool ReadLimits(int count, char** words, Limits& limits) {
    for (int i = 1; i + 1 < count; i += 2) {
        const std::string name = words[i];
        unsigned* const limit = name == "--seed"      ? &limits.seed
                                : name == "--steps"   ? &limits.steps
                                : name == "--seconds" ? &limits.seconds
                                                      : nullptr;
        if (!limit)
            return false;
        *limit = static_cast<unsigned>(std::strtoul(words[i + 1], nullptr, 10));
    }
    return count % 2 == 1;
}

} // namespace

int main(int count, char** words) {
    Limits limits;
    if (!ReadLimits(count, words, limits)) {
        std::cerr << "usage: productTreeFuzz [--seed N] [--steps N] [--seconds N]\n";
        return 2;
    }
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(limits.seconds);
    unsigned done = 0;
    for (unsigned seed = limits.seed; done < limits.steps; ++seed, done += c_stepsPerRun) {
        if (std::chrono::steady_clock::now() > end)
            break;
        const PanelRun run = support::MakePanelRun(seed, c_stepsPerRun);
        if (!Fails(run, false))
            continue;
        std::cerr << "seed " << seed << " fails, shrinking\n";
        const PanelRun shrunk =
            Shrink(run, [](const PanelRun& smaller) { return Fails(smaller, false); });
        Fails(shrunk, true);
        std::cerr << ToText(shrunk) << '\n';
        return 1;
    }
    std::cout << done << " steps without a fault\n";
    return 0;
}
