// The entries of the Edit menu that concern designations and masses of the product and are none of
// the panel's commands. What can't be done is disabled.
#pragma once

#include <QObject>

#include <functional>

class QAction;
class QMenu;

namespace desktop {

class Session;

class ProductActions final : public QObject {
    Q_OBJECT

public:
    /// Runs what changes the product: with no editor open, and shows afterwards what it did.
    using Run = std::function<void(const std::function<void()>&)>;

    ProductActions(QMenu& edit, Run run);

    /// The product or the selected rows are others. The session must outlive its stay here.
    void Show(Session& session);

private:
    void EditDocCodes();

    Run m_run;
    Session* m_session = nullptr;
    QAction* m_docCodes;
    QAction* m_bookOnly;
};

} // namespace desktop
