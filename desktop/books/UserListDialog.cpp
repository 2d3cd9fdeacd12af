#include "desktop/books/UserListDialog.h"

#include "desktop/books/UserLists.h"

#include <QAbstractItemDelegate>
#include <QApplication>
#include <QClipboard>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QRegularExpression>
#include <QSet>
#include <QShortcut>
#include <QVBoxLayout>

#include <algorithm>
#include <iterator>
#include <utility>

namespace desktop {

namespace {

constexpr QSize c_usualSize(420, 440);
/// More than any list holds.
constexpr qsizetype c_largestPaste = 1'000'000;

QString ToQString(const SharedText& text) {
    return QString::fromStdWString(text.Str());
}

QStringList ToStrings(const std::vector<SharedText>& texts) {
    QStringList strings;
    for (const SharedText& text : texts)
        strings += ToQString(text);
    return strings;
}

/// Without empty lines and needless blanks.
QStringList SplitLines(const QString& text) {
    static const QRegularExpression c_ends(
        QStringLiteral("[\\n\\r\\x0B\\x0C\\x85\\x{2028}\\x{2029}]"));
    static const QRegularExpression c_controls(QStringLiteral("\\p{Cc}"));
    QStringList lines;
    for (const QString& line : text.split(c_ends, Qt::SkipEmptyParts)) {
        const QString one = line.simplified().remove(c_controls);
        if (!one.isEmpty())
            lines += one;
    }
    return lines;
}

QString TitleOf(TeeTypPopupIns list) {
    return list == UserPopupParticipant ? UserListDialog::tr("People who sign")
                                        : UserListDialog::tr("Revision letters");
}

} // namespace

UserListDialog::UserListDialog(platform::IUserLists& lists, TeeTypPopupIns list, QWidget* parent)
    : QDialog(parent), m_lists(lists), m_list(list), m_texts(new QListWidget), m_note(new QLabel) {
    setWindowTitle(TitleOf(list));
    m_note->setWordWrap(true);
    m_note->setTextFormat(Qt::PlainText);
    m_texts->setEditTriggers(QAbstractItemView::NoEditTriggers);

    auto* const commands = new QVBoxLayout;
    AddCommand(*commands, tr("&Add"), Qt::Key_Insert, &UserListDialog::Add);
    m_change = AddCommand(*commands, tr("&Change"), Qt::Key_F2, &UserListDialog::Change);
    m_remove = AddCommand(*commands, tr("&Remove"), Qt::Key_Delete, &UserListDialog::Remove);
    m_up = AddCommand(*commands, tr("Move U&p"), Qt::ALT | Qt::Key_Up, &UserListDialog::MoveUp);
    m_down =
        AddCommand(*commands, tr("Move &Down"), Qt::ALT | Qt::Key_Down, &UserListDialog::MoveDown);
    AddCommand(*commands, tr("Paste &Lines"), QKeySequence::Paste, &UserListDialog::Paste);
    commands->addStretch();
    auto* const middle = new QHBoxLayout;
    middle->addWidget(m_texts, 1);
    middle->addLayout(commands);
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    m_use = buttons->addButton(tr("&Use"), QDialogButtonBox::ActionRole);
    m_use->setToolTip(tr("Writes the list and takes the current text"));
    auto* const layout = new QVBoxLayout(this);
    layout->addLayout(middle, 1);
    layout->addWidget(m_note);
    layout->addWidget(buttons);
    // Only a button of the dialog can be made the one for Enter.
    m_use->setDefault(true);
    resize(c_usualSize);

    connect(m_texts, &QListWidget::currentRowChanged, this, &UserListDialog::ShowWhatCanBeDone);
    connect(m_texts, &QListWidget::itemDoubleClicked, this, &UserListDialog::Use);
    // The editor is still there when it says so.
    connect(m_texts->itemDelegate(), &QAbstractItemDelegate::closeEditor, this,
            &UserListDialog::TakeEdited, Qt::QueuedConnection);
    connect(m_use, &QPushButton::clicked, this, &UserListDialog::Use);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    const platform::UserListReading reading = lists.Read(list);
    m_read = ToStrings(reading.texts);
    Fill(m_read);
    if (!reading.fault.IsEmpty()) {
        Tell(ToQString(reading.fault));
        for (QPushButton* const button : findChildren<QPushButton*>())
            button->setEnabled(button == buttons->button(QDialogButtonBox::Cancel));
        m_texts->setEnabled(false);
    }
    m_texts->setFocus();
}

QPushButton* UserListDialog::AddCommand(QVBoxLayout& column, const QString& text,
                                        const QKeySequence& key, void (UserListDialog::*run)()) {
    auto* const button = new QPushButton(text);
    button->setToolTip(key.toString(QKeySequence::NativeText));
    button->setAutoDefault(false);
    column.addWidget(button);
    connect(button, &QPushButton::clicked, this, run);
    // Not for an editor in the list, which has the keys itself.
    auto* const shortcut = new QShortcut(key, m_texts, nullptr, nullptr, Qt::WidgetShortcut);
    connect(shortcut, &QShortcut::activated, button, &QPushButton::click);
    return button;
}

void UserListDialog::Fill(const QStringList& texts) {
    for (const QString& text : texts) {
        auto* const item = new QListWidgetItem(text, m_texts);
        item->setFlags(item->flags() | Qt::ItemIsEditable);
    }
    m_texts->setCurrentRow(texts.isEmpty() ? -1 : 0);
    ShowWhatCanBeDone();
}

void UserListDialog::Add() {
    TakeEdited();
    if (m_texts->count() >= c_mostListTexts) {
        Tell(tr("A list holds at most %1 texts").arg(c_mostListTexts));
        return;
    }
    const int row = m_texts->currentRow() + 1;
    auto* const item = new QListWidgetItem;
    item->setFlags(item->flags() | Qt::ItemIsEditable);
    m_texts->insertItem(row, item);
    Edit(row);
}

void UserListDialog::Change() {
    TakeEdited();
    if (m_texts->currentItem())
        Edit(m_texts->currentRow());
}

void UserListDialog::Remove() {
    TakeEdited();
    Tell({});
    delete m_texts->takeItem(m_texts->currentRow());
    ShowWhatCanBeDone();
}

void UserListDialog::Move(int by) {
    TakeEdited();
    const int row = m_texts->currentRow();
    if (row < 0 || row + by < 0 || row + by >= m_texts->count())
        return;
    m_texts->insertItem(row + by, m_texts->takeItem(row));
    m_texts->setCurrentRow(row + by);
}

void UserListDialog::Paste() {
    TakeEdited();
    const QString text = QApplication::clipboard()->text();
    if (text.size() > c_largestPaste)
        Tell(tr("What is to be pasted is too long for a list"));
    else
        AddLines(SplitLines(text), m_texts->currentRow() + 1);
}

void UserListDialog::Use() {
    TakeEdited();
    const QListWidgetItem* const item = m_texts->currentItem();
    if (!item || !Save(true))
        return;
    m_choice = SharedText(item->text().toStdWString());
    QDialog::accept();
}

void UserListDialog::accept() {
    TakeEdited();
    if (Save(false))
        QDialog::accept();
}

void UserListDialog::Edit(int row) {
    Tell({});
    m_edited = m_texts->item(row);
    m_before = m_edited->text();
    m_texts->setCurrentRow(row);
    m_texts->editItem(m_edited);
    ShowWhatCanBeDone();
}

void UserListDialog::TakeEdited() {
    if (!m_edited)
        return;
    // Whatever is still typed there is taken by leaving it.
    m_texts->setFocus();
    QListWidgetItem* const item = std::exchange(m_edited, nullptr);
    const int row = m_texts->row(item);
    QStringList lines = SplitLines(item->text());
    if (m_before.isEmpty()) {
        delete m_texts->takeItem(row);
        AddLines(lines, row);
        return;
    }
    item->setText(m_before);
    if (lines.isEmpty()) {
        Tell(tr("An empty text is no text of a list; Remove takes a text away"));
        return;
    }
    const QString first = lines.takeFirst();
    if (first == m_before || (FindRow(first) < 0 && first.size() <= c_longestListText))
        item->setText(first);
    else
        lines.prepend(first);
    AddLines(lines, row + 1);
}

void UserListDialog::AddLines(const QStringList& lines, int row) {
    int present = 0;
    int tooLong = 0;
    int tooMany = 0;
    int added = 0;
    const QStringList texts = GetTexts();
    QSet<QString> known(texts.begin(), texts.end());
    for (const QString& line : lines) {
        if (known.contains(line)) {
            ++present;
        } else if (line.size() > c_longestListText) {
            ++tooLong;
        } else if (m_texts->count() >= c_mostListTexts) {
            ++tooMany;
        } else {
            auto* const item = new QListWidgetItem(line);
            item->setFlags(item->flags() | Qt::ItemIsEditable);
            m_texts->insertItem(row + added++, item);
            known.insert(line);
        }
    }
    if (added > 0)
        m_texts->setCurrentRow(row + added - 1);
    else if (lines.size() == 1 && present == 1)
        m_texts->setCurrentRow(FindRow(lines.front()));
    QStringList notes;
    if (present > 0)
        notes += lines.size() == 1 ? tr("%1 is in the list already").arg(lines.front())
                                   : tr("%1 of the lines are in the list already").arg(present);
    if (tooLong > 0)
        notes += tr("%1 of the lines have more than %2 characters and are left out")
                     .arg(tooLong)
                     .arg(c_longestListText);
    if (tooMany > 0)
        notes += tr("%1 of the lines are left out: a list holds at most %2 texts")
                     .arg(tooMany)
                     .arg(c_mostListTexts);
    Tell(notes.join(QStringLiteral(". ")));
    ShowWhatCanBeDone();
}

int UserListDialog::FindRow(const QString& text) const {
    for (int i = 0; i < m_texts->count(); ++i) {
        if (m_texts->item(i)->text() == text)
            return i;
    }
    return -1;
}

QStringList UserListDialog::GetTexts() const {
    QStringList texts;
    for (int i = 0; i < m_texts->count(); ++i)
        texts += m_texts->item(i)->text();
    return texts;
}

bool UserListDialog::Save(bool isUsed) {
    if (!isUsed && GetTexts() == m_read)
        return true;
    const platform::UserListReading reading = m_lists.Read(m_list);
    if (!reading.fault.IsEmpty()) {
        Tell(ToQString(reading.fault));
        return false;
    }
    const QStringList now = ToStrings(reading.texts);
    // A list that was deleted is written again.
    if (!reading.isStandard && now != m_read) {
        QStringList added;
        std::ranges::copy_if(now, std::back_inserter(added), [&](const QString& text) {
            return !m_read.contains(text) && FindRow(text) < 0;
        });
        m_read = now;
        AddLines(added, m_texts->count());
        Tell(tr("Somebody else has changed the list meanwhile. What he has added stands at the end "
                "now; OK writes the list as you see it."));
        return false;
    }
    if (GetTexts() == now)
        return true;
    std::vector<SharedText> texts;
    for (const QString& text : GetTexts())
        texts.emplace_back(text.toStdWString());
    const SharedText fault = m_lists.Write(m_list, texts);
    Tell(ToQString(fault));
    return fault.IsEmpty();
}

void UserListDialog::Tell(const QString& note) {
    m_note->setText(note);
}

void UserListDialog::ShowWhatCanBeDone() {
    const int row = m_texts->currentRow();
    m_use->setEnabled(row >= 0);
    m_change->setEnabled(row >= 0);
    m_remove->setEnabled(row >= 0);
    m_up->setEnabled(row > 0);
    m_down->setEnabled(row >= 0 && row + 1 < m_texts->count());
}

std::optional<int> ChooseFromUserList(QWidget* parent, TeeTypPopupIns list) {
    platform::IUserLists* const lists = platform::GetUserLists();
    if (!lists)
        return std::nullopt;
    UserListDialog dialog(*lists, list, parent);
    dialog.exec();
    platform::RefillUserPopupMenus(list);
    const std::optional<SharedText>& choice = dialog.GetChoice();
    return choice ? platform::FindUserPopupCommand(list, *choice) : std::nullopt;
}

} // namespace desktop
