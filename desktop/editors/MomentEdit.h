// The editor of a moment: a line in which a date is typed as the user's locale writes it, with a
// calendar beside it. Up and Down go on by a day, Page Up and Page Down by a month, Alt and Down
// opens the calendar. What is no date is red, and it is the panel that refuses it.
#pragma once

#include "desktop/editors/CellEditors.h"

#include <QDateTime>
#include <QLineEdit>

namespace desktop {

class MomentEdit final : public QLineEdit, public CellEditor {
    Q_OBJECT

public:
    MomentEdit(const EditorRequest& request, QWidget* parent);

    std::optional<QVariant> TakeInput() const override;
    /// The date that stands here is the one that is chosen at first; without one, today.
    void OpenCalendar();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    /// What stands here; today where there is nothing or no date.
    QDateTime Present() const;
    /// As the user's own typing.
    void Put(const QDateTime& moment);
    void ShowWhetherDate();
};

} // namespace desktop
