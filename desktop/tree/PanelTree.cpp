#include "desktop/tree/PanelTree.h"

#include "columns/ColumnInfo.h"
#include "desktop/tree/HighlightedRows.h"
#include "desktop/tree/PanelHead.h"
#include "desktop/tree/RefusalNote.h"
#include "desktop/tree/TreeItemModel.h"

#include <QHeaderView>
#include <QItemSelection>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>

#include <algorithm>
#include <memory>
#include <utility>

namespace desktop {

namespace {

using platform::TreeTableRow;

constexpr int c_indentation = 18;
constexpr int c_smallestWidth = 36;
/// Share of the tree that the names take when there is more to show than there is room.
constexpr double c_nameShare = 0.3;
constexpr float c_sectionTint = 0.13F;
constexpr float c_rowLine = 0.06F;

QColor Mix(const QColor& ground, const QColor& tint, float share) {
    const auto mix = [&](float a, float b) { return a + (b - a) * share; };
    return QColor::fromRgbF(mix(ground.redF(), tint.redF()), mix(ground.greenF(), tint.greenF()),
                            mix(ground.blueF(), tint.blueF()));
}

int Pixels(double width) {
    return std::max(c_smallestWidth, qRound(width));
}

/// Rows from top to bottom as ranges of neighbours, which the selection handles at once.
QItemSelection RangesOf(const TreeItemModel& model, const std::vector<TreeRowPtr>& rows) {
    QItemSelection ranges;
    const int lastColumn = model.columnCount() - 1;
    for (std::size_t i = 0; i < rows.size();) {
        const auto& first = static_cast<const TreeTableRow&>(*rows[i]);
        const TreeTableRow* last = &first;
        for (++i; i < rows.size(); ++i) {
            const auto& next = static_cast<const TreeTableRow&>(*rows[i]);
            if (next.GetParentRow() != last->GetParentRow() ||
                next.GetIndex() != last->GetIndex() + 1)
                break;
            last = &next;
        }
        ranges.append(QItemSelectionRange(model.IndexOf(first), model.IndexOf(*last, lastColumn)));
    }
    return ranges;
}

} // namespace

PanelTree::PanelTree(QWidget* parent)
    : QTreeView(parent), m_delegate(new RowDelegate(this)), m_head(new PanelHead(this)),
      m_refusalNote(new RefusalNote(this)), m_highlighted(new HighlightedRows(*this)) {
    setItemDelegate(m_delegate);
    setHeader(m_head);
    setUniformRowHeights(true);
    setAlternatingRowColors(true);
    setMouseTracking(true);
    setIndentation(c_indentation);
    setIconSize({16, 16});
    // The ends of names tell twins apart and hold the counts of groups.
    setTextElideMode(Qt::ElideMiddle);
    setSelectionBehavior(SelectRows);
    setSelectionMode(ExtendedSelection);
    setEditTriggers(EditKeyPressed | AnyKeyPressed | DoubleClicked);
    setHorizontalScrollMode(ScrollPerPixel);
    setFrameShape(QFrame::NoFrame);
    header()->setStretchLastSection(false);
    header()->setSectionsMovable(false);
    // A tree takes this from a head that it is given.
    header()->setSectionsClickable(true);
    header()->setMinimumSectionSize(c_smallestWidth);
    connect(header(), &QHeaderView::sectionResized, this,
            [this](int column, int, int width) { OnColumnResized(column, width); });
    connect(this, &QTreeView::expanded, this,
            [this](const QModelIndex& index) { OnExpanded(index, true); });
    connect(this, &QTreeView::collapsed, this,
            [this](const QModelIndex& index) { OnExpanded(index, false); });
    connect(m_delegate, &RowDelegate::SpotClicked, this, &PanelTree::OnSpotClicked,
            Qt::QueuedConnection);
    m_delegate->SetNamesPlace(
        [this] { return QRect(columnViewportPosition(0) + NameShift(), 0, columnWidth(0), 1); });
    m_head->SetFixedShift([this] { return NameShift(); });
    connect(m_head, &PanelHead::ValueGiven, this, &PanelTree::GiveHeadValue);
    connect(m_head, &PanelHead::LinkClicked, this, &PanelTree::ClickHead);
    connect(m_head, &PanelHead::ListWanted, this, &PanelTree::ShowHeadTexts);
    connect(m_head, &PanelHead::MenuWanted, this, [this](int column, QPoint place) {
        if (CommitEditor())
            emit HeadMenuWanted(column, place);
    });
    connect(m_head, &PanelHead::EditorClosed, this, [this] {
        ForgetRefused();
        emit EditorLeft();
    });
}

void PanelTree::ShowModel(TreeItemModel* model) {
    // An editor that outlived its model would write into what is gone.
    CloseEditors(QAbstractItemDelegate::RevertModelCache);
    m_draft.reset();
    m_highlighted->Hide();
    const std::unique_ptr<QItemSelectionModel> oldSelection(selectionModel());
    if (m_model)
        m_model->disconnect(this);
    m_model = model;
    m_isNameWidthChosen = false;
    m_userWidths.clear();
    m_currentColumn = 0;
    m_isFollowing = true;
    setModel(model);
    m_isFollowing = false;
    if (!model)
        return;
    connect(model, &TreeItemModel::RowStatesChanged, this, &PanelTree::ApplyRowStates);
    connect(model, &TreeItemModel::RowStatesChanged, this, &PanelTree::OpenDraft);
    connect(model, &TreeItemModel::Changed, m_highlighted, &HighlightedRows::OnRowsChanged);
    connect(model, &TreeItemModel::Changed, this, [this] {
        m_head->OfferEditors(static_cast<int>(m_model->GetView().GetSelectedRows().size()));
    });
    connect(model, &TreeItemModel::NameEditWanted, this, &PanelTree::EditCell);
    // Columns of boxes may have come or gone.
    connect(model, &TreeItemModel::PanelChanged, this, [this] {
        viewport()->update();
        m_head->viewport()->update();
    });
    // While the model is replaced, the head lays its columns out anew: no width is the user's then.
    connect(model, &TreeItemModel::modelAboutToBeReset, this, [this] {
        KeepDraft();
        m_highlighted->OnRowsGoing();
        m_isFollowing = true;
        m_head->CloseEditor();
        m_scrollPlace = verticalScrollBar()->value();
        m_wasCurrentInSight =
            currentIndex().isValid() && viewport()->rect().intersects(visualRect(currentIndex()));
    });
    connect(model, &TreeItemModel::modelReset, this, [this] {
        m_isFollowing = false;
        ApplyWidths();
    });
    connect(selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &PanelTree::OnSelectionChanged);
    connect(selectionModel(), &QItemSelectionModel::currentChanged, this,
            &PanelTree::OnSelectionChanged);
    ApplyRowStates();
    ApplyWidths();
}

void PanelTree::ApplyRowStates() {
    const TreeTableRow* root = m_model->GetView().GetRoot();
    if (!root || m_model->columnCount() == 0)
        return;
    if (IsEditedRowElsewhere()) {
        KeepDraft();
        closeEditor(CellEditorWidget(), QAbstractItemDelegate::RevertModelCache);
    }
    const QScopedValueRollback following(m_isFollowing, true);
    // While a layout is owed, expanding costs nothing; each spanned row would pay it.
    scheduleDelayedItemsLayout();
    std::vector<const TreeTableRow*> sections;
    ApplyExpansion(*root, sections);
    for (const TreeTableRow* section : sections) {
        const QModelIndex index = m_model->IndexOf(*section);
        setFirstColumnSpanned(index.row(), index.parent(), true);
    }
    ApplySelection();
    if (const auto place = std::exchange(m_scrollPlace, std::nullopt)) {
        executeDelayedItemsLayout();
        verticalScrollBar()->setValue(*place);
        // A row that an edit has moved is followed; who has scrolled away from it stays there.
        if (m_wasCurrentInSight && currentIndex().isValid())
            scrollTo(currentIndex().siblingAtColumn(0));
    }
}

void PanelTree::ApplyExpansion(const TreeTableRow& row,
                               std::vector<const TreeTableRow*>& sections) {
    const QModelIndex index = m_model->IndexOf(row);
    if (row.IsSection())
        sections.push_back(&row);
    else if (isFirstColumnSpanned(index.row(), index.parent()))
        setFirstColumnSpanned(index.row(), index.parent(), false);
    if (row.GetChildCount() == 0)
        return;
    setExpanded(index, row.IsExpanded());
    for (std::size_t i = 0; i < row.GetChildCount(); ++i)
        ApplyExpansion(row.GetChildRow(i), sections);
}

void PanelTree::ApplySelection() {
    platform::TreeTableView& view = m_model->GetView();
    selectionModel()->select(RangesOf(*m_model, view.GetSelectedRows()),
                             QItemSelectionModel::ClearAndSelect);
    const TreeTableRow* current = view.GetCurrent();
    const int column = std::min(m_currentColumn, m_model->columnCount() - 1);
    selectionModel()->setCurrentIndex(current ? m_model->IndexOf(*current, column) : QModelIndex(),
                                      QItemSelectionModel::NoUpdate);
    ShowSelection();
}

void PanelTree::ApplyWidths() {
    const QScopedValueRollback following(m_isFollowing, true);
    const std::vector<platform::ColumnHead>& heads = m_model->GetHeads();
    for (std::size_t i = 0; i < heads.size(); ++i)
        header()->resizeSection(static_cast<int>(i), WidthOf(static_cast<int>(i)));
    FitNameColumn();
}

int PanelTree::WidthOf(int column) const {
    const double told = m_model->GetHeads()[static_cast<std::size_t>(column)].width;
    const bool isUsual =
        std::ranges::any_of(productTree::ColumnInfo::DEFAULT_COLUMN_WIDTH,
                            [&](const auto& usual) { return usual.second == told; });
    // A caption that is cut off has lost its unit first.
    return std::max(Pixels(told), isUsual ? m_head->sectionSizeHint(column) : 0);
}

void PanelTree::FitNameColumn() {
    if (m_isNameWidthChosen || !m_model || m_model->columnCount() == 0)
        return;
    const QScopedValueRollback following(m_isFollowing, true);
    const int told = Pixels(m_model->GetHeads().front().width);
    const int all = viewport()->width();
    const int rest = all - (header()->length() - header()->sectionSize(0));
    header()->resizeSection(0, std::max({told, rest, static_cast<int>(all * c_nameShare)}));
}

void PanelTree::resizeEvent(QResizeEvent* event) {
    QTreeView::resizeEvent(event);
    FitNameColumn();
}

int PanelTree::HeightForRows() const {
    int rows = 0;
    for (QModelIndex index = m_model ? m_model->index(0, 0) : QModelIndex(); index.isValid();
         index = indexBelow(index))
        ++rows;
    const int height = rows > 0 ? rowHeight(m_model->index(0, 0)) : 0;
    return header()->sizeHint().height() + rows * height;
}

int PanelTree::RowsThatFit() const {
    const int height = m_model && m_model->rowCount() > 0 ? rowHeight(m_model->index(0, 0)) : 0;
    return height > 0 ? viewport()->height() / height : 0;
}

void PanelTree::OnExpanded(const QModelIndex& index, bool expanded) {
    if (!m_isFollowing)
        TreeItemModel::RowOf(index).SetExpandedByUser(expanded);
}

void PanelTree::OnSelectionChanged() {
    if (m_isFollowing)
        return;
    // The selection model's own list of rows asks all ranges about each row.
    std::vector<TreeTableRow*> rows;
    for (const QItemSelectionRange& range : selectionModel()->selection()) {
        for (int row = range.top(); row <= range.bottom(); ++row)
            rows.push_back(&TreeItemModel::RowOf(m_model->index(row, 0, range.parent())));
    }
    const QModelIndex current = currentIndex();
    if (current.isValid())
        m_currentColumn = current.column();
    m_model->GetView().SelectByUser(rows,
                                    current.isValid() ? &TreeItemModel::RowOf(current) : nullptr);
    ShowSelection();
}

std::optional<QPoint> PanelTree::FindSelectedPlace() const {
    const std::vector<TreeRowPtr> rows =
        m_model ? m_model->GetView().GetSelectedRows() : std::vector<TreeRowPtr>();
    if (rows.empty())
        return std::nullopt;
    const auto& first = static_cast<const TreeTableRow&>(*rows.front());
    return visualRect(m_model->IndexOf(first)).center();
}

void PanelTree::SelectAt(QPoint place) {
    if (!m_model || currentIndex().isValid())
        return;
    executeDelayedItemsLayout();
    QModelIndex index = indexAt(place);
    const int step = std::max(1, rowHeight(m_model->index(0, 0)));
    for (; !index.isValid() && place.y() > 0; index = indexAt(place))
        place.ry() -= step;
    // A whole section is not what follows on one of its rows.
    const QModelIndex above = indexAbove(index);
    if (index.isValid() && TreeItemModel::RowOf(index).IsSection() && above.isValid())
        index = above;
    if (index.isValid())
        setCurrentIndex(
            index.siblingAtColumn(std::min(m_currentColumn, m_model->columnCount() - 1)));
}

void PanelTree::SelectRowsOf(const std::vector<TreeTableRow*>& rows) {
    if (rows.empty())
        return;
    std::vector<TreeRowPtr> all;
    for (TreeTableRow* const row : rows) {
        all.emplace_back(row);
        for (QModelIndex above = m_model->IndexOf(*row).parent(); above.isValid();
             above = above.parent())
            expand(above);
    }
    const QModelIndex first =
        m_model->IndexOf(*rows.front(), std::min(m_currentColumn, m_model->columnCount() - 1));
    setCurrentIndex(first);
    selectionModel()->select(RangesOf(*m_model, all), QItemSelectionModel::ClearAndSelect);
    scrollTo(first.siblingAtColumn(0));
    setFocus();
}

void PanelTree::ShowSelection() {
    m_head->OfferEditors(static_cast<int>(m_model->GetView().GetSelectedRows().size()));
    emit SelectedRowsChanged();
}

void PanelTree::OnColumnResized(int column, int width) {
    if (m_isFollowing || !m_model)
        return;
    m_isNameWidthChosen = m_isNameWidthChosen || column == 0;
    const std::wstring& id = m_model->GetHeads()[static_cast<std::size_t>(column)].id;
    m_userWidths.insert(QString::fromStdWString(id), width);
    m_model->SetColumnWidth(column, width);
}

void PanelTree::SetUserWidth(const std::wstring& columnId, int width) {
    const std::vector<platform::ColumnHead>& heads = m_model->GetHeads();
    const auto head = std::ranges::find(heads, columnId, &platform::ColumnHead::id);
    if (head != heads.end())
        header()->resizeSection(static_cast<int>(head - heads.begin()), width);
}

void PanelTree::drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const {
    QStyleOptionViewItem row = option;
    if (TreeItemModel::RowOf(index).IsSection()) {
        const QColor tint = Mix(option.palette.color(QPalette::Base),
                                option.palette.color(QPalette::Highlight), c_sectionTint);
        row.palette.setColor(QPalette::AlternateBase, tint);
        painter->fillRect(option.rect, tint);
    }
    if (m_highlighted->Has(TreeItemModel::RowOf(index))) {
        const QColor ground = m_highlighted->GetGround(option.palette);
        row.palette.setColor(QPalette::Base, ground);
        row.palette.setColor(QPalette::AlternateBase, ground);
        painter->fillRect(option.rect, ground);
    }
    QTreeView::drawRow(painter, row, index);
    if (NameShift() != 0)
        DrawName(*painter, row, index.siblingAtColumn(0));
    QColor line = option.palette.color(QPalette::WindowText);
    line.setAlphaF(c_rowLine);
    painter->setPen(line);
    painter->drawLine(option.rect.bottomLeft(), option.rect.bottomRight());
}

} // namespace desktop
