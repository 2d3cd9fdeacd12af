// Lets the user say what a document is called: designation, name, format and comment.
#pragma once

#include "platform/services/UserDecisions.h"

#include <QDialog>

class QComboBox;
class QLineEdit;

namespace desktop {

class DocumentDialog final : public QDialog {
    Q_OBJECT

public:
    explicit DocumentDialog(const platform::DocumentRequest& request, QWidget* parent = nullptr);

    platform::DocumentTexts GetTexts() const;

private:
    platform::DocumentTexts m_before;
    QLineEdit* m_designation;
    QLineEdit* m_name;
    QComboBox* m_format;
    QLineEdit* m_comment;
};

} // namespace desktop
