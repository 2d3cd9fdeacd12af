// The editor of a designation: its seven parts side by side, each in a line of its own with its
// label below, the delimiters one character wide. A whole designation that is typed or pasted into
// the first part is taken apart when the user goes on from there; one that is pasted in place of
// the first part replaces all the others, too.
#pragma once

#include "desktop/editors/CellEditors.h"

#include <QAbstractItemDelegate>
#include <QFrame>

#include <array>

class QKeyEvent;
class QLabel;
class QLineEdit;

namespace desktop {

class DesignationEdit final : public QFrame, public CellEditor {
    Q_OBJECT

public:
    static constexpr int c_partCount = 7;

    DesignationEdit(const EditorRequest& request, QWidget* parent);

    std::optional<QVariant> TakeInput() const override;
    /// What the labels need below the lines.
    int GetLabelHeight() const;

signals:
    /// The user is through with the parts: by Enter, by Escape, by Tab behind the last one, by
    /// Shift and Tab before the first, or, which is no hint, by going elsewhere.
    void Left(QAbstractItemDelegate::EndEditHint hint);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QLineEdit* MakePart(int part, const EditorRequest& request);
    static QString LabelOf(int part, const EditorRequest& request);
    QLabel* MakeLabel(const QString& text, QLineEdit& line);
    /// Leaves the other parts alone unless they are empty or to be replaced.
    void TakeApart(bool replacesOthers);
    bool OnKey(const QLineEdit& part, const QKeyEvent& event);
    void GoOn(const QLineEdit& from, int direction);
    void CheckFocus();

    std::array<QLineEdit*, c_partCount> m_parts{};
};

} // namespace desktop
