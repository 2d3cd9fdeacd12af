#include "desktop/tree/CellTips.h"

#include "desktop/tree/AttributeBoxes.h"
#include "desktop/tree/GroupValues.h"
#include "desktop/tree/TreeItemModel.h"

#include <QTextDocument>

namespace desktop {

namespace {

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

QString MakeCellTip(const QModelIndex& index,
                    const std::function<SharedText(const platform::TreeTableRow&,
                                                   const std::wstring& columnId)>& countNote) {
    const platform::TreeTableRow& row = TreeItemModel::RowOf(index);
    const platform::ColumnHead& head = TreeItemModel::HeadOf(index);
    QString tip = GroupValues(row, head).MakeTip();
    if (tip.isEmpty())
        tip = ToQString(GetCellTip(row, head));
    if (tip.isEmpty())
        tip = GetCellText(row, head);
    const bool isCount = head.kind == platform::HeadKind::Count;
    if (countNote && isCount && TreeItemModel::LookOf(index).kind != EditKind::None)
        AddLines(tip, ToQString(countNote(row, head.id)));
    if (head.kind == platform::HeadKind::Name) {
        const auto& model = static_cast<const TreeItemModel&>(*index.model());
        AddLines(tip, AttributeBoxes::MakeRowTip(model.GetView(), row));
    }
    return ToTip(tip);
}

} // namespace desktop
