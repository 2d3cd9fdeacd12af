// Lets the user choose a material from the book for one or several objects, with density and mass.
// The book is looked after here, too: materials are added, changed and removed.
#pragma once

#include "platform/services/UserDecisions.h"

#include <QDialog>

class QLabel;
class QPushButton;

namespace desktop {

class MaterialBook;
class MaterialFields;
class MaterialFinder;
struct Material;

class MaterialDialog final : public QDialog {
    Q_OBJECT

public:
    /// Both must outlive the dialog.
    MaterialDialog(const platform::MaterialRequest& request, MaterialBook& book,
                   QWidget* parent = nullptr);

    platform::MaterialDecision GetDecision() const;

    void accept() override;

private:
    QWidget* MakeBookButtons();
    void TellProblems();
    void OnCurrentChanged();
    void AddMaterial();
    void ChangeMaterial();
    void RemoveMaterial();
    /// Shows the book anew and comes to that material.
    void TakeUp(const Material& material);
    void Refuse(const QString& reason);
    QStringList ListClasses() const;

    const platform::MaterialRequest& m_request;
    MaterialBook& m_book;
    MaterialFinder* m_finder;
    MaterialFields* m_fields;
    QPushButton* m_change;
    QPushButton* m_remove;
    QLabel* m_problems;
    QLabel* m_refusal;
};

} // namespace desktop
