#include "desktop/tree/GroupValues.h"

#include "desktop/tree/CellLook.h"
#include "platform/view/TreeTableView.h"

#include <QCoreApplication>
#include <QHash>
#include <QStringList>

#include <algorithm>
#include <vector>

namespace desktop {

namespace {

using platform::CellKind;
using platform::TreeCell;
using platform::TreeTableRow;

/// The first line tells how many values there are, the last that there are more.
constexpr std::size_t c_tipLines = 10;
constexpr qsizetype c_tipLetters = 60;

QString Tr(const char* text) {
    return QCoreApplication::translate("desktop::GroupValues", text);
}

/// Rows below any other row than a section or the product itself are its members.
bool IsGroup(const TreeTableRow& row) {
    return row.GetChildCount() > 0 && row.GetParentRow() && !row.IsSection();
}

/// As the cell itself shows it; a box is put into words.
QString TextOf(const TreeTableRow& member, const platform::ColumnHead& head) {
    const TreeCell* const cell = member.FindCell(head.id);
    if (cell && cell->GetKind() == CellKind::Bool && cell->HasValue())
        return cell->GetBool() ? Tr("yes") : Tr("no");
    return GetCellText(member, head);
}

/// On one line and not too long.
QString TipText(const QString& text) {
    if (text.isEmpty())
        return Tr("none");
    const QString line = text.simplified();
    return line.size() <= c_tipLetters ? line : line.left(c_tipLetters - 1) + QChar(0x2026);
}

struct Count {
    QString text;
    int members = 0;
};

std::vector<Count> CountTexts(const TreeTableRow& group, const platform::ColumnHead& head) {
    std::vector<Count> counts;
    QHash<QString, std::size_t> places;
    for (std::size_t i = 0; i < group.GetChildCount(); ++i) {
        const QString text = TextOf(group.GetChildRow(i), head);
        if (!places.contains(text)) {
            places.insert(text, counts.size());
            counts.push_back({text});
        }
        ++counts[places[text]].members;
    }
    std::ranges::stable_sort(counts, std::ranges::greater(), &Count::members);
    return counts;
}

} // namespace

const TreeCell* GroupValues::FindGroupCell() const {
    const TreeCell* const cell = IsGroup(m_row) ? m_row.FindCell(m_head.id) : nullptr;
    return cell && cell->GetKind() != CellKind::None ? cell : nullptr;
}

bool GroupValues::DoMembersDiffer() const {
    const SharedText first = platform::GetShownText(m_row.GetChildRow(0), m_head);
    for (std::size_t i = 1; i < m_row.GetChildCount(); ++i) {
        if (!(platform::GetShownText(m_row.GetChildRow(i), m_head) == first))
            return true;
    }
    return false;
}

GroupValues::State GroupValues::GetState() const {
    const TreeCell* const cell = FindGroupCell();
    if (!cell)
        return State::None;
    const bool isShown = !cell->GetShownText().IsEmpty();
    const bool isList = cell->GetKind() == CellKind::Text && cell->GetText().IsEmpty();
    if ((isShown && !isList) || !DoMembersDiffer())
        return State::Same;
    return isShown ? State::List : State::Different;
}

QString GroupValues::MakeTip() const {
    const State state = GetState();
    if (state != State::List && state != State::Different)
        return {};
    const std::vector<Count> counts = CountTexts(m_row, m_head);
    QStringList lines(Tr("%1 values:").arg(counts.size()));
    const bool areAll = counts.size() < c_tipLines;
    const std::size_t told = areAll ? counts.size() : c_tipLines - 2;
    for (std::size_t i = 0; i < told; ++i)
        lines += Tr("%1 (%2)").arg(TipText(counts[i].text), QString::number(counts[i].members));
    if (!areAll)
        lines += Tr("and %1 more").arg(counts.size() - told);
    return lines.join(QLatin1Char('\n'));
}

} // namespace desktop
