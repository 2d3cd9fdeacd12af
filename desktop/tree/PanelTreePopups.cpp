// What the tree does about heads: the values that they give, the dialogs that they lead to; and
// about the menus of texts at cells and heads.
#include "desktop/tree/EditorDraft.h"
#include "desktop/tree/PanelHead.h"
#include "desktop/tree/PanelTree.h"
#include "desktop/tree/TreeItemModel.h"

#include <QLineEdit>
#include <QMenu>

#include <algorithm>

namespace desktop {

namespace {

/// The entry is not one of the texts, but edits the list of them.
constexpr int c_editList = 0;

QString ToEntryText(const SharedText& text) {
    return QString::fromStdWString(text.Str())
        .simplified()
        .replace(QLatin1Char('&'), QStringLiteral("&&"));
}

} // namespace

void PanelTree::GiveHeadValue(int column, const QVariant& value, const QStringList& typed) {
    m_refusal.clear();
    m_model->EditHead(column, value);
    OnEdited();
    if (m_refusal.isEmpty() || column >= m_model->columnCount())
        return;
    m_head->OpenEditor(column);
    const std::vector<QLineEdit*> lines =
        m_head->GetEditor() ? LinesOf(*m_head->GetEditor()) : std::vector<QLineEdit*>();
    for (std::size_t i = 0; i < lines.size(); ++i) {
        lines[i]->setText(typed.value(static_cast<qsizetype>(i)));
        lines[i]->setModified(true);
    }
    if (!lines.empty())
        HoldRefused(*m_head->GetEditor());
}

void PanelTree::ClickHead(int column) {
    if (!CommitEditor() || column >= m_model->columnCount())
        return;
    m_model->ClickHead(column);
    OnEdited();
}

void PanelTree::OpenMenuOfTexts() {
    if (currentIndex().isValid())
        ShowCellTexts(currentIndex());
}

void PanelTree::ShowCellTexts(const QPersistentModelIndex& cell) {
    if (!cell.isValid() || !m_model)
        return;
    IMenuItems* const texts = TreeItemModel::LookOf(cell).menu;
    if (!texts)
        return;
    if (currentIndex() != cell)
        MakeCurrent(cell);
    const QRect place = visualRect(cell);
    const int left = std::clamp(place.left(), 0, viewport()->width());
    ShowTexts(*texts, viewport()->mapToGlobal(QPoint(left, place.bottom() + 1)),
              [this, cell](int command, const QString&) {
                  if (!cell.isValid())
                      return;
                  // What was chosen stands for what was typed.
                  CloseEditors(QAbstractItemDelegate::RevertModelCache);
                  m_model->ChooseInCell(cell, command);
                  OnEdited();
              });
}

void PanelTree::ShowHeadTexts(int column) {
    const QWidget* const editor = m_head->GetEditor();
    IMenuItems* const texts =
        editor ? m_model->GetHeads()[static_cast<std::size_t>(column)].popup.get() : nullptr;
    if (!texts)
        return;
    ShowTexts(*texts, editor->mapToGlobal(QPoint(0, editor->height())),
              [this, column](int command, const QString& text) {
                  // Rows and heads may have changed while the list was edited.
                  if (m_head->GetColumn() != column)
                      return;
                  m_head->CloseEditor();
                  m_model->ChooseInHead(column, command, text);
                  OnEdited();
              });
}

void PanelTree::ShowTexts(IMenuItems& texts, QPoint place,
                          const std::function<void(int command, const QString& text)>& take) {
    auto* const menu = new QMenu(this);
    const boost::intrusive_ptr<IMenuItems> held(&texts);
    for (std::size_t i = 0; i < texts.GetEntryCount(); ++i) {
        const MenuEntry entry = texts.GetEntry(i);
        const bool isEditList = entry.GetCommand() == c_editList;
        if (isEditList && !m_listEditor)
            continue;
        QAction* const action = menu->addAction(ToEntryText(entry.text));
        action->setCheckable(entry.isChecked);
        action->setChecked(entry.isChecked);
        if (isEditList)
            menu->addSeparator();
        const auto choose = [this, held, entry, isEditList, take] {
            const std::optional<int> command =
                isEditList ? m_listEditor(*held) : std::optional(entry.GetCommand());
            if (!command)
                return;
            SharedText text = entry.text;
            for (std::size_t at = 0; at < held->GetEntryCount(); ++at) {
                if (held->GetEntry(at).GetCommand() == *command)
                    text = held->GetEntry(at).text;
            }
            take(*command, QString::fromStdWString(text.Str()));
        };
        // When the menu has closed, since a dialog may follow.
        connect(action, &QAction::triggered, this, choose, Qt::QueuedConnection);
    }
    connect(menu, &QMenu::aboutToHide, menu, &QObject::deleteLater);
    menu->popup(place);
}

} // namespace desktop
