#include "desktop/tree/TreeItemModel.h"

#include "desktop/tree/CellTips.h"

#include <QFont>
#include <QString>

#include <algorithm>

namespace desktop {

namespace {

using platform::CellInput;
using platform::ColumnHead;
using platform::HeadKind;
using platform::TreeTableRow;

SharedText ToText(const QString& text) {
    return SharedText(text.toStdWString());
}

platform::MarkingParts ToParts(const QStringList& texts) {
    platform::MarkingParts parts;
    for (std::size_t i = 0; i < parts.size(); ++i)
        parts[i] = ToText(texts.value(static_cast<int>(i)));
    return parts;
}

CellInput ToInput(EditKind kind, const QVariant& value) {
    if (kind == EditKind::Text || kind == EditKind::Moment)
        return ToText(value.toString());
    if (!value.isValid())
        return kind == EditKind::List ? CellInput(platform::ListIndex{}) : CellInput();
    switch (kind) {
    case EditKind::Int:
    case EditKind::Double:
        // A text is none that the panel takes for a number; it is the one to say so.
        if (value.typeId() == QMetaType::QString)
            return ToText(value.toString());
        return kind == EditKind::Int ? CellInput(value.toInt()) : CellInput(value.toDouble());
    case EditKind::Bool:
        return value.toBool();
    case EditKind::List:
        return platform::ListIndex{value.toInt()};
    default:
        return {};
    }
}

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

/// What cells show before the user's input, to tell afterwards whether it was taken.
class InputWatch {
public:
    /// Of one column.
    explicit InputWatch(const QModelIndexList& cells)
        : m_anyCell(cells.isEmpty() ? QModelIndex() : cells.front()), m_cells(cells) {
        for (const QModelIndex& cell : cells) {
            m_before.push_back(Look(cell));
            m_editable += TreeItemModel::LookOf(cell).kind != EditKind::None ? 1 : 0;
        }
    }

    /// Rows that were built anew are the answer to an input that was taken.
    bool IsTaken(const QVariant& input) const {
        return m_cells.isEmpty() || !m_anyCell.isValid() || CountTakers(input, true) > 0;
    }
    /// How many of the cells show the input now, or something new.
    int CountTakers(const QVariant& input) const { return CountTakers(input, false); }

private:
    struct Shown {
        QVariant value;
        QString text;

        friend bool operator==(const Shown&, const Shown&) = default;
    };

    int CountTakers(const QVariant& input, bool areAllAsked) const {
        if (!m_anyCell.isValid())
            return m_editable;
        int takers = 0;
        bool areAll = true;
        for (qsizetype i = 0; i < m_cells.size(); ++i) {
            const bool isChanged = Look(m_cells[i]) != m_before[static_cast<std::size_t>(i)];
            const bool takes = isChanged || StandsIn(m_cells[i], input);
            if (areAllAsked && isChanged)
                return 1;
            areAll = areAll && takes;
            takers += takes ? 1 : 0;
        }
        return areAllAsked && !areAll ? 0 : takers;
    }

    /// The row of a group shows little of its members: each of them has to have the value.
    static bool StandsIn(const QModelIndex& cell, const QVariant& input) {
        const TreeTableRow& row = TreeItemModel::RowOf(cell);
        if (row.GetChildCount() == 0 || !row.GetParentRow()) {
            const Shown shown = Look(cell);
            return input == shown.value || input.toString() == shown.text;
        }
        const auto& model = static_cast<const TreeItemModel&>(*cell.model());
        for (std::size_t i = 0; i < row.GetChildCount(); ++i) {
            if (!StandsIn(model.IndexOf(row.GetChildRow(i), cell.column()), input))
                return false;
        }
        return true;
    }

    static Shown Look(const QModelIndex& cell) {
        return {cell.data(Qt::EditRole), cell.data(Qt::DisplayRole).toString()};
    }

    QPersistentModelIndex m_anyCell;
    QModelIndexList m_cells;
    std::vector<Shown> m_before;
    int m_editable = 0;
};

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
        return MakeCellTip(index, m_questions.countNote);
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
        return kind != EditKind::None && m_view.EditNameByUser(row, ToText(value.toString()));
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

bool TreeItemModel::EditHead(int column, const QVariant& value) {
    const EditKind kind = GetHeadEditor(column).kind;
    const ColumnHead head = m_heads[static_cast<std::size_t>(column)];
    QModelIndexList cells;
    for (const TreeRowPtr& row : m_view.GetSelectedRows())
        cells += IndexOf(static_cast<const TreeTableRow&>(*row), column);
    const InputWatch watch(cells);
    const bool isAsked =
        kind != EditKind::None && m_view.EditHeadByUser(head.id, ToInput(kind, value));
    emit InputAnswered(head, value, isAsked && watch.IsTaken(value));
    emit HeadAnswered(head, watch.CountTakers(value), static_cast<int>(cells.size()));
    return isAsked;
}

bool TreeItemModel::TakesFromHead(int column) const {
    const std::vector<TreeRowPtr> rows = m_view.GetSelectedRows();
    return std::ranges::any_of(rows, [&](const TreeRowPtr& row) {
        const auto& shown = static_cast<const TreeTableRow&>(*row);
        return LookOf(IndexOf(shown, column)).kind != EditKind::None;
    });
}

bool TreeItemModel::AreMoments(int column) const {
    const std::vector<TreeRowPtr> rows = m_view.GetSelectedRows();
    return TakesFromHead(column) && std::ranges::all_of(rows, [&](const TreeRowPtr& row) {
               const EditKind kind =
                   LookOf(IndexOf(static_cast<const TreeTableRow&>(*row), column)).kind;
               return kind == EditKind::None || kind == EditKind::Moment;
           });
}

void TreeItemModel::SetColumnWidth(int column, int width) {
    if (column < 0 || column >= columnCount())
        return;
    // The view does not tell of what the front end itself has done.
    ColumnHead& head = m_heads[static_cast<std::size_t>(column)];
    head.width = width;
    m_view.SetColumnWidthByUser(head.id, width);
}

EditorRequest TreeItemModel::GetHeadEditor(int column) const {
    if (m_view.GetPanel().isReadOnly)
        return {};
    return desktop::GetHeadEditor(m_heads[static_cast<std::size_t>(column)]);
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
        look.isReadOnly = look.isReadOnly || look.kind != EditKind::None;
        look.kind = EditKind::None;
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
