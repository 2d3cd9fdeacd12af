// Lets the user choose the section of a specification that an object stands in, from the tree of
// all that there are, and whether the object's name follows it.
#pragma once

#include "platform/services/UserDecisions.h"

#include <QDialog>

class QCheckBox;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

namespace desktop {

class SectionDialog final : public QDialog {
    Q_OBJECT

public:
    explicit SectionDialog(const platform::SectionRequest& request, QWidget* parent = nullptr);

    /// No value while no section is chosen.
    std::optional<platform::SectionDecision> GetDecision() const;

private:
    void Fill(const platform::SectionRequest& request);
    void OnChosen();

    QTreeWidget* m_sections;
    QCheckBox* m_nameLink;
    QPushButton* m_accept;
};

} // namespace desktop
