// A field for a range of embodiments, with a check list of blocks that opens below it and stays
// open while blocks are checked. It keeps nothing but what it is shown and the text that is being
// typed.
#pragma once

#include <QComboBox>

#include <optional>
#include <vector>

class QFrame;
class QListWidget;

namespace desktop {

class EmbodimentCombo final : public QComboBox {
    Q_OBJECT

public:
    struct Line {
        QString text;
        /// No value: mixed.
        std::optional<bool> isChecked;
    };

    explicit EmbodimentCombo(QWidget* parent = nullptr);

    /// What is being typed stays unless the text that it stands in place of is another one now.
    void Show(const QString& text, const std::vector<Line>& lines);
    /// What was typed is forgotten.
    void GiveBack();
    void showPopup() override;
    void hidePopup() override;

signals:
    /// By Enter, or because the user has gone elsewhere; also where nothing was changed.
    void Entered(const QString& text);
    /// The line is to be checked, or not to be any more.
    void Checked(const QString& line, bool checked);

protected:
    /// Escape gives the text back that stood here.
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool OnListKey(int key);
    void Turn(int line);

    /// The text as it was shown last.
    QString m_text;
    QFrame* m_popup;
    QListWidget* m_list;
};

} // namespace desktop
