#include "desktop/preview/SheetSizes.h"

#include "desktop/preview/FileKind.h"
#include "desktop/preview/PreviewProcess.h"
#include "desktop/preview/PreviewService.h"

#include <QDeadlineTimer>

#include <chrono>

namespace desktop {

namespace {

constexpr std::chrono::seconds c_limit{3};
constexpr std::chrono::seconds c_rest{2};

} // namespace

SheetSizes::SheetSizes() {
    m_rest.setSingleShot(true);
    m_rest.setInterval(c_rest);
    m_rest.callOnTimeout([this] { End(); });
}

SheetSizes::~SheetSizes() = default;

std::optional<QSizeF> SheetSizes::Find(const QString& path) {
    const QString program = PreviewService::GetProgram();
    if (program.isEmpty() || m_isGivenUp || !IsPdfFile(path))
        return std::nullopt;
    m_rest.start();
    if (!m_process)
        m_process = std::make_unique<PreviewProcess>(program);
    PreviewRequest request;
    request.task = PreviewTask::SheetSize;
    request.path = path;
    const QDeadlineTimer end(c_limit);
    m_process->Ask(request, c_limit);
    const PreviewAnswer answer = m_process->Wait();
    if (!answer.isLasting) {
        m_process.reset();
        m_isGivenUp = end.hasExpired();
    }
    return answer.sheet.isEmpty() ? std::nullopt : std::optional(answer.sheet);
}

void SheetSizes::End() {
    m_process.reset();
    m_isGivenUp = false;
}

} // namespace desktop
