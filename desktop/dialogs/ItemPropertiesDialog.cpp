#include "desktop/dialogs/ItemPropertiesDialog.h"

#include "desktop/editors/LocaleMoments.h"
#include "desktop/editors/LocaleNumbers.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QScopedValueRollback>
#include <QStyledItemDelegate>
#include <QTableWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace desktop {

namespace {

using Kind = platform::ItemPropertiesRequest::Kind;
using Value = platform::ItemPropertiesRequest::Value;

enum Column { Caption, Content, Source, ColumnCount };

constexpr QSize c_usualSize(640, 560);
/// Room above and below the letters together.
constexpr int c_rowRoom = 9;
constexpr int c_captionWidth = 190;
constexpr int c_contentWidth = 220;
constexpr QColor c_refused(0xC0, 0x2F, 0x2F);

QString ToQString(const SharedText& text) {
    return QString::fromStdWString(text.Str());
}

EditKind ToEditKind(Kind kind) {
    switch (kind) {
    case Kind::Text:
        return EditKind::Text;
    case Kind::Moment:
        return EditKind::Moment;
    case Kind::Int:
        return EditKind::Int;
    case Kind::Double:
        return EditKind::Double;
    case Kind::List:
        return EditKind::List;
    case Kind::Bool:
        return EditKind::Bool;
    }
    return EditKind::None;
}

QVariant ToVariant(const Value& value) {
    if (const auto* const text = std::get_if<SharedText>(&value))
        return ToQString(*text);
    if (const auto* const number = std::get_if<int>(&value))
        return *number;
    if (const auto* const number = std::get_if<double>(&value))
        return *number;
    if (const auto* const truth = std::get_if<bool>(&value))
        return *truth;
    if (const auto* const place = std::get_if<std::size_t>(&value))
        return static_cast<int>(*place);
    return {};
}

Value ToValue(Kind kind, const QVariant& input) {
    if (!input.isValid())
        return {};
    if (input.typeId() == QMetaType::QString)
        return SharedText(input.toString().toStdWString());
    switch (kind) {
    case Kind::Int:
        return input.toInt();
    case Kind::Double:
        return input.toDouble();
    case Kind::Bool:
        return input.toBool();
    case Kind::List:
        return input.toInt() < 0 ? Value() : Value(static_cast<std::size_t>(input.toInt()));
    case Kind::Text:
    case Kind::Moment:
        break;
    }
    return SharedText(input.toString().toStdWString());
}

Qt::CheckState ToCheckState(const Value& value) {
    const auto* const truth = std::get_if<bool>(&value);
    if (!truth)
        return Qt::PartiallyChecked;
    return *truth ? Qt::Checked : Qt::Unchecked;
}

QString ToShownText(const platform::ItemPropertiesRequest::Line& line, const Value& value) {
    if (const auto* const place = std::get_if<std::size_t>(&value))
        return *place < line.list.size() ? ToQString(line.list[*place]) : QString();
    if (const auto* const number = std::get_if<int>(&value))
        return FormatNumber(*number);
    if (const auto* const number = std::get_if<double>(&value))
        return FormatNumber(*number);
    if (const auto* const truth = std::get_if<bool>(&value))
        return *truth ? ItemPropertiesDialog::tr("Yes") : ItemPropertiesDialog::tr("No");
    const QString text = ToVariant(value).toString();
    const QDateTime moment = line.kind == Kind::Moment ? ReadMoment(text) : QDateTime();
    return moment.isValid() ? FormatMoment(moment) : text.simplified();
}

class ValueDelegate final : public QStyledItemDelegate {
public:
    explicit ValueDelegate(ItemPropertiesDialog& dialog)
        : QStyledItemDelegate(&dialog), m_dialog(dialog) {}

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem&,
                          const QModelIndex& index) const override {
        QWidget* const editor = MakeEditor(m_dialog.MakeEditorRequest(index.row()), parent);
        if (auto* const choice = qobject_cast<QComboBox*>(editor)) {
            auto* const self = const_cast<ValueDelegate*>(this);
            connect(choice, &QComboBox::activated, self, [self, choice] {
                emit self->commitData(choice);
                emit self->closeEditor(choice);
            });
            QMetaObject::invokeMethod(choice, &QComboBox::showPopup, Qt::QueuedConnection);
        }
        return editor;
    }
    // An editor is filled when it is made.
    void setEditorData(QWidget*, const QModelIndex&) const override {}
    void setModelData(QWidget* editor, QAbstractItemModel*,
                      const QModelIndex& index) const override {
        if (const std::optional<QVariant> input = TakeInput(*editor))
            m_dialog.Take(index.row(), *input);
    }

private:
    ItemPropertiesDialog& m_dialog;
};

} // namespace

ItemPropertiesDialog::ItemPropertiesDialog(const platform::ItemPropertiesRequest& request,
                                           QWidget* parent)
    : QDialog(parent), m_request(request),
      m_table(new QTableWidget(static_cast<int>(request.lines.size()), ColumnCount)),
      m_refusal(new QLabel) {
    setWindowTitle(ToQString(request.title).simplified());
    m_table->setHorizontalHeaderLabels({tr("Property"), tr("Value"), tr("Comes from")});
    m_table->setItemDelegate(new ValueDelegate(*this));
    m_table->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed |
                             QAbstractItemView::AnyKeyPressed | QAbstractItemView::SelectedClicked);
    m_table->setSelectionMode(QAbstractItemView::SingleSelection);
    m_table->setAlternatingRowColors(true);
    m_table->setShowGrid(false);
    m_table->setTabKeyNavigation(false);
    m_table->setWordWrap(false);
    m_table->verticalHeader()->hide();
    m_table->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + c_rowRoom);
    m_table->horizontalHeader()->setHighlightSections(false);
    m_table->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    m_table->horizontalHeader()->setStretchLastSection(true);
    m_table->setColumnWidth(Caption, c_captionWidth);
    m_table->setColumnWidth(Content, c_contentWidth);
    m_refusal->setTextFormat(Qt::PlainText);
    m_refusal->setWordWrap(true);
    QPalette colours = m_refusal->palette();
    colours.setColor(QPalette::WindowText, c_refused);
    m_refusal->setPalette(colours);
    const bool canChange = std::ranges::any_of(request.lines, &Line::canChange);
    auto* const buttons = new QDialogButtonBox(
        canChange ? QDialogButtonBox::Ok | QDialogButtonBox::Cancel
                  : QDialogButtonBox::StandardButtons(QDialogButtonBox::Close));
    Fill();

    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(m_table);
    layout->addWidget(m_refusal);
    layout->addWidget(buttons);
    resize(c_usualSize);

    connect(m_table, &QTableWidget::cellChanged, this, [this](int line, int column) {
        if (column == Content)
            OnBoxChanged(line);
    });
    connect(m_table, &QTableWidget::currentCellChanged, this, [this](int line, int column) {
        if (column != Content)
            m_table->setCurrentCell(line, Content);
        ShowRefusal();
    });
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    const auto refused = std::ranges::find_if(
        request.lines, [](const Line& line) { return !line.refusal.IsEmpty(); });
    const auto first = refused == request.lines.end() ? 0 : refused - request.lines.begin();
    m_table->setCurrentCell(static_cast<int>(first), Content);
    ShowRefusal();
}

void ItemPropertiesDialog::Fill() {
    const QScopedValueRollback filling(m_isFilling, true);
    for (int i = 0; i < m_table->rowCount(); ++i) {
        const Line& line = m_request.lines[static_cast<std::size_t>(i)];
        for (const int column : {Caption, Source}) {
            auto* const item = new QTableWidgetItem(
                ToQString(column == Caption ? line.caption : line.source).simplified());
            item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
            item->setToolTip(item->text());
            if (column == Source || !line.canChange)
                item->setForeground(palette().color(QPalette::PlaceholderText));
            m_table->setItem(i, column, item);
        }
        m_table->setItem(i, Content, new QTableWidgetItem);
        ShowLine(i);
    }
}

const ItemPropertiesDialog::Value& ItemPropertiesDialog::ValueOf(int line) const {
    const auto input = m_inputs.find(line);
    return input == m_inputs.end() ? m_request.lines[static_cast<std::size_t>(line)].value
                                   : input->second;
}

void ItemPropertiesDialog::ShowLine(int place) {
    const QScopedValueRollback filling(m_isFilling, true);
    const Line& line = m_request.lines[static_cast<std::size_t>(place)];
    QTableWidgetItem& item = *m_table->item(place, Content);
    const Value& value = ValueOf(place);
    item.setText(ToShownText(line, value));
    const bool isBox = line.kind == Kind::Bool && !std::holds_alternative<SharedText>(value);
    Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    if (isBox) {
        item.setCheckState(ToCheckState(value));
        flags.setFlag(Qt::ItemIsUserCheckable, line.canChange);
    } else {
        flags.setFlag(Qt::ItemIsEditable, line.canChange);
    }
    item.setFlags(flags);
    item.setToolTip(line.refusal.IsEmpty() ? item.text() : ToQString(line.refusal));
    if (!line.refusal.IsEmpty())
        item.setForeground(c_refused);
    else
        item.setForeground(
            palette().color(line.canChange ? QPalette::Text : QPalette::PlaceholderText));
}

void ItemPropertiesDialog::ShowRefusal() {
    const int line = m_table->currentRow();
    const SharedText refusal =
        line < 0 ? SharedText() : m_request.lines[static_cast<std::size_t>(line)].refusal;
    const QString caption = line < 0 ? QString() : m_table->item(line, Caption)->text();
    m_refusal->setText(
        refusal.IsEmpty() ? QString() : tr("%1: not taken, %2").arg(caption, ToQString(refusal)));
    m_refusal->setVisible(!refusal.IsEmpty());
}

EditorRequest ItemPropertiesDialog::MakeEditorRequest(int place) const {
    const Line& line = m_request.lines[static_cast<std::size_t>(place)];
    EditorRequest request;
    request.kind = ToEditKind(line.kind);
    request.value = ToVariant(ValueOf(place));
    request.canBeEmpty = true;
    for (const SharedText& text : line.list)
        request.list += ToQString(text);
    return request;
}

void ItemPropertiesDialog::Take(int place, const QVariant& input) {
    Line& line = m_request.lines[static_cast<std::size_t>(place)];
    m_inputs[place] = ToValue(line.kind, input);
    line.refusal = {};
    ShowLine(place);
    ShowRefusal();
}

void ItemPropertiesDialog::OnBoxChanged(int line) {
    if (m_isFilling)
        return;
    // The table knows two states; the third comes between them.
    const Value& before = ValueOf(line);
    const auto* const truth = std::get_if<bool>(&before);
    Take(line, truth && !*truth ? QVariant() : QVariant(!truth || !*truth));
}

std::vector<platform::ItemPropertyInput> ItemPropertiesDialog::GetInputs() const {
    std::vector<platform::ItemPropertyInput> inputs;
    for (const auto& [line, value] : m_inputs)
        inputs.push_back({static_cast<std::size_t>(line), value});
    return inputs;
}

} // namespace desktop
