#include "desktop/tree/TreeItemModel.h"

#include "desktop/tree/CellTips.h"
#include "desktop/tree/InputWatch.h"
#include "desktop/tree/UserInputs.h"

#include <QFont>
#include <QString>

#include <algorithm>

namespace desktop {

namespace {

using platform::ColumnHead;
using platform::HeadKind;
using platform::TreeTableRow;

Qt::Alignment AlignmentOf(const ColumnHead& head) {
    if (head.kind == HeadKind::Count)
        return Qt::AlignCenter;
    return Qt::AlignVCenter | (head.IsNumeric() ? Qt::AlignRight : Qt::AlignLeft);
}

QFont ActiveHeadFont() {
    QFont font;
    font.setBold(true);
    return font;
}

bool IsReadOnly(const QModelIndex& index) {
    return TreeItemModel::ViewOf(index).GetPanel().isReadOnly;
}

/// The id by which the library knows the cell. A copy: heads and rows may go while it is used.
std::wstring ColumnOf(const QModelIndex& index) {
    const TreeTableRow& row = TreeItemModel::RowOf(index);
    const ColumnHead& head = TreeItemModel::HeadOf(index);
    if (head.kind == HeadKind::Name)
        return row.GetNameColumn();
    return head.kind == HeadKind::Designation ? row.GetMarking().GetColumn() : head.id;
}

/// Invalid for what is no truth value.
QVariant ToCheckState(const QModelIndex& index) {
    const platform::TreeCell* cell =
        TreeItemModel::RowOf(index).FindCell(TreeItemModel::HeadOf(index).id);
    if (!cell || cell->GetKind() != platform::CellKind::Bool)
        return {};
    if (!cell->HasValue())
        return static_cast<int>(Qt::PartiallyChecked);
    return static_cast<int>(cell->GetBool() ? Qt::Checked : Qt::Unchecked);
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
    const ColumnHead& head = HeadOf(index);
    switch (role) {
    case Qt::DisplayRole:
        // A line break would be drawn as a second line, for which rows have no room.
        return GetCellText(row, head).simplified();
    case Qt::EditRole:
        return EditorOf(index).value;
    case Qt::CheckStateRole:
        return ToCheckState(index);
    case Qt::ToolTipRole:
        return MakeCellTip(index, m_questions);
    case Qt::DecorationRole:
        return head.kind == HeadKind::Name ? m_icons.Get(row.GetIcon()) : QVariant();
    case Qt::FontRole:
        return row.IsSectionNameStyle() && head.kind == HeadKind::Name ? SectionFont() : QVariant();
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
    if (role == Qt::ToolTipRole && !head.text.empty())
        return QString::fromStdWString(head.text);
    if (role == Qt::DisplayRole || role == Qt::ToolTipRole)
        return QString::fromStdWString(head.caption);
    if (role == Qt::FontRole && head.isActive)
        return ActiveHeadFont();
    if (role == Qt::TextAlignmentRole)
        return QVariant(AlignmentOf(head));
    return {};
}

Qt::ItemFlags TreeItemModel::flags(const QModelIndex& index) const {
    if (!index.isValid())
        return Qt::NoItemFlags;
    const Qt::ItemFlags usual = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    switch (LookOf(index).kind) {
    case EditKind::None:
        return usual;
    case EditKind::Bool:
        return usual | Qt::ItemIsUserCheckable;
    default:
        return usual | Qt::ItemIsEditable;
    }
}

bool TreeItemModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid) || role != Qt::EditRole)
        return false;
    // Copied, since the heads may go with the rows.
    const ColumnHead head = HeadOf(index);
    const InputWatch watch({index});
    const bool isAsked = LeaveInput(index, value);
    emit InputAnswered(head, value, isAsked && watch.IsTaken(value));
    return isAsked;
}

bool TreeItemModel::LeaveInput(const QModelIndex& index, const QVariant& value) {
    TreeTableRow& row = RowOf(index);
    const ColumnHead& head = HeadOf(index);
    const EditKind kind = LookOf(index).kind;
    if (head.kind == HeadKind::Name)
        return kind != EditKind::None &&
               m_view.EditNameByUser(row, SharedText(value.toString().toStdWString()));
    if (kind == EditKind::Designation)
        return m_view.EditMarkingByUser(row, ToParts(value.toStringList()));
    return kind != EditKind::None &&
           m_view.EditCellByUser(row, ColumnOf(index), ToInput(kind, value));
}

bool TreeItemModel::Toggle(const QModelIndex& index) {
    const EditorRequest editor = EditorOf(index);
    if (editor.kind != EditKind::Bool)
        return false;
    QVariant next = true;
    if (editor.value.isValid())
        next = !editor.value.toBool() ? (editor.canBeEmpty ? QVariant() : QVariant(true))
                                      : QVariant(false);
    return setData(index, next, Qt::EditRole);
}

bool TreeItemModel::ClickSourceIcon(const QModelIndex& index) {
    return m_view.ClickSourceIconByUser(RowOf(index), ColumnOf(index));
}

bool TreeItemModel::ClickLink(const QModelIndex& index) {
    return m_view.ClickLinkByUser(RowOf(index), ColumnOf(index));
}

bool TreeItemModel::ChooseInCell(const QModelIndex& index, int command) {
    return m_view.PopupCommandByUser(RowOf(index), ColumnOf(index), command);
}

void TreeItemModel::SetColumnWidth(int column, int width) {
    if (column < 0 || column >= columnCount())
        return;
    // The view does not tell of what the front end itself has done.
    ColumnHead& head = m_heads[static_cast<std::size_t>(column)];
    head.width = width;
    m_view.SetColumnWidthByUser(head.id, width);
}

const ColumnHead& TreeItemModel::HeadOf(const QModelIndex& index) {
    const auto& model = static_cast<const TreeItemModel&>(*index.model());
    return model.m_heads[static_cast<std::size_t>(index.column())];
}

bool TreeItemModel::HasSources(const QModelIndex& index) {
    const auto& model = static_cast<const TreeItemModel&>(*index.model());
    return model.m_sourceColumns.Has(model.m_view, HeadOf(index).id);
}

bool TreeItemModel::CanOpen(const QModelIndex& index) {
    const auto& model = static_cast<const TreeItemModel&>(*index.model());
    return model.m_questions.opens && HeadOf(index).kind == HeadKind::Name &&
           model.m_questions.opens(RowOf(index));
}

CellLook TreeItemModel::LookOf(const QModelIndex& index) {
    CellLook look = GetCellLook(RowOf(index), HeadOf(index));
    if (IsReadOnly(index)) {
        look.isReadOnly = look.isReadOnly || look.TakesValues();
        look.kind = EditKind::None;
        look.opensDialog = false;
        look.menu = nullptr;
    }
    return look;
}

EditorRequest TreeItemModel::EditorOf(const QModelIndex& index) {
    return IsReadOnly(index) ? EditorRequest() : GetCellEditor(RowOf(index), HeadOf(index));
}

void TreeItemModel::OnRowsChanged() {
    m_sourceColumns.Forget();
    endResetModel();
}

void TreeItemModel::OnChangesPending() {
    // Taken when the walk that makes them is over, so that a walk over all rows costs one signal.
    QMetaObject::invokeMethod(this, &TreeItemModel::TellChanges, Qt::QueuedConnection);
}

void TreeItemModel::TellChanges() {
    const platform::TreeTableChanges changes = m_view.TakeChanges();
    if (!changes.HasAny())
        return;
    if (changes.columns)
        ResetColumns();
    TellValues(changes);
    if (changes.rows || changes.columns || changes.expansion || changes.selection)
        emit RowStatesChanged();
    if (changes.editRow)
        emit NameEditWanted(IndexOf(*changes.editRow));
    if (changes.panel)
        emit PanelChanged();
    emit Changed();
}

void TreeItemModel::TellValues(const platform::TreeTableChanges& changes) {
    if (!changes.values || !m_view.GetRoot() || m_heads.empty())
        return;
    const auto tell = [this](const QModelIndex& first) {
        emit dataChanged(first, first.siblingAtColumn(columnCount() - 1));
    };
    m_sourceColumns.NoteValues(changes.valueRows);
    // A view repaints what it shows whatever the range is; that of the root row covers all.
    if (changes.valueRows.empty()) {
        m_sourceColumns.Forget();
        tell(index(0, 0));
    }
    for (const TreeTableRow* row : changes.valueRows)
        tell(IndexOf(*row));
}

void TreeItemModel::ResetColumns() {
    beginResetModel();
    m_heads = m_view.GetHeads();
    m_sourceColumns.Forget();
    endResetModel();
}

} // namespace desktop
