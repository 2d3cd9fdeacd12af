#include "desktop/window/EmbodimentCombo.h"

#include <QFrame>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QScreen>
#include <QVBoxLayout>

#include <algorithm>

namespace desktop {

namespace {

constexpr int c_mostLines = 15;
constexpr int c_fieldWidth = 220;
/// Between two lines of the list.
constexpr int c_lineRoom = 8;

Qt::CheckState ToState(std::optional<bool> isChecked) {
    if (!isChecked)
        return Qt::PartiallyChecked;
    return *isChecked ? Qt::Checked : Qt::Unchecked;
}

} // namespace

EmbodimentCombo::EmbodimentCombo(QWidget* parent)
    : QComboBox(parent), m_popup(new QFrame(this, Qt::Popup)), m_list(new QListWidget(m_popup)) {
    setEditable(true);
    setInsertPolicy(NoInsert);
    setCompleter(nullptr);
    setFixedWidth(c_fieldWidth);
    connect(lineEdit(), &QLineEdit::editingFinished, this, [this] { emit Entered(currentText()); });

    m_popup->setFrameShape(QFrame::StyledPanel);
    m_list->setFrameShape(QFrame::NoFrame);
    m_list->setUniformItemSizes(true);
    m_list->setMinimumSize(1, 1);
    m_list->installEventFilter(this);
    auto* const layout = new QVBoxLayout(m_popup);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_list);
    // Anywhere in the line, not in its box alone.
    connect(m_list, &QListWidget::itemClicked, this,
            [this](QListWidgetItem* item) { Turn(m_list->row(item)); });
}

void EmbodimentCombo::Show(const QString& text, const std::vector<Line>& lines) {
    if (text != m_text || !lineEdit()->isModified()) {
        m_text = text;
        GiveBack();
    }
    while (m_list->count() > static_cast<int>(lines.size()))
        delete m_list->takeItem(m_list->count() - 1);
    // Changed in place: the list stays open, and where it was scrolled to.
    for (std::size_t i = 0; i < lines.size(); ++i) {
        QListWidgetItem* item = m_list->item(static_cast<int>(i));
        if (!item) {
            item = new QListWidgetItem(m_list);
            item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
            item->setSizeHint({0, fontMetrics().height() + c_lineRoom});
        }
        item->setText(lines[i].text);
        item->setCheckState(ToState(lines[i].isChecked));
    }
}

void EmbodimentCombo::GiveBack() {
    setEditText(m_text);
    lineEdit()->setModified(false);
}

void EmbodimentCombo::showPopup() {
    if (m_list->count() == 0)
        return;
    const int lines = std::min(m_list->count(), c_mostLines);
    const QSize size(width(), lines * m_list->sizeHintForRow(0) + 2 * m_popup->frameWidth());
    QPoint place = mapToGlobal(QPoint(0, height()));
    if (const QScreen* const around = screen();
        around && place.y() + size.height() > around->availableGeometry().bottom())
        place.setY(mapToGlobal(QPoint()).y() - size.height());
    m_popup->setGeometry({place, size});
    if (m_list->currentRow() < 0)
        m_list->setCurrentRow(0);
    m_popup->show();
    m_list->setFocus(Qt::PopupFocusReason);
}

void EmbodimentCombo::hidePopup() {
    m_popup->hide();
    QComboBox::hidePopup();
}

void EmbodimentCombo::Turn(int line) {
    if (const QListWidgetItem* const item = m_list->item(line))
        emit Checked(item->text(), item->checkState() != Qt::Checked);
}

bool EmbodimentCombo::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress && watched == m_list &&
        OnListKey(static_cast<QKeyEvent*>(event)->key()))
        return true;
    return QComboBox::eventFilter(watched, event);
}

void EmbodimentCombo::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Escape) {
        QComboBox::keyPressEvent(event);
        return;
    }
    GiveBack();
    lineEdit()->selectAll();
}

bool EmbodimentCombo::OnListKey(int key) {
    switch (key) {
    case Qt::Key_Space:
        Turn(m_list->currentRow());
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Escape:
    case Qt::Key_F4:
        hidePopup();
        return true;
    default:
        return false;
    }
}

} // namespace desktop
