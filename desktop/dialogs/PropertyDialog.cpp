#include "desktop/dialogs/PropertyDialog.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QHeaderView>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTreeWidget>

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
    : QDialog(parent), m_request(request), m_objects(new QTreeWidget),
      m_properties(new QListWidget) {
    setWindowTitle(ToQString(request.title));
    auto* const filter = new QLineEdit;
    filter->setPlaceholderText(tr("Find by name or designation"));
    filter->setClearButtonEnabled(true);
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    m_accept = buttons->button(QDialogButtonBox::Ok);
    FillObjects();
    FillProperties();

    auto* const layout = new QGridLayout(this);
    layout->addWidget(filter, 0, 0, 1, 2);
    layout->addWidget(m_objects, 1, 0);
    layout->addWidget(m_properties, 1, 1);
    layout->addWidget(buttons, 2, 0, 1, 2);
    layout->setColumnStretch(0, 3);
    layout->setColumnStretch(1, 2);
    resize(c_usualSize);

    connect(filter, &QLineEdit::textChanged, this, &PropertyDialog::Narrow);
    connect(m_objects, &QTreeWidget::currentItemChanged, this, &PropertyDialog::OnChosen);
    connect(m_properties, &QListWidget::currentItemChanged, this, &PropertyDialog::OnChosen);
    connect(m_properties, &QListWidget::itemActivated, m_accept, &QPushButton::click);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    OnChosen();
}

std::optional<platform::PropertyChoice> PropertyDialog::GetChoice() const {
    const int object = m_objects->indexOfTopLevelItem(m_objects->currentItem());
    const int property = m_properties->currentRow();
    if (object < 0 || property < 0)
        return std::nullopt;
    return platform::PropertyChoice{m_request.objects[static_cast<std::size_t>(object)].key,
                                    m_request.properties[static_cast<std::size_t>(property)].id};
}

void PropertyDialog::FillObjects() {
    m_objects->setHeaderLabels({tr("Name"), tr("Designation")});
    m_objects->setRootIsDecorated(false);
    m_objects->setUniformRowHeights(true);
    m_objects->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    QList<QTreeWidgetItem*> items;
    QTreeWidgetItem* present = nullptr;
    for (const platform::PropertyRequest::Object& object : m_request.objects) {
        items += new QTreeWidgetItem({ToLine(object.name), ToLine(object.designation)});
        if (m_request.present && m_request.present->object == object.key)
            present = items.back();
    }
    m_objects->addTopLevelItems(items);
    m_objects->setCurrentItem(present);
}

void PropertyDialog::FillProperties() {
    for (const platform::PropertyRequest::Property& property : m_request.properties) {
        m_properties->addItem(ToLine(property.caption));
        if (m_request.present && m_request.present->propertyId == property.id)
            m_properties->setCurrentRow(m_properties->count() - 1);
    }
}

void PropertyDialog::Narrow(const QString& text) {
    for (int i = 0; i < m_objects->topLevelItemCount(); ++i) {
        QTreeWidgetItem* const item = m_objects->topLevelItem(i);
        item->setHidden(!item->text(0).contains(text, Qt::CaseInsensitive) &&
                        !item->text(1).contains(text, Qt::CaseInsensitive));
    }
}

void PropertyDialog::OnChosen() {
    m_accept->setEnabled(GetChoice().has_value());
}

} // namespace desktop
