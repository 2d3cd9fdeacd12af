#include "desktop/window/WindowProgram.h"

#include "desktop/books/UserLists.h"
#include "desktop/icons/RowIcons.h"
#include "desktop/preview/PreviewService.h"
#include "desktop/window/MainWindow.h"
#include "desktop/window/WindowMemory.h"

#include <QApplication>
#include <QFile>
#include <QMessageBox>
#include <QPixmap>
#include <QScreen>
#include <QStandardPaths>
#include <QTimer>

#include <cstdio>
#include <cstdlib>
#include <utility>

namespace desktop {

namespace {

/// The program has the picture that rows of assemblies have.
constexpr int c_assemblyIcon = 63248;

/// The toolkit with the program's looks. Options of the command line are not for it.
class Application {
public:
    Application() {
        QApplication::setApplicationName(QStringLiteral("product-tree"));
        QApplication::setStyle(QStringLiteral("Fusion"));
        QApplication::setWindowIcon(RowIcons().Get(c_assemblyIcon));
        PreviewService::SetProgram(QApplication::applicationFilePath());
    }

    int Run() { return QApplication::exec(); }

private:
    int m_argumentCount = 1;
    char m_name[13] = "product-tree";
    char* m_arguments[2] = {m_name, nullptr};
    QApplication m_application{m_argumentCount, m_arguments};
};

/// Without a display the toolkit has a lot to say of what it misses; none of it matters to a
/// picture.
void TellOnlyWhatIsFatal(QtMsgType type, const QMessageLogContext&, const QString& message) {
    if (type == QtFatalMsg)
        std::fprintf(stderr, "product-tree: %s\n", qPrintable(message));
}

/// Windows belong to themselves: any of them may be the last that is closed, and what a closed one
/// has shown is let go of.
MainWindow& MakeWindow(std::unique_ptr<Session> session) {
    auto* const window = new MainWindow;
    window->setAttribute(Qt::WA_DeleteOnClose);
    window->Show(std::move(session));
    return *window;
}

/// In front of the window that the user works in, when what is being done is over.
void TellUnreadable(const QString& fault) {
    QTimer::singleShot(0, qApp, [fault] {
        auto* const box = new QMessageBox(
            QMessageBox::Warning, MainWindow::tr("Lists of texts"),
            fault + QLatin1Char('\n') +
                MainWindow::tr("Revision letters and names are typed until the program is started "
                               "again."),
            QMessageBox::Ok, QApplication::activeWindow());
        box->setTextFormat(Qt::PlainText);
        box->setAttribute(Qt::WA_DeleteOnClose);
        box->open();
    });
}

} // namespace

int RunWindow(std::unique_ptr<Session> session, UserLists& lists) {
    Application application;
    lists.SetListener(TellUnreadable);
    MainWindow& window = MakeWindow(std::move(session));
    // A screen may be small, or scaled.
    window.resize(window.size().boundedTo(window.screen()->availableSize()));
    window.RememberIn(std::make_unique<WindowMemory>(
        QStandardPaths::writableLocation(QStandardPaths::ConfigLocation) +
        QStringLiteral("/product-tree/window.ini")));
    window.show();
    QApplication::processEvents();
    window.TakeUpView();
    window.StartMasses();
    return application.Run();
}

void RunEmptyWindow(const std::filesystem::path& path, const FileError& error, UserLists& lists) {
    Application application;
    lists.SetListener(TellUnreadable);
    MainWindow& window = MakeWindow(std::make_unique<Session>(MakeEmptyDocument()));
    window.show();
    window.TellUnopened(path, error);
    application.Run();
}

bool WritePicture(std::unique_ptr<Session> session, const std::filesystem::path& path) {
    if (!std::getenv("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler(TellOnlyWhatIsFatal);
    Application application;
    MainWindow window;
    window.Show(std::move(session));
    window.show();
    QApplication::processEvents();
    window.TakeUpView();
    QApplication::processEvents();
    window.FitToRows();
    QApplication::processEvents();
    // Keys go nowhere in a picture: no row is to be marked as theirs.
    if (QWidget* focus = window.focusWidget())
        focus->clearFocus();
    return window.grab().save(QFile::decodeName(path.c_str()), "PNG");
}

} // namespace desktop
