#include "desktop/books/MaterialFinder.h"

#include "desktop/editors/LocaleNumbers.h"

#include <QCoreApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QScopedValueRollback>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>
#include <QVBoxLayout>

#include <algorithm>

namespace desktop {

namespace {

enum Column { Name, Standard, Density, ColumnCount };

/// The place among what is found; not there for groups and classes.
constexpr int c_placeRole = Qt::UserRole;
/// In what is looked for.
constexpr int c_textRole = Qt::UserRole + 1;
constexpr int c_nameWidth = 260;
constexpr int c_standardWidth = 150;
constexpr QChar c_classSeparator = u'/';

bool IsMaterial(const QTreeWidgetItem& item) {
    return item.data(0, c_placeRole).isValid();
}

} // namespace

MaterialFinder::MaterialFinder(double coefficient, const QString& unit, QWidget* parent)
    : QWidget(parent), m_coefficient(coefficient), m_field(new QLineEdit), m_tree(new QTreeWidget) {
    m_field->setPlaceholderText(tr("Find by name, standard or class"));
    m_field->setClearButtonEnabled(true);
    m_field->installEventFilter(this);
    m_tree->setHeaderLabels(
        {tr("Name"), tr("Standard"), unit.isEmpty() ? tr("Density") : tr("Density, %1").arg(unit)});
    m_tree->headerItem()->setTextAlignment(Density, Qt::AlignRight | Qt::AlignVCenter);
    m_tree->setUniformRowHeights(true);
    m_tree->setAllColumnsShowFocus(true);
    m_tree->setColumnWidth(Name, c_nameWidth);
    m_tree->setColumnWidth(Standard, c_standardWidth);
    auto* const label = new QLabel(tr("&Find:"));
    label->setBuddy(m_field);
    auto* const line = new QHBoxLayout;
    line->addWidget(label);
    line->addWidget(m_field);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(line);
    layout->addWidget(m_tree);
    connect(m_field, &QLineEdit::textChanged, this, &MaterialFinder::Narrow);
    connect(m_tree, &QTreeWidget::currentItemChanged, this, [this] {
        if (!m_isFilling)
            emit CurrentChanged();
    });
    connect(m_tree, &QTreeWidget::itemActivated, this, [this](const QTreeWidgetItem* item) {
        if (IsMaterial(*item))
            emit Activated();
    });
}

void MaterialFinder::Show(const MaterialBook& book,
                          const std::vector<platform::MaterialRequest::Material>& fromFile) {
    const QScopedValueRollback filling(m_isFilling, true);
    m_tree->clear();
    m_found.clear();
    const std::vector<Material> materials = book.GetMaterials();
    const auto add = [&](QTreeWidgetItem& group, const Material& material) {
        Add(group, {material.GetText(), material.density * m_coefficient, material});
    };
    if (const std::vector<Material> recent = book.GetRecent(); !recent.empty()) {
        QTreeWidgetItem* const group = AddGroup(tr("Recently used"));
        for (const Material& material : recent)
            add(*group, material);
        group->setExpanded(true);
    }
    if (!fromFile.empty()) {
        QTreeWidgetItem* const group = AddGroup(tr("From this file"));
        for (const auto& material : fromFile)
            Add(*group, {QString::fromStdWString(material.name.Str()), material.density, {}});
        group->setExpanded(true);
    }
    for (const Material& material : materials)
        add(*FindClass(material.classPath), material);
    Narrow();
}

QTreeWidgetItem* MaterialFinder::AddGroup(const QString& caption) {
    auto* const item = new QTreeWidgetItem({caption});
    QFont font = item->font(Name);
    font.setItalic(true);
    item->setFont(Name, font);
    m_tree->addTopLevelItem(item);
    return item;
}

QTreeWidgetItem* MaterialFinder::FindClass(const QString& path) {
    QTreeWidgetItem* parent = m_tree->invisibleRootItem();
    QStringList names = path.split(c_classSeparator, Qt::SkipEmptyParts);
    if (names.isEmpty())
        names += tr("Without class");
    for (const QString& part : names) {
        const QString name = part.simplified();
        QTreeWidgetItem* found = nullptr;
        for (int i = 0; i < parent->childCount() && !found; ++i) {
            QTreeWidgetItem* const child = parent->child(i);
            // The groups above the classes are none.
            const bool isClass = !IsMaterial(*child) && !child->font(Name).italic();
            if (isClass && child->text(Name) == name)
                found = child;
        }
        if (!found) {
            found = new QTreeWidgetItem({name});
            parent->addChild(found);
        }
        parent = found;
    }
    return parent;
}

void MaterialFinder::Add(QTreeWidgetItem& group, Found found) {
    const QString name = found.record ? found.record->name : found.text.simplified();
    const QString standard = found.record ? found.record->standard : QString();
    auto* const item = new QTreeWidgetItem(
        {name, standard, found.density ? FormatNumber(*found.density) : QString()});
    item->setTextAlignment(Density, Qt::AlignRight | Qt::AlignVCenter);
    item->setData(0, c_placeRole, static_cast<int>(m_found.size()));
    const QString path = found.record ? found.record->classPath : QString();
    item->setData(0, c_textRole, QString(found.text + QLatin1Char(' ') + path));
    item->setToolTip(Name, found.text.simplified());
    if (found.record && !found.record->source.isEmpty())
        item->setToolTip(Density, tr("Density from %1").arg(found.record->source));
    group.addChild(item);
    m_found.push_back(std::move(found));
}

void MaterialFinder::Choose(const QString& text) {
    const QScopedValueRollback filling(m_isFilling, true);
    for (QTreeWidgetItemIterator item(m_tree); *item; ++item) {
        if (!IsMaterial(**item) || (*item)->isHidden() ||
            m_found[static_cast<std::size_t>((*item)->data(0, c_placeRole).toInt())].text != text)
            continue;
        m_tree->setCurrentItem(*item);
        m_tree->scrollToItem(*item);
        return;
    }
    m_tree->setCurrentItem(nullptr);
}

std::optional<MaterialFinder::Found> MaterialFinder::GetCurrent() const {
    const QTreeWidgetItem* const item = m_tree->currentItem();
    if (!item || !IsMaterial(*item))
        return std::nullopt;
    return m_found[static_cast<std::size_t>(item->data(0, c_placeRole).toInt())];
}

QString MaterialFinder::GetWanted() const {
    return m_field->text().simplified();
}

void MaterialFinder::FocusField() {
    m_field->setFocus();
    m_field->selectAll();
}

void MaterialFinder::Narrow() {
    const QStringList words = GetWanted().split(QLatin1Char(' '), Qt::SkipEmptyParts);
    for (int i = 0; i < m_tree->topLevelItemCount(); ++i)
        NarrowItem(*m_tree->topLevelItem(i), words);
    if (m_isFilling)
        return;
    // Without anything to look for the user goes on from where he is.
    if (words.isEmpty()) {
        if (QTreeWidgetItem* const current = m_tree->currentItem())
            m_tree->scrollToItem(current);
        return;
    }
    QTreeWidgetItem* const first = FirstSeen();
    if (first == m_tree->currentItem())
        return;
    m_tree->setCurrentItem(first);
    if (first)
        m_tree->scrollToItem(first);
}

bool MaterialFinder::NarrowItem(QTreeWidgetItem& item, const QStringList& words) {
    bool isSeen = false;
    if (IsMaterial(item)) {
        const QString text = item.data(0, c_textRole).toString();
        isSeen = std::ranges::all_of(
            words, [&](const QString& word) { return text.contains(word, Qt::CaseInsensitive); });
    }
    for (int i = 0; i < item.childCount(); ++i)
        isSeen |= NarrowItem(*item.child(i), words);
    item.setHidden(!isSeen);
    if (isSeen && !words.isEmpty())
        item.setExpanded(true);
    return isSeen;
}

QTreeWidgetItem* MaterialFinder::FirstSeen() const {
    for (QTreeWidgetItemIterator item(m_tree, QTreeWidgetItemIterator::NotHidden); *item; ++item) {
        if (IsMaterial(**item))
            return *item;
    }
    return nullptr;
}

bool MaterialFinder::eventFilter(QObject* watched, QEvent* event) {
    if (watched != m_field || event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    switch (static_cast<QKeyEvent*>(event)->key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        return QCoreApplication::sendEvent(m_tree, event);
    default:
        return QWidget::eventFilter(watched, event);
    }
}

} // namespace desktop
