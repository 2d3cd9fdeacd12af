#include "control/GrProductTreeWrapper.h"

#include "control/ProductTreeCtrl.h"
#include "host/data/IfProductTreeData.h"
#include "host/frame/GuiApp.h"
#include "host/frame/IfTreeManager.h"

#include <utility>

GrProductTreeWrapper::GrProductTreeWrapper() {
    m_treeId = std::make_shared<TreeModelId>();
    m_ctrl = std::make_unique<productTree::ProductTreeCtrl>(*this);
}

GrProductTreeWrapper::~GrProductTreeWrapper() {
    if (!m_treeManager)
        return;
    m_treeManager->Forget(*this);
    m_treeManager->Unregister(*this, m_treeId);
    m_treeManager.reset();
}

void GrProductTreeWrapper::DeleteItem(boost::intrusive_ptr<IRefItem>, IfFeature*, IfComponent*) {}

void GrProductTreeWrapper::RefreshItem(boost::intrusive_ptr<IRefItem>, IfComponent*, bool) {}

void GrProductTreeWrapper::SyncItem(boost::intrusive_ptr<IRefItem>, IfComponent*) {}

void GrProductTreeWrapper::FullSyncItem(IfFeature*, IfComponent*) {}

boost::intrusive_ptr<IRefItem> GrProductTreeWrapper::GetItem(IfFeature*, IfComponent*) {
    return nullptr;
}

boost::intrusive_ptr<IRefItem> GrProductTreeWrapper::CreateItem(IfFeature*, IfComponent*,
                                                                boost::intrusive_ptr<IRefItem>) {
    return nullptr;
}

void GrProductTreeWrapper::Synchronize() {
    if (m_treeManager)
        m_ctrl->Synchronize();
}

void GrProductTreeWrapper::Refresh() {
    m_ctrl->Refresh();
}

void GrProductTreeWrapper::RefreshReadOnlyMode() {
    m_ctrl->RefreshReadOnlyMode();
}

void GrProductTreeWrapper::GoTo(const IfFeature&, const IfSomething*, bool) {}

void GrProductTreeWrapper::SetTreeManager(IfTreeManager* manager) {
    if (!manager || manager == m_treeManager.get())
        return;
    m_treeManager = manager;
    m_treeManager->Register(*this, m_treeId);
}

void GrProductTreeWrapper::UpdateOwner(const IfFeature&, const IfFeature&) {}

void GrProductTreeWrapper::GoToCurrent(bool) {}

unsigned GrProductTreeWrapper::GetTraits() const {
    return 0;
}

void GrProductTreeWrapper::InitTree() {
    const boost::intrusive_ptr<ITreeOwner> owner = GetOwner();
    if (!owner)
        return;
    SetOwner(owner);
    if (!m_treeManager)
        return;
    std::shared_ptr<IfProductTreeData> data = m_treeManager->GetProductTreeData(*m_treeId);
    const boost::intrusive_ptr<ITreeTableModel> view = GetTreeModel();
    const boost::intrusive_ptr<IParamSlideBoxModel> slideBox =
        owner->MakeSlideBoxModel(m_ctrl.get());
    if (!data || !view || !slideBox)
        return;
    owner->RegisterTreeModel(*view, ITreeOwner::c_productTreePanel);
    owner->RegisterSlideBox(*slideBox, ITreeOwner::c_productTreePanel);
    m_ctrl->Init(std::move(data), *view, *slideBox);
}

bool GrProductTreeWrapper::IsUpdatedByItems() const {
    return false;
}

int GrProductTreeWrapper::GetType() const {
    return c_productTreeType;
}

void GrProductTreeWrapper::SetVisible(bool visible, bool activate) {
    if (const auto view = GetTreeModel()) {
        view->SetVisible(visible, activate);
        if (activate)
            view->Activate(true);
    }
    // A hidden panel keeps its rows and goes on collecting what it owes.
    if (!visible)
        return;
    if (m_treeId->IsNeedSyncronize())
        Synchronize();
    else if (m_treeId->IsNeedRefresh())
        Refresh();
    m_ctrl->SetSelectionByDoc();
}

void GrProductTreeWrapper::SetSelectionByDoc() {
    m_ctrl->SetSelectionByDoc();
}

bool GrProductTreeWrapper::IsVisible() const {
    const auto view = GetTreeModel();
    return view && view->IsVisible();
}

bool GrProductTreeWrapper::CanBeDetached() const {
    return false;
}

bool GrProductTreeWrapper::IsShownInAllDocuments() const {
    return false;
}

void GrProductTreeWrapper::OnDocumentActivated() {}

boost::intrusive_ptr<ITreeTableModel> GrProductTreeWrapper::GetPanelModel() const {
    return GetTreeModel();
}

bool GrProductTreeWrapper::HasSearch() const {
    return false;
}

bool GrProductTreeWrapper::HasFilter() const {
    return false;
}

bool GrProductTreeWrapper::HasOwnMenu() const {
    return false;
}

void GrProductTreeWrapper::TreeToolBarCommand(const TreeToolBarCommandData&) {}

bool GrProductTreeWrapper::EnableCommand(unsigned, bool) {
    return false;
}

void GrProductTreeWrapper::Destroy() {
    delete this;
}

bool GrProductTreeWrapper::OnCmdMsg(unsigned, int, void*, AFX_CMDHANDLERINFO*) {
    return false;
}

GrABaseFeatureTree* GrProductTreeWrapper::GetFeatureTree() {
    return this;
}

boost::intrusive_ptr<ITreeTableModel> GrProductTreeWrapper::GetTreeModel() const {
    if (!m_treeId)
        return nullptr;
    IGuiApp* app = GuiApp();
    ITreeModelProvider* provider = app ? app->GetTreeModelProvider() : nullptr;
    return provider ? provider->GetTreeModel(TreeModelId(m_treeId->Value())) : nullptr;
}
