#include "desktop/editors/MomentEdit.h"

#include "desktop/editors/LocaleMoments.h"
#include "desktop/icons/IconGlyphs.h"

#include <QAction>
#include <QCalendarWidget>
#include <QKeyEvent>
#include <QScreen>

namespace desktop {

namespace {

constexpr QColor c_refused(0xC0, 0x2F, 0x2F);
/// Moments of a product are in these years.
constexpr int c_firstYear = 1;
constexpr int c_lastYear = 9999;

} // namespace

MomentEdit::MomentEdit(const EditorRequest& request, QWidget* parent) : QLineEdit(parent) {
    setPlaceholderText(request.hint);
    setText(FormatMoment(ReadMoment(request.value.toString())));
    const QAction* const calendar =
        addAction(glyphs::MakeIcon(glyphs::Calendar), QLineEdit::TrailingPosition);
    connect(calendar, &QAction::triggered, this, &MomentEdit::OpenCalendar);
    connect(this, &QLineEdit::textChanged, this, &MomentEdit::ShowWhetherDate);
}

std::optional<QVariant> MomentEdit::TakeInput() const {
    if (!isModified())
        return std::nullopt;
    const QDateTime moment = ParseMoment(text());
    return moment.isValid() ? WriteMoment(moment) : text().trimmed();
}

QDateTime MomentEdit::Present() const {
    const QDateTime moment = ParseMoment(text());
    return moment.isValid() ? moment : QDateTime(QDate::currentDate(), QTime(0, 0), Qt::UTC);
}

void MomentEdit::Put(const QDateTime& moment) {
    if (moment.date().year() < c_firstYear || moment.date().year() > c_lastYear)
        return;
    selectAll();
    insert(FormatMoment(moment));
    selectAll();
}

void MomentEdit::OpenCalendar() {
    // A child, so that the keys that it has are still with the editor.
    auto* const calendar = new QCalendarWidget(this);
    calendar->setWindowFlag(Qt::Popup);
    calendar->setAttribute(Qt::WA_DeleteOnClose);
    calendar->setDateRange(QDate(c_firstYear, 1, 1), QDate(c_lastYear, 12, 31));
    calendar->setSelectedDate(Present().date());
    const auto take = [this, calendar](const QDate& date) {
        Put(QDateTime(date, Present().time(), Qt::UTC));
        calendar->close();
    };
    connect(calendar, &QCalendarWidget::clicked, this, take);
    connect(calendar, &QCalendarWidget::activated, this, take);
    const QPoint below = mapToGlobal(QPoint(0, height()));
    const int room = calendar->sizeHint().height();
    const bool hasRoom = below.y() + room <= screen()->availableGeometry().bottom();
    calendar->move(hasRoom ? below : mapToGlobal(QPoint(0, -room)));
    calendar->show();
    calendar->setFocus();
}

void MomentEdit::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Up:
        return Put(Present().addDays(1));
    case Qt::Key_Down:
        return event->modifiers() == Qt::AltModifier ? OpenCalendar() : Put(Present().addDays(-1));
    case Qt::Key_PageUp:
        return Put(Present().addMonths(1));
    case Qt::Key_PageDown:
        return Put(Present().addMonths(-1));
    default:
        QLineEdit::keyPressEvent(event);
    }
}

void MomentEdit::ShowWhetherDate() {
    QPalette colours = parentWidget()->palette();
    if (!text().trimmed().isEmpty() && !ParseMoment(text()).isValid())
        colours.setColor(QPalette::Text, c_refused);
    setPalette(colours);
}

} // namespace desktop
