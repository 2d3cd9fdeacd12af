// Lets the user edit one of his lists of texts, and pick one of them at once. What is pasted may be
// several lines. The list is written when the dialog is left by OK or Use, and what somebody else
// has written meanwhile is not lost.
#pragma once

#include "host/SharedText.h"

#include <QDialog>
#include <QStringList>

#include <optional>

class QLabel;
class QListWidget;
class QListWidgetItem;
class QPushButton;
class QVBoxLayout;

enum TeeTypPopupIns : int;

namespace platform {
class IUserLists;
} // namespace platform

namespace desktop {

class UserListDialog final : public QDialog {
    Q_OBJECT

public:
    UserListDialog(platform::IUserLists& lists, TeeTypPopupIns list, QWidget* parent = nullptr);

    /// What the user has picked; no value when he has only edited the list.
    const std::optional<SharedText>& GetChoice() const { return m_choice; }

    void accept() override;

private:
    QPushButton* AddCommand(QVBoxLayout& column, const QString& text, const QKeySequence& key,
                            void (UserListDialog::*run)());
    void Fill(const QStringList& texts);
    void Add();
    void Change();
    void Remove();
    void MoveUp() { Move(-1); }
    void MoveDown() { Move(1); }
    void Move(int by);
    void Paste();
    void Use();

    void Edit(int row);
    /// Takes over what stands in the row that was edited.
    void TakeEdited();
    /// Puts the lines that a text has from that row on, but for those that the list can't take; the
    /// note says which.
    void AddLines(const QStringList& lines, int row);
    int FindRow(const QString& text) const;
    QStringList GetTexts() const;
    /// Writes the list if there is something to write. False: the dialog stays, and says why.
    bool Save(bool isUsed);
    void Tell(const QString& note);
    void ShowWhatCanBeDone();

    platform::IUserLists& m_lists;
    const TeeTypPopupIns m_list;
    /// As the list stood when it was last read.
    QStringList m_read;
    std::optional<SharedText> m_choice;
    /// The row in which an editor is open, with what it holds otherwise; empty: it is a new row.
    QListWidgetItem* m_edited = nullptr;
    QString m_before;
    QListWidget* m_texts;
    QLabel* m_note;
    QPushButton* m_use = nullptr;
    QPushButton* m_change = nullptr;
    QPushButton* m_remove = nullptr;
    QPushButton* m_up = nullptr;
    QPushButton* m_down = nullptr;
};

/// Shows the list to the user in front of the widget. The command of the text that he has picked in
/// the list's menus, which hold from then on what the list does; no value for none.
std::optional<int> ChooseFromUserList(QWidget* parent, TeeTypPopupIns list);

} // namespace desktop
