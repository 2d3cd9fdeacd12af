#include "desktop/preview/PreviewRun.h"

#include "desktop/preview/Pictures.h"
#include "desktop/preview/PreviewProcess.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QFile>
#include <QGuiApplication>

#include <array>
#include <chrono>
#include <clocale>
#include <csignal>
#include <cstdio>
#include <exception>
#include <fcntl.h>
#include <new>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <unistd.h>

namespace desktop {

namespace {

constexpr rlim_t c_mostMemory = rlim_t{3} << 30;
/// The user waits for this picture and can end it by himself.
constexpr std::chrono::minutes c_longestDrawing{5};

void LimitItself() {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    const rlimit none{0, 0};
    setrlimit(RLIMIT_CORE, &none);
#ifndef __SANITIZE_ADDRESS__
    // The sanitizer lays claim to more than there is.
    const rlimit memory{c_mostMemory, c_mostMemory};
    setrlimit(RLIMIT_AS, &memory);
#endif
}

/// What libraries print must not get among the answer.
int TakeStandardOutput() {
    const int answer = fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
    if (!std::freopen("/dev/null", "w", stdout))
        close(STDOUT_FILENO);
    return answer;
}

/// No value: whoever asked has gone.
std::optional<PreviewRequest> TakeRequest() {
    QBuffer input;
    input.open(QIODevice::ReadWrite);
    std::array<char, 4096> part{};
    for (;;) {
        const ssize_t size = read(STDIN_FILENO, part.data(), part.size());
        if (size <= 0)
            return std::nullopt;
        input.buffer().append(part.data(), size);
        if (const std::optional<QByteArray> bytes = TakeFrame(input))
            return ReadRequest(*bytes);
    }
}

void Write(int pipe, const QByteArray& bytes) {
    QFile output;
    if (output.open(pipe, QIODevice::WriteOnly | QIODevice::Unbuffered))
        output.write(bytes);
}

PreviewAnswer Work(const PreviewRequest& request) {
    try {
        PreviewAnswer answer = MakeAnswer(request);
        const bool isEmpty = answer.image.isNull() && answer.sheet.isEmpty();
        return isEmpty && answer.error.isEmpty()
                   ? MakeFailure(PreviewProcess::tr("Needs more memory than a preview may take"))
                   : answer;
    } catch (const std::bad_alloc&) {
        return MakeFailure(PreviewProcess::tr("Needs more memory than a preview may take"));
    } catch (const std::exception&) {
        return MakeFailure(PreviewProcess::tr("The file is damaged"));
    }
}

QString ToQString(const std::filesystem::path& path) {
    return QFile::decodeName(path.c_str());
}

} // namespace

void AnswerPreviewRequest() {
    LimitItself();
    const int pipe = TakeStandardOutput();
    if (pipe < 0)
        _exit(1);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    int count = 1;
    std::array<char, 13> name{"product-tree"};
    std::array<char*, 2> arguments{name.data(), nullptr};
    const QGuiApplication application(count, arguments.data());
    // Numbers in files have points, wherever the user lives.
    std::setlocale(LC_NUMERIC, "C");
    while (const std::optional<PreviewRequest> request = TakeRequest())
        Write(pipe, ToFrame(ToBytes(Work(*request))));
    // What a damaged file has left behind is not cleared up: that might not end.
    _exit(0);
}

std::optional<PictureFault> WriteFilePicture(const PictureOrder& order) {
    int count = 1;
    std::array<char, 13> name{"product-tree"};
    std::array<char*, 2> arguments{name.data(), nullptr};
    const QCoreApplication application(count, arguments.data());
    PreviewRequest request;
    request.path = ToQString(std::filesystem::absolute(order.file));
    request.pixels = QSize(order.size, order.size);
    request.ink = Qt::black;
    request.assembly = QString::fromStdString(order.assembly);
    request.encoding = QString::fromStdString(order.encoding);
    PreviewProcess process(QCoreApplication::applicationFilePath());
    process.Ask(request, c_longestDrawing);
    const PreviewAnswer answer = process.Wait();
    if (!answer.error.isEmpty()) {
        QString reason = answer.error;
        reason.front() = reason.front().toLower();
        return PictureFault{order.file, {reason.toStdString()}};
    }
    if (!PutOnPaper(answer.image).save(ToQString(order.picture), "PNG"))
        return PictureFault{order.picture, {"cannot be written"}};
    return std::nullopt;
}

} // namespace desktop
