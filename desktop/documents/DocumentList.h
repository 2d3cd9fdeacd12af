// The list of documents on the screen. It shows rows and selection of the list in memory and tells
// that of what the user selects; where nothing is listed it says why.
#pragma once

#include <QTableView>

#include <string>
#include <vector>

namespace platform {
class DocumentTable;
}

namespace desktop {

class DocumentModel;

class DocumentList final : public QTableView {
    Q_OBJECT

public:
    explicit DocumentList(QWidget* parent = nullptr);

    /// Null for none. It must outlive its stay here.
    void ShowTable(platform::DocumentTable* table);
    /// Brings rows and selection up to date.
    void Update();
    /// What stands there while there are no rows.
    void SetPlaceholder(const QString& text);
    DocumentModel& GetModel() const { return *m_model; }
    /// How many rows the user has selected.
    int CountSelected() const;
    /// The file of the only selected row; empty for none or several.
    std::wstring GetSelectedFile() const;
    /// From top to bottom.
    std::vector<int> GetSelectedRows() const;
    /// Where a menu of the selected rows stands when a key has asked for it, on the screen.
    QPoint MenuPlace() const;

    /// As the user has made the columns; empty while he has left them as they were.
    QByteArray SaveColumns() const;
    void RestoreColumns(const QByteArray& columns);

signals:
    void SelectedRowsChanged();
    /// A double click on that cell.
    void CellOpened(const QModelIndex& cell);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void selectionChanged(const QItemSelection& selected,
                          const QItemSelection& deselected) override;
    /// Home and End go to the first and the last document.
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;

private:
    void ShowSelection();
    void FitColumns();

    DocumentModel* m_model;
    platform::DocumentTable* m_table = nullptr;
    QString m_placeholder;
    /// The list is being made to follow that in memory: what it tells is no news.
    bool m_isFollowing = false;
    bool m_areColumnsChosen = false;
};

} // namespace desktop
