// The material, the density and the mass that are to be set, as three fields: what is chosen from
// the book fills them, and what is typed stands. A field that the user has not touched says
// nothing.
#pragma once

#include "platform/services/UserDecisions.h"

#include <QWidget>

class QFormLayout;
class QLabel;
class QLineEdit;

namespace desktop {

class MaterialFields final : public QWidget {
    Q_OBJECT

public:
    /// The request must outlive the fields.
    explicit MaterialFields(const platform::MaterialRequest& request, QWidget* parent = nullptr);

    /// A material was chosen. Without a density the present ones stay.
    void Fill(const QString& name, std::optional<double> density);
    /// Material and density are again what they were at first.
    void TakeBack();
    /// Marks what is no good, tells why and puts the keys there. True: all is good.
    bool Check();
    platform::MaterialDecision GetDecision() const;

    QString GetName() const;
    /// No value also where it is no number.
    std::optional<double> GetDensity() const;

signals:
    void Changed();

private:
    using Number = platform::MaterialRequest::Number;

    QLineEdit* AddField(QFormLayout& layout, const QString& caption, const QString& unit,
                        const platform::MaterialRequest::Field& field);
    void AddNote(QFormLayout& layout, const QString& text);
    void ShowMass();
    /// Empty: the text is a number that is allowed, or there is none.
    static QString FindFault(const QLineEdit& edit, const Number& number);
    void Mark(QLineEdit& edit, bool isBad) const;

    const platform::MaterialRequest& m_request;
    QLineEdit* m_name;
    QLineEdit* m_density;
    QLineEdit* m_mass;
    QLabel* m_refusal;
    bool m_isNameSet = false;
    bool m_isDensitySet = false;
    bool m_isMassTyped = false;
};

} // namespace desktop
