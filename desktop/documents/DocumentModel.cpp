#include "desktop/documents/DocumentModel.h"

#include <QApplication>
#include <QPalette>

#include <algorithm>
#include <array>

namespace desktop {

namespace {

using Kind = platform::DocumentTable::ColumnKind;

constexpr const wchar_t* c_fileColumn = L"name";

/// What the pictures of a row mean, in their order.
const std::array c_pictureTexts = {
    QT_TRANSLATE_NOOP("Documents", "The part takes nothing over from this document"),
    QT_TRANSLATE_NOOP("Documents", "Name and designation of the part are from this document"),
    QT_TRANSLATE_NOOP("Documents", "The sheet format of the part is from this document"),
    QT_TRANSLATE_NOOP("Documents",
                      "Name, designation and sheet format of the part are from this document"),
};

std::size_t Place(int place) {
    return static_cast<std::size_t>(place);
}

} // namespace

void DocumentModel::ShowTable(const platform::DocumentTable* table) {
    beginResetModel();
    m_table = table;
    m_heads = table ? table->GetHeads() : std::vector<platform::DocumentTable::Head>();
    m_rows = table ? table->GetRows() : std::vector<platform::DocumentTable::Row>();
    endResetModel();
}

void DocumentModel::Update() {
    if (!m_table)
        return;
    const std::vector<platform::DocumentTable::Row>& rows = m_table->GetRows();
    const int before = rowCount();
    const int after = static_cast<int>(rows.size());
    if (after < before) {
        beginRemoveRows({}, after, before - 1);
        m_rows.resize(rows.size());
        endRemoveRows();
    }
    const int common = rowCount();
    for (int row = 0; row < common; ++row) {
        if (m_rows[Place(row)] == rows[Place(row)])
            continue;
        m_rows[Place(row)] = rows[Place(row)];
        emit dataChanged(index(row, 0), index(row, columnCount() - 1));
    }
    if (after > common) {
        beginInsertRows({}, common, after - 1);
        m_rows.insert(m_rows.end(), rows.begin() + common, rows.end());
        endInsertRows();
    }
}

std::wstring DocumentModel::FileAt(int row) const {
    return TextOf(row, c_fileColumn);
}

std::wstring DocumentModel::TextOf(int row, const std::wstring& column) const {
    const auto head =
        std::ranges::find_if(m_heads, [&](const auto& each) { return each.column.key == column; });
    if (row < 0 || row >= rowCount() || head == m_heads.end())
        return {};
    const auto* const text = std::get_if<SharedText>(
        &m_rows[Place(row)].cells[static_cast<std::size_t>(head - m_heads.begin())]);
    return text ? text->Str() : std::wstring();
}

int DocumentModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int DocumentModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_heads.size());
}

QString DocumentModel::TextAt(const QModelIndex& index) const {
    const platform::DocumentTable::Row& row = m_rows[Place(index.row())];
    const IParamTableModel::Cell& cell = row.cells[Place(index.column())];
    if (const auto* const text = std::get_if<SharedText>(&cell))
        return QString::fromStdWString(text->Str());
    const int number = std::get<int>(cell);
    if (m_heads[Place(index.column())].kind != Kind::Image)
        return QString::number(number);
    return number >= 0 && Place(number) < c_pictureTexts.size()
               ? QCoreApplication::translate("Documents", c_pictureTexts[Place(number)])
               : QString();
}

QVariant DocumentModel::PictureAt(const QModelIndex& index) const {
    const std::vector<int>& images = m_heads[Place(index.column())].images;
    const auto* const image =
        std::get_if<int>(&m_rows[Place(index.row())].cells[Place(index.column())]);
    return image && *image >= 0 && Place(*image) < images.size()
               ? QVariant(m_icons.Get(images[Place(*image)]))
               : QVariant();
}

QVariant DocumentModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
        return {};
    const bool isPicture = m_heads[Place(index.column())].kind == Kind::Image;
    switch (role) {
    case Qt::DisplayRole:
        return isPicture ? QVariant() : TextAt(index);
    case Qt::ToolTipRole: {
        // Never as markup.
        const QString text = TextAt(index);
        return text.isEmpty() ? text : QStringLiteral("<span>%1</span>").arg(text.toHtmlEscaped());
    }
    case Qt::AccessibleTextRole:
        return TextAt(index);
    case Qt::DecorationRole:
        return isPicture ? PictureAt(index) : QVariant();
    case Qt::TextAlignmentRole:
        return m_heads[Place(index.column())].kind == Kind::Number
                   ? QVariant(Qt::AlignRight | Qt::AlignVCenter)
                   : QVariant();
    case Qt::ForegroundRole:
        return m_rows[Place(index.row())].enabled[Place(index.column())]
                   ? QVariant()
                   : QVariant(QApplication::palette().brush(QPalette::PlaceholderText));
    default:
        return {};
    }
}

QVariant DocumentModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount())
        return {};
    const platform::DocumentTable::Head& head = m_heads[Place(section)];
    switch (role) {
    case Qt::DisplayRole:
        return QString::fromStdWString(head.column.caption);
    case Qt::ToolTipRole:
    case Qt::AccessibleTextRole:
        return QString::fromStdWString(head.column.tip);
    case Qt::DecorationRole:
        return head.icon < 0 ? QVariant() : QVariant(m_icons.Get(head.icon));
    default:
        return {};
    }
}

} // namespace desktop
