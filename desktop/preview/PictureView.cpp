#include "desktop/preview/PictureView.h"

#include <QPainter>

#include <algorithm>

namespace desktop {

namespace {

constexpr int c_turnTime = 80;
constexpr int c_turnAngle = 30;
/// As many turns pass before the mark is seen.
constexpr int c_turnsBefore = 3;
constexpr int c_markSize = 22;
constexpr int c_markWidth = 3;
constexpr int c_markLength = 270;
constexpr int c_margin = 4;
/// The toolkit counts angles in sixteenths.
constexpr int c_degree = 16;

} // namespace

PictureView::PictureView(QWidget* parent) : QWidget(parent) {
    setBackgroundRole(QPalette::Base);
    setAutoFillBackground(true);
    m_turning.setInterval(c_turnTime);
    connect(&m_turning, &QTimer::timeout, this, &PictureView::Turn);
}

void PictureView::ShowPicture(const QImage& picture, QSize room) {
    SetBusy(false);
    m_picture = picture;
    m_room = room;
    m_text.clear();
    setAccessibleDescription({});
    update();
}

void PictureView::ShowText(const QString& text) {
    SetBusy(false);
    m_picture = {};
    m_text = text;
    setAccessibleDescription(text);
    update();
}

void PictureView::Clear() {
    ShowText({});
}

void PictureView::SetBusy(bool isBusy) {
    if (isBusy == m_turning.isActive())
        return;
    m_angle = -c_turnsBefore * c_turnAngle;
    if (isBusy)
        m_turning.start();
    else
        m_turning.stop();
    update();
}

void PictureView::Turn() {
    m_angle = m_angle < 0 ? m_angle + c_turnAngle : (m_angle + c_turnAngle) % 360;
    update();
}

QRect PictureView::FindPlace() const {
    const QSizeF present = QSizeF(size()) * devicePixelRatioF();
    const double share =
        std::min(present.width() / m_room.width(), present.height() / m_room.height());
    const QSize shown = (QSizeF(m_picture.size()) * share / devicePixelRatioF()).toSize();
    return {QPoint((width() - shown.width()) / 2, (height() - shown.height()) / 2), shown};
}

void PictureView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    if (HasPicture() && !m_room.isEmpty())
        painter.drawImage(FindPlace(), m_picture);
    if (!m_text.isEmpty()) {
        painter.setPen(palette().color(QPalette::PlaceholderText));
        painter.drawText(rect().marginsRemoved({c_margin, c_margin, c_margin, c_margin}),
                         Qt::AlignCenter | Qt::TextWordWrap, m_text);
    }
    if (m_turning.isActive() && m_angle >= 0)
        PaintMark(painter);
}

void PictureView::PaintMark(QPainter& painter) const {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(
        QPen(palette().color(QPalette::Highlight), c_markWidth, Qt::SolidLine, Qt::RoundCap));
    QRect mark(0, 0, c_markSize, c_markSize);
    mark.moveCenter(rect().center());
    painter.drawArc(mark, -m_angle * c_degree, c_markLength * c_degree);
}

} // namespace desktop
