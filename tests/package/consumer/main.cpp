// A host of somebody else's: it fills a panel with a product of its own, prints it, edits a cell
// through the library, and tells it of a change from outside.
#include "Product.h"
#include "Table.h"

#include "host/DocumentEvents.h"
#include "host/frame/FeatureTrees.h"
#include "host/frame/GuiApp.h"
#include "host/frame/IfTreeManager.h"

namespace {

class Owner final : public RcBase<ITreeOwner> {
public:
    boost::intrusive_ptr<IParamSlideBoxModel> MakeSlideBoxModel(productTree::IfProductTreeCtrl*) override {
        return new RcBase<IParamSlideBoxModel>;
    }
    void RegisterTreeModel(ITreeTableModel&, int) override {}
    void RegisterSlideBox(IParamSlideBoxModel&, int) override {}
};

class Manager final : public RcBase<IfTreeManager> {
public:
    explicit Manager(std::shared_ptr<Product> product) : m_product(std::move(product)) {}

    void Register(GrABaseFeatureTree&, std::shared_ptr<TreeModelId>) override {}
    void Unregister(GrABaseFeatureTree&, std::shared_ptr<TreeModelId>) override {}
    void Forget(ITreeWrapper&) override {}
    std::shared_ptr<IfProductTreeData> GetProductTreeData(const TreeModelId&) override { return m_product; }

private:
    std::shared_ptr<Product> m_product;
};

/// The application of one window with one panel.
class Application final : public IGuiApp, public ITreeModelProvider {
public:
    ITreeModelProvider* GetTreeModelProvider() override { return this; }
    IQuestionBox* GetQuestionBox() override { return nullptr; }
    IGuiWindow* GetMainWindow() override { return nullptr; }
    boost::intrusive_ptr<ITreeTableModel> GetTreeModel(const TreeModelId&) override { return m_table; }
    Row& GetRoot() const { return m_table->GetRoot(); }

private:
    boost::intrusive_ptr<Table> m_table = new Table;
    GuiAppSlot m_slot{*this};
};

std::shared_ptr<Product> MakeProduct() {
    auto product = std::make_shared<Product>();
    product->Add("case", 1, {L"Case", L"AB.101", 20, L"cast"});
    product->Add("bolt", 3, {L"Bolt M8", L"", 25, L"zinc"});
    product->Add("plate", 2, {L"Plate", L"AB.102", 20, L""});
    return product;
}

} // namespace

int main() {
    const std::shared_ptr<Product> product = MakeProduct();
    Application application;
    const boost::intrusive_ptr<Manager> manager = new Manager(product);
    const boost::intrusive_ptr<Owner> owner = new Owner;
    const std::unique_ptr<ITreeWrapper> wrapper = TreeWrapperRegistrar::Get().at(TreeWrapperRegistrar::c_productTree)();
    GrABaseFeatureTree& tree = *wrapper->GetFeatureTree();
    tree.SetTreeManager(manager.get());
    tree.SetOwner(owner);
    tree.InitTree();
    application.GetRoot().Print();

    // All members of the group of bolts get what is typed in the group's row.
    ITreeTableRow* const standardParts = application.GetRoot().GetChild(1);
    static_cast<Row&>(*standardParts->GetChild(0)).Edit(L"comment", L"black");
    application.GetRoot().Print();

    product->SetComment("case", L"machined");
    PostEvent(document_events::c_router, document_events::c_changed, document_events::c_values, 0);
    application.GetRoot().Print();
}
