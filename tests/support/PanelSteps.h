// What can happen to a panel and its product, as plain data: a name and numbers that are taken modulo
// whatever is there. Each step runs in two worlds of the same product. In one the panel may trust what
// the product says has changed, in the other the product never knows and all rows are read. After each
// step both panels must be equal, what they have told their front ends too, and both equal a panel that
// is made anew. So a run can be shrunk by leaving steps out, and pasted into a test.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace support {

struct PanelStep {
    const char* what = "";
    unsigned a = 0;
    unsigned b = 0;
    unsigned c = 0;
    /// By way of the second panel, which shows the same document.
    bool isSecond = false;
};

struct PanelRun {
    /// As MakeRandomProduct takes them.
    unsigned seed = 0;
    unsigned objects = 0;
    std::vector<PanelStep> steps;
};

PanelRun MakePanelRun(unsigned seed, unsigned steps);
/// What is wrong after which step; no value: nothing.
std::optional<std::string> FindDifference(const PanelRun& run);
/// Leaves out and makes smaller what it can while the run still fails.
PanelRun Shrink(PanelRun run, const std::function<bool(const PanelRun&)>& fails);
/// The run as C++.
std::string ToText(const PanelRun& run);

} // namespace support
