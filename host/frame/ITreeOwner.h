// The object of the host that a tree panel stands in.
#pragma once

#include "host/RcBase.h"
#include "host/view/IParamSlideBoxModel.h"

class ITreeTableModel;

namespace productTree {
class IfProductTreeCtrl;
}

class ITreeOwner : public IRefItem {
public:
    /// The slide box below the tree, for a control that may be null. Null when there is none.
    virtual boost::intrusive_ptr<IParamSlideBoxModel>
    MakeSlideBoxModel(productTree::IfProductTreeCtrl* control) = 0;
    /// Puts a part of the panel in its place; parts of one panel share a number.
    virtual void RegisterTreeModel(ITreeTableModel& model, int panel) = 0;
    virtual void RegisterSlideBox(IParamSlideBoxModel& slideBox, int panel) = 0;
    static constexpr int c_productTreePanel = 6;
};
