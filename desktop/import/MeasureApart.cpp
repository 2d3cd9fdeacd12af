#include "desktop/import/MeasureApart.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace desktop::import {

namespace {

/// What the child says: how far it is with a part, or that it is done with it.
struct Report {
    std::size_t part = 0;
    double share = 0;
    bool isDone = false;
    bool hasValue = false;
    double value = 0;
};

/// A stop is felt after this time even while the child is silent.
constexpr int pollMilliseconds = 50;
constexpr double smallestStep = 0.01;

/// The child's side. Nothing here may touch what other threads of the parent were doing when the
/// child was made, and it leaves without the parent's clean-up.
class Child final {
public:
    Child(int pipe, const Measure& measure) : m_pipe(pipe), m_measure(measure) {}

    [[noreturn]] void Run(std::size_t first, std::size_t count) {
        // It ends with the thread that waits for it, and a crash is quiet and leaves no file.
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        const rlimit noCore{0, 0};
        setrlimit(RLIMIT_CORE, &noCore);
        for (const int crash : {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT})
            std::signal(crash, SIG_DFL);
        for (std::size_t part = first; part < count; ++part)
            MeasurePart(part);
        _exit(0);
    }

private:
    void MeasurePart(std::size_t part) {
        double told = 0;
        const std::optional<double> value = m_measure(part, [&](double share) {
            if (share >= told + smallestStep) {
                told = share;
                Send({part, share, false, false, 0});
            }
            return true;
        });
        Send({part, 1, true, value.has_value(), value.value_or(0)});
    }

    void Send(const Report& report) const {
        // Short enough to go into the pipe as a whole.
        while (write(m_pipe, &report, sizeof(report)) < 0) {
            if (errno != EINTR)
                _exit(1);
        }
    }

    int m_pipe;
    const Measure& m_measure;
};

/// The parent's side: one child at a time, a new one behind each part that ended its child.
class Measuring final {
public:
    Measuring(std::size_t count, const Measure& measure, const Progress& progress)
        : m_measure(measure), m_progress(progress), m_values(count) {}

    std::optional<std::vector<std::optional<double>>> Run() {
        while (m_next < m_values.size()) {
            if (!StartChild())
                break;
            const bool isStopped = !Listen();
            EndChild();
            if (isStopped)
                return std::nullopt;
        }
        return std::move(m_values);
    }

private:
    bool StartChild() {
        std::array<int, 2> ends{};
        if (pipe(ends.data()) != 0)
            return false;
        m_child = fork();
        if (m_child == 0) {
            close(ends[0]);
            Child(ends[1], m_measure).Run(m_next, m_values.size());
        }
        close(ends[1]);
        m_pipe = ends[0];
        if (m_child > 0)
            return true;
        close(m_pipe);
        return false;
    }

    /// Until the child has nothing more to say; false when it is to stop.
    bool Listen() {
        pollfd pipe{m_pipe, POLLIN, 0};
        while (true) {
            poll(&pipe, 1, pollMilliseconds);
            if (pipe.revents != 0) {
                Report report;
                const ssize_t size = read(m_pipe, &report, sizeof(report));
                if (size == 0)
                    break;
                if (size == static_cast<ssize_t>(sizeof(report)))
                    Take(report);
            }
            if (!TellProgress())
                return false;
        }
        if (m_next == m_values.size())
            return true;
        // The child is gone in the middle of a part, which then has no value.
        Finish(m_next);
        return TellProgress();
    }

    void Take(const Report& report) {
        m_share = report.share;
        if (!report.isDone)
            return;
        if (report.hasValue)
            m_values[report.part] = report.value;
        Finish(report.part);
    }

    void Finish(std::size_t part) {
        m_next = part + 1;
        m_share = 0;
    }

    bool TellProgress() {
        const double done = static_cast<double>(m_next) + std::clamp(m_share, 0.0, 1.0);
        return m_progress(done / static_cast<double>(m_values.size()));
    }

    void EndChild() const {
        close(m_pipe);
        kill(m_child, SIGKILL);
        while (waitpid(m_child, nullptr, 0) < 0 && errno == EINTR) {
        }
    }

    const Measure& m_measure;
    const Progress& m_progress;
    std::vector<std::optional<double>> m_values;
    std::size_t m_next = 0;
    double m_share = 0;
    pid_t m_child = 0;
    int m_pipe = -1;
};

} // namespace

std::optional<std::vector<std::optional<double>>>
MeasureApart(std::size_t count, const Measure& measure, const Progress& progress) {
    return Measuring(count, measure, progress).Run();
}

} // namespace desktop::import
