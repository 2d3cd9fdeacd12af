#include "desktop/dialogs/EncodingDialog.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QVBoxLayout>

#include <array>

namespace desktop {

namespace {

constexpr QSize c_usualSize(640, 420);

struct Encoding {
    const char* caption;
    /// As the system's converter knows it.
    const char* name;
};

// clang-format off
constexpr std::array c_encodings = {
    Encoding{QT_TRANSLATE_NOOP("desktop::EncodingDialog", "Western (Latin-1)"),               "ISO-8859-1"},
    Encoding{QT_TRANSLATE_NOOP("desktop::EncodingDialog", "Western (Windows-1252)"),          "WINDOWS-1252"},
    Encoding{QT_TRANSLATE_NOOP("desktop::EncodingDialog", "Central European (Windows-1250)"), "WINDOWS-1250"},
    Encoding{QT_TRANSLATE_NOOP("desktop::EncodingDialog", "Cyrillic (Windows-1251)"),         "WINDOWS-1251"},
    Encoding{QT_TRANSLATE_NOOP("desktop::EncodingDialog", "Cyrillic (KOI8-R)"),               "KOI8-R"},
    Encoding{QT_TRANSLATE_NOOP("desktop::EncodingDialog", "Greek (Windows-1253)"),            "WINDOWS-1253"},
    Encoding{QT_TRANSLATE_NOOP("desktop::EncodingDialog", "Turkish (Windows-1254)"),          "WINDOWS-1254"},
    Encoding{QT_TRANSLATE_NOOP("desktop::EncodingDialog", "Chinese, simplified (GB 18030)"),  "GB18030"},
    Encoding{QT_TRANSLATE_NOOP("desktop::EncodingDialog", "Chinese, traditional (Big5)"),     "BIG5"},
    Encoding{QT_TRANSLATE_NOOP("desktop::EncodingDialog", "Japanese (Shift JIS)"),            "CP932"},
    Encoding{QT_TRANSLATE_NOOP("desktop::EncodingDialog", "Japanese (EUC-JP)"),               "EUC-JP"},
    Encoding{QT_TRANSLATE_NOOP("desktop::EncodingDialog", "Korean (EUC-KR)"),                 "EUC-KR"},
};
// clang-format on

} // namespace

EncodingDialog::EncodingDialog(const step::StepDocument& document, QWidget* parent)
    : QDialog(parent), m_document(document), m_encodings(new QListWidget),
      m_texts(new QListWidget) {
    setWindowTitle(tr("Text Encoding"));
    for (const Encoding& encoding : c_encodings) {
        // A system may lack one of them.
        if (!m_document.Decode({}, encoding.name))
            continue;
        auto* const item = new QListWidgetItem(tr(encoding.caption), m_encodings);
        item->setData(Qt::UserRole, QString::fromLatin1(encoding.name));
        if (m_document.GetEncoding() == encoding.name)
            m_encodings->setCurrentItem(item);
    }
    if (!m_encodings->currentItem())
        m_encodings->setCurrentRow(0);
    m_texts->setSelectionMode(QAbstractItemView::NoSelection);
    m_texts->setFocusPolicy(Qt::NoFocus);
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    auto* const lists = new QHBoxLayout;
    lists->addWidget(m_encodings, 2);
    lists->addWidget(m_texts, 3);
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(
        new QLabel(tr("Choose the encoding in which the names on the right can be read.")));
    layout->addLayout(lists);
    layout->addWidget(buttons);
    resize(c_usualSize);
    connect(m_encodings, &QListWidget::currentItemChanged, this, &EncodingDialog::ShowTexts);
    connect(m_encodings, &QListWidget::itemActivated, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    ShowTexts();
}

std::string EncodingDialog::GetEncoding() const {
    const QListWidgetItem* const item = m_encodings->currentItem();
    return item ? item->data(Qt::UserRole).toString().toStdString() : std::string();
}

void EncodingDialog::ShowTexts() {
    m_texts->clear();
    for (const std::string& text : m_document.GetForeignTexts()) {
        if (const auto decoded = m_document.Decode(text, GetEncoding()))
            m_texts->addItem(QString::fromStdWString(*decoded).simplified());
    }
}

} // namespace desktop
