#include "tests/desktop/WindowFixture.h"

#include "tests/support/ProductBuilder.h"

#include <QApplication>
#include <QLabel>
#include <QMenuBar>
#include <QPainter>
#include <QPixmap>
#include <QTest>

#include <algorithm>
#include <cstdlib>

namespace window_tests {

namespace {

/// In milliseconds. For what comes within a second, on a machine that is busy and under sanitizers.
constexpr int c_patience = 60000;

} // namespace

platform::ProductModel SmallGearbox(int pins) {
    return support::Product()
        .Root(L"Gearbox")
        .Object("case", L"Case")
        .Section(20, L"Parts")
        .Uses()
        .Object("pin", L"Pin", L"AB.7")
        .Section(20, L"Parts")
        .Uses(pins);
}

WindowFixture::WindowFixture() {
    auto decisions = std::make_unique<platform::ScriptedDecisions>();
    m_decisions = decisions.get();
    m_window = std::make_unique<desktop::MainWindow>(std::move(decisions));
}

platform::TreeTableView& WindowFixture::Show(const platform::ProductModel& model,
                                             std::unique_ptr<desktop::step::StepDocument> step,
                                             const std::filesystem::path& path) {
    desktop::Document document;
    document.path = path;
    document.model = model;
    document.step = std::move(step);
    document.mark = desktop::FileMark::Take(path);
    auto session = std::make_unique<desktop::Session>(std::move(document));
    platform::TreeTableView& view = session->GetView();
    m_window->Show(std::move(session));
    m_window->show();
    m_window->activateWindow();
    QApplication::processEvents();
    return view;
}

QModelIndex WindowFixture::At(std::initializer_list<int> path, int column) const {
    QModelIndex index = Tree().model()->index(0, 0);
    for (const int row : path)
        index = Tree().model()->index(row, 0, index);
    return index.siblingAtColumn(column);
}

int WindowFixture::Column(const QString& caption) const {
    const QAbstractItemModel& model = *Tree().model();
    for (int i = 0; i < model.columnCount(); ++i) {
        if (model.headerData(i, Qt::Horizontal).toString() == caption)
            return i;
    }
    return -1;
}

QString WindowFixture::TextAt(std::initializer_list<int> path, int column) const {
    return At(path, column).data().toString();
}

QAction* WindowFixture::Action(const QString& text) const {
    for (QAction* menu : m_window->menuBar()->actions()) {
        for (QAction* action : menu->menu()->actions()) {
            if (action->text().remove(QLatin1Char('&')).startsWith(text, Qt::CaseInsensitive))
                return action;
        }
    }
    return nullptr;
}

void WindowFixture::Trigger(const QString& text) const {
    Action(text)->trigger();
    QApplication::processEvents();
}

bool WindowFixture::ShowsText(const QString& text) const {
    const auto labels = m_window->findChildren<QLabel*>();
    return std::any_of(labels.begin(), labels.end(), [&](QLabel* label) { return label->text() == text; });
}

void WindowFixture::WaitForText(const QString& text) const {
    ASSERT_TRUE(QTest::qWaitFor([&] { return ShowsText(text); }, c_patience)) << text.toStdString();
}

void WindowFixture::Click(const QModelIndex& index, Qt::KeyboardModifiers modifiers) const {
    QTest::mouseClick(Tree().viewport(), Qt::LeftButton, modifiers, Tree().visualRect(index).center());
    QApplication::processEvents();
}

void WindowFixture::ClickFromRight(const QModelIndex& index, int pixels) const {
    const QRect cell = Tree().visualRect(index);
    QTest::mouseClick(Tree().viewport(), Qt::LeftButton, Qt::NoModifier, {cell.right() - pixels, cell.center().y()});
    QApplication::processEvents();
}

void WindowFixture::Type(const QString& text) const {
    for (const QChar letter : text) {
        QWidget* const focus = QApplication::focusWidget();
        QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(letter));
        QApplication::sendEvent(focus ? focus : &Tree(), &press);
    }
    QApplication::processEvents();
}

void WindowFixture::Press(Qt::Key key, Qt::KeyboardModifiers modifiers) const {
    QWidget* const focus = QApplication::focusWidget();
    QTest::keyClick(focus ? focus : &Tree(), key, modifiers);
    QApplication::processEvents();
}

void WindowFixture::Shoot(const char* name) const {
    const char* const folder = std::getenv("PRODUCT_TREE_SHOTS");
    if (!folder)
        return;
    QPixmap picture = m_window->grab();
    if (QWidget* const popup = QApplication::activePopupWidget())
        QPainter(&picture).drawPixmap(m_window->mapFromGlobal(popup->pos()), popup->grab());
    picture.save(QStringLiteral("%1/%2.png").arg(QString::fromUtf8(folder), QString::fromUtf8(name)));
}

} // namespace window_tests
