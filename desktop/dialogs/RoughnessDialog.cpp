#include "desktop/dialogs/RoughnessDialog.h"

#include "desktop/icons/RoughnessSigns.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QEvent>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPainter>
#include <QVBoxLayout>

#include <algorithm>
#include <iterator>
#include <span>

namespace desktop {

namespace {

using Process = platform::RoughnessRequest::Process;

constexpr QSize c_pictureSize(64, 48);
constexpr QSize c_previewSize(300, 110);
/// Of a letter in the preview to one elsewhere.
constexpr double c_previewLetters = 1.4;
constexpr double c_previewLine = 1.8;
constexpr int c_listRoom = 12;
/// Longer than any text that a product takes: what is too long is refused as a whole, never cut.
constexpr int c_longestText = 1'000'000;
constexpr QColor c_refused(0xC0, 0x2F, 0x2F);

// The preferred values of ISO 468 in micrometres, without those that hardly any surface has: every
// third number of the series R10, so that each is twice the one before.
constexpr const char* c_values[] = {"0.025", "0.05", "0.1",  "0.2", "0.4", "0.8", "1.6",
                                    "3.2",   "6.3",  "12.5", "25",  "50",  "100", "200"};
constexpr std::span c_allValues(c_values);

struct Parameter {
    QLatin1String name;
    std::span<const char* const> values;
};

/// The mean deviation of a profile ends before its greatest height does.
constexpr Parameter c_parameters[] = {
    {QLatin1String("Ra"), c_allValues.first(12)},
    {QLatin1String("Rz"), c_allValues},
};

/// The place of the parameter that the text begins with, among those above; behind them for none.
int FindParameter(const QString& text) {
    const auto* const found = std::ranges::find_if(c_parameters, [&](const Parameter& parameter) {
        const auto size = parameter.name.size();
        return text.startsWith(parameter.name) && text.size() > size &&
               (text[size].isSpace() || text[size].isDigit());
    });
    return static_cast<int>(found - std::begin(c_parameters));
}

constexpr int c_noParameter = static_cast<int>(std::size(c_parameters));

RoughnessSign ToPicture(Process process) {
    switch (process) {
    case Process::Any:
        return RoughnessSign::Any;
    case Process::Machined:
        return RoughnessSign::Machined;
    case Process::NotMachined:
        return RoughnessSign::NotMachined;
    case Process::Other:
        break;
    }
    return RoughnessSign::None;
}

QString ToQString(const SharedText& text) {
    return QString::fromStdWString(text.Str());
}

} // namespace

class RoughnessDialog::Preview final : public QWidget {
public:
    Preview() {
        setMinimumSize(c_previewSize);
        setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    }

    void Show(RoughnessSign sign, const QString& text) {
        m_sign = sign;
        m_text = text;
        setAccessibleName(text);
        update();
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.fillRect(rect(), palette().base());
        painter.setPen(palette().mid().color());
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
        QFont letters = font();
        letters.setPointSizeF(letters.pointSizeF() * c_previewLetters);
        painter.setFont(letters);
        painter.setPen(QPen(palette().text().color(), c_previewLine, Qt::SolidLine, Qt::RoundCap,
                            Qt::RoundJoin));
        DrawRoughness(painter, rect(), m_sign, m_text);
    }

private:
    RoughnessSign m_sign = RoughnessSign::None;
    QString m_text;
};

RoughnessDialog::RoughnessDialog(const platform::RoughnessRequest& request, QWidget* parent)
    : QDialog(parent), m_request(request), m_pictures(ToQString(request.present.text)),
      m_signs(new QListWidget), m_parameter(new QComboBox), m_value(new QComboBox),
      m_preview(new Preview) {
    setWindowTitle(ToQString(request.title));
    FillSigns();
    FillText();
    auto* const refusal = new QLabel(ToQString(request.refusal));
    QPalette colours = refusal->palette();
    colours.setColor(QPalette::WindowText, c_refused);
    refusal->setPalette(colours);
    refusal->setWordWrap(true);
    refusal->setVisible(!request.refusal.IsEmpty());
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);

    auto* const fields = new QFormLayout;
    fields->addRow(tr("&Sign:"), m_signs);
    fields->addRow(tr("&Parameter:"), m_parameter);
    fields->addRow(tr("&Value, µm:"), m_value);
    auto* const layout = new QVBoxLayout(this);
    layout->addLayout(fields);
    layout->addWidget(m_preview, 1);
    layout->addWidget(refusal);
    layout->addWidget(buttons);

    connect(m_signs, &QListWidget::currentRowChanged, this, &RoughnessDialog::ShowPreview);
    connect(m_signs, &QListWidget::itemActivated, this, &QDialog::accept);
    connect(m_parameter, &QComboBox::currentIndexChanged, this, &RoughnessDialog::OfferValues);
    connect(m_value, &QComboBox::editTextChanged, this, &RoughnessDialog::ShowPreview);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    ShowPreview();
    (request.canChangeSign ? static_cast<QWidget*>(m_signs) : m_value)->setFocus();
}

platform::RoughnessDecision RoughnessDialog::GetDecision() const {
    platform::RoughnessDecision decision = m_request.present;
    if (m_signs->currentRow() > 0)
        decision.sign = static_cast<std::size_t>(m_signs->currentRow() - 1);
    else
        decision.sign.reset();
    if (const QString text = MakeText(); text != m_firstText)
        decision.text = SharedText(m_pictures.Restore(text).toStdWString());
    return decision;
}

void RoughnessDialog::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange)
        DrawSigns();
    QDialog::changeEvent(event);
}

void RoughnessDialog::FillSigns() {
    m_signs->setViewMode(QListView::IconMode);
    m_signs->setMovement(QListView::Static);
    m_signs->setWrapping(false);
    m_signs->setIconSize(c_pictureSize);
    m_signs->addItem(tr("No sign"));
    for (const platform::RoughnessRequest::Sign& sign : m_request.signs)
        m_signs->addItem(ToQString(sign.text).simplified());
    DrawSigns();
    const std::optional<std::size_t>& present = m_request.present.sign;
    m_signs->setCurrentRow(present ? static_cast<int>(*present) + 1 : 0);
    m_signs->setEnabled(m_request.canChangeSign);
    const int frame = 2 * m_signs->frameWidth() + c_listRoom;
    m_signs->setFixedHeight(m_signs->sizeHintForRow(0) + frame);
    int width = frame;
    for (int i = 0; i < m_signs->count(); ++i)
        width += m_signs->sizeHintForIndex(m_signs->model()->index(i, 0)).width();
    m_signs->setMinimumWidth(std::min(width, 2 * c_previewSize.width()));
}

void RoughnessDialog::DrawSigns() {
    for (int i = 0; i < m_signs->count(); ++i) {
        const RoughnessSign sign =
            i == 0 ? RoughnessSign::None
                   : ToPicture(m_request.signs[static_cast<std::size_t>(i) - 1].process);
        m_signs->item(i)->setIcon(
            MakeRoughnessIcon(sign, c_pictureSize, palette(), devicePixelRatioF()));
    }
}

void RoughnessDialog::FillText() {
    for (const Parameter& parameter : c_parameters)
        m_parameter->addItem(parameter.name);
    m_parameter->addItem(tr("Other text"));
    m_value->setEditable(true);
    // A value that is typed is not another one of the list that begins so.
    m_value->setCompleter(nullptr);
    m_value->setInsertPolicy(QComboBox::NoInsert);
    m_value->lineEdit()->setMaxLength(c_longestText);
    const QString text = m_pictures.Show(ToQString(m_request.present.text));
    const int parameter = text.isEmpty() ? 0 : FindParameter(text);
    m_parameter->setCurrentIndex(parameter);
    OfferValues();
    m_value->setEditText(parameter < c_noParameter && !text.isEmpty()
                             ? text.mid(c_parameters[parameter].name.size()).trimmed()
                             : text);
    m_parameter->setEnabled(m_request.canChangeText);
    m_value->setEnabled(m_request.canChangeText);
    m_firstText = MakeText();
}

void RoughnessDialog::OfferValues() {
    const QString present = m_value->currentText();
    m_value->clear();
    if (const int place = m_parameter->currentIndex(); place < c_noParameter) {
        for (const char* const value : c_parameters[place].values)
            m_value->addItem(QString::fromLatin1(value));
    }
    // An item that is the same text is where the keys go on from.
    m_value->setCurrentIndex(m_value->findText(present));
    m_value->setEditText(present);
    ShowPreview();
}

QString RoughnessDialog::MakeText() const {
    const QString value = m_value->currentText();
    const int place = m_parameter->currentIndex();
    // A whole text may be typed at once.
    if (place >= c_noParameter || value.trimmed().isEmpty() || FindParameter(value) < c_noParameter)
        return value;
    return c_parameters[place].name + QLatin1Char(' ') + value;
}

void RoughnessDialog::ShowPreview() {
    const int row = m_signs->currentRow();
    const RoughnessSign sign =
        row <= 0 ? RoughnessSign::None
                 : ToPicture(m_request.signs[static_cast<std::size_t>(row) - 1].process);
    m_preview->Show(sign, MakeText());
}

} // namespace desktop
