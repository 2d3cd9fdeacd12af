// The heads of the panel's columns: flat, with room around the captions, and captions cut at their
// end when the column is narrow. While several rows are selected, a click on a head opens an editor
// in its place, which gives all of them one value, or leads to the dialog that does so.
#pragma once

#include <QHeaderView>
#include <QIcon>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace desktop {

class TreeItemModel;

class PanelHead final : public QHeaderView {
    Q_OBJECT

public:
    explicit PanelHead(QWidget* parent = nullptr);

    /// The selected rows are others, or can do other things: how many a value would be given to;
    /// fewer than two: none are offered. An open editor closes when the number changes.
    void OfferEditors(int rows);
    /// Nothing happens where no editor is offered. A head that is a link is clicked.
    void OpenEditor(int column);
    /// What was typed is forgotten.
    void CloseEditor();
    bool IsEditing() const { return m_editor != nullptr; }
    /// Null while there is none.
    QWidget* GetEditor() const { return m_editor; }
    int GetColumn() const { return m_column; }

    /// How far the first head stands from its place; 0 while it stands there.
    void SetFixedShift(const std::function<int()>& shift) { m_fixedShift = shift; }

signals:
    /// The editor is closed by then. The columns may be replaced in consequence.
    void ValueGiven(int column, const QVariant& value, const QStringList& typed);
    void EditorClosed();
    /// A head that is a link was clicked.
    void LinkClicked(int column);
    /// The user wants to choose from the menu of the column of the open editor.
    void ListWanted(int column);
    /// The user wants the menu of that head, at that place on the screen.
    void MenuWanted(int column, QPoint place);

protected:
    /// The first head stays in view with the names below it.
    void paintEvent(QPaintEvent* event) override;
    /// The small heads above the boxes beside the names have tips of their own.
    bool viewportEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void paintSection(QPainter* painter, const QRect& rect, int column) const override;
    QSize sectionSizeFromContents(int column) const override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    const TreeItemModel& Model() const;
    bool IsOffered(int column) const;
    void MoveEditor();
    void MakeEditorOf(int column);
    void ListenToEditor();
    bool IsOnFixedHead(const QMouseEvent& event) const;
    /// The event at the place where the base has the first head, if it is on that.
    QMouseEvent AtTheBase(const QMouseEvent& event) const;
    QRect EditorPlace(int column, const QWidget& editor) const;
    bool OnEditorKey(int key);
    void Give();
    void OpenNext(int direction);

    QIcon m_pencil;
    std::function<int()> m_fixedShift;
    int m_rows = 0;
    /// By column: some selected row takes what the head gives; no value until it is asked.
    mutable std::vector<std::optional<bool>> m_takes;
    int m_column = -1;
    QWidget* m_editor = nullptr;
};

} // namespace desktop
