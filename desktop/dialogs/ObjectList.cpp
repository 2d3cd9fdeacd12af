#include "desktop/dialogs/ObjectList.h"

#include <QHeaderView>
#include <QLineEdit>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace desktop {

namespace {

/// Names and designations may hold line breaks, for which a list has no room.
QString ToLine(const SharedText& text) {
    return QString::fromStdWString(text.Str()).simplified();
}

} // namespace

ObjectList::ObjectList(const std::vector<platform::OfferedObject>& objects, QWidget* parent)
    : QWidget(parent), m_objects(objects), m_list(new QTreeWidget) {
    auto* const filter = new QLineEdit;
    filter->setPlaceholderText(tr("Find by name or designation"));
    filter->setClearButtonEnabled(true);
    m_list->setHeaderLabels({tr("Name"), tr("Designation")});
    m_list->setRootIsDecorated(false);
    m_list->setUniformRowHeights(true);
    m_list->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    QList<QTreeWidgetItem*> items;
    for (const platform::OfferedObject& object : objects)
        items += new QTreeWidgetItem({ToLine(object.name), ToLine(object.designation)});
    m_list->addTopLevelItems(items);

    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(filter);
    layout->addWidget(m_list);
    connect(filter, &QLineEdit::textChanged, this, &ObjectList::Narrow);
    connect(m_list, &QTreeWidget::currentItemChanged, this, &ObjectList::ChosenChanged);
    connect(m_list, &QTreeWidget::itemActivated, this, &ObjectList::Activated);
}

const platform::OfferedObject* ObjectList::GetChosen() const {
    const int place = m_list->indexOfTopLevelItem(m_list->currentItem());
    return place < 0 ? nullptr : &m_objects[static_cast<std::size_t>(place)];
}

void ObjectList::Choose(const UniqueMetaObjectKey& key) {
    const auto found = std::ranges::find(m_objects, key, &platform::OfferedObject::key);
    m_list->setCurrentItem(found == m_objects.end()
                               ? nullptr
                               : m_list->topLevelItem(static_cast<int>(found - m_objects.begin())));
}

void ObjectList::Narrow(const QString& text) {
    for (int i = 0; i < m_list->topLevelItemCount(); ++i) {
        QTreeWidgetItem* const item = m_list->topLevelItem(i);
        item->setHidden(!item->text(0).contains(text, Qt::CaseInsensitive) &&
                        !item->text(1).contains(text, Qt::CaseInsensitive));
    }
}

} // namespace desktop
