// Line breaks and other control characters as letters that a line of text can show. What the user
// does not touch comes back as it was.
#pragma once

#include <QString>

namespace desktop {

class ControlPictures {
public:
    /// `original` is the text that is to be edited. Where it holds such letters itself, nothing is
    /// replaced: they could not be told apart afterwards.
    explicit ControlPictures(const QString& original);

    QString Show(QString text) const;
    QString Restore(QString text) const;

private:
    bool m_areUsed;
};

} // namespace desktop
