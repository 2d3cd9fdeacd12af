#include "desktop/dialogs/DialogDecisions.h"

#include "desktop/books/MaterialBook.h"
#include "desktop/books/MaterialDialog.h"
#include "desktop/dialogs/DocumentDialog.h"
#include "desktop/dialogs/ItemPropertiesDialog.h"
#include "desktop/dialogs/ListDialog.h"
#include "desktop/dialogs/ObjectDialog.h"
#include "desktop/dialogs/PropertyDialog.h"
#include "desktop/dialogs/RoughnessDialog.h"
#include "desktop/dialogs/SectionDialog.h"

#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QString>

namespace desktop {

namespace {

QString ToQString(const SharedText& text) {
    return QString::fromStdWString(text.Str());
}

QString FilterOf(const std::vector<std::wstring>& patterns) {
    if (patterns.empty())
        return {};
    QString filter = QStringLiteral("Products (");
    for (const std::wstring& pattern : patterns)
        filter += QString::fromStdWString(pattern) + QLatin1Char(' ');
    return filter.trimmed() + QStringLiteral(");;All files (*)");
}

} // namespace

DialogDecisions::DialogDecisions(QWidget& window) : m_window(window) {}

DialogDecisions::~DialogDecisions() = default;

std::optional<std::size_t> DialogDecisions::Ask(const platform::Question& question) {
    QMessageBox box(QMessageBox::Question, ToQString(question.title), ToQString(question.text),
                    QMessageBox::NoButton, &m_window);
    box.setTextFormat(Qt::PlainText);
    std::vector<QPushButton*> buttons;
    for (const SharedText& caption : question.buttons)
        buttons.push_back(box.addButton(ToQString(caption), QMessageBox::AcceptRole));
    // Closing the box is an answer of its own, whatever the buttons are.
    auto* const closed = box.addButton(QMessageBox::Close);
    closed->hide();
    box.setEscapeButton(closed);
    box.exec();
    for (std::size_t i = 0; i < buttons.size(); ++i) {
        if (box.clickedButton() == buttons[i])
            return i;
    }
    return std::nullopt;
}

std::optional<std::filesystem::path>
DialogDecisions::ChooseFile(const platform::FileRequest& request) {
    const QString title = ToQString(request.title);
    const QString start = QString::fromStdString(request.start.string());
    const QString filter = FilterOf(request.patterns);
    QFileDialog dialog(&m_window, title, {}, filter);
    dialog.setAcceptMode(request.forWriting ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog.setFileMode(request.forWriting ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    // Added here, so that the dialog asks about the very file that would be written over.
    if (request.forWriting)
        dialog.setDefaultSuffix(QStringLiteral("json"));
    if (const QFileInfo place(start); place.isDir())
        dialog.setDirectory(start);
    else
        dialog.selectFile(start);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return std::nullopt;
    return std::filesystem::path(QFile::encodeName(dialog.selectedFiles().front()).toStdString());
}

std::vector<std::filesystem::path>
DialogDecisions::ChooseFiles(const platform::FileRequest& request) {
    QFileDialog dialog(&m_window, ToQString(request.title),
                       QFile::decodeName(request.start.c_str()), FilterOf(request.patterns));
    dialog.setFileMode(QFileDialog::ExistingFiles);
    std::vector<std::filesystem::path> paths;
    if (dialog.exec() != QDialog::Accepted)
        return paths;
    for (const QString& path : dialog.selectedFiles())
        paths.emplace_back(QFile::encodeName(path).toStdString());
    return paths;
}

std::optional<SharedText> DialogDecisions::EnterText(const platform::TextRequest& request) {
    bool isEntered = false;
    const QString text =
        QInputDialog::getText(&m_window, ToQString(request.title), ToQString(request.text),
                              QLineEdit::Normal, ToQString(request.present), &isEntered);
    return isEntered ? std::optional(SharedText(text.toStdWString())) : std::nullopt;
}

std::optional<UniqueMetaObjectKey>
DialogDecisions::ChooseObject(const platform::ObjectRequest& request) {
    ObjectDialog dialog(request, &m_window);
    return dialog.exec() == QDialog::Accepted ? dialog.GetChoice() : std::nullopt;
}

std::optional<platform::PropertyChoice>
DialogDecisions::ChooseProperty(const platform::PropertyRequest& request) {
    PropertyDialog dialog(request, &m_window);
    return dialog.exec() == QDialog::Accepted ? dialog.GetChoice() : std::nullopt;
}

std::optional<platform::SectionDecision>
DialogDecisions::ChooseSection(const platform::SectionRequest& request) {
    SectionDialog dialog(request, &m_window);
    return dialog.exec() == QDialog::Accepted ? dialog.GetDecision() : std::nullopt;
}

std::optional<platform::RoughnessDecision>
DialogDecisions::ChooseRoughness(const platform::RoughnessRequest& request) {
    RoughnessDialog dialog(request, &m_window);
    return dialog.exec() == QDialog::Accepted ? std::optional(dialog.GetDecision()) : std::nullopt;
}

std::optional<platform::MaterialDecision>
DialogDecisions::ChooseMaterial(const platform::MaterialRequest& request) {
    if (!m_materials)
        m_materials = std::make_unique<MaterialBook>(MaterialBook::GetUsualFile());
    MaterialDialog dialog(request, *m_materials, &m_window);
    return dialog.exec() == QDialog::Accepted ? std::optional(dialog.GetDecision()) : std::nullopt;
}

std::optional<std::vector<bool>>
DialogDecisions::ChooseSeveral(const platform::ListRequest& request) {
    ListDialog dialog(request, &m_window);
    return dialog.exec() == QDialog::Accepted ? std::optional(dialog.GetChosen()) : std::nullopt;
}

std::optional<std::vector<platform::ItemPropertyInput>>
DialogDecisions::EditItemProperties(const platform::ItemPropertiesRequest& request) {
    ItemPropertiesDialog dialog(request, &m_window);
    return dialog.exec() == QDialog::Accepted ? std::optional(dialog.GetInputs()) : std::nullopt;
}

std::optional<platform::DocumentTexts>
DialogDecisions::EditDocument(const platform::DocumentRequest& request) {
    DocumentDialog dialog(request, &m_window);
    return dialog.exec() == QDialog::Accepted ? std::optional(dialog.GetTexts()) : std::nullopt;
}

void DialogDecisions::Tell(const SharedText& title, const SharedText& text) {
    QMessageBox box(QMessageBox::Warning, ToQString(title), ToQString(text), QMessageBox::Ok,
                    &m_window);
    box.setTextFormat(Qt::PlainText);
    box.exec();
}

} // namespace desktop
