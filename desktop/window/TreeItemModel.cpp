#include "desktop/window/TreeItemModel.h"

#include <QFont>
#include <QString>
#include <QTextDocument>

namespace desktop {

namespace {

using platform::ColumnHead;
using platform::HeadKind;
using platform::TreeTableRow;

QString ToQString(const SharedText& text) {
    return QString::fromStdWString(text.Str());
}

/// A tip that the toolkit doesn't take for markup.
QString ToTip(const SharedText& text) {
    const QString tip = ToQString(text);
    return Qt::mightBeRichText(tip) ? QStringLiteral("<span>%1</span>").arg(tip.toHtmlEscaped())
                                    : tip;
}

Qt::Alignment AlignmentOf(const ColumnHead& head) {
    return Qt::AlignVCenter | (head.IsNumeric() ? Qt::AlignRight : Qt::AlignLeft);
}

QVariant SectionFont() {
    QFont font;
    font.setBold(true);
    return font;
}

} // namespace

TreeItemModel::TreeItemModel(platform::TreeTableView& view, QObject* parent)
    : QAbstractItemModel(parent), m_view(view), m_heads(view.GetHeads()) {
    static_cast<void>(m_view.TakeChanges());
    m_view.SetObserver(this);
}

TreeItemModel::~TreeItemModel() {
    m_view.SetObserver(nullptr);
}

TreeTableRow& TreeItemModel::RowOf(const QModelIndex& index) {
    return *static_cast<TreeTableRow*>(index.internalPointer());
}

QModelIndex TreeItemModel::IndexOf(const TreeTableRow& row, int column) const {
    return createIndex(static_cast<int>(row.GetIndex()), column, &row);
}

QModelIndex TreeItemModel::index(int row, int column, const QModelIndex& parent) const {
    if (!hasIndex(row, column, parent))
        return {};
    const TreeTableRow& found = parent.isValid()
                                    ? RowOf(parent).GetChildRow(static_cast<std::size_t>(row))
                                    : *m_view.GetRoot();
    return createIndex(row, column, &found);
}

QModelIndex TreeItemModel::parent(const QModelIndex& index) const {
    const TreeTableRow* parent = index.isValid() ? RowOf(index).GetParentRow() : nullptr;
    return parent ? IndexOf(*parent) : QModelIndex();
}

int TreeItemModel::rowCount(const QModelIndex& parent) const {
    if (parent.column() > 0)
        return 0;
    if (parent.isValid())
        return static_cast<int>(RowOf(parent).GetChildCount());
    return m_view.GetRoot() ? 1 : 0;
}

int TreeItemModel::columnCount(const QModelIndex&) const {
    return static_cast<int>(m_heads.size());
}

QVariant TreeItemModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const TreeTableRow& row = RowOf(index);
    const ColumnHead& head = m_heads[static_cast<std::size_t>(index.column())];
    switch (role) {
    case Qt::DisplayRole:
        // A line break would be drawn as a second line, for which rows have no room.
        return ToQString(GetShownText(row, head)).simplified();
    case Qt::ToolTipRole:
        return ToTip(GetShownText(row, head));
    case Qt::DecorationRole:
        return head.kind == HeadKind::Name ? m_icons.Get(row.GetIcon()) : QVariant();
    case Qt::FontRole:
        return row.HasSectionName() && head.kind == HeadKind::Name ? SectionFont() : QVariant();
    case Qt::TextAlignmentRole:
        return QVariant(AlignmentOf(head));
    default:
        return {};
    }
}

QVariant TreeItemModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount())
        return {};
    const ColumnHead& head = m_heads[static_cast<std::size_t>(section)];
    if (role == Qt::DisplayRole || role == Qt::ToolTipRole)
        return QString::fromStdWString(head.caption);
    if (role == Qt::TextAlignmentRole)
        return QVariant(AlignmentOf(head));
    return {};
}

void TreeItemModel::OnChangesPending() {
    // Taken when the walk that makes them is over, so that a walk over all rows costs one signal.
    QMetaObject::invokeMethod(this, &TreeItemModel::TakeChanges, Qt::QueuedConnection);
}

void TreeItemModel::TakeChanges() {
    const platform::TreeTableChanges changes = m_view.TakeChanges();
    if (changes.columns)
        ResetColumns();
    if (changes.values && m_view.GetRoot() && !m_heads.empty()) {
        // A view repaints what it shows whatever the range is; that of the root row covers all.
        const QModelIndex first = index(0, 0);
        emit dataChanged(first, first.siblingAtColumn(columnCount() - 1));
    }
    if (changes.rows || changes.columns || changes.expansion || changes.selection)
        emit RowStatesChanged();
    if (changes.panel)
        emit PanelChanged();
}

void TreeItemModel::ResetColumns() {
    beginResetModel();
    m_heads = m_view.GetHeads();
    endResetModel();
}

} // namespace desktop
