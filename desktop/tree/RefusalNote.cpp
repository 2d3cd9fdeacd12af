#include "desktop/tree/RefusalNote.h"

#include <algorithm>

namespace desktop {

namespace {

constexpr int c_room = 5;
constexpr QColor c_refused(0xC0, 0x2F, 0x2F);
constexpr QColor c_letters(0xFF, 0xFF, 0xFF);
/// How much of the colour is seen behind the letters of the editor.
constexpr float c_tint = 0.18F;

QColor Tinted(const QColor& ground) {
    const auto mix = [](float a, float b) { return a + (b - a) * c_tint; };
    return QColor::fromRgbF(mix(ground.redF(), c_refused.redF()),
                            mix(ground.greenF(), c_refused.greenF()),
                            mix(ground.blueF(), c_refused.blueF()));
}

} // namespace

RefusalNote::RefusalNote(QWidget* parent) : QLabel(parent) {
    QPalette colours = palette();
    colours.setColor(QPalette::Window, c_refused);
    colours.setColor(QPalette::WindowText, c_letters);
    setPalette(colours);
    setAutoFillBackground(true);
    setTextFormat(Qt::PlainText);
    setContentsMargins(c_room, c_room / 2, c_room, c_room / 2);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    hide();
}

void RefusalNote::ShowBeside(QWidget& editor, const QString& reason) {
    Hide();
    m_editor = &editor;
    QPalette colours = editor.palette();
    colours.setColor(QPalette::Base, Tinted(colours.color(QPalette::Base)));
    editor.setPalette(colours);
    setText(reason);
    adjustSize();
    const QPoint below = editor.mapTo(parentWidget(), QPoint(0, editor.height() + 1));
    const QPoint above = editor.mapTo(parentWidget(), QPoint(0, -height() - 1));
    const bool hasRoom = below.y() + height() <= parentWidget()->height();
    const int left = std::min(below.x(), std::max(0, parentWidget()->width() - width()));
    move(left, hasRoom ? below.y() : above.y());
    show();
    raise();
}

void RefusalNote::Hide() {
    hide();
    if (m_editor && m_editor->parentWidget())
        m_editor->setPalette(m_editor->parentWidget()->palette());
    m_editor = nullptr;
}

} // namespace desktop
