// Lets the user choose one of several objects.
#pragma once

#include "platform/services/UserDecisions.h"

#include <QDialog>

namespace desktop {

class ObjectList;

class ObjectDialog final : public QDialog {
    Q_OBJECT

public:
    /// The request must outlive the dialog.
    explicit ObjectDialog(const platform::ObjectRequest& request, QWidget* parent = nullptr);

    /// No value while none is chosen.
    std::optional<UniqueMetaObjectKey> GetChoice() const;

private:
    ObjectList* m_objects;
};

} // namespace desktop
