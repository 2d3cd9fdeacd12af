// Measures parts in a child process. The geometry kernel follows references without looking, so a
// damaged part ends the process that transfers it; and it can be silent for seconds, while a stop
// has to work at once. What the child takes of memory is given back with it.
#pragma once

#include "desktop/import/StepReader.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <sys/types.h>
#include <vector>

namespace desktop::step {

/// Called in the child for one part, to report the share of this part that is done. What it
/// changes, the parent does not see.
using Measure = std::function<std::optional<double>(std::size_t part, const Progress& progress)>;

/// One child at a time, a new one behind each part that ended its child. Every child is made by
/// the thread that makes this or calls Advance, and ends with that thread.
class MeasuringApart final {
public:
    /// Starts with the parts 0 to `count` - 1.
    MeasuringApart(std::size_t count, Measure measure);
    MeasuringApart(const MeasuringApart&) = delete;
    MeasuringApart& operator=(const MeasuringApart&) = delete;
    /// Ends the child, wherever it is.
    ~MeasuringApart();

    /// As Measuring.
    int GetDescriptor() const { return m_pipe; }
    bool Advance();
    double GetShareDone() const;
    /// By part; none of those that are not done, ended their child or have none.
    const std::vector<std::optional<double>>& GetValues() const { return m_values; }

private:
    void StartChild();
    /// False when the child has closed its end: there is nothing more to come.
    bool TakeReports();
    void EndChild();

    Measure m_measure;
    std::vector<std::optional<double>> m_values;
    std::size_t m_next = 0;
    /// Done of the part m_next.
    double m_share = 0;
    pid_t m_child = -1;
    int m_pipe = -1;
};

} // namespace desktop::step
