// Lets the user choose what 8-bit names of a STEP file are, which the file itself does not say, by
// how they look.
#pragma once

#include "desktop/import/StepImport.h"

#include <QDialog>

class QListWidget;

namespace desktop {

class EncodingDialog final : public QDialog {
    Q_OBJECT

public:
    /// The document must outlive the dialog.
    explicit EncodingDialog(const step::StepDocument& document, QWidget* parent = nullptr);

    /// As StepOptions has it.
    std::string GetEncoding() const;

private:
    void ShowTexts();

    const step::StepDocument& m_document;
    QListWidget* m_encodings;
    QListWidget* m_texts;
};

} // namespace desktop
