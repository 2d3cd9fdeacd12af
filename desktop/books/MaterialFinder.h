// Materials to choose from: a tree by class, with what was used last and what stands in the product
// above it, and a field that finds in it. The keys that move in the tree work in the field, too.
#pragma once

#include "desktop/books/MaterialBook.h"
#include "platform/services/UserDecisions.h"

#include <QWidget>

class QLineEdit;
class QTreeWidget;
class QTreeWidgetItem;

namespace desktop {

class MaterialFinder final : public QWidget {
    Q_OBJECT

public:
    struct Found {
        /// As it stands in a product.
        QString text;
        /// As it is shown; no value: it is not known.
        std::optional<double> density;
        /// No value: the book does not have it.
        std::optional<Material> record;
    };

    /// Densities are shown in that unit, the book's multiplied with the coefficient.
    MaterialFinder(double coefficient, const QString& unit, QWidget* parent = nullptr);

    void Show(const MaterialBook& book,
              const std::vector<platform::MaterialRequest::Material>& fromFile);
    /// The material of that text becomes the current one, if it is there.
    void Choose(const QString& text);
    /// No value while none is.
    std::optional<Found> GetCurrent() const;
    /// What is looked for; empty for nothing.
    QString GetWanted() const;
    void FocusField();

signals:
    /// The user has come to another material, or to none.
    void CurrentChanged();
    /// A double click or Enter on a material.
    void Activated();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Add(QTreeWidgetItem& group, Found found);
    QTreeWidgetItem* AddGroup(const QString& caption);
    /// The item of that class, which is made where it is missing.
    QTreeWidgetItem* FindClass(const QString& path);
    void Narrow();
    /// True when something below it is to be seen.
    bool NarrowItem(QTreeWidgetItem& item, const QStringList& words);
    QTreeWidgetItem* FirstSeen() const;

    double m_coefficient;
    QLineEdit* m_field;
    QTreeWidget* m_tree;
    std::vector<Found> m_found;
    /// The user's own group rows are taken up again after a search.
    bool m_isFilling = false;
};

} // namespace desktop
