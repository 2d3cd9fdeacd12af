#include "desktop/import/MeasureApart.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

namespace desktop::step {

namespace {

/// What the child says: how far it is with a part, or that it is done with it.
struct Report {
    std::size_t part = 0;
    double share = 0;
    bool isDone = false;
    bool hasValue = false;
    double value = 0;
};

constexpr double smallestStep = 0.01;

/// The child's side. It leaves without the parent's clean-up.
class Child final {
public:
    Child(int pipe, const Measure& measure) : m_pipe(pipe), m_measure(measure) {}

    [[noreturn]] void Run(std::size_t first, std::size_t count) noexcept {
        // It ends with the thread that made it, and a crash is quiet and leaves no file.
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

} // namespace

MeasuringApart::MeasuringApart(std::size_t count, Measure measure)
    : m_measure(std::move(measure)), m_values(count) {
    StartChild();
}

MeasuringApart::~MeasuringApart() {
    EndChild();
}

void MeasuringApart::StartChild() {
    std::array<int, 2> ends{};
    if (m_next == m_values.size() || pipe2(ends.data(), O_CLOEXEC) != 0)
        return;
    m_child = fork();
    if (m_child == 0) {
        close(ends[0]);
        Child(ends[1], m_measure).Run(m_next, m_values.size());
    }
    close(ends[1]);
    if (m_child < 0) {
        close(ends[0]);
        return;
    }
    m_pipe = ends[0];
    fcntl(m_pipe, F_SETFL, O_NONBLOCK);
}

bool MeasuringApart::Advance() {
    if (m_pipe >= 0 && !TakeReports()) {
        EndChild();
        // A child that is gone in the middle of a part leaves it without a value.
        m_next = std::min(m_next + 1, m_values.size());
        m_share = 0;
        StartChild();
    }
    return m_pipe >= 0;
}

bool MeasuringApart::TakeReports() {
    Report report;
    ssize_t size = 0;
    while ((size = read(m_pipe, &report, sizeof(report))) == sizeof(report)) {
        m_share = report.share;
        if (!report.isDone)
            continue;
        if (report.hasValue)
            m_values[report.part] = report.value;
        m_next = report.part + 1;
        m_share = 0;
    }
    return size < 0 && (errno == EAGAIN || errno == EINTR);
}

double MeasuringApart::GetShareDone() const {
    if (m_pipe < 0)
        return 1;
    return (static_cast<double>(m_next) + std::clamp(m_share, 0.0, 1.0)) /
           static_cast<double>(m_values.size());
}

void MeasuringApart::EndChild() {
    if (m_pipe < 0)
        return;
    close(std::exchange(m_pipe, -1));
    kill(m_child, SIGKILL);
    while (waitpid(m_child, nullptr, 0) < 0 && errno == EINTR) {
    }
}

} // namespace desktop::step
