#include "desktop/editors/DesignationEdit.h"

#include "host/VariantMarking.h"

#include <QApplication>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>

#include <algorithm>

namespace desktop {

namespace {

struct PartLook {
    /// How many wide letters the part has room for at least.
    int letters;
    bool isDelimiter;
};

constexpr std::array<PartLook, DesignationEdit::c_partCount> c_parts = {{
    {9, false},
    {1, true},
    {2, false},
    {1, true},
    {2, false},
    {1, true},
    {3, false},
}};
constexpr double c_labelSize = 0.8;
constexpr int c_labelRoom = 6;
/// What the frame and the cursor of a line take beside the letters.
constexpr int c_lineRoom = 9;

} // namespace

DesignationEdit::DesignationEdit(const EditorRequest& request, QWidget* parent) : QFrame(parent) {
    setFrameShape(QFrame::StyledPanel);
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::Base);
    auto* const layout = new QGridLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(1);
    layout->setColumnStretch(0, 1);
    layout->setRowStretch(0, 1);
    for (int part = 0; part < c_partCount; ++part) {
        QLineEdit* const line = MakePart(part, request);
        layout->addWidget(line, 0, part);
        layout->addWidget(MakeLabel(LabelOf(part, request), *line), 1, part);
        m_parts[static_cast<std::size_t>(part)] = line;
        if (!focusProxy() && line->isEnabled())
            setFocusProxy(line);
    }
}

QLineEdit* DesignationEdit::MakePart(int part, const EditorRequest& request) {
    const PartLook& look = c_parts[static_cast<std::size_t>(part)];
    const QStringList texts = request.value.toStringList();
    auto* const line = new QLineEdit(texts.value(part), this);
    const int width = look.letters * fontMetrics().horizontalAdvance(QLatin1Char('0')) + c_lineRoom;
    if (part == 0)
        line->setMinimumWidth(width);
    else
        line->setFixedWidth(std::max(
            width,
            look.isDelimiter ? 0 : fontMetrics().horizontalAdvance(line->text()) + c_lineRoom));
    if (look.isDelimiter) {
        line->setMaxLength(1);
        line->setAlignment(Qt::AlignCenter);
    }
    line->setModified(false);
    line->setSizePolicy(line->sizePolicy().horizontalPolicy(), QSizePolicy::Ignored);
    line->setEnabled(!request.lockedParts.contains(part + 1));
    line->setToolTip(LabelOf(part, request));
    line->installEventFilter(this);
    return line;
}

QString DesignationEdit::LabelOf(int part, const EditorRequest& request) {
    const auto place = static_cast<std::size_t>(part);
    if (c_parts[place].isDelimiter)
        return tr("Delimiter");
    return place < request.partTips.size() ? request.partTips[place] : QString();
}

QLabel* DesignationEdit::MakeLabel(const QString& text, QLineEdit& line) {
    auto* const label = new QLabel(text, this);
    label->setTextFormat(Qt::PlainText);
    label->setForegroundRole(QPalette::PlaceholderText);
    QFont font = label->font();
    font.setPointSizeF(font.pointSizeF() * c_labelSize);
    label->setFont(font);
    label->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    label->setContentsMargins(1, 0, c_labelRoom, 0);
    label->setBuddy(&line);
    return label;
}

int DesignationEdit::GetLabelHeight() const {
    int height = 0;
    for (const QLabel* const label : findChildren<QLabel*>())
        height = std::max(height, label->sizeHint().height());
    return height;
}

void DesignationEdit::TakeApart(bool replacesOthers) {
    const bool isAlone =
        std::all_of(m_parts.begin() + 1, m_parts.end(), [&](const QLineEdit* line) {
            return line->isEnabled() && (replacesOthers || line->text().isEmpty());
        });
    VariantMarking marking;
    marking.Parse(SharedText(m_parts.front()->text().toStdWString()));
    if (!isAlone || marking.GetBase().Str().size() ==
                        static_cast<std::size_t>(m_parts.front()->text().toStdWString().size()))
        return;
    const auto delim = [](wchar_t c) { return c == 0 ? QString() : QString(QChar(char16_t(c))); };
    const auto text = [](const SharedText& part) { return QString::fromStdWString(part.Str()); };
    const QString texts[] = {
        text(marking.GetBase()),          delim(marking.GetEmbodimentNumDelim()),
        text(marking.GetEmbodimentNum()), delim(marking.GetAdditionalNumDelim()),
        text(marking.GetAdditionalNum()), delim(marking.GetCodeDelim()),
        text(marking.GetCode())};
    for (std::size_t part = 0; part < m_parts.size(); ++part) {
        m_parts[part]->setText(texts[part]);
        m_parts[part]->setModified(true);
    }
}

std::optional<QVariant> DesignationEdit::TakeInput() const {
    if (std::none_of(m_parts.begin(), m_parts.end(),
                     [](const QLineEdit* line) { return line->isModified(); }))
        return std::nullopt;
    QStringList texts;
    for (const QLineEdit* line : m_parts)
        texts += line->text();
    return texts;
}

bool DesignationEdit::eventFilter(QObject* watched, QEvent* event) {
    const auto& part = static_cast<const QLineEdit&>(*watched);
    if (event->type() == QEvent::KeyPress)
        return OnKey(part, *static_cast<QKeyEvent*>(event));
    // Escape would be taken for a shortcut of the window otherwise.
    if (event->type() == QEvent::ShortcutOverride &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape)
        event->accept();
    // The focus may be on its way to another part.
    if (event->type() == QEvent::FocusOut)
        QMetaObject::invokeMethod(this, &DesignationEdit::CheckFocus, Qt::QueuedConnection);
    return QFrame::eventFilter(watched, event);
}

bool DesignationEdit::OnKey(const QLineEdit& part, const QKeyEvent& event) {
    QLineEdit& first = *m_parts.front();
    if (&part == &first && event.matches(QKeySequence::Paste) &&
        first.selectedText() == first.text()) {
        first.paste();
        TakeApart(true);
        return true;
    }
    switch (event.key()) {
    case Qt::Key_Tab:
        if (&part == &first)
            TakeApart(false);
        GoOn(part, 1);
        return true;
    case Qt::Key_Backtab:
        GoOn(part, -1);
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        TakeApart(false);
        emit Left(QAbstractItemDelegate::SubmitModelCache);
        return true;
    case Qt::Key_Escape:
        emit Left(QAbstractItemDelegate::RevertModelCache);
        return true;
    default:
        return false;
    }
}

void DesignationEdit::GoOn(const QLineEdit& from, int direction) {
    const auto place = std::find(m_parts.begin(), m_parts.end(), &from) - m_parts.begin();
    for (auto next = place + direction; next >= 0 && next < c_partCount; next += direction) {
        QLineEdit& line = *m_parts[static_cast<std::size_t>(next)];
        if (!line.isEnabled())
            continue;
        line.setFocus(Qt::TabFocusReason);
        line.selectAll();
        return;
    }
    emit Left(direction > 0 ? QAbstractItemDelegate::EditNextItem
                            : QAbstractItemDelegate::EditPreviousItem);
}

void DesignationEdit::CheckFocus() {
    const QWidget* focus = QApplication::focusWidget();
    const bool isElsewhere =
        focus && focus != this && !isAncestorOf(focus) && focus->window() == window();
    // A menu of a part is no other place; nor is another window, from which the user comes back.
    if (isVisible() && isElsewhere && !QApplication::activePopupWidget())
        emit Left(QAbstractItemDelegate::NoHint);
}

} // namespace desktop
