#include "desktop/dialogs/ListDialog.h"

#include <QDialogButtonBox>
#include <QListWidget>
#include <QVBoxLayout>

namespace desktop {

namespace {

constexpr QSize c_usualSize(320, 420);

} // namespace

ListDialog::ListDialog(const platform::ListRequest& request, QWidget* parent)
    : QDialog(parent), m_lines(new QListWidget) {
    setWindowTitle(QString::fromStdWString(request.title.Str()));
    for (const platform::ListRequest::Line& line : request.lines) {
        auto* const item = new QListWidgetItem(QString::fromStdWString(line.text.Str()), m_lines);
        item->setCheckState(line.isChosen ? Qt::Checked : Qt::Unchecked);
    }
    m_lines->setCurrentRow(0);
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(m_lines);
    layout->addWidget(buttons);
    resize(c_usualSize);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

std::vector<bool> ListDialog::GetChosen() const {
    std::vector<bool> chosen;
    for (int i = 0; i < m_lines->count(); ++i)
        chosen.push_back(m_lines->item(i)->checkState() == Qt::Checked);
    return chosen;
}

} // namespace desktop
