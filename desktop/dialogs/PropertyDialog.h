// Lets the user choose one property of one object: a list of the objects, and the properties beside
// it.
#pragma once

#include "platform/services/UserDecisions.h"

#include <QDialog>

class QListWidget;
class QPushButton;

namespace desktop {

class ObjectList;

class PropertyDialog final : public QDialog {
    Q_OBJECT

public:
    /// The request must outlive the dialog.
    explicit PropertyDialog(const platform::PropertyRequest& request, QWidget* parent = nullptr);

    /// No value while an object or a property is not chosen.
    std::optional<platform::PropertyChoice> GetChoice() const;

private:
    void FillProperties();
    void OnChosen();

    const platform::PropertyRequest& m_request;
    ObjectList* m_objects;
    QListWidget* m_properties;
    QPushButton* m_accept;
};

} // namespace desktop
