// Rows that the document wants the user to look at. They are unfolded into view, flash a few times
// and stay tinted until Escape, or the next key or click in the tree. One belongs to one tree; who
// knows which rows these are, and what is to happen when the user has seen them, is somebody else.
#pragma once

#include <QColor>
#include <QObject>
#include <QTimer>

#include <functional>
#include <unordered_set>
#include <vector>

class QPalette;

namespace platform {
class TreeTableRow;
}

namespace desktop {

class PanelTree;

class HighlightedRows final : public QObject {
    Q_OBJECT

public:
    /// Answers which rows these are; asked again when rows were replaced.
    using Find = std::function<std::vector<platform::TreeTableRow*>()>;

    explicit HighlightedRows(PanelTree& tree);

    /// Where none are found they have ended at once.
    void Show(Find find);
    /// Tells nobody.
    void Hide();
    bool AreShown() const { return static_cast<bool>(m_find); }

    // For the tree.
    bool Has(const platform::TreeTableRow& row) const { return m_rows.contains(&row); }
    /// The ground of these rows at the moment.
    QColor GetGround(const QPalette& palette) const;
    /// Rows are about to be replaced; afterwards they are looked for again.
    void OnRowsGoing() { m_rows.clear(); }
    void OnRowsChanged();

signals:
    /// The user is done with them, or all of them are gone.
    void Ended();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// False when there are none.
    bool FindRows();
    void BringIntoView();
    void Pulse();
    void End();

    PanelTree& m_tree;
    Find m_find;
    std::unordered_set<const platform::TreeTableRow*> m_rows;
    QTimer m_timer;
    int m_phase = 0;
};

} // namespace desktop
