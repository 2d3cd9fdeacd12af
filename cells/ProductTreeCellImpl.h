// A cell is where a row and a column meet. It reads one property of one object from the product
// data, tells the row what to show, and turns what the user did in the row into a change of the
// product data. Its item makes it; the control calls it and gets back a TreeActionResult; it never
// calls the control.
#pragma once

#include "cells/LinkCommands.h"
#include "cells/TreeActionResult.h"
#include "columns/ColumnInfo.h"
#include "host/PropValue.h"
#include "host/PropertyRef.h"
#include "host/data/ProductInfObjChangesResult.h"
#include "host/view/ITreeTableRow.h"

#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

class IfProductTreeData;
struct PropertyReading;

namespace productTree {

class ProductTreeItemId;
class ChangedRows;
class ProductTreeItemImpl;

/// Resource names of the icon that tells whether a value comes from the object's source. An empty
/// name stands for a property without source.
namespace sourceIcons {

inline const SharedText none;
inline const SharedText bySource = L"PRODUCTTREE_VALUE_BY_SOURCE";
inline const SharedText notBySource = L"PRODUCTTREE_VAL_NOT_BY_SRC";
/// The members of a group row differ.
inline const SharedText mixed = L"PRODUCTTREE_BY_SRC_MIXED";

} // namespace sourceIcons

/// Of what the product data says; empty for a property without source.
inline const SharedText& FindSourceIcon(std::optional<bool> bySource) {
    if (!bySource)
        return sourceIcons::none;
    return *bySource ? sourceIcons::bySource : sourceIcons::notBySource;
}

/// Adds `changes` to `all`.
void MergeChanges(ProductInfObjChangesResult& all, const ProductInfObjChangesResult& changes);

class ProductTreeCellImpl {
public:
    ProductTreeCellImpl(IfProductTreeData* data, TreeRowPtr row, const ColumnInfo& column,
                        const UniqueMetaObjectKey& key);
    ProductTreeCellImpl(const ProductTreeCellImpl&) = delete;
    ProductTreeCellImpl& operator=(const ProductTreeCellImpl&) = delete;
    virtual ~ProductTreeCellImpl();

    /// Cached until the next Update, as are the two questions about the link: rows and menus ask
    /// them many times, and each is a search in the product data.
    virtual bool IsEditable() { return m_editable ? *m_editable : AskEditable(); }
    /// Declares the cell's editor to the row. Name and designation have theirs in the row itself.
    virtual void InitEditor() = 0;
    /// The change set for a new value, in stored units; empty when the value is not acceptable.
    /// `extra` has a value only where a section is chosen: whether the name follows it.
    virtual ProductInfObjChangesResult MakeChanges(const PropValue& value,
                                                   std::optional<int> extra) = 0;
    /// Reads the value again and shows it. Overrides begin with ResetCaches or Read.
    virtual void Update() = 0;
    /// The value is shown as a link.
    virtual bool HasHypertext() { return m_hasHypertext ? *m_hasHypertext : AskHypertext(); }
    virtual bool CanInsertHypertext();
    virtual bool CanInsertExtendedReference();
    virtual bool CanEditHypertext();
    virtual bool CanDestroyHypertext();
    virtual bool IsHypertextActive();
    /// The user has left the cell's editor: what it holds goes into the product data, or the old
    /// value back into the row.
    virtual TreeActionResult OnValueEdited() = 0;
    /// The change set that ties the value to its source or unties it. The id of each row that took
    /// part joins `rows`, so that no row is treated twice.
    virtual ProductInfObjChangesResult SetBySource(bool bySource, ChangedRows& rows);
    virtual TreeActionResult OnHypertextActivated();
    virtual TreeActionResult OnPopupCommand(int command);
    /// False for a command that is nothing to this cell, so that others may try.
    virtual bool ExecCommand(int command, TreeActionResult& out);
    virtual TreeActionResult OnSourceIconClicked();
    virtual std::set<int> GetAvailableCommands();
    virtual bool CanTransmitToSource();
    /// The resource name of the icon; empty for none. Each Update shows what this answers, so that
    /// a class that overrides it need do nothing else. What Read has found is the answer until the
    /// next Update.
    virtual SharedText GetSourceIcon();
    /// 2 for a live link, else 0.
    virtual int GetLinkStyle();

    bool IsColumn(const std::wstring& id) const { return m_column.GetId() == id; }
    const SharedText& GetColumnId() const { return m_column.GetSharedId(); }
    const UniqueMetaObjectKey& GetKey() const { return m_key; }
    /// The value last shown, in shown units.
    const SimplePropVal& GetShownValue() const { return m_value; }
    /// The same as a property value; it is what is transmitted to the source.
    virtual PropValue GetShownPropValue() const { return PropValue(m_value); }

protected:
    PropertyRef MakeRef() const;
    /// What the commands on links are about.
    virtual LinkTargets MakeLinkTargets() const;
    // Most readings find what was shown already. Not to write it again keeps the memory of a
    // hundred thousand rows clean.
    void SetShownValue(const SimplePropVal& value) {
        if (!(value == m_value))
            m_value.SetValue(value.GetValue());
    }
    void SetShownText(const SharedText& text) {
        if (!IsShownText(text))
            SetShownValue(SimplePropVal(text));
    }
    /// The very text that is shown, in memory too.
    bool IsShownText(const SharedText& text) const {
        const SharedText* const shown = m_value.FindText();
        return shown && shown->IsSame(text);
    }
    /// What is displayed for the text: `format` of it, which is made in `room`, or the text itself
    /// where last time they were one.
    template <class Format>
    const SharedText& FindDisplay(const SharedText& text, SharedText& room, const Format& format) {
        if (m_isShownAsIs && IsShownText(text))
            return text;
        room = format(text);
        m_isShownAsIs = room.IsSame(text);
        return room;
    }
    void ResetCaches();
    /// Asks for the value and all that is shown with it at once, and fills the caches with it.
    PropertyReading Read();
    /// The item of the cell's row.
    ProductTreeItemImpl& GetItem() const;
    /// The row stands below a group row.
    bool IsInGroupRow() const;
    /// Shows the value as a link that is followed and not typed over.
    void ShowLink(const SharedText& shown, const SharedText& icon);
    /// The changes for a value that has passed the cell's own test; none for a read-only cell.
    ProductInfObjChangesResult MakeEditableChanges(const PropValue& value);
    /// The changes for what the user has left in the editor of an integer, a real number or a list,
    /// in shown units.
    ProductInfObjChangesResult MakeChangesFromInt();
    ProductInfObjChangesResult MakeChangesFromDouble();
    ProductInfObjChangesResult MakeChangesFromList();
    /// Shows the value at that place of the column's list; -1: none of them.
    void ShowFromList(int index, const SharedText& icon);
    void TransmitToSource(TreeActionResult& out);

    /// Applies the changes, also when there are none: the product data alone judges whether
    /// anything was changed.
    bool Commit(ProductInfObjChangesResult& changes);
    /// The end of every edit: applies the changes, or else lets `restore` put back what was shown.
    template <class Restore>
    TreeActionResult FinishEdit(ProductInfObjChangesResult changes, int action,
                                const Restore& restore) {
        TreeActionResult result;
        if (Commit(changes))
            result.action = action;
        else
            restore();
        return result;
    }

    SimplePropVal m_value;
    IfProductTreeData* m_data;
    TreeRowPtr m_row;
    ColumnInfo m_column;
    UniqueMetaObjectKey m_key;
    std::optional<bool> m_editable;
    std::optional<bool> m_hasHypertext;
    std::optional<bool> m_hypertextActive;

private:
    enum class Source : unsigned char { Unread, None, BySource, NotBySource };
    static Source ToSource(std::optional<bool> bySource);

    // In one byte, so that what a group cell adds still fits beside it.
    bool m_isShownAsIs : 1 = false;
    Source m_source : 2 = Source::Unread;

    bool AskEditable();
    bool AskHypertext();
};

/// What shows a value and takes no input, be it one object's or a group's.
template <class Base>
class ReadOnlyCell : public Base {
public:
    using Base::Base;

    bool IsEditable() override {
        this->m_editable = false;
        return false;
    }
    TreeActionResult OnValueEdited() override { return {}; }
};

} // namespace productTree
