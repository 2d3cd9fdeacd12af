#include "desktop/tree/CellLook.h"

#include "desktop/editors/DesignationEdit.h"
#include "desktop/editors/LocaleMoments.h"
#include "desktop/editors/LocaleNumbers.h"
#include "desktop/tree/GroupValues.h"
#include "platform/view/TreeTableView.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>

namespace desktop {

namespace {

using platform::CellKind;
using platform::ColumnHead;
using platform::HeadKind;
using platform::TreeCell;
using platform::TreeRowMarking;
using platform::TreeTableRow;

struct HeadEditor {
    HeadKind head;
    EditKind editor;
};

// clang-format off
constexpr std::array c_headEditors = {
    HeadEditor{HeadKind::Name,        EditKind::Text},
    HeadEditor{HeadKind::Designation, EditKind::Designation},
    HeadEditor{HeadKind::Text,        EditKind::Text},
    HeadEditor{HeadKind::Int,         EditKind::Int},
    HeadEditor{HeadKind::Double,      EditKind::Double},
    HeadEditor{HeadKind::List,        EditKind::List},
    HeadEditor{HeadKind::Bool,        EditKind::Bool},
    HeadEditor{HeadKind::Count,       EditKind::Text},
};
// clang-format on

QString ToQString(const SharedText& text) {
    return QString::fromStdWString(text.Str());
}

LinkLook LinkOf(bool isLink, int style) {
    if (!isLink)
        return LinkLook::None;
    return style == LinkStyleLive ? LinkLook::Live : LinkLook::Dead;
}

EditKind EditKindOf(CellKind kind) {
    switch (kind) {
    case CellKind::Text:
        return EditKind::Text;
    case CellKind::Int:
        return EditKind::Int;
    case CellKind::Double:
        return EditKind::Double;
    case CellKind::Bool:
        return EditKind::Bool;
    case CellKind::List:
        return EditKind::List;
    case CellKind::None:
    case CellKind::Link:
        break;
    }
    return EditKind::None;
}

CellLook NameLook(const TreeTableRow& row) {
    CellLook look;
    if (row.IsNameEditable() && !row.IsReadOnly() && !row.IsNameHypertext())
        look.kind = EditKind::Text;
    look.link = LinkOf(row.IsNameHypertext(), row.GetNameLinkStyle());
    look.sourceIcon = row.GetNameIcon();
    return look;
}

CellLook DesignationLook(const TreeTableRow& row) {
    const TreeRowMarking& marking = row.GetMarking();
    CellLook look;
    look.isReadOnly = marking.IsReadOnly() || row.IsReadOnly();
    if (!look.isReadOnly && !marking.IsHypertext() && !row.IsSection())
        look.kind = EditKind::Designation;
    look.link = LinkOf(marking.IsHypertext(), marking.GetLinkStyle());
    look.sourceIcon = marking.GetIcon();
    return look;
}

/// The text begins with a moment.
bool BeginsAsMoment(const std::wstring& text) {
    constexpr std::size_t middle = 10, end = 19;
    return text.size() > end && text[middle] == L'T' && text[end] == L'Z';
}

/// The cell holds a moment, or it is that of a group and lists those of its members.
bool IsOfMoments(const TreeTableRow& row, const TreeCell& cell) {
    if (cell.GetKind() != CellKind::Text || cell.IsMoment() ||
        !BeginsAsMoment(cell.GetShownText().Str()))
        return cell.IsMoment();
    const std::wstring& column = row.GetColumnOf(cell).Str();
    for (std::size_t i = 0; i < row.GetChildCount(); ++i) {
        const TreeCell* const member = row.GetChildRow(i).FindCell(column);
        if (member && member->IsMoment())
            return true;
    }
    return false;
}

bool HasEntries(const IMenuItems* menu) {
    return menu && menu->GetEntryCount() > 0;
}

CellLook ValueLook(const TreeTableRow& row, const TreeCell& cell) {
    CellLook look;
    look.isReadOnly = !cell.IsEditable() || row.IsReadOnly();
    look.opensDialog =
        !look.isReadOnly && cell.GetKind() == CellKind::List && cell.GetList().empty();
    if (!look.isReadOnly && !look.opensDialog)
        look.kind = IsOfMoments(row, cell) ? EditKind::Moment : EditKindOf(cell.GetKind());
    // A menu of a cell that takes nothing would offer what does nothing.
    if (look.kind == EditKind::Text && HasEntries(cell.GetPopup()))
        look.menu = cell.GetPopup();
    look.link = LinkOf(cell.GetKind() == CellKind::Link, cell.GetLinkStyle());
    look.isOutdated = cell.IsOutdated() || cell.IsRecalculable();
    look.sourceIcon = row.GetIconOf(cell);
    return look;
}

QString ValueText(const TreeTableRow& row, const TreeCell& cell) {
    switch (cell.GetKind()) {
    case CellKind::Int:
        return cell.HasValue() ? FormatNumber(cell.GetInt()) : QString();
    case CellKind::Double:
        return cell.HasValue() ? FormatNumber(cell.GetDouble()) : QString();
    case CellKind::Bool:
        // Its box says it all.
        return {};
    default:
        return IsOfMoments(row, cell) ? FormatMoments(ToQString(cell.GetShownText()))
                                      : ToQString(cell.GetShownText());
    }
}

QVariant ValueOf(const TreeCell& cell) {
    if (cell.GetKind() == CellKind::Text)
        return ToQString(cell.GetText());
    if (!cell.HasValue())
        return {};
    switch (cell.GetKind()) {
    case CellKind::Int:
        return cell.GetInt();
    case CellKind::Double:
        return cell.GetDouble();
    case CellKind::Bool:
        return cell.GetBool();
    case CellKind::List:
        return cell.GetListIndex();
    default:
        return {};
    }
}

SharedText GetRecalculableTip() {
    static const SharedText tip =
        QCoreApplication::translate("desktop::CellLook",
                                    "Typed: the uses in the product make another count")
            .toStdWString();
    return tip;
}

QStringList ToStrings(const std::vector<SharedText>& texts) {
    QStringList strings;
    for (const SharedText& text : texts)
        strings += ToQString(text);
    return strings;
}

/// A list always has a way back to no value, where there is one to take away.
bool CanBeEmptied(const TreeTableRow& row, const ColumnHead& head, const TreeCell& cell) {
    if (cell.GetKind() != CellKind::List)
        return cell.CanBeEmpty();
    return cell.HasValue() || GroupValues(row, head).GetState() == GroupValues::State::Different;
}

EditorRequest ValueEditor(const TreeTableRow& row, const ColumnHead& head, const TreeCell& cell) {
    EditorRequest editor;
    editor.value = ValueOf(cell);
    editor.step = cell.GetStep();
    editor.canBeEmpty = CanBeEmptied(row, head, cell);
    editor.list = ToStrings(cell.GetList());
    editor.hasMenu = HasEntries(cell.GetPopup());
    return editor;
}

EditorRequest DesignationEditor(const TreeRowMarking& marking) {
    EditorRequest editor;
    editor.value = QStringList{ToQString(marking.GetBase()),
                               QString::fromStdWString(marking.GetEmbodimentNumDelim()),
                               ToQString(marking.GetEmbodimentNum()),
                               QString::fromStdWString(marking.GetAdditionalNumDelim()),
                               ToQString(marking.GetAdditionalNum()),
                               QString::fromStdWString(marking.GetCodeDelim()),
                               ToQString(marking.GetCode())};
    editor.lockedParts = marking.GetLockedParts();
    for (int part = 1; part <= DesignationEdit::c_partCount; ++part)
        editor.partTips.push_back(ToQString(marking.GetPartTip(part)));
    return editor;
}

} // namespace

CellLook GetCellLook(const TreeTableRow& row, const ColumnHead& head) {
    if (head.kind == HeadKind::Name)
        return NameLook(row);
    if (head.kind == HeadKind::Designation)
        return DesignationLook(row);
    const TreeCell* cell = row.FindCell(head.id);
    return cell ? ValueLook(row, *cell) : CellLook();
}

QString GetCellText(const TreeTableRow& row, const ColumnHead& head) {
    if (head.kind == HeadKind::Name)
        return ToQString(row.GetShownName());
    if (head.kind == HeadKind::Designation)
        return ToQString(row.GetMarking().GetDisplayText());
    const TreeCell* cell = row.FindCell(head.id);
    return cell ? ValueText(row, *cell) : QString();
}

SharedText GetCellTip(const TreeTableRow& row, const ColumnHead& head) {
    if (head.kind == HeadKind::Name || head.kind == HeadKind::Designation)
        return {};
    const TreeCell* cell = row.FindCell(head.id);
    if (cell && cell->IsRecalculable())
        return GetRecalculableTip();
    return cell ? cell->GetTip() : SharedText();
}

EditorRequest GetCellEditor(const TreeTableRow& row, const ColumnHead& head) {
    const EditKind kind = GetCellLook(row, head).kind;
    EditorRequest editor;
    if (kind == EditKind::None)
        return editor;
    if (head.kind == HeadKind::Name)
        editor.value = ToQString(row.GetNameText());
    else if (head.kind == HeadKind::Designation)
        editor = DesignationEditor(row.GetMarking());
    else
        editor = ValueEditor(row, head, *row.FindCell(head.id));
    editor.kind = kind;
    return editor;
}

EditorRequest GetHeadEditor(const ColumnHead& head) {
    EditorRequest editor;
    const auto row = std::find_if(c_headEditors.begin(), c_headEditors.end(),
                                  [&](const HeadEditor& known) { return known.head == head.kind; });
    if (row != c_headEditors.end() && head.IsEditable())
        editor.kind = row->editor;
    editor.list = ToStrings(head.list);
    editor.hasMenu = HasEntries(head.popup.get());
    return editor;
}

} // namespace desktop
