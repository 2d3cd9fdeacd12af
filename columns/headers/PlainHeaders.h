// Heads that know nothing of the meaning of their column: one for the name, one for each type of
// value, one for the kind of an object.
#pragma once

#include "columns/headers/ProductTreeHeaderImpl.h"

namespace productTree {

class StringHeaderImpl : public ProductTreeHeaderImpl {
public:
    using ProductTreeHeaderImpl::ProductTreeHeaderImpl;

    void InitEditor() override;
    /// An emptied editor is an empty text and takes the texts away.
    TreeActionResult OnValueEdited() override;
    /// The menu at the editor; null for none.
    virtual boost::intrusive_ptr<IMenuItems> GetPopupMenu();
};

class IntHeaderImpl final : public ProductTreeHeaderImpl {
public:
    using ProductTreeHeaderImpl::ProductTreeHeaderImpl;

    void InitEditor() override;
    /// An emptied editor changes nothing.
    TreeActionResult OnValueEdited() override;
};

class DoubleHeaderImpl final : public ProductTreeHeaderImpl {
public:
    using ProductTreeHeaderImpl::ProductTreeHeaderImpl;

    void InitEditor() override;
    /// An emptied editor takes the values away, where the cells' ranges allow it.
    TreeActionResult OnValueEdited() override;
};

class BoolHeaderImpl final : public ProductTreeHeaderImpl {
public:
    using ProductTreeHeaderImpl::ProductTreeHeaderImpl;

    void InitEditor() override;
    TreeActionResult OnValueEdited() override;
};

class ListHeaderImpl : public ProductTreeHeaderImpl {
public:
    using ProductTreeHeaderImpl::ProductTreeHeaderImpl;

    void InitEditor() override;
    TreeActionResult OnValueEdited() override;

protected:
    /// The place that is chosen in the head; no value for none of the list.
    std::optional<int> FindChosenPlace() const;
};

/// The kind of an object can't be chosen: the head shows its caption.
class FeatureTypeHeaderImpl final : public ProductTreeHeaderImpl {
public:
    using ProductTreeHeaderImpl::ProductTreeHeaderImpl;

    void InitEditor() override;
    TreeActionResult OnValueEdited() override;
};

class NameHeaderImpl final : public ProductTreeHeaderImpl {
public:
    using ProductTreeHeaderImpl::ProductTreeHeaderImpl;

    void InitEditor() override;
    /// Changed names build the rows anew: they are sorted and grouped by them.
    TreeActionResult OnValueEdited() override;
};

} // namespace productTree
