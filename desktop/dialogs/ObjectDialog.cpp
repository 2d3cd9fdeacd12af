#include "desktop/dialogs/ObjectDialog.h"

#include "desktop/dialogs/ObjectList.h"

#include <QDialogButtonBox>
#include <QPushButton>
#include <QVBoxLayout>

namespace desktop {

namespace {

constexpr QSize c_usualSize(440, 440);

} // namespace

ObjectDialog::ObjectDialog(const platform::ObjectRequest& request, QWidget* parent)
    : QDialog(parent), m_objects(new ObjectList(request.objects)) {
    setWindowTitle(QString::fromStdWString(request.title.Str()));
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    QPushButton* const accept = buttons->button(QDialogButtonBox::Ok);
    accept->setEnabled(false);
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(m_objects);
    layout->addWidget(buttons);
    resize(c_usualSize);
    connect(m_objects, &ObjectList::ChosenChanged, this,
            [this, accept] { accept->setEnabled(GetChoice().has_value()); });
    connect(m_objects, &ObjectList::Activated, accept, &QPushButton::click);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

std::optional<UniqueMetaObjectKey> ObjectDialog::GetChoice() const {
    const platform::OfferedObject* const chosen = m_objects->GetChosen();
    return chosen ? std::optional(chosen->key) : std::nullopt;
}

} // namespace desktop
