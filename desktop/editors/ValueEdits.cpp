#include "desktop/editors/ValueEdits.h"

#include "desktop/editors/LocaleNumbers.h"
#include "desktop/icons/IconGlyphs.h"

#include <QAction>
#include <QKeyEvent>

#include <limits>

namespace desktop {

namespace {

constexpr QColor c_refused(0xC0, 0x2F, 0x2F);

/// Longer than any text that a product takes: what is too long is refused as a whole, never cut.
constexpr int c_longestText = 1'000'000;

QString ToText(const QVariant& number) {
    if (!number.isValid())
        return {};
    // What was typed for a number and is none.
    if (number.typeId() == QMetaType::QString)
        return number.toString();
    return number.typeId() == QMetaType::Int ? FormatNumber(number.toInt())
                                             : FormatNumber(number.toDouble());
}

} // namespace

TextEdit::TextEdit(const EditorRequest& request, QWidget* parent)
    : QLineEdit(parent), m_pictures(request.value.toString()), m_hasMenu(request.hasMenu) {
    setMaxLength(c_longestText);
    setPlaceholderText(request.hint);
    setText(m_pictures.Show(request.value.toString()));
    if (!m_hasMenu)
        return;
    QAction* const menu = addAction(glyphs::MakeIcon(glyphs::Down), QLineEdit::TrailingPosition);
    menu->setToolTip(tr("Choose from a list (Alt+Down)"));
    connect(menu, &QAction::triggered, this, &TextEdit::MenuWanted);
}

std::optional<QVariant> TextEdit::TakeInput() const {
    if (!isModified())
        return std::nullopt;
    return m_pictures.Restore(text());
}

bool TextEdit::TypesLineBreak(const QKeyEvent& event) {
    const bool isEnter = event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
    return isEnter && event.modifiers().testFlag(Qt::ShiftModifier);
}

bool TextEdit::OpensMenu(const QKeyEvent& event) {
    return (event.key() == Qt::Key_Down && event.modifiers() == Qt::AltModifier) ||
           (event.key() == Qt::Key_F4 && event.modifiers() == Qt::NoModifier);
}

bool TextEdit::event(QEvent* event) {
    // The window has the same keys for something else.
    if (m_hasMenu && event->type() == QEvent::ShortcutOverride &&
        OpensMenu(*static_cast<QKeyEvent*>(event))) {
        event->accept();
        return true;
    }
    return QLineEdit::event(event);
}

void TextEdit::keyPressEvent(QKeyEvent* event) {
    if (m_hasMenu && OpensMenu(*event)) {
        emit MenuWanted();
        return;
    }
    if (TypesLineBreak(*event)) {
        insert(m_pictures.Show(QStringLiteral("\n")));
        return;
    }
    QLineEdit::keyPressEvent(event);
}

NumberEdit::NumberEdit(const EditorRequest& request, QWidget* parent)
    : QLineEdit(parent), m_request(request) {
    setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    setPlaceholderText(request.hint);
    setText(ToText(request.value));
    connect(this, &QLineEdit::textChanged, this, &NumberEdit::ShowWhetherNumber);
}

std::optional<QVariant> NumberEdit::TakeInput() const {
    if (!isModified())
        return std::nullopt;
    const std::optional<QVariant> number = Parse();
    return number ? *number : QVariant(text());
}

std::optional<QVariant> NumberEdit::Parse() const {
    if (text().trimmed().isEmpty())
        return QVariant();
    if (IsWhole()) {
        const std::optional<int> number = ParseInt(text());
        return number ? std::optional(QVariant(*number)) : std::nullopt;
    }
    const std::optional<double> number = ParseDouble(text());
    return number ? std::optional(QVariant(*number)) : std::nullopt;
}

void NumberEdit::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Up)
        Step(m_request.step);
    else if (event->key() == Qt::Key_Down)
        Step(-m_request.step);
    else
        QLineEdit::keyPressEvent(event);
}

void NumberEdit::Step(double by) {
    const std::optional<QVariant> number = Parse();
    if (!number)
        return;
    const double next = number->toDouble() + by;
    const bool fits = !IsWhole() || (next >= std::numeric_limits<int>::min() &&
                                     next <= std::numeric_limits<int>::max());
    if (!fits)
        return;
    // As the user's own typing, so that it can be taken back and counts as a change.
    selectAll();
    insert(ToText(IsWhole() ? QVariant(static_cast<int>(next)) : QVariant(next)));
    selectAll();
}

void NumberEdit::ShowWhetherNumber() {
    const std::optional<QVariant> number = Parse();
    QPalette colours = parentWidget()->palette();
    if (!number || (!number->isValid() && !m_request.canBeEmpty))
        colours.setColor(QPalette::Text, c_refused);
    setPalette(colours);
}

ChoiceEdit::ChoiceEdit(const EditorRequest& request, QWidget* parent) : QComboBox(parent) {
    if (request.kind == EditKind::Bool) {
        addItem(tr("Yes"), true);
        addItem(tr("No"), false);
        if (request.canBeEmpty)
            addItem(tr("No value"));
    } else {
        for (int i = 0; i < request.list.size(); ++i)
            addItem(request.list[i], i);
        if (request.canBeEmpty)
            addItem(tr("No value"), -1);
    }
    if (request.value.isValid())
        m_first = findData(request.value);
    setPlaceholderText(request.hint);
    setCurrentIndex(m_first);
}

std::optional<QVariant> ChoiceEdit::TakeInput() const {
    if (currentIndex() == m_first || currentIndex() < 0)
        return std::nullopt;
    return currentData();
}

} // namespace desktop
