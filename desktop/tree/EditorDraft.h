// What the user has typed into the editor of a cell but not yet entered. Editors go with their
// rows when these are replaced; the draft is what it takes to open the same editor again.
#pragma once

#include <QString>

#include <string>
#include <vector>

class QLineEdit;
class QModelIndex;
class QWidget;

namespace desktop {

class EditorDraft {
public:
    /// `cell` is the one that is edited, and `refusal` the reason for which what stands there was
    /// refused; empty when it was not.
    EditorDraft(QWidget& editor, const QModelIndex& cell, const QString& refusal);

    /// The cell of the same column in that row; invalid when the column is gone or there is no row.
    QModelIndex Find(const QModelIndex& row) const;
    /// With cursor and selection as they were.
    void PutInto(QWidget& editor) const;

    const QString& GetRefusal() const { return m_refusal; }
    void SetRefusal(const QString& refusal) { m_refusal = refusal; }
    const QString& GetCaption() const { return m_caption; }

private:
    struct Line {
        QString text;
        bool isModified;
        bool hasFocus;
        int cursor;
        /// Negative when nothing is selected.
        int selectionStart;
        int selectionLength;
    };

    std::wstring m_column;
    QString m_caption;
    QString m_refusal;
    std::vector<Line> m_lines;
};

/// The lines of an editor that the user types into, in their order.
std::vector<QLineEdit*> LinesOf(QWidget& editor);

} // namespace desktop
