#include "desktop/tree/CellTips.h"

#include "desktop/tree/AttributeBoxes.h"
#include "desktop/tree/GroupValues.h"

#include <QBuffer>
#include <QTextDocument>

namespace desktop {

namespace {

constexpr std::wstring_view c_mass = L"mass";

QString ToQString(const SharedText& text) {
    return QString::fromStdWString(text.Str());
}

/// The text as it is without a picture, with the picture below it.
QString ToTip(const QString& tip, const QImage& picture) {
    QByteArray png;
    QBuffer buffer(&png);
    if (!buffer.open(QIODevice::WriteOnly) || !picture.save(&buffer, "PNG"))
        return tip;
    const QSize size = (QSizeF(picture.size()) / picture.devicePixelRatio()).toSize();
    return QStringLiteral("<div style='white-space:pre'>%1</div><div><img width='%2' height='%3' "
                          "src='data:image/png;base64,%4'></div>")
        .arg(tip.toHtmlEscaped())
        .arg(size.width())
        .arg(size.height())
        .arg(QString::fromLatin1(png.toBase64()));
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
        const QImage picture = questions.picture ? questions.picture(row) : QImage();
        if (!picture.isNull())
            return ToTip(tip, picture);
    }
    return ToTip(tip);
}

} // namespace desktop
