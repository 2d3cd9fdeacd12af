// Lets the user give the roughness of a surface: the sign, from pictures of those that there are,
// and its parameter with a value, beside a picture of the whole as a drawing would have it.
#pragma once

#include "desktop/icons/ControlPictures.h"
#include "platform/services/UserDecisions.h"

#include <QDialog>

class QComboBox;
class QListWidget;

namespace desktop {

class RoughnessDialog final : public QDialog {
    Q_OBJECT

public:
    explicit RoughnessDialog(const platform::RoughnessRequest& request, QWidget* parent = nullptr);

    platform::RoughnessDecision GetDecision() const;

protected:
    void changeEvent(QEvent* event) override;

private:
    class Preview;

    void FillSigns();
    /// In the colours of the theme.
    void DrawSigns();
    void FillText();
    /// The values that are usual for the parameter; what stands in the field stays.
    void OfferValues();
    QString MakeText() const;
    void ShowPreview();

    platform::RoughnessRequest m_request;
    /// The request's text, as a line shows it.
    ControlPictures m_pictures;
    QListWidget* m_signs;
    QComboBox* m_parameter;
    QComboBox* m_value;
    Preview* m_preview;
    /// What follows from the fields as they stood at first, which leave the text as it is.
    QString m_firstText;
};

} // namespace desktop
