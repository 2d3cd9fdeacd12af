// Lets the user choose any of a list of lines.
#pragma once

#include "platform/services/UserDecisions.h"

#include <QDialog>

class QListWidget;

namespace desktop {

class ListDialog final : public QDialog {
    Q_OBJECT

public:
    explicit ListDialog(const platform::ListRequest& request, QWidget* parent = nullptr);

    /// As many as there are lines.
    std::vector<bool> GetChosen() const;

private:
    QListWidget* m_lines;
};

} // namespace desktop
