#include "desktop/books/MaterialDialog.h"

#include "desktop/books/BookColours.h"
#include "desktop/books/MaterialBook.h"
#include "desktop/books/MaterialEntryDialog.h"
#include "desktop/books/MaterialFields.h"
#include "desktop/books/MaterialFinder.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QHBoxLayout>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QVBoxLayout>

namespace desktop {

namespace {

constexpr QSize c_usualSize(640, 680);
constexpr qsizetype c_mostProblems = 4;

QString ToQString(const SharedText& text) {
    return QString::fromStdWString(text.Str());
}

} // namespace

MaterialDialog::MaterialDialog(const platform::MaterialRequest& request, MaterialBook& book,
                               QWidget* parent)
    : QDialog(parent), m_request(request), m_book(book),
      m_finder(new MaterialFinder(request.density.coefficient, ToQString(request.density.unit))),
      m_fields(new MaterialFields(request)), m_change(new QPushButton(tr("&Change..."))),
      m_remove(new QPushButton(tr("&Remove"))), m_problems(MakeRefusalLabel(palette())),
      m_refusal(MakeRefusalLabel(palette())) {
    setWindowTitle(ToQString(request.title).simplified());
    m_book.Refresh();
    m_finder->Show(m_book, request.fromFile);
    m_finder->Choose(ToQString(request.materialName));
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);

    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(m_problems);
    layout->addWidget(m_finder, 1);
    layout->addWidget(MakeBookButtons());
    layout->addWidget(m_fields);
    layout->addWidget(m_refusal);
    layout->addWidget(buttons);
    resize(c_usualSize);
    TellProblems();
    OnCurrentChanged();

    connect(m_finder, &MaterialFinder::CurrentChanged, this, [this] {
        if (const auto current = m_finder->GetCurrent())
            m_fields->Fill(current->text, current->density);
        else
            m_fields->TakeBack();
        OnCurrentChanged();
    });
    connect(m_finder, &MaterialFinder::Activated, buttons->button(QDialogButtonBox::Ok),
            &QPushButton::click);
    connect(buttons, &QDialogButtonBox::accepted, this, &MaterialDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    m_finder->FocusField();
}

platform::MaterialDecision MaterialDialog::GetDecision() const {
    return m_fields->GetDecision();
}

QWidget* MaterialDialog::MakeBookButtons() {
    auto* const row = new QWidget;
    auto* const layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* const add = new QPushButton(tr("&Add..."));
    layout->addWidget(new QLabel(tr("Your book:")));
    for (QPushButton* const button : {add, m_change, m_remove}) {
        // Enter is for the chosen material.
        button->setAutoDefault(false);
        layout->addWidget(button);
    }
    layout->addStretch();
    row->setToolTip(QDir::toNativeSeparators(m_book.GetFile()));
    connect(add, &QPushButton::clicked, this, &MaterialDialog::AddMaterial);
    connect(m_change, &QPushButton::clicked, this, &MaterialDialog::ChangeMaterial);
    connect(m_remove, &QPushButton::clicked, this, &MaterialDialog::RemoveMaterial);
    return row;
}

void MaterialDialog::TellProblems() {
    const QStringList problems = m_book.TakeProblems();
    if (problems.isEmpty())
        return;
    QStringList told = problems.mid(0, c_mostProblems);
    if (problems.size() > told.size())
        told += tr("and %1 more").arg(problems.size() - told.size());
    m_problems->setText(tr("Not everything in your book of materials was taken: %1")
                            .arg(told.join(QStringLiteral("; "))));
    m_problems->show();
}

void MaterialDialog::OnCurrentChanged() {
    const auto current = m_finder->GetCurrent();
    const bool isInBook = current && current->record;
    m_change->setEnabled(isInBook);
    m_remove->setEnabled(isInBook);
    if (current)
        m_refusal->hide();
}

void MaterialDialog::accept() {
    // What was looked for is what the user wants, and not what stood there before.
    if (const QString wanted = m_finder->GetWanted();
        !wanted.isEmpty() && !m_finder->GetCurrent() && GetDecision().name == std::nullopt) {
        Refuse(tr("No material is found for %1").arg(wanted));
        m_finder->FocusField();
        return;
    }
    if (!m_fields->Check())
        return;
    if (const platform::MaterialDecision decision = GetDecision(); decision.name) {
        const auto current = m_finder->GetCurrent();
        if (current && current->record && current->text == ToQString(*decision.name))
            m_book.NoteUsed(current->text);
    }
    QDialog::accept();
}

QStringList MaterialDialog::ListClasses() const {
    QStringList classes;
    for (const Material& material : m_book.GetMaterials())
        classes += material.classPath;
    classes.removeDuplicates();
    return classes;
}

void MaterialDialog::AddMaterial() {
    // What is typed already need not be typed again.
    Material material;
    material.name = m_fields->GetName();
    material.density = m_fields->GetDensity().value_or(0) / m_request.density.coefficient;
    if (const auto current = m_finder->GetCurrent(); current && current->record) {
        material.classPath = current->record->classPath;
        if (current->text == material.name) {
            material.name = current->record->name;
            material.standard = current->record->standard;
        }
    }
    MaterialEntryDialog dialog(
        tr("New material"), material, ListClasses(),
        [this](const Material& wanted) { return m_book.Add(wanted); }, this);
    if (dialog.exec() == QDialog::Accepted)
        TakeUp(dialog.GetMaterial());
}

void MaterialDialog::ChangeMaterial() {
    const auto current = m_finder->GetCurrent();
    if (!current || !current->record)
        return;
    const Material material = *current->record;
    MaterialEntryDialog dialog(
        tr("Change of %1").arg(current->text), material, ListClasses(),
        [&](const Material& wanted) { return m_book.Change(material, wanted); }, this);
    if (dialog.exec() == QDialog::Accepted)
        TakeUp(dialog.GetMaterial());
}

void MaterialDialog::RemoveMaterial() {
    const auto current = m_finder->GetCurrent();
    if (!current || !current->record)
        return;
    QMessageBox box(QMessageBox::Question, windowTitle(),
                    tr("Remove %1 from your book?").arg(current->text), QMessageBox::NoButton,
                    this);
    box.setTextFormat(Qt::PlainText);
    auto* const remove = box.addButton(tr("Remove"), QMessageBox::AcceptRole);
    box.addButton(QMessageBox::Cancel);
    box.exec();
    if (box.clickedButton() != remove)
        return;
    if (const QString fault = m_book.Remove(*current->record); !fault.isEmpty()) {
        Refuse(tr("%1 stays, %2").arg(current->text, fault));
        return;
    }
    m_finder->Show(m_book, m_request.fromFile);
    m_fields->TakeBack();
    OnCurrentChanged();
}

void MaterialDialog::TakeUp(const Material& material) {
    m_finder->Show(m_book, m_request.fromFile);
    m_finder->Choose(material.GetText());
    m_fields->Fill(material.GetText(), material.density * m_request.density.coefficient);
    OnCurrentChanged();
}

void MaterialDialog::Refuse(const QString& reason) {
    m_refusal->setText(reason);
    m_refusal->show();
}

} // namespace desktop
