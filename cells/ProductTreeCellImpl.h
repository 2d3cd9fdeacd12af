// A cell is where a row and a column meet. It reads one property of one object from the product
// data and tells the row what to show. Its item makes it and calls it; it never calls the control.
#pragma once

#include "columns/ColumnInfo.h"
#include "host/PropValue.h"
#include "host/PropertyRef.h"
#include "host/view/ITreeTableRow.h"

#include <optional>
#include <string>

class IfProductTreeData;

namespace productTree {

class ProductTreeItemImpl;

/// Resource names of the icon that tells whether a value comes from the object's source. An empty
/// name stands for a property without source.
namespace sourceIcons {

inline const std::wstring bySource = L"PRODUCTTREE_VALUE_BY_SOURCE";
inline const std::wstring notBySource = L"PRODUCTTREE_VAL_NOT_BY_SRC";
/// The members of a group row differ.
inline const std::wstring mixed = L"PRODUCTTREE_BY_SRC_MIXED";

} // namespace sourceIcons

class ProductTreeCellImpl {
public:
    ProductTreeCellImpl(IfProductTreeData* data, TreeRowPtr row, const ColumnInfo& column,
                        const UniqueMetaObjectKey& key);
    ProductTreeCellImpl(const ProductTreeCellImpl&) = delete;
    ProductTreeCellImpl& operator=(const ProductTreeCellImpl&) = delete;
    virtual ~ProductTreeCellImpl();

    /// Cached until the next Update, as are the two questions about the link: rows and menus ask
    /// them many times, and each is a search in the product data.
    virtual bool IsEditable();
    /// Declares the cell's editor to the row. Name and designation have theirs in the row itself.
    virtual void InitEditor() = 0;
    /// Reads the value again and shows it. Overrides begin with ResetCaches.
    virtual void Update() = 0;
    /// The value is shown as a link.
    virtual bool HasHypertext();
    virtual bool IsHypertextActive();
    virtual std::wstring GetSourceIcon();
    /// 2 for a live link, else 0.
    virtual int GetLinkStyle();

    bool IsColumn(const std::wstring& id) const { return m_column.GetId() == id; }
    const UniqueMetaObjectKey& GetKey() const { return m_key; }
    /// The value last shown, in shown units.
    SimplePropVal GetShownValue() const { return m_value; }

protected:
    PropertyRef MakeRef() const;
    void SetShownValue(const SimplePropVal& value);
    void ResetCaches();
    /// The item of the cell's row.
    ProductTreeItemImpl& GetItem() const;

    SimplePropVal m_value;
    PropValue m_propValue;
    IfProductTreeData* m_data;
    TreeRowPtr m_row;
    ColumnInfo m_column;
    UniqueMetaObjectKey m_key;
    std::optional<bool> m_editable;
    std::optional<bool> m_hasHypertext;
    std::optional<bool> m_hypertextActive;
};

} // namespace productTree
