// One material of the user's book, to be added or changed. The dialog stays until the book has
// taken it or the user gives up.
#pragma once

#include "desktop/books/MaterialBook.h"

#include <QDialog>

#include <functional>

class QComboBox;
class QLabel;
class QLineEdit;

namespace desktop {

class MaterialEntryDialog final : public QDialog {
    Q_OBJECT

public:
    /// Empty: the book has it now; else why not.
    using Take = std::function<QString(const Material&)>;

    /// The user may write a material without a density yet, which is 0.
    MaterialEntryDialog(const QString& title, const Material& material, const QStringList& classes,
                        Take take, QWidget* parent = nullptr);

    Material GetMaterial() const;

private:
    void TryToTake();

    Take m_take;
    QLineEdit* m_name;
    QLineEdit* m_standard;
    QLineEdit* m_density;
    QComboBox* m_class;
    QLineEdit* m_source;
    QLabel* m_refusal;
};

} // namespace desktop
