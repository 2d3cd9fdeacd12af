// The product tree as the host's frame of feature trees knows it: made by the factory under key 3
// of TreeWrapperRegistrar, given a manager and an owner, filled by InitTree. It forwards to the
// control; what the frame asks about features and components has no meaning for a product and does
// nothing.
#pragma once

#include "host/frame/FeatureTrees.h"
#include "host/frame/ITreeWrapper.h"
#include "host/view/ITreeTableModel.h"
#include "resources/Export.h"

#include <memory>

namespace productTree {
class ProductTreeCtrl;
}

class PRODUCT_TREE_EXPORT GrProductTreeWrapper final : public GrBaseFeatureTreeWithPostUpdating,
                                                       public ITreeWrapper {
public:
    GrProductTreeWrapper();
    /// Unregisters from the manager. A wrapper that was never initialised may go, too.
    ~GrProductTreeWrapper() override;

    void DeleteItem(boost::intrusive_ptr<IRefItem> item, IfFeature* feature,
                    IfComponent* component) override;
    void RefreshItem(boost::intrusive_ptr<IRefItem> item, IfComponent* component,
                     bool deep) override;
    void SyncItem(boost::intrusive_ptr<IRefItem> item, IfComponent* component) override;
    void FullSyncItem(IfFeature* feature, IfComponent* component) override;
    boost::intrusive_ptr<IRefItem> GetItem(IfFeature* feature, IfComponent* component) override;
    boost::intrusive_ptr<IRefItem> CreateItem(IfFeature* feature, IfComponent* component,
                                              boost::intrusive_ptr<IRefItem> parent) override;
    void Synchronize() override;
    void Refresh() override;
    void RefreshReadOnlyMode() override;
    void GoTo(const IfFeature& feature, const IfSomething* what, bool expand) override;
    void SetTreeManager(IfTreeManager* manager) override;
    void UpdateOwner(const IfFeature& oldOwner, const IfFeature& newOwner) override;
    void GoToCurrent(bool expand) override;
    unsigned GetTraits() const override;
    void InitTree() override;
    bool IsUpdatedByItems() const override;
    int GetType() const override;
    void SetVisible(bool visible, bool activate) override;
    bool IsVisible() const override;
    bool CanBeDetached() const override;
    bool IsShownInAllDocuments() const override;
    void OnDocumentActivated() override;
    void SetSelectionByDoc() override;
    boost::intrusive_ptr<ITreeTableModel> GetPanelModel() const override;
    bool HasSearch() const override;
    bool HasFilter() const override;

    bool HasOwnMenu() const override;
    void TreeToolBarCommand(const TreeToolBarCommandData& data) override;
    bool EnableCommand(unsigned command, bool enable) override;
    void Destroy() override;
    bool OnCmdMsg(unsigned id, int code, void* extra, AFX_CMDHANDLERINFO* info) override;
    GrABaseFeatureTree* GetFeatureTree() override;

    /// The view of the panel; null while the application has none for it.
    boost::intrusive_ptr<ITreeTableModel> GetTreeModel() const;

private:
    boost::intrusive_ptr<IfTreeManager> m_treeManager;
    std::unique_ptr<productTree::ProductTreeCtrl> m_ctrl;
};
