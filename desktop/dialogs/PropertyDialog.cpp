#include "desktop/dialogs/PropertyDialog.h"

#include "desktop/dialogs/ObjectList.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QListWidget>
#include <QPushButton>

namespace desktop {

namespace {

constexpr QSize c_usualSize(640, 440);

QString ToQString(const SharedText& text) {
    return QString::fromStdWString(text.Str());
}

/// Names and designations may hold line breaks, for which a list has no room.
QString ToLine(const SharedText& text) {
    return ToQString(text).simplified();
}

} // namespace

PropertyDialog::PropertyDialog(const platform::PropertyRequest& request, QWidget* parent)
    : QDialog(parent), m_request(request), m_objects(new ObjectList(request.objects)),
      m_properties(new QListWidget) {
    setWindowTitle(ToQString(request.title));
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    m_accept = buttons->button(QDialogButtonBox::Ok);
    if (request.present)
        m_objects->Choose(request.present->object);
    FillProperties();

    auto* const layout = new QGridLayout(this);
    layout->addWidget(m_objects, 0, 0);
    layout->addWidget(m_properties, 0, 1);
    layout->addWidget(buttons, 1, 0, 1, 2);
    layout->setColumnStretch(0, 3);
    layout->setColumnStretch(1, 2);
    resize(c_usualSize);

    connect(m_objects, &ObjectList::ChosenChanged, this, &PropertyDialog::OnChosen);
    connect(m_properties, &QListWidget::currentItemChanged, this, &PropertyDialog::OnChosen);
    connect(m_properties, &QListWidget::itemActivated, m_accept, &QPushButton::click);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    OnChosen();
}

std::optional<platform::PropertyChoice> PropertyDialog::GetChoice() const {
    const platform::OfferedObject* const object = m_objects->GetChosen();
    const int property = m_properties->currentRow();
    if (!object || property < 0)
        return std::nullopt;
    return platform::PropertyChoice{object->key,
                                    m_request.properties[static_cast<std::size_t>(property)].id};
}

void PropertyDialog::FillProperties() {
    for (const platform::PropertyRequest::Property& property : m_request.properties) {
        m_properties->addItem(ToLine(property.caption));
        if (m_request.present && m_request.present->propertyId == property.id)
            m_properties->setCurrentRow(m_properties->count() - 1);
    }
}

void PropertyDialog::OnChosen() {
    m_accept->setEnabled(GetChoice().has_value());
}

} // namespace desktop
