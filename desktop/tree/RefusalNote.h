// The reason for which an input was refused, beside the editor that still holds it.
#pragma once

#include <QLabel>
#include <QPointer>

namespace desktop {

class RefusalNote final : public QLabel {
    Q_OBJECT

public:
    explicit RefusalNote(QWidget* parent);

    /// Below the editor, or above it where there is no room. The editor is coloured until Hide.
    void ShowBeside(QWidget& editor, const QString& reason);
    void Hide();

private:
    QPointer<QWidget> m_editor;
};

} // namespace desktop
