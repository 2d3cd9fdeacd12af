// The rows of a list of documents as a view of the toolkit reads them. It shows a copy of what the
// list in memory held when it was last brought up to date, so that many changes cost one.
#pragma once

#include "desktop/icons/RowIcons.h"
#include "platform/view/DocumentTable.h"

#include <QAbstractTableModel>

#include <vector>

namespace desktop {

class DocumentModel final : public QAbstractTableModel {
    Q_OBJECT

public:
    using QAbstractTableModel::QAbstractTableModel;

    /// Another list from now on; null for none. It must outlive its stay here.
    void ShowTable(const platform::DocumentTable* table);
    /// Takes over what has changed in the list. Rows that stay keep their place.
    void Update();
    /// The columns as the list has declared them.
    const std::vector<platform::DocumentTable::Head>& GetHeads() const { return m_heads; }
    /// What tells the document of the row apart; empty for no row.
    std::wstring FileAt(int row) const;
    /// What stands in the column of that key; empty where there is no text.
    std::wstring TextOf(int row, const std::wstring& column) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    QString TextAt(const QModelIndex& index) const;
    QVariant PictureAt(const QModelIndex& index) const;

    const platform::DocumentTable* m_table = nullptr;
    std::vector<platform::DocumentTable::Head> m_heads;
    std::vector<platform::DocumentTable::Row> m_rows;
    RowIcons m_icons;
};

} // namespace desktop
