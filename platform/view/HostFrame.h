// The smallest host that a panel can stand in: application, tree manager and owner around one view
// in memory. Tests and the program make one for each panel. It fills the application's slot as long
// as it lives; of several frames, which may go in any order, the last that came or was activated.
#pragma once

#include "host/frame/ITreeWrapper.h"
#include "platform/view/DocumentBox.h"
#include "platform/view/TreeTableView.h"

#include <memory>

class GrABaseFeatureTree;
class IPopupMenuTracker;
class IfProductTreeData;
class TreeModelId;

namespace platform {

class IUserDecisions;

enum class PanelStart {
    Shown,
    /// The panel is there but hidden, and owes its first build.
    Hidden
};

class HostFrame {
public:
    /// Takes the product tree from the registry of tree makers and lets it fill its view. Throws
    /// std::runtime_error when nobody has entered a product tree there, that is when the library is
    /// not loaded. Null data leaves the panel empty.
    explicit HostFrame(std::shared_ptr<IfProductTreeData> data,
                       PanelStart start = PanelStart::Shown);
    HostFrame(const HostFrame&) = delete;
    HostFrame& operator=(const HostFrame&) = delete;
    /// The panel goes first, then its view; rows that somebody still holds stay readable.
    ~HostFrame();

    TreeTableView& GetView() const;
    /// The box with the list of documents; null when the panel has no data.
    DocumentBox* GetDocumentBox() const;
    GrABaseFeatureTree& GetTree() const;
    ITreeWrapper& GetWrapper() const;
    /// The id that the tree has registered with the manager; null when it did not.
    std::shared_ptr<TreeModelId> GetTreeId() const;

    /// The user works with this panel now.
    void Activate();
    /// Who answers the panel's questions; null: nobody can be asked. They must be taken away before
    /// they go.
    void SetDecisions(IUserDecisions* decisions);
    /// Who shows the panel's menus; null, as at first: there are none. The same holds for it.
    void SetPopupMenus(IPopupMenuTracker* tracker);
    /// Tells the panel, as a host does, that something outside of it has changed the document:
    /// which objects there are and how they are built up, or only values.
    void TellDocumentChanged(bool structure) const;

private:
    class Application;

    std::unique_ptr<Application> m_application;
    std::unique_ptr<ITreeWrapper> m_wrapper;
};

} // namespace platform
