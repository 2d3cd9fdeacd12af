// The yardstick that a Qt programmer would reach for: the same rows, texts, flags and icons in a
// QStandardItemModel.

#include "bench/BenchProduct.h"
#include "platform/view/HostFrame.h"

#include <QIcon>
#include <QStandardItemModel>
#include <QString>
#include <map>

namespace {

using platform::TreeTableRow;

QString ToQString(const SharedText& text) {
    return QString::fromStdWString(text.Str());
}

class ModelFill {
public:
    std::unique_ptr<QStandardItemModel> Fill(const TreeTableRow& root) {
        auto model = std::make_unique<QStandardItemModel>();
        model->setColumnCount(2);
        Append(*model->invisibleRootItem(), root);
        return model;
    }

private:
    void Append(QStandardItem& parent, const TreeTableRow& row) {
        auto* name = new QStandardItem(m_icons[row.GetIcon()], ToQString(row.GetShownName()));
        name->setEditable(row.IsNameEditable());
        auto* marking = new QStandardItem(ToQString(row.GetMarking().GetDisplayText()));
        marking->setEditable(false);
        parent.appendRow({name, marking});
        for (std::size_t i = 0; i < row.GetChildCount(); ++i)
            Append(*name, row.GetChildRow(i));
    }

    std::map<int, QIcon> m_icons;
};

void StandardItemModelFill(benchmark::State& state) {
    const platform::HostFrame frame(bench::GetProduct(static_cast<std::size_t>(state.range(0))));
    const TreeTableRow& root = *frame.GetView().GetRoot();
    ModelFill fill;
    bench::Measure(state, [&] { return fill.Fill(root); });
}
BENCHMARK(StandardItemModelFill)->Apply(bench::Sizes);

} // namespace
