// Which embodiments the panel counts: the switch of embodiment mode, and the combo that chooses
// embodiments while it is on. It shows what the view in memory says and hands on what the user does
// to the view; what can't be meant, it refuses itself.
#pragma once

#include <QStringList>
#include <QWidget>

#include <cstdint>

class QAction;

namespace platform {
class TreeTableView;
}

namespace desktop {

class EmbodimentCombo;
class PanelTree;

class EmbodimentBar final : public QWidget {
    Q_OBJECT

public:
    /// `modeSwitch` is the action of the switch, wherever else it stands. An editor that is open in
    /// the tree is committed before anything changes.
    EmbodimentBar(QAction& modeSwitch, PanelTree& tree, QWidget* parent = nullptr);

    /// Also when anything of it has changed. The view may be null; it must outlive its stay here.
    void Show(platform::TreeTableView* view);

    /// The entries of a range list from which no embodiment can come, when there are so many.
    static QStringList FindUnusable(const QString& ranges, std::uint64_t count);

signals:
    /// What the user is to know of the text that he has typed.
    void Told(const QString& text);

private:
    void Switch(bool on);
    void Enter(const QString& text);
    void Check(const QString& line, bool checked);
    std::uint64_t CountEmbodiments() const;
    void ShowAgain();

    QAction& m_switch;
    PanelTree& m_tree;
    EmbodimentCombo* m_combo;
    platform::TreeTableView* m_view = nullptr;
};

} // namespace desktop
