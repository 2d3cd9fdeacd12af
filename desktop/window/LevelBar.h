// Where in a product with assemblies in it the user is: the names of the assemblies that he has
// opened one in the other. A click on one goes back to it.
#pragma once

#include <QStringList>
#include <QWidget>

class QLabel;
class QToolButton;

namespace desktop {

class LevelBar final : public QWidget {
    Q_OBJECT

public:
    explicit LevelBar(QWidget* parent = nullptr);

    /// From the product to what is shown.
    void ShowWay(const QStringList& names, bool areAllParts);

signals:
    /// The place of the name among those that are shown.
    void Chosen(int entry);

private:
    QToolButton* m_up;
    QLabel* m_way;
    int m_above = -1;
};

} // namespace desktop
