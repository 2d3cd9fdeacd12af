// The cells of group rows for mass, density and material: what the members have in common, or the
// sum of their masses, in the two forms of the cells of objects.
#pragma once

#include "cells/TypedGroupCells.h"

namespace productTree {

/// A link to the dialog for all members. As it is it shows the common material.
class MipGroupCellImpl : public GroupCellImpl {
public:
    using GroupCellImpl::GroupCellImpl;

    void InitEditor() override;
    void Update() override;
    TreeActionResult OnValueEdited() override;
    /// Also for read-only values: the dialog shows what there is, and judges for itself.
    TreeActionResult OnHypertextActivated() override;
    /// Live, whatever is known of the objects.
    int GetLinkStyle() override;

protected:
    /// No member shows any value.
    bool AreMembersEmpty() const;
    /// The group's own value, as text, with a tip where the members differ.
    void ShowCommon(const SimplePropVal& value, bool isOutdated);
    void ShowMip(const SharedText& shown, bool opensEditor, const SharedText& tip, bool isOutdated);
};

/// The sum of the members' masses; in embodiment mode the mass that they have in common.
class MassGroupCellImpl final : public MipGroupCellImpl {
public:
    using MipGroupCellImpl::MipGroupCellImpl;

    void Update() override;
};

class DensityGroupCellImpl final : public MipGroupCellImpl {
public:
    using MipGroupCellImpl::MipGroupCellImpl;

    void Update() override;
};

/// What the two typed numbers have in common: the number goes to all members.
class MipNumberGroupCellImpl : public GroupCellImpl {
public:
    using GroupCellImpl::GroupCellImpl;

    void InitEditor() override;
    /// An emptied editor changes nothing.
    TreeActionResult OnValueEdited() override;

protected:
    /// `linked` is what is shown where the value is a link.
    void ShowNumber(const SimplePropVal& value, const SharedText& linked);
};

/// As MassGroupCellImpl, typed. What is typed is the mass of each member.
class MassSimplifiedGroupCellImpl final : public MipNumberGroupCellImpl {
public:
    using MipNumberGroupCellImpl::MipNumberGroupCellImpl;

    void Update() override;
};

class DensitySimplifiedGroupCellImpl final : public MipNumberGroupCellImpl {
public:
    using MipNumberGroupCellImpl::MipNumberGroupCellImpl;

    void Update() override;
};

class MaterialSimplifiedGroupCellImpl final : public StringGroupCellImpl {
public:
    using StringGroupCellImpl::StringGroupCellImpl;

    TreeActionResult OnPopupCommand(int command) override;
    /// The menu at the cell; null for none.
    MenuPtr GetPopupMenu() override;
};

} // namespace productTree
