#include "desktop/window/WindowMemory.h"

#include "platform/view/TreeTableView.h"

#include <QCryptographicHash>
#include <QSet>

#include <algorithm>

namespace desktop {

namespace {

constexpr qsizetype c_mostFiles = 200;
/// Who has expanded more has expanded all.
constexpr qsizetype c_mostRows = 2000;
constexpr QChar c_separator(0x1F);

const QString c_order = QStringLiteral("order");
const QString c_isOpen = QStringLiteral("documents/open");
const QString c_height = QStringLiteral("documents/height");
const QString c_parts = QStringLiteral("documents/parts");
const QString c_columns = QStringLiteral("documents/columns");

/// A path has characters that the settings' names can't have.
QString GroupOf(const QString& product) {
    const QByteArray hash = QCryptographicHash::hash(product.toUtf8(), QCryptographicHash::Sha1);
    return QString::fromLatin1(hash.toHex());
}

/// Calls `callback` with each row that has children and the names that lead to it.
template <class Callback>
void WalkParents(platform::TreeTableRow& row, const QString& path, const Callback& callback) {
    if (row.GetChildCount() == 0)
        return;
    const QString own = path + c_separator + QString::fromStdWString(row.GetShownName().Str());
    callback(row, own);
    for (std::size_t i = 0; i < row.GetChildCount(); ++i)
        WalkParents(row.GetChildRow(i), own, callback);
}

} // namespace

std::optional<WindowMemory::FileState> WindowMemory::Find(const QString& product) const {
    const QString group = GroupOf(product) + QLatin1Char('/');
    if (!m_settings.contains(group + QStringLiteral("place")))
        return std::nullopt;
    FileState state;
    state.place = m_settings.value(group + QStringLiteral("place")).toByteArray();
    state.expanded = m_settings.value(group + QStringLiteral("expanded")).toStringList();
    const QVariantMap widths = m_settings.value(group + QStringLiteral("widths")).toMap();
    for (auto width = widths.begin(); width != widths.end(); ++width)
        state.widths.insert(width.key(), width->toInt());
    return state;
}

void WindowMemory::Keep(const QString& product, const FileState& state) {
    const QString name = GroupOf(product);
    const QString group = name + QLatin1Char('/');
    QVariantMap widths;
    for (auto width = state.widths.begin(); width != state.widths.end(); ++width)
        widths.insert(width.key(), *width);
    m_settings.setValue(group + QStringLiteral("place"), state.place);
    m_settings.setValue(group + QStringLiteral("expanded"),
                        state.expanded.first(std::min(c_mostRows, state.expanded.size())));
    m_settings.setValue(group + QStringLiteral("widths"), widths);

    QStringList order = m_settings.value(c_order).toStringList();
    order.removeAll(name);
    order.prepend(name);
    while (order.size() > c_mostFiles)
        m_settings.remove(order.takeLast());
    m_settings.setValue(c_order, order);
}

DocumentPane::State WindowMemory::GetDocuments() const {
    return {m_settings.value(c_isOpen).toBool(), m_settings.value(c_height).toInt(),
            m_settings.value(c_parts).toByteArray(), m_settings.value(c_columns).toByteArray()};
}

void WindowMemory::KeepDocuments(const DocumentPane::State& state) {
    m_settings.setValue(c_isOpen, state.isOpen);
    m_settings.setValue(c_height, state.height);
    m_settings.setValue(c_parts, state.parts);
    m_settings.setValue(c_columns, state.columns);
}

QStringList ListExpanded(const platform::TreeTableView& view) {
    QStringList expanded;
    if (platform::TreeTableRow* const root = view.GetRoot())
        WalkParents(*root, {}, [&](const platform::TreeTableRow& row, const QString& path) {
            if (row.IsExpanded())
                expanded += path;
        });
    return expanded;
}

void Expand(platform::TreeTableView& view, const QStringList& expanded) {
    const QSet<QString> wanted(expanded.begin(), expanded.end());
    if (platform::TreeTableRow* const root = view.GetRoot())
        WalkParents(*root, {}, [&](platform::TreeTableRow& row, const QString& path) {
            row.SetExpanded(wanted.contains(path));
        });
}

} // namespace desktop
