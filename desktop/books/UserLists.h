// The user's lists of texts in one file of his, which he may edit by other means, too: revision
// letters and the people who sign. A list that the file does not have is the program's own. Knows
// no dialog; docs/user-lists.md describes the file.
#pragma once

#include "platform/services/UserPopupMenus.h"

#include <QString>

#include <functional>

namespace desktop {

inline constexpr int c_mostListTexts = 500;
inline constexpr int c_longestListText = 200;

class UserLists final : public platform::IUserLists {
public:
    /// The file need not be there.
    explicit UserLists(QString file) : m_file(std::move(file)) {}
    /// In the place for what users set.
    static QString GetUsualFile();

    /// Who tells the user that the lists can't be read, at once if that has happened already.
    void SetListener(std::function<void(const QString& fault)> listener);

    platform::UserListReading Read(TeeTypPopupIns list) override;
    /// All else in the file stays as it is.
    SharedText Write(TeeTypPopupIns list, const std::vector<SharedText>& texts) override;
    void NoteUnreadable(const SharedText& fault) override;

private:
    QString m_file;
    QString m_fault;
    std::function<void(const QString&)> m_listener;
};

} // namespace desktop
