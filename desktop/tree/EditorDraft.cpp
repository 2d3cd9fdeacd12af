#include "desktop/tree/EditorDraft.h"

#include "desktop/tree/TreeItemModel.h"

#include <QLineEdit>

#include <algorithm>

namespace desktop {

std::vector<QLineEdit*> LinesOf(QWidget& editor) {
    if (auto* const line = qobject_cast<QLineEdit*>(&editor))
        return {line};
    const QList<QLineEdit*> lines = editor.findChildren<QLineEdit*>();
    return {lines.begin(), lines.end()};
}

EditorDraft::EditorDraft(QWidget& editor, const QModelIndex& cell, const QString& refusal)
    : m_column(TreeItemModel::HeadOf(cell).id),
      m_caption(QString::fromStdWString(TreeItemModel::HeadOf(cell).caption)), m_refusal(refusal) {
    for (const QLineEdit* const line : LinesOf(editor)) {
        m_lines.push_back({line->text(), line->isModified(), line->window()->focusWidget() == line,
                           line->cursorPosition(), line->selectionStart(),
                           line->selectionLength()});
    }
}

QModelIndex EditorDraft::Find(const QModelIndex& row) const {
    if (!row.isValid())
        return {};
    const auto& model = static_cast<const TreeItemModel&>(*row.model());
    const auto& heads = model.GetHeads();
    const auto head = std::ranges::find(heads, m_column, &platform::ColumnHead::id);
    return head == heads.end() ? QModelIndex()
                               : row.siblingAtColumn(static_cast<int>(head - heads.begin()));
}

void EditorDraft::PutInto(QWidget& editor) const {
    const std::vector<QLineEdit*> lines = LinesOf(editor);
    for (std::size_t i = 0; i < std::min(lines.size(), m_lines.size()); ++i) {
        QLineEdit& line = *lines[i];
        const Line& draft = m_lines[i];
        line.setText(draft.text);
        line.setModified(draft.isModified);
        if (draft.hasFocus)
            line.setFocus();
        line.setCursorPosition(draft.cursor);
        const bool isCursorInFront = draft.cursor == draft.selectionStart;
        if (draft.selectionStart >= 0 && isCursorInFront)
            line.setSelection(draft.selectionStart + draft.selectionLength, -draft.selectionLength);
        else if (draft.selectionStart >= 0)
            line.setSelection(draft.selectionStart, draft.selectionLength);
    }
}

} // namespace desktop
