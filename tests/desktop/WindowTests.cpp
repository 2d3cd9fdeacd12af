// The window's tests run inside one application of the toolkit, without a display. What the toolkit
// warns of is a fault of the window's: the test that it happens in fails.
#include <QApplication>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>

namespace {

/// What is missing where there is no display and no user.
constexpr std::array c_expected = {"This plugin does not support", "XDG_RUNTIME_DIR"};

void FailOnWarning(QtMsgType type, const QMessageLogContext&, const QString& message) {
    const bool isExpected = std::ranges::any_of(c_expected, [&](const char* text) { return message.contains(text); });
    if (type == QtDebugMsg || type == QtInfoMsg || isExpected)
        return;
    ADD_FAILURE() << qPrintable(message);
}

} // namespace

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler(FailOnWarning);
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
