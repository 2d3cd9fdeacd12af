#include "desktop/books/MaterialEntryDialog.h"

#include "desktop/books/BookColours.h"
#include "desktop/editors/LocaleNumbers.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>

namespace desktop {

namespace {

constexpr int c_usualWidth = 440;

} // namespace

MaterialEntryDialog::MaterialEntryDialog(const QString& title, const Material& material,
                                         const QStringList& classes, Take take, QWidget* parent)
    : QDialog(parent), m_take(std::move(take)), m_name(new QLineEdit(material.name)),
      m_standard(new QLineEdit(material.standard)), m_density(new QLineEdit),
      m_class(new QComboBox), m_source(new QLineEdit(material.source)),
      m_refusal(MakeRefusalLabel(palette())) {
    setWindowTitle(title);
    if (material.density > 0)
        m_density->setText(FormatNumber(material.density));
    m_class->setEditable(true);
    m_class->addItems(classes);
    m_class->setCurrentText(material.classPath);
    m_class->lineEdit()->setPlaceholderText(tr("Metals/Steels/Structural"));
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);

    auto* const layout = new QFormLayout(this);
    layout->addRow(tr("&Name:"), m_name);
    layout->addRow(tr("&Standard:"), m_standard);
    layout->addRow(tr("&Density, kg/m\u00B3:"), m_density);
    layout->addRow(tr("&Class:"), m_class);
    layout->addRow(tr("S&ource of the density:"), m_source);
    layout->addRow(m_refusal);
    layout->addRow(buttons);
    resize(c_usualWidth, sizeHint().height());

    connect(buttons, &QDialogButtonBox::accepted, this, &MaterialEntryDialog::TryToTake);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

Material MaterialEntryDialog::GetMaterial() const {
    return {m_name->text().simplified(), m_standard->text().simplified(),
            ParseDouble(m_density->text()).value_or(0), m_class->currentText().simplified(),
            m_source->text().simplified()};
}

void MaterialEntryDialog::TryToTake() {
    const Material material = GetMaterial();
    QString fault = ParseDouble(m_density->text()) || material.name.isEmpty()
                        ? FindFault(material)
                        : tr("the density is no number");
    if (fault.isEmpty())
        fault = m_take(material);
    if (fault.isEmpty()) {
        accept();
        return;
    }
    m_refusal->setText(tr("Not taken, %1").arg(fault));
    m_refusal->show();
}

} // namespace desktop
