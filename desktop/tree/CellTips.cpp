#include "desktop/tree/CellTips.h"

#include "desktop/tree/AttributeBoxes.h"
#include "desktop/tree/GroupValues.h"

#include <QTextDocument>

namespace desktop {

namespace {

constexpr std::wstring_view c_mass = L"mass";

QString ToQString(const SharedText& text) {
    return QString::fromStdWString(text.Str());
}

/// As a tip that the toolkit doesn't take for markup.
QString ToTip(const QString& tip) {
    return Qt::mightBeRichText(tip) ? QStringLiteral("<span>%1</span>").arg(tip.toHtmlEscaped())
                                    : tip;
}

void AddLines(QString& tip, const QString& lines) {
    tip += (tip.isEmpty() || lines.isEmpty() ? QString() : QStringLiteral("\n")) + lines;
}

} // namespace

QString MakeCellTip(const QModelIndex& index, const TreeItemModel::Questions& questions) {
    const platform::TreeTableRow& row = TreeItemModel::RowOf(index);
    const platform::ColumnHead& head = TreeItemModel::HeadOf(index);
    QString tip = GroupValues(row, head).MakeTip();
    if (tip.isEmpty())
        tip = ToQString(GetCellTip(row, head));
    if (tip.isEmpty())
        tip = GetCellText(row, head);
    const bool isCount = head.kind == platform::HeadKind::Count;
    if (questions.countNote && isCount && TreeItemModel::LookOf(index).kind != EditKind::None)
        AddLines(tip, ToQString(questions.countNote(row, head.id)));
    if (questions.massNote && head.id == c_mass)
        AddLines(tip, questions.massNote(row));
    if (head.kind == platform::HeadKind::Name) {
        const auto& model = static_cast<const TreeItemModel&>(*index.model());
        AddLines(tip, AttributeBoxes::MakeRowTip(model.GetView(), row));
    }
    return ToTip(tip);
}

} // namespace desktop
