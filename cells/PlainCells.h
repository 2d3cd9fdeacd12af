// The cells of object rows that know nothing of the meaning of their column, only of its type of
// value, and the two that show without being edited. Any property without a class of its own has
// one of them.
#pragma once

#include "cells/ProductTreeCellImpl.h"

namespace productTree {

/// Text. It shows and remembers the label of whatever type the property has. Cells of texts that
/// mean something derive from it.
class StringCellImpl : public ProductTreeCellImpl {
public:
    using ProductTreeCellImpl::ProductTreeCellImpl;

    void InitEditor() override;
    ProductInfObjChangesResult MakeChanges(const PropValue& value,
                                           std::optional<int> extra) override;
    void Update() override;
    TreeActionResult OnValueEdited() override;
    /// The menu at the cell; null for none.
    virtual MenuPtr GetPopupMenu();

private:
    void ShowMoment(const SharedText& text);
    void Show(const SharedText& text);
};

class IntCellImpl final : public ProductTreeCellImpl {
public:
    using ProductTreeCellImpl::ProductTreeCellImpl;

    void InitEditor() override;
    ProductInfObjChangesResult MakeChanges(const PropValue& value,
                                           std::optional<int> extra) override;
    void Update() override;
    TreeActionResult OnValueEdited() override;
};

class DoubleCellImpl final : public ProductTreeCellImpl {
public:
    using ProductTreeCellImpl::ProductTreeCellImpl;

    void InitEditor() override;
    ProductInfObjChangesResult MakeChanges(const PropValue& value,
                                           std::optional<int> extra) override;
    void Update() override;
    TreeActionResult OnValueEdited() override;
};

class BoolCellImpl final : public ProductTreeCellImpl {
public:
    using ProductTreeCellImpl::ProductTreeCellImpl;

    void InitEditor() override;
    ProductInfObjChangesResult MakeChanges(const PropValue& value,
                                           std::optional<int> extra) override;
    void Update() override;
    TreeActionResult OnValueEdited() override;
};

/// One of the values that the property may take. Cells whose values are no property's as they stand
/// derive from it.
class ListCellImpl : public ProductTreeCellImpl {
public:
    using ProductTreeCellImpl::ProductTreeCellImpl;

    void InitEditor() override;
    ProductInfObjChangesResult MakeChanges(const PropValue& value,
                                           std::optional<int> extra) override;
    void Update() override;
    TreeActionResult OnValueEdited() override;
    /// Place of the stored value in the list; -1 when it is not in it.
    virtual int GetValueIndex();
};

/// The kind of an object in words.
class FeatureTypeCellImpl final : public ReadOnlyCell<ProductTreeCellImpl> {
public:
    using ReadOnlyCell::ReadOnlyCell;

    void InitEditor() override;
    ProductInfObjChangesResult MakeChanges(const PropValue& value,
                                           std::optional<int> extra) override;
    void Update() override;
};

/// Fills the place of a column that has no value in this row.
class EmptyDisabledCellImpl final : public ReadOnlyCell<ProductTreeCellImpl> {
public:
    using ReadOnlyCell::ReadOnlyCell;

    void InitEditor() override;
    ProductInfObjChangesResult MakeChanges(const PropValue& value,
                                           std::optional<int> extra) override;
    void Update() override;
};

} // namespace productTree
