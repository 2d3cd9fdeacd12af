// The yardstick that a Qt programmer would reach for: the same rows, texts, flags and icons in a
// QStandardItemModel, filled once and written again.

#include "bench/BenchProduct.h"
#include "platform/view/HostFrame.h"

#include <QIcon>
#include <QLocale>
#include <QStandardItemModel>
#include <QString>
#include <map>

namespace {

using platform::CellKind;
using platform::TreeCell;
using platform::TreeTableRow;

QString ToQString(const SharedText& text) {
    return QString::fromStdWString(text.Str());
}

/// As TreeCell::GetShownText, by Qt's own means.
QString GetText(const TreeCell& cell) {
    static const QString yes = QStringLiteral("yes");
    static const QString no = QStringLiteral("no");
    if (!cell.HasValue())
        return {};
    switch (cell.GetKind()) {
    case CellKind::None:
        return {};
    case CellKind::Text:
    case CellKind::Link:
        return ToQString(cell.GetShown());
    case CellKind::Int:
        return QString::number(cell.GetInt());
    case CellKind::Double:
        return QString::number(cell.GetDouble(), 'g', QLocale::FloatingPointShortest);
    case CellKind::Bool:
        return cell.GetBool() ? yes : no;
    case CellKind::List:
        return ToQString(cell.GetList()[static_cast<std::size_t>(cell.GetListIndex())]);
    }
    return {};
}

Qt::ItemFlags GetFlags(bool isEditable, bool isCheckable) {
    return Qt::ItemFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable)
        .setFlag(Qt::ItemIsEditable, isEditable)
        .setFlag(Qt::ItemIsUserCheckable, isCheckable);
}

/// Writes a tree of rows into the items of a model.
class ModelWriter {
public:
    std::unique_ptr<QStandardItemModel> Fill(const TreeTableRow& root) {
        auto model = std::make_unique<QStandardItemModel>();
        Append(*model->invisibleRootItem(), root);
        return model;
    }
    /// The model must be one that was filled with the same rows.
    void Rewrite(const QStandardItemModel& model, const TreeTableRow& root) {
        Rewrite(*model.invisibleRootItem(), 0, root);
    }

private:
    static constexpr int c_fixedColumns = 2;

    void Append(QStandardItem& parent, const TreeTableRow& row) {
        QList<QStandardItem*> items;
        const int count = c_fixedColumns + static_cast<int>(row.GetCellCount());
        items.reserve(count);
        for (int column = 0; column < count; ++column) {
            items.append(new QStandardItem);
            Write(*items.back(), row, column);
        }
        parent.appendRow(items);
        for (std::size_t i = 0; i < row.GetChildCount(); ++i)
            Append(*items.front(), row.GetChildRow(i));
    }

    void Rewrite(const QStandardItem& parent, int place, const TreeTableRow& row) {
        const int count = c_fixedColumns + static_cast<int>(row.GetCellCount());
        for (int column = 0; column < count; ++column)
            Write(*parent.child(place, column), row, column);
        const QStandardItem& item = *parent.child(place);
        for (std::size_t i = 0; i < row.GetChildCount(); ++i)
            Rewrite(item, static_cast<int>(i), row.GetChildRow(i));
    }

    void Write(QStandardItem& item, const TreeTableRow& row, int column) {
        if (column == 0) {
            item.setText(ToQString(row.GetShownName()));
            item.setFlags(GetFlags(row.IsNameEditable(), false));
            item.setIcon(m_icons[row.GetIcon()]);
        } else if (column == 1) {
            item.setText(ToQString(row.GetMarking().GetDisplayText()));
            item.setFlags(GetFlags(!row.GetMarking().IsReadOnly(), false));
        } else {
            const TreeCell& cell = row.GetCell(static_cast<std::size_t>(column - c_fixedColumns));
            item.setText(GetText(cell));
            item.setFlags(GetFlags(cell.IsEditable(), cell.GetKind() == CellKind::Bool));
        }
    }

    std::map<int, QIcon> m_icons;
};

platform::HostFrame MakeFrame(const benchmark::State& state) {
    return platform::HostFrame(bench::GetProduct(static_cast<std::size_t>(state.range(0))));
}

void StandardItemModelFill(benchmark::State& state) {
    const platform::HostFrame frame = MakeFrame(state);
    ModelWriter writer;
    bench::Measure(state, [&] { return writer.Fill(*frame.GetView().GetRoot()); });
}
BENCHMARK(StandardItemModelFill)->Apply(bench::Sizes);

void StandardItemModelRewrite(benchmark::State& state) {
    const platform::HostFrame frame = MakeFrame(state);
    ModelWriter writer;
    const auto model = writer.Fill(*frame.GetView().GetRoot());
    bench::Measure(state, [&] {
        writer.Rewrite(*model, *frame.GetView().GetRoot());
        return 0;
    });
}
BENCHMARK(StandardItemModelRewrite)->Apply(bench::Sizes);

} // namespace
