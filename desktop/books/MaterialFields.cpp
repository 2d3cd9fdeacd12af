#include "desktop/books/MaterialFields.h"

#include "desktop/books/BookColours.h"
#include "desktop/editors/LocaleNumbers.h"

#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>

namespace desktop {

namespace {

using Volumes = platform::MaterialRequest::Volumes;

constexpr int c_longestName = 1000;
constexpr int c_numberWidth = 160;

QString ToQString(const SharedText& text) {
    return QString::fromStdWString(text.Str());
}

QString ToText(const platform::MaterialRequest::Number& number) {
    return number.value ? FormatNumber(*number.value) : QString();
}

QString VolumeNote(Volumes volumes) {
    if (volumes == Volumes::All)
        return MaterialFields::tr("The mass follows from the volume and the density. One that is "
                                  "typed is kept as it is typed.");
    if (volumes == Volumes::Some)
        return MaterialFields::tr("Where the volume is known, the mass follows from it and the "
                                  "density. One that is typed is kept, for all of the objects.");
    return MaterialFields::tr("The volume is not known, so that no mass follows from the density.");
}

} // namespace

MaterialFields::MaterialFields(const platform::MaterialRequest& request, QWidget* parent)
    : QWidget(parent), m_request(request), m_refusal(MakeRefusalLabel(palette())) {
    auto* const layout = new QFormLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    m_name = AddField(*layout, tr("&Material:"), {}, request.material);
    m_density =
        AddField(*layout, tr("&Density:"), ToQString(request.density.unit), request.density);
    m_mass = AddField(*layout, tr("Ma&ss:"), ToQString(request.mass.unit), request.mass);
    m_name->setMaxLength(c_longestName);
    m_name->setText(ToQString(request.materialName));
    m_density->setText(ToText(request.density));
    m_mass->setText(ToText(request.mass));
    if (request.mass.fixed.IsEmpty())
        AddNote(*layout, VolumeNote(request.volumes));
    for (const SharedText& note : request.notes)
        AddNote(*layout, ToQString(note));
    layout->addRow(m_refusal);

    connect(m_name, &QLineEdit::textEdited, this, [this] {
        m_isNameSet = true;
        emit Changed();
    });
    connect(m_density, &QLineEdit::textEdited, this, [this] {
        m_isDensitySet = true;
        Mark(*m_density, false);
        ShowMass();
        emit Changed();
    });
    connect(m_mass, &QLineEdit::textEdited, this, [this](const QString& text) {
        // An emptied one follows from the volume again.
        m_isMassTyped = true;
        m_mass->setPlaceholderText(text.isEmpty() && m_request.volumes != Volumes::None
                                       ? tr("From volume and density")
                                       : QString());
        Mark(*m_mass, false);
    });
}

QLineEdit* MaterialFields::AddField(QFormLayout& layout, const QString& caption,
                                    const QString& unit,
                                    const platform::MaterialRequest::Field& field) {
    auto* const edit = new QLineEdit;
    auto* const label = new QLabel(caption);
    label->setBuddy(edit);
    auto* const line = new QHBoxLayout;
    line->addWidget(edit);
    if (!unit.isEmpty()) {
        edit->setFixedWidth(c_numberWidth);
        line->addWidget(new QLabel(unit));
    }
    if (field.isMixed)
        edit->setPlaceholderText(tr("Different values"));
    if (!field.fixed.IsEmpty()) {
        edit->setEnabled(false);
        line->addWidget(new QLabel(ToQString(field.fixed)));
    }
    if (!unit.isEmpty())
        line->addStretch();
    layout.addRow(label, line);
    return edit;
}

void MaterialFields::AddNote(QFormLayout& layout, const QString& text) {
    auto* const note = new QLabel(text);
    note->setTextFormat(Qt::PlainText);
    note->setWordWrap(true);
    note->setForegroundRole(QPalette::PlaceholderText);
    layout.addRow(note);
}

void MaterialFields::Fill(const QString& name, std::optional<double> density) {
    if (m_name->isEnabled()) {
        m_name->setText(name);
        m_isNameSet = true;
    }
    if (density && m_density->isEnabled()) {
        m_density->setText(FormatNumber(*density));
        m_isDensitySet = true;
        Mark(*m_density, false);
    }
    ShowMass();
}

void MaterialFields::TakeBack() {
    m_name->setText(ToQString(m_request.materialName));
    m_density->setText(ToText(m_request.density));
    m_isNameSet = false;
    m_isDensitySet = false;
    Mark(*m_density, false);
    ShowMass();
}

void MaterialFields::ShowMass() {
    if (m_isMassTyped || !m_mass->isEnabled() || m_request.volumes == Volumes::None)
        return;
    const std::optional<double> density = GetDensity();
    m_mass->setPlaceholderText(m_request.mass.isMixed ? tr("Different values") : QString());
    if (!m_isDensitySet || !density) {
        m_mass->setText(m_isDensitySet ? QString() : ToText(m_request.mass));
        return;
    }
    if (m_request.volume) {
        m_mass->setText(FormatNumber(*m_request.volume * *density / m_request.density.coefficient *
                                     m_request.mass.coefficient));
        return;
    }
    m_mass->clear();
    m_mass->setPlaceholderText(tr("From volume and density"));
}

QString MaterialFields::FindFault(const QLineEdit& edit, const Number& number) {
    if (!edit.isEnabled() || edit.text().trimmed().isEmpty())
        return {};
    const std::optional<double> typed = ParseDouble(edit.text());
    if (!typed)
        return tr("a number is expected");
    const bool hasLimits = number.min != 0 || number.max != 0;
    if (hasLimits && *typed < number.min)
        return tr("%1 or more is allowed").arg(FormatNumber(number.min));
    if (hasLimits && *typed > number.max)
        return tr("%1 or less is allowed").arg(FormatNumber(number.max));
    return {};
}

bool MaterialFields::Check() {
    const struct {
        QLineEdit* edit;
        const Number& number;
        QString caption;
        bool isSet;
    } fields[] = {{m_density, m_request.density, tr("Density"), m_isDensitySet},
                  {m_mass, m_request.mass, tr("Mass"), m_isMassTyped}};
    for (const auto& field : fields) {
        const QString fault = field.isSet ? FindFault(*field.edit, field.number) : QString();
        Mark(*field.edit, !fault.isEmpty());
        if (fault.isEmpty())
            continue;
        m_refusal->setText(tr("%1: not taken, %2").arg(field.caption, fault));
        m_refusal->show();
        field.edit->setFocus();
        field.edit->selectAll();
        return false;
    }
    return true;
}

void MaterialFields::Mark(QLineEdit& edit, bool isBad) const {
    QPalette colours;
    if (isBad)
        colours.setColor(QPalette::Text, RefusalColour(palette()));
    edit.setPalette(colours);
    if (!isBad)
        m_refusal->hide();
}

QString MaterialFields::GetName() const {
    return m_name->text().simplified();
}

std::optional<double> MaterialFields::GetDensity() const {
    return ParseDouble(m_density->text());
}

platform::MaterialDecision MaterialFields::GetDecision() const {
    platform::MaterialDecision decision;
    if (m_isNameSet)
        decision.name = SharedText(GetName().toStdWString());
    if (m_isDensitySet)
        decision.density = GetDensity();
    if (m_isMassTyped)
        decision.mass = ParseDouble(m_mass->text());
    return decision;
}

} // namespace desktop
