#include "desktop/dialogs/DocumentDialog.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>

namespace desktop {

namespace {

constexpr int c_usualWidth = 460;
constexpr int c_mostCharacters = 10'000;

QString ToQString(const SharedText& text) {
    return QString::fromStdWString(text.Str());
}

/// The field changes line breaks that it has no room for; a text that nobody touched stays.
SharedText TextOf(const QString& shown, const SharedText& before) {
    return shown == QString(ToQString(before)).replace(QLatin1Char('\n'), QLatin1Char(' '))
               ? before
               : SharedText(shown.trimmed().toStdWString());
}

QLineEdit* MakeField(const SharedText& text) {
    auto* const field = new QLineEdit;
    field->setMaxLength(c_mostCharacters);
    field->setText(QString(ToQString(text)).replace(QLatin1Char('\n'), QLatin1Char(' ')));
    return field;
}

QComboBox* MakeFormats(const SharedText& text) {
    auto* const formats = new QComboBox;
    formats->setEditable(true);
    for (const char* const format : {"", "A0", "A1", "A2", "A3", "A4", "A4x3", "A4x4", "A3x3"})
        formats->addItem(QString::fromLatin1(format));
    formats->setLineEdit(MakeField({}));
    formats->setInsertPolicy(QComboBox::NoInsert);
    formats->setEditText(QString(ToQString(text)).replace(QLatin1Char('\n'), QLatin1Char(' ')));
    return formats;
}

} // namespace

DocumentDialog::DocumentDialog(const platform::DocumentRequest& request, QWidget* parent)
    : QDialog(parent), m_before(request.texts), m_designation(MakeField(request.texts.designation)),
      m_name(MakeField(request.texts.name)), m_format(MakeFormats(request.texts.format)),
      m_comment(MakeField(request.texts.comment)) {
    setWindowTitle(ToQString(request.title).simplified());
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    auto* const layout = new QFormLayout(this);
    layout->addRow(tr("&Designation:"), m_designation);
    layout->addRow(tr("&Name:"), m_name);
    layout->addRow(tr("&Format:"), m_format);
    layout->addRow(tr("&Comment:"), m_comment);
    if (!request.refusal.IsEmpty()) {
        auto* const refusal = new QLabel(tr("Not taken: %1").arg(ToQString(request.refusal)));
        refusal->setTextFormat(Qt::PlainText);
        refusal->setWordWrap(true);
        layout->addRow(refusal);
    }
    layout->addRow(buttons);
    resize(c_usualWidth, sizeHint().height());
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

platform::DocumentTexts DocumentDialog::GetTexts() const {
    return {TextOf(m_designation->text(), m_before.designation),
            TextOf(m_name->text(), m_before.name), TextOf(m_format->currentText(), m_before.format),
            TextOf(m_comment->text(), m_before.comment)};
}

} // namespace desktop
