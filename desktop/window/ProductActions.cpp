#include "desktop/window/ProductActions.h"

#include "desktop/Session.h"
#include "platform/view/TreeTableView.h"

#include <QAction>
#include <QMenu>

#include <algorithm>
#include <utility>

namespace desktop {

namespace {

constexpr int c_codePart = 7;

bool HasOpenCode(const platform::TreeTableRow& row) {
    const platform::TreeRowMarking& marking = row.GetMarking();
    return !row.IsReadOnly() && !row.IsSection() && !marking.GetColumn().empty() &&
           !marking.IsReadOnly() && !marking.IsHypertext() && !marking.IsLocked(c_codePart);
}

bool HasRowWithOpenCode(const platform::TreeTableView& view) {
    return std::ranges::any_of(view.GetSelectedRows(), [](const TreeRowPtr& row) {
        return HasOpenCode(static_cast<const platform::TreeTableRow&>(*row));
    });
}

} // namespace

ProductActions::ProductActions(QMenu& edit, Run run)
    : m_run(std::move(run)), m_docCodes(edit.addAction(tr("Document code..."))),
      m_bookOnly(edit.addAction(tr("Materials from the book only"))) {
    connect(m_docCodes, &QAction::triggered, this, &ProductActions::EditDocCodes);
    m_bookOnly->setCheckable(true);
    m_bookOnly->setStatusTip(
        tr("Mass, density and material are chosen in a dialog, and not typed into their cells"));
    connect(m_bookOnly, &QAction::triggered, this, [this](bool on) {
        m_run([this, on] { m_session->SetSimplified(!on); });
        // The menu has checked the entry whatever came of it.
        Show(*m_session);
    });
}

void ProductActions::Show(Session& session) {
    m_session = &session;
    const bool isReadOnly = session.GetView().GetPanel().isReadOnly;
    m_docCodes->setEnabled(!isReadOnly && HasRowWithOpenCode(session.GetView()));
    m_bookOnly->setEnabled(!isReadOnly);
    m_bookOnly->setChecked(!session.GetProduct().IsSimplifiedMode());
}

void ProductActions::EditDocCodes() {
    m_run([this] {
        platform::TreeTableView& view = m_session->GetView();
        const std::vector<TreeRowPtr> rows = view.GetSelectedRows();
        if (rows.size() == 1)
            view.EditDocCodeByUser(static_cast<platform::TreeTableRow&>(*rows.front()));
        else
            view.EditDocCodesByUser();
    });
}

} // namespace desktop
