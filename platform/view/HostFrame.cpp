#include "platform/view/HostFrame.h"

#include "host/DocumentEvents.h"
#include "host/frame/FeatureTrees.h"
#include "host/frame/GuiApp.h"
#include "host/frame/IfTreeManager.h"
#include "platform/services/DecisionsQuestionBox.h"
#include "platform/view/MemoryMenu.h"

#include <optional>
#include <stdexcept>
#include <utility>
#include <vector>

namespace platform {

namespace {

class Owner final : public RcBase<ITreeOwner> {
public:
    boost::intrusive_ptr<IParamSlideBoxModel>
    MakeSlideBoxModel(productTree::IfProductTreeCtrl* control) override {
        if (m_box)
            m_box->ForgetControl();
        m_box = new DocumentBox(control);
        return m_box;
    }
    // View and box stand where the frame's user puts them.
    void RegisterTreeModel(ITreeTableModel&, int) override {}
    void RegisterSlideBox(IParamSlideBoxModel&, int) override {}

    /// Null until the panel is initialised.
    const boost::intrusive_ptr<DocumentBox>& GetBox() const { return m_box; }

private:
    boost::intrusive_ptr<DocumentBox> m_box;
};

class Manager final : public RcBase<IfTreeManager> {
public:
    explicit Manager(std::shared_ptr<IfProductTreeData> data) : m_data(std::move(data)) {}

    void Register(GrABaseFeatureTree&, std::shared_ptr<TreeModelId> id) override {
        m_treeId = std::move(id);
    }
    void Unregister(GrABaseFeatureTree&, std::shared_ptr<TreeModelId>) override {
        m_treeId.reset();
    }
    void Forget(ITreeWrapper&) override {}
    std::shared_ptr<IfProductTreeData> GetProductTreeData(const TreeModelId& id) override {
        return IsOurs(id) ? m_data : nullptr;
    }

    bool IsOurs(const TreeModelId& id) const { return m_treeId && m_treeId->Value() == id.Value(); }
    const std::shared_ptr<TreeModelId>& GetTreeId() const { return m_treeId; }

private:
    std::shared_ptr<IfProductTreeData> m_data;
    std::shared_ptr<TreeModelId> m_treeId;
};

std::unique_ptr<ITreeWrapper> MakeProductTree() {
    const auto& factories = TreeWrapperRegistrar::Get();
    const auto factory = factories.find(TreeWrapperRegistrar::c_productTree);
    if (factory == factories.end())
        throw std::runtime_error("the product tree library is not loaded");
    return factory->second();
}

} // namespace

class HostFrame::Application final : public IGuiApp, private ITreeModelProvider {
public:
    explicit Application(std::shared_ptr<IfProductTreeData> data)
        : m_view(new TreeTableView), m_manager(new Manager(std::move(data))), m_owner(new Owner),
          m_slot(*this) {
        GetAll().push_back(this);
    }
    ~Application() override { std::erase(GetAll(), this); }
    Application(const Application&) = delete;
    Application& operator=(const Application&) = delete;

    ITreeModelProvider* GetTreeModelProvider() override { return this; }
    IQuestionBox* GetQuestionBox() override { return m_questions ? &*m_questions : nullptr; }
    /// The decisions know in front of which window they ask.
    IGuiWindow* GetMainWindow() override { return nullptr; }
    IPopupMenuTracker* GetPopupMenuTracker() override { return m_menus; }
    boost::intrusive_ptr<IMenuItems> CreateMenu(int) override { return new MemoryMenu; }

    void SetDecisions(IUserDecisions* decisions) {
        m_questions.reset();
        if (decisions)
            m_questions.emplace(*decisions);
    }

    void SetPopupMenus(IPopupMenuTracker* tracker) { m_menus = tracker; }
    void Activate() { m_slot.MakeCurrent(); }

    TreeTableView& GetView() const { return *m_view; }
    Manager& GetManager() const { return *m_manager; }
    Owner& GetOwner() const { return *m_owner; }

private:
    boost::intrusive_ptr<ITreeTableModel> GetTreeModel(const TreeModelId& id) override {
        for (const Application* const frame : GetAll()) {
            if (frame->m_manager->IsOurs(id))
                return frame->m_view;
        }
        return nullptr;
    }
    /// One frame answers for the others: several panels may be open.
    static std::vector<Application*>& GetAll() {
        static std::vector<Application*> frames;
        return frames;
    }

    boost::intrusive_ptr<TreeTableView> m_view;
    boost::intrusive_ptr<Manager> m_manager;
    boost::intrusive_ptr<Owner> m_owner;
    std::optional<DecisionsQuestionBox> m_questions;
    IPopupMenuTracker* m_menus = nullptr;
    GuiAppSlot m_slot;
};

HostFrame::HostFrame(std::shared_ptr<IfProductTreeData> data, PanelStart start)
    : m_application(std::make_unique<Application>(std::move(data))), m_wrapper(MakeProductTree()) {
    GrABaseFeatureTree& tree = GetTree();
    tree.SetTreeManager(&m_application->GetManager());
    tree.SetOwner(&m_application->GetOwner());
    tree.InitTree();
    if (start == PanelStart::Shown)
        tree.SetVisible(true, true);
}

HostFrame::~HostFrame() {
    if (DocumentBox* const box = GetDocumentBox())
        box->ForgetControl();
}

DocumentBox* HostFrame::GetDocumentBox() const {
    return m_application->GetOwner().GetBox().get();
}

TreeTableView& HostFrame::GetView() const {
    return m_application->GetView();
}

GrABaseFeatureTree& HostFrame::GetTree() const {
    return *m_wrapper->GetFeatureTree();
}

ITreeWrapper& HostFrame::GetWrapper() const {
    return *m_wrapper;
}

std::shared_ptr<TreeModelId> HostFrame::GetTreeId() const {
    return m_application->GetManager().GetTreeId();
}

void HostFrame::Activate() {
    m_application->Activate();
}

void HostFrame::SetDecisions(IUserDecisions* decisions) {
    m_application->SetDecisions(decisions);
}

void HostFrame::SetPopupMenus(IPopupMenuTracker* tracker) {
    m_application->SetPopupMenus(tracker);
}

void HostFrame::TellDocumentChanged(bool structure) const {
    PostEvent(document_events::c_router, document_events::c_changed,
              structure ? document_events::c_structure : document_events::c_values, 0);
}

} // namespace platform
