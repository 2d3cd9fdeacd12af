#include "desktop/Display.h"

#include <charconv>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace desktop {

namespace {

std::string_view Variable(const char* name) {
    const char* value = std::getenv(name);
    return value ? value : "";
}

/// `path` may begin with a null character, which names a socket that is no file.
bool Answers(std::string_view path) {
    sockaddr_un address{};
    if (path.empty() || path.size() >= sizeof address.sun_path)
        return false;
    address.sun_family = AF_UNIX;
    std::memcpy(address.sun_path, path.data(), path.size());
    const int server = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (server < 0)
        return false;
    const auto size = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + path.size());
    const bool answers = connect(server, reinterpret_cast<sockaddr*>(&address), size) == 0;
    close(server);
    return answers;
}

bool AnswersX11(std::string_view display) {
    const std::size_t colon = display.rfind(':');
    if (colon == std::string_view::npos)
        return false;
    const std::string_view host = display.substr(0, colon);
    if (!host.empty() && host != "unix")
        return true; // A server elsewhere, reached over the network: only trying would tell.
    int number = 0;
    const char* const end = display.data() + display.size();
    if (std::from_chars(display.data() + colon + 1, end, number).ec != std::errc())
        return false;
    const std::string path = "/tmp/.X11-unix/X" + std::to_string(number);
    return Answers(path) || Answers(std::string(1, '\0') + path);
}

bool AnswersWayland(std::string_view display) {
    if (display.empty() || display.front() == '/')
        return Answers(display);
    return Answers(std::string(Variable("XDG_RUNTIME_DIR")) + '/' + std::string(display));
}

} // namespace

bool HasDisplay() {
    const std::string_view platform = Variable("QT_QPA_PLATFORM");
    if (platform.starts_with("offscreen") || platform.starts_with("minimal"))
        return false;
    return AnswersX11(Variable("DISPLAY")) || AnswersWayland(Variable("WAYLAND_DISPLAY"));
}

} // namespace desktop
