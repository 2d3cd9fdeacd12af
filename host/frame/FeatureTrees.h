// The host's family of feature trees, from which every tree wrapper derives. Most of its operations
// are about features and components, which only the host's own trees have.
#pragma once

#include "host/RcBase.h"
#include "host/frame/ITreeOwner.h"
#include "host/frame/ITreeWrapper.h"
#include "host/frame/TreeModelId.h"

#include <memory>

class IfComponent;
class IfFeature;
class IfSomething;
class IfTreeManager;
class ITreeTableModel;

/// A tree that can be updated item by item.
class IfPartialUpdatetedTree {
public:
    virtual ~IfPartialUpdatetedTree() = default;

    virtual void DeleteItem(boost::intrusive_ptr<IRefItem> item, IfFeature* feature,
                            IfComponent* component) = 0;
    virtual void RefreshItem(boost::intrusive_ptr<IRefItem> item, IfComponent* component,
                             bool deep) = 0;
    virtual void SyncItem(boost::intrusive_ptr<IRefItem> item, IfComponent* component) = 0;
    virtual void FullSyncItem(IfFeature* feature, IfComponent* component) = 0;
    virtual boost::intrusive_ptr<IRefItem> GetItem(IfFeature* feature, IfComponent* component) = 0;
    virtual boost::intrusive_ptr<IRefItem> CreateItem(IfFeature* feature, IfComponent* component,
                                                      boost::intrusive_ptr<IRefItem> parent) = 0;
};

class GrABaseFeatureTree : public IfPartialUpdatetedTree {
public:
    /// Builds the whole tree anew.
    virtual void Synchronize() = 0;
    /// Reads all values again.
    virtual void Refresh() = 0;
    virtual void RefreshReadOnlyMode() = 0;
    virtual void GoTo(const IfFeature& feature, const IfSomething* what, bool expand) = 0;
    /// Called once, before InitTree. Null is ignored.
    virtual void SetTreeManager(IfTreeManager* manager) = 0;
    virtual void UpdateOwner(const IfFeature& oldOwner, const IfFeature& newOwner) = 0;
    virtual void GoToCurrent(bool expand) = 0;
    virtual unsigned GetTraits() const = 0;
    virtual boost::intrusive_ptr<ITreeOwner> GetOwner() const { return m_owner; }
    virtual void SetOwner(boost::intrusive_ptr<ITreeOwner> owner) { m_owner = std::move(owner); }
    /// Called when the panel exists: the tree gets its view and its data and fills itself.
    virtual void InitTree() = 0;
    virtual bool IsUpdatedByItems() const = 0;
    /// The host's number of this kind of tree.
    virtual int GetType() const = 0;
    static constexpr int c_productTreeType = 14;
    virtual void SetVisible(bool visible, bool activate) = 0;
    virtual bool IsVisible() const = 0;
    virtual bool CanBeDetached() const = 0;
    virtual bool IsShownInAllDocuments() const = 0;
    virtual void OnDocumentActivated() = 0;
    /// The document's selection has changed.
    virtual void SetSelectionByDoc() = 0;
    /// The view of the panel; null without one.
    virtual boost::intrusive_ptr<ITreeTableModel> GetPanelModel() const = 0;
    virtual bool HasSearch() const = 0;
    virtual bool HasFilter() const = 0;

private:
    boost::intrusive_ptr<ITreeOwner> m_owner;
};

/// A tree whose updates wait while it is hidden.
class GrBaseFeatureTreeWithPostUpdating : public GrABaseFeatureTree {
public:
    const std::shared_ptr<TreeModelId>& GetTreeId() const { return m_treeId; }

protected:
    std::shared_ptr<TreeModelId> m_treeId;
};
