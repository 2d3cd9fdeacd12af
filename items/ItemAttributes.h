// The two check boxes beside a row's name: whether the object counts into the product, and whether
// it is in the current specification description. On the row of an object they speak to the product
// data; on a row that stands for others they mix what the child rows show and pass a change down.
//
// What is true is kept by the product data, and what is shown by the row: they hold neither.
#pragma once

#include "cells/TreeActionResult.h"
#include "host/UniqueMetaObjectKey.h"
#include "host/data/ProductInfObjChangesResult.h"
#include "host/view/ITreeTableRow.h"
#include "items/RowTally.h"

#include <memory>
#include <utility>

class IfProductTreeData;

namespace productTree {

class ChangedRows;
class ProductTreeItemImpl;

/// What both have in common, which otherwise know nothing of each other.
template <class Attribute>
class ItemAttribute {
public:
    ItemAttribute(TreeRowPtr row, IfProductTreeData* data) : m_row(std::move(row)), m_data(data) {}
    ItemAttribute(const ItemAttribute&) = delete;
    ItemAttribute& operator=(const ItemAttribute&) = delete;
    virtual ~ItemAttribute() = default;

    /// The change set that switches the box of the row, and of the rows below it, on or off. Each
    /// row that took part joins `rows`, and one that stands there already is left alone.
    virtual ProductInfObjChangesResult MakeChanges(bool value, ChangedRows& rows) = 0;
    /// Shows the state in the row. Child rows come first.
    virtual void Update() = 0;

    /// The user has clicked the box.
    TreeActionResult Toggle();
    /// The box shows the other state, and can be changed.
    bool CanGoTo(bool value) const;

protected:
    ProductTreeItemImpl& GetItem() const;

    TreeRowPtr m_row;
    IfProductTreeData* m_data;
};

class AggrIntoProductAttribute : public ItemAttribute<AggrIntoProductAttribute> {
public:
    using ItemAttribute::ItemAttribute;

    static int GetState(const ITreeTableRow& row);
    static void SetState(ITreeTableRow& row, int state);
    /// Null for a row that has none.
    static AggrIntoProductAttribute* FindOf(const ProductTreeItemImpl& item);
    static unsigned GetChildStates(const RowTally& rows) { return rows.GetAggrStates(); }
};

class RegWithDescAttribute : public ItemAttribute<RegWithDescAttribute> {
public:
    using ItemAttribute::ItemAttribute;

    static int GetState(const ITreeTableRow& row);
    static void SetState(ITreeTableRow& row, int state);
    static RegWithDescAttribute* FindOf(const ProductTreeItemImpl& item);
    static unsigned GetChildStates(const RowTally& rows) { return rows.GetRegStates(); }
};

class InfObjAggrIntoProductAttributeImpl final : public AggrIntoProductAttribute {
public:
    /// The key is the item's, and lives as long.
    InfObjAggrIntoProductAttributeImpl(TreeRowPtr row, IfProductTreeData* data,
                                       const UniqueMetaObjectKey& key)
        : AggrIntoProductAttribute(std::move(row), data), m_key(key) {}

    ProductInfObjChangesResult MakeChanges(bool value, ChangedRows& rows) override;
    void Update() override;

private:
    const UniqueMetaObjectKey& m_key;
};

class InfObjRegWithDescAttributeImpl final : public RegWithDescAttribute {
public:
    InfObjRegWithDescAttributeImpl(TreeRowPtr row, IfProductTreeData* data,
                                   const UniqueMetaObjectKey& key)
        : RegWithDescAttribute(std::move(row), data), m_key(key) {}

    ProductInfObjChangesResult MakeChanges(bool value, ChangedRows& rows) override;
    void Update() override;

private:
    const UniqueMetaObjectKey& m_key;
};

/// The box of a row that stands for those below it.
template <class Attribute>
class SubTreeAttribute : public Attribute {
public:
    /// `childRows` is the row's tally, and lives as long.
    SubTreeAttribute(TreeRowPtr row, IfProductTreeData* data, const RowTally& childRows)
        : Attribute(std::move(row), data), m_childRows(childRows) {}

    ProductInfObjChangesResult MakeChanges(bool value, ChangedRows& rows) override;
    /// The state that all child rows have. Of several it is one that can be switched, and off only
    /// where none can be switched off.
    void Update() override;

private:
    const RowTally& m_childRows;
};

class SubTreeAggrIntoProductAttributeImpl final
    : public SubTreeAttribute<AggrIntoProductAttribute> {
public:
    using SubTreeAttribute::SubTreeAttribute;
};

class SubTreeRegWithDescAttributeImpl : public SubTreeAttribute<RegWithDescAttribute> {
public:
    using SubTreeAttribute::SubTreeAttribute;
};

/// A group is registered as a whole: the product data gets its key, and not those of its members.
class GroupRegWithDescAttributeImpl final : public SubTreeRegWithDescAttributeImpl {
public:
    GroupRegWithDescAttributeImpl(TreeRowPtr row, IfProductTreeData* data,
                                  const RowTally& childRows, const UniqueMetaObjectKey& key)
        : SubTreeRegWithDescAttributeImpl(std::move(row), data, childRows), m_key(key) {}

    ProductInfObjChangesResult MakeChanges(bool value, ChangedRows& rows) override;

private:
    const UniqueMetaObjectKey& m_key;
};

} // namespace productTree
