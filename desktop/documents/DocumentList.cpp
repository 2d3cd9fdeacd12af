#include "desktop/documents/DocumentList.h"

#include "desktop/documents/DocumentModel.h"

#include <QHeaderView>
#include <QPainter>
#include <QScopedValueRollback>

#include <algorithm>

namespace desktop {

namespace {

/// Columns that are declared narrower hold a picture or a few letters.
constexpr int c_narrow = 50;
constexpr int c_smallestWidth = 24;
constexpr int c_margin = 12;

} // namespace

DocumentList::DocumentList(QWidget* parent) : QTableView(parent), m_model(new DocumentModel(this)) {
    setModel(m_model);
    setAccessibleName(tr("Documents"));
    setFrameShape(NoFrame);
    setShowGrid(false);
    setAlternatingRowColors(true);
    setSelectionBehavior(SelectRows);
    setSelectionMode(ExtendedSelection);
    setEditTriggers(NoEditTriggers);
    setTabKeyNavigation(false);
    setWordWrap(false);
    setTextElideMode(Qt::ElideMiddle);
    setHorizontalScrollMode(ScrollPerPixel);
    verticalHeader()->hide();
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
    verticalHeader()->setMinimumSectionSize(0);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setMinimumSectionSize(c_smallestWidth);
    horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    connect(horizontalHeader(), &QHeaderView::sectionResized, this,
            [this] { m_areColumnsChosen = m_areColumnsChosen || !m_isFollowing; });
    connect(this, &QTableView::doubleClicked, this, &DocumentList::CellOpened);
}

void DocumentList::ShowTable(platform::DocumentTable* table) {
    const QScopedValueRollback following(m_isFollowing, true);
    m_table = table;
    const QByteArray columns = SaveColumns();
    m_model->ShowTable(table);
    RestoreColumns(columns);
    FitColumns();
    ShowSelection();
}

void DocumentList::Update() {
    if (!m_table)
        return;
    const QScopedValueRollback following(m_isFollowing, true);
    m_model->Update();
    FitColumns();
    ShowSelection();
}

void DocumentList::ShowSelection() {
    QItemSelection selection;
    const std::vector<std::size_t> rows =
        m_table ? m_table->GetSelection() : std::vector<std::size_t>();
    const int last = m_model->columnCount() - 1;
    for (const std::size_t row : rows)
        selection.select(m_model->index(static_cast<int>(row), 0),
                         m_model->index(static_cast<int>(row), last));
    selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
    // The keys go on from a selected row, and from where they were if that is one.
    const bool isCurrentSelected = std::ranges::count(rows, currentIndex().row()) > 0;
    if (!rows.empty() && !isCurrentSelected)
        selectionModel()->setCurrentIndex(m_model->index(static_cast<int>(rows.front()), 0),
                                          QItemSelectionModel::NoUpdate);
}

void DocumentList::SetPlaceholder(const QString& text) {
    m_placeholder = text;
    viewport()->update();
}

int DocumentList::CountSelected() const {
    return static_cast<int>(selectionModel()->selectedRows().size());
}

std::wstring DocumentList::GetSelectedFile() const {
    const std::vector<int> rows = GetSelectedRows();
    return rows.size() == 1 ? m_model->FileAt(rows.front()) : std::wstring();
}

std::vector<int> DocumentList::GetSelectedRows() const {
    std::vector<int> rows;
    for (const QModelIndex& row : selectionModel()->selectedRows())
        rows.push_back(row.row());
    std::ranges::sort(rows);
    return rows;
}

QPoint DocumentList::MenuPlace() const {
    const QRect cell = visualRect(currentIndex());
    const QRect seen = viewport()->rect();
    const QPoint place =
        cell.isValid() ? cell.bottomLeft() + QPoint(c_margin, 0) : QPoint(c_margin, c_margin);
    return viewport()->mapToGlobal(QPoint(std::clamp(place.x(), seen.left(), seen.right()),
                                          std::clamp(place.y(), seen.top(), seen.bottom())));
}

QByteArray DocumentList::SaveColumns() const {
    return m_areColumnsChosen ? horizontalHeader()->saveState() : QByteArray();
}

void DocumentList::RestoreColumns(const QByteArray& columns) {
    const QScopedValueRollback following(m_isFollowing, true);
    m_areColumnsChosen = !columns.isEmpty() && horizontalHeader()->restoreState(columns);
}

// What is narrow is as wide as what it shows; the other columns share the rest as they are
// declared.
void DocumentList::FitColumns() {
    if (m_areColumnsChosen)
        return;
    const QScopedValueRollback following(m_isFollowing, true);
    const auto& heads = m_model->GetHeads();
    int rest = viewport()->width();
    int shares = 0;
    for (int column = 0; column < m_model->columnCount(); ++column) {
        const int told = heads[static_cast<std::size_t>(column)].column.width;
        if (told >= c_narrow) {
            shares += told;
            continue;
        }
        const int width = std::max({told, c_smallestWidth, sizeHintForColumn(column),
                                    horizontalHeader()->sectionSizeHint(column)});
        horizontalHeader()->resizeSection(column, width);
        rest -= width;
    }
    for (int column = 0; column < m_model->columnCount(); ++column) {
        const int told = heads[static_cast<std::size_t>(column)].column.width;
        if (told < c_narrow)
            continue;
        const int width = std::max(told, rest * told / shares);
        horizontalHeader()->resizeSection(column, width);
        rest -= width;
        shares -= told;
    }
}

void DocumentList::resizeEvent(QResizeEvent* event) {
    QTableView::resizeEvent(event);
    FitColumns();
}

void DocumentList::paintEvent(QPaintEvent* event) {
    QTableView::paintEvent(event);
    if (m_model->rowCount() > 0 || m_placeholder.isEmpty())
        return;
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(viewport()->rect().adjusted(c_margin, 0, -c_margin, 0),
                     Qt::AlignCenter | Qt::TextWordWrap, m_placeholder);
}

void DocumentList::selectionChanged(const QItemSelection& selected,
                                    const QItemSelection& deselected) {
    QTableView::selectionChanged(selected, deselected);
    if (m_isFollowing || !m_table)
        return;
    std::vector<std::size_t> rows;
    for (const QModelIndex& row : selectionModel()->selectedRows())
        rows.push_back(static_cast<std::size_t>(row.row()));
    m_table->SelectByUser(std::move(rows));
    emit SelectedRowsChanged();
}

QModelIndex DocumentList::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
    const int last = m_model->rowCount() - 1;
    const int column = std::max(0, currentIndex().column());
    if (last >= 0 && (action == MoveHome || action == MoveEnd))
        return m_model->index(action == MoveHome ? 0 : last, column);
    return QTableView::moveCursor(action, modifiers);
}

} // namespace desktop
