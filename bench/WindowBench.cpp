// What the window makes of a large product: from the product to the first picture, and from a key
// to the picture that shows what has come of it. Drawn without a display.

#include "bench/BenchProduct.h"
#include "bench/GeneratedProduct.h"
#include "desktop/Session.h"
#include "desktop/tree/PanelTree.h"
#include "desktop/tree/TreeItemModel.h"
#include "desktop/window/MainWindow.h"

#include <QAction>
#include <QApplication>
#include <QKeyEvent>

#include <algorithm>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace {

using bench::Measure;
using desktop::TreeItemModel;
using platform::TreeTableRow;

constexpr const wchar_t* c_column = L"comment";

std::size_t GetSize(const benchmark::State& state) {
    return static_cast<std::size_t>(state.range(0));
}

void MakeApplication() {
    static int count = 1;
    static char name[] = "productTreeBench";
    static char* arguments[] = {name, nullptr};
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // Never destroyed: at the end of the process it would outlive what it refers to.
    static auto* const application = new QApplication(count, arguments);
    benchmark::DoNotOptimize(application);
}

void CollectRows(TreeTableRow& row, std::vector<TreeTableRow*>& rows) {
    if (row.HasCell(c_column) && row.GetChildCount() == 0)
        rows.push_back(&row);
    for (std::size_t i = 0; i < row.GetChildCount(); ++i)
        CollectRows(row.GetChildRow(i), rows);
}

/// Counts how often the tree is painted.
class PaintWatch final : public QObject {
public:
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        m_count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
    int GetCount() const { return m_count; }

private:
    int m_count = 0;
};

/// A window with a product in it, and the hands of its user.
class Window {
public:
    explicit Window(platform::ProductModel model) {
        desktop::Document document;
        document.path = "bench.json";
        document.model = std::move(model);
        m_tree = m_window.findChild<desktop::PanelTree*>();
        m_tree->viewport()->installEventFilter(&m_paints);
        m_window.Show(std::make_unique<desktop::Session>(std::move(document)));
        m_window.show();
        m_window.activateWindow();
        QApplication::processEvents();
    }

    TreeItemModel& GetModel() const { return static_cast<TreeItemModel&>(*m_tree->model()); }
    int CountPaints() const { return m_paints.GetCount(); }
    int CountSelected() const {
        return static_cast<int>(GetModel().GetView().GetSelectedRows().size());
    }

    void Trigger(const QKeySequence& key) const {
        const QList<QAction*> actions = m_window.findChildren<QAction*>();
        (*std::ranges::find(actions, key, &QAction::shortcut))->trigger();
        QApplication::processEvents();
    }

    void Press(Qt::Key key, const QString& text = {},
               Qt::KeyboardModifiers modifiers = Qt::NoModifier) const {
        QWidget* const focus = QApplication::focusWidget();
        QKeyEvent press(QEvent::KeyPress, key, modifiers, text);
        QApplication::sendEvent(focus ? focus : m_tree, &press);
        QApplication::processEvents();
    }

    /// The cell in the middle of the tree becomes current, with all rows unfolded.
    TreeTableRow& GoToMiddle() const {
        Trigger(QKeySequence(Qt::CTRL | Qt::Key_E));
        std::vector<TreeTableRow*> rows;
        CollectRows(*GetModel().GetView().GetRoot(), rows);
        const auto& heads = GetModel().GetHeads();
        const auto head = std::ranges::find(heads, c_column, &platform::ColumnHead::id);
        TreeTableRow& row = *rows[rows.size() / 2];
        m_tree->setCurrentIndex(GetModel().IndexOf(row, static_cast<int>(head - heads.begin())));
        m_tree->setFocus();
        QApplication::processEvents();
        return row;
    }

private:
    PaintWatch m_paints;
    desktop::MainWindow m_window;
    desktop::PanelTree* m_tree = nullptr;
};

/// Does something when what was measured is over.
class Afterwards {
public:
    explicit Afterwards(std::function<void()> work) : m_work(std::move(work)) {}
    Afterwards(Afterwards&& other) noexcept : m_work(std::exchange(other.m_work, nullptr)) {}
    ~Afterwards() {
        if (m_work)
            m_work();
    }

private:
    std::function<void()> m_work;
};

/// Runs `work` in a window, of which the rows are all unfolded, until the tree is painted again;
/// `isDone` says whether it has come to something, and `undo` takes it back.
template <class Work, class IsDone, class Undo>
void MeasureInWindow(benchmark::State& state, const Work& work, const IsDone& isDone,
                     const Undo& undo) {
    MakeApplication();
    const Window window(bench::GenerateProduct(GetSize(state)));
    TreeTableRow& row = window.GoToMiddle();
    bool isAlwaysDone = true;
    Measure(state, [&] {
        const int paints = window.CountPaints();
        work(window, row);
        isAlwaysDone = isAlwaysDone && window.CountPaints() > paints && isDone(window, row);
        return Afterwards([&] { undo(window, row); });
    });
    if (!isAlwaysDone)
        state.SkipWithError("nothing has come of it");
}

std::wstring TextOf(const TreeTableRow& row) {
    return row.FindCell(c_column)->GetShownText().Str();
}

void Type(const Window& window, const QString& letter) {
    window.Press(Qt::Key_A, letter);
    window.Press(Qt::Key_Return);
}

// Once a process: what is moved into the window is not there a second time.
void WindowOpen(benchmark::State& state) {
    MakeApplication();
    platform::ProductModel model = bench::GenerateProduct(GetSize(state));
    bool isPainted = true;
    Measure(state, [&] {
        auto window = std::make_unique<Window>(std::move(model));
        isPainted = isPainted && window->CountPaints() > 0;
        return window;
    });
    if (!isPainted)
        state.SkipWithError("the tree was not painted");
}
BENCHMARK(WindowOpen)->Apply(bench::Sizes)->Iterations(1);

void WindowUnfold(benchmark::State& state) {
    MeasureInWindow(
        state,
        [](const Window& window, TreeTableRow&) {
            window.Trigger(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_E));
            window.Trigger(QKeySequence(Qt::CTRL | Qt::Key_E));
        },
        [](const Window&, const TreeTableRow& row) { return row.GetParentRow()->IsExpanded(); },
        [](const Window&, TreeTableRow&) {});
}
BENCHMARK(WindowUnfold)->Apply(bench::Sizes);

void WindowPageDown(benchmark::State& state) {
    MeasureInWindow(
        state, [](const Window& window, TreeTableRow&) { window.Press(Qt::Key_PageDown); },
        [](const Window& window, const TreeTableRow& row) {
            return window.GetModel().GetView().GetCurrent() != &row;
        },
        [](const Window& window, TreeTableRow&) { window.Press(Qt::Key_PageUp); });
}
BENCHMARK(WindowPageDown)->Apply(bench::Sizes);

void WindowCursorDown(benchmark::State& state) {
    MeasureInWindow(
        state, [](const Window& window, TreeTableRow&) { window.Press(Qt::Key_Down); },
        [](const Window& window, const TreeTableRow& row) {
            return window.GetModel().GetView().GetCurrent() != &row;
        },
        [](const Window& window, TreeTableRow&) { window.Press(Qt::Key_Up); });
}
BENCHMARK(WindowCursorDown)->Apply(bench::Sizes);

void WindowKey(benchmark::State& state) {
    MeasureInWindow(
        state, [](const Window& window, TreeTableRow&) { Type(window, QStringLiteral("a")); },
        [](const Window&, const TreeTableRow& row) { return TextOf(row) == L"a"; },
        [](const Window& window, TreeTableRow&) { Type(window, QStringLiteral("b")); });
}
BENCHMARK(WindowKey)->Apply(bench::Sizes);

void WindowUndo(benchmark::State& state) {
    bool isEdited = false;
    MeasureInWindow(
        state,
        [&](const Window& window, TreeTableRow&) {
            // The first one has nothing to undo yet, and counts as the dearer one.
            if (!std::exchange(isEdited, true))
                Type(window, QStringLiteral("a"));
            window.Trigger(QKeySequence::Undo);
        },
        [](const Window&, const TreeTableRow& row) { return TextOf(row) != L"a"; },
        [](const Window& window, TreeTableRow&) { window.Trigger(QKeySequence::Redo); });
}
BENCHMARK(WindowUndo)->Apply(bench::Sizes);

void WindowSelectAll(benchmark::State& state) {
    MeasureInWindow(
        state,
        [](const Window& window, TreeTableRow&) {
            window.Press(Qt::Key_A, {}, Qt::ControlModifier);
        },
        [&](const Window& window, const TreeTableRow&) {
            return window.CountSelected() > state.range(0);
        },
        [](const Window& window, TreeTableRow&) { static_cast<void>(window.GoToMiddle()); });
}
BENCHMARK(WindowSelectAll)->Apply(bench::Sizes);

} // namespace
