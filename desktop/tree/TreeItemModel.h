// The tree-table in memory as Qt's item views see it. It keeps nothing of the rows: an index points
// at its row, and a row knows its parent and its place. It changes nothing in the tree-table but
// what the user does through a view, and knows no widget.
#pragma once

#include "desktop/icons/RowIcons.h"
#include "desktop/tree/CellLook.h"
#include "desktop/tree/SourceColumns.h"
#include "platform/view/TreeTableObserver.h"
#include "platform/view/TreeTableView.h"

#include <QAbstractItemModel>
#include <QImage>

#include <functional>
#include <vector>

namespace desktop {

class TreeItemModel final : public QAbstractItemModel, private platform::TreeTableObserver {
    Q_OBJECT

public:
    /// The view must outlive the model, which is its observer from now on.
    explicit TreeItemModel(platform::TreeTableView& view, QObject* parent = nullptr);
    ~TreeItemModel() override;

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& index) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    /// What the user has left in the editor, as CellEditor::TakeInput has it. True when the panel
    /// was asked to take it; whether it did, InputAnswered tells.
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

    // The rest of what a user does in cells and heads. All rows may be replaced in consequence.
    /// Gives a truth value the next one: yes, no and, where there may be none, none.
    bool Toggle(const QModelIndex& index);
    bool ClickSourceIcon(const QModelIndex& index);
    bool ClickLink(const QModelIndex& index);
    /// What was chosen in the menu of the cell.
    bool ChooseInCell(const QModelIndex& index, int command);
    /// Gives all selected rows a value.
    bool EditHead(int column, const QVariant& value);
    /// Opens the dialog that a head without an editor leads to.
    bool ClickHead(int column);
    /// What was chosen in the menu of the head, with the text of that entry.
    bool ChooseInHead(int column, int command, const QString& text);
    /// Some selected row has a cell there that can be edited, or led to the dialog of the head.
    bool TakesFromHead(int column) const;
    bool IsLinkHead(int column) const;
    /// The head has something to offer for rows that take it.
    bool CanEditHead(int column) const;
    /// All cells that take what the head gives hold moments.
    bool AreMoments(int column) const;
    void SetColumnWidth(int column, int width);
    /// What the rows themselves do not know; an empty function answers nothing.
    struct Questions {
        /// The row stands for something that can be opened.
        std::function<bool(const platform::TreeTableRow&)> opens;
        /// What is to be known before a count is typed there.
        std::function<SharedText(const platform::TreeTableRow&, const std::wstring& columnId)>
            countNote;
        /// What is to be known of a mass that is shown there; empty for nothing.
        std::function<QString(const platform::TreeTableRow&)> massNote;
        /// What the row stands for as it looks, in the colours of tips; null for none, or for one
        /// that is still to come.
        std::function<QImage(const platform::TreeTableRow&)> picture;
    };
    void SetQuestions(Questions questions) { m_questions = std::move(questions); }
    static bool CanOpen(const QModelIndex& index);

    /// The row and the head of a valid index.
    static platform::TreeTableRow& RowOf(const QModelIndex& index);
    static const platform::ColumnHead& HeadOf(const QModelIndex& index);
    static platform::TreeTableView& ViewOf(const QModelIndex& index) {
        return static_cast<const TreeItemModel&>(*index.model()).m_view;
    }
    static CellLook LookOf(const QModelIndex& index);
    static EditorRequest EditorOf(const QModelIndex& index);
    QModelIndex IndexOf(const platform::TreeTableRow& row, int column = 0) const;
    /// The value of some row in that column has a source, which an icon in its cell tells of.
    static bool HasSources(const QModelIndex& index);
    /// Of kind None while nothing may be edited.
    EditorRequest GetHeadEditor(int column) const;
    const std::vector<platform::ColumnHead>& GetHeads() const { return m_heads; }
    platform::TreeTableView& GetView() const { return m_view; }
    /// Tells of all changes now that it would tell of soon.
    void TellChanges();

signals:
    /// The expanded or selected rows have changed, or all rows were replaced.
    void RowStatesChanged();
    /// The name of the current row is to be edited.
    void NameEditWanted(const QModelIndex& index);
    /// Caption and the like.
    void PanelChanged();
    /// The cells, or those of all selected rows in that column, show what they showed before, or
    /// they don't. The rows may have been replaced.
    void InputAnswered(const platform::ColumnHead& column, const QVariant& input, bool isTaken);
    /// Behind it, of a head: how many of the selected rows have the value now.
    void HeadAnswered(const platform::ColumnHead& column, int takers, int rows);
    /// The last of the signals about a change.
    void Changed();

private:
    void OnRowsAboutToChange() override { beginResetModel(); }
    void OnRowsChanged() override;
    void OnChangesPending() override;
    QModelIndexList SelectedCells(int column) const;
    bool LeaveInput(const QModelIndex& index, const QVariant& value);
    void TellValues(const platform::TreeTableChanges& changes);
    void ResetColumns();

    platform::TreeTableView& m_view;
    /// The view's heads may change while a build runs; these do only with the model's own signals.
    std::vector<platform::ColumnHead> m_heads;
    SourceColumns m_sourceColumns;
    RowIcons m_icons;
    Questions m_questions;
};

} // namespace desktop
