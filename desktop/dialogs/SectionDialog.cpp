#include "desktop/dialogs/SectionDialog.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <vector>

namespace desktop {

namespace {

constexpr QSize c_usualSize(380, 420);
/// The place of an item's section among those of the request.
constexpr int c_placeRole = Qt::UserRole;

QString ToQString(const SharedText& text) {
    return QString::fromStdWString(text.Str());
}

} // namespace

SectionDialog::SectionDialog(const platform::SectionRequest& request, QWidget* parent)
    : QDialog(parent), m_sections(new QTreeWidget),
      m_nameLink(new QCheckBox(ToQString(request.linkText))) {
    setWindowTitle(ToQString(request.title));
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    m_accept = buttons->button(QDialogButtonBox::Ok);
    m_nameLink->setChecked(request.isNameLinked);
    Fill(request);

    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(m_sections);
    layout->addWidget(m_nameLink);
    layout->addWidget(buttons);
    resize(c_usualSize);

    connect(m_sections, &QTreeWidget::currentItemChanged, this, &SectionDialog::OnChosen);
    connect(m_sections, &QTreeWidget::itemActivated, m_accept, &QPushButton::click);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    OnChosen();
}

std::optional<platform::SectionDecision> SectionDialog::GetDecision() const {
    const QTreeWidgetItem* const item = m_sections->currentItem();
    if (!item)
        return std::nullopt;
    return platform::SectionDecision{static_cast<std::size_t>(item->data(0, c_placeRole).toInt()),
                                     m_nameLink->isChecked()};
}

void SectionDialog::Fill(const platform::SectionRequest& request) {
    m_sections->setHeaderHidden(true);
    // Items on the way from the top level to the one added last.
    std::vector<QTreeWidgetItem*> way;
    for (std::size_t i = 0; i < request.sections.size(); ++i) {
        const platform::SectionRequest::Section& section = request.sections[i];
        way.resize(std::min(way.size(), section.depth));
        auto* const item = new QTreeWidgetItem({ToQString(section.name).simplified()});
        item->setData(0, c_placeRole, static_cast<int>(i));
        if (way.empty())
            m_sections->addTopLevelItem(item);
        else
            way.back()->addChild(item);
        way.push_back(item);
        if (request.present == i)
            m_sections->setCurrentItem(item);
    }
    m_sections->expandAll();
    if (QTreeWidgetItem* const present = m_sections->currentItem())
        m_sections->scrollToItem(present);
}

void SectionDialog::OnChosen() {
    m_accept->setEnabled(GetDecision().has_value());
}

} // namespace desktop
