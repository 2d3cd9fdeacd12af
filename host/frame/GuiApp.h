// The host application.
#pragma once

#include "host/RcBase.h"
#include "host/SharedText.h"
#include "host/view/IMenuItems.h"

#include <cstdint>
#include <vector>

class ITreeTableModel;
class TreeModelId;

/// Gives the views of the panels.
class ITreeModelProvider {
public:
    virtual ~ITreeModelProvider() = default;

    /// The view of the panel with that id; null when there is none.
    virtual boost::intrusive_ptr<ITreeTableModel> GetTreeModel(const TreeModelId& id) = 0;
};

/// A window of the host, of which the library knows only that a question stands in front of it.
class IGuiWindow {
public:
    virtual ~IGuiWindow() = default;
};

/// Asks the user a question.
class IQuestionBox {
public:
    virtual ~IQuestionBox() = default;

    /// Returns when the user has answered. The first button answers c_yes; anything else, closing
    /// the question included, is a refusal. `parent` may be null.
    virtual int Ask(IGuiWindow* parent, const SharedText& title, const SharedText& text,
                    const std::vector<SharedText>& buttons) = 0;

    static constexpr int c_yes = 6;
};

class IPopupMenuTracker;

/// What the application can do with a document.
class IItApplication {
public:
    virtual ~IItApplication() = default;

    /// Shows the document with that id (IProductDataCommands::GetDocumentId).
    virtual void ShowDocument(std::int64_t documentId, bool activate) = 0;
};

class IGuiApp {
public:
    virtual ~IGuiApp() = default;

    /// Null while the application has no window.
    virtual ITreeModelProvider* GetTreeModelProvider() = 0;
    /// Null when nobody can be asked.
    virtual IQuestionBox* GetQuestionBox() = 0;
    virtual IGuiWindow* GetMainWindow() = 0;
    /// Null when no menu can be shown.
    virtual IPopupMenuTracker* GetPopupMenuTracker() { return nullptr; }
    /// A new menu without entries, of which the library keeps some for as long as it is loaded.
    /// `itemId` is the host's number of the menu; c_noMenuItem for one that has none. Null when
    /// cells and heads can have no menus.
    virtual boost::intrusive_ptr<IMenuItems> CreateMenu(int /*itemId*/) { return nullptr; }
    static constexpr int c_noMenuItem = -1;
    /// Null when the application does nothing with documents.
    virtual IItApplication* GetItApplication() { return nullptr; }
};

/// The running application; null before it is up and after it is gone.
IGuiApp* GuiApp();

/// What the running application has for documents; null when there is none.
IItApplication* GetItApplicationObject();

/// The place that GuiApp answers from. A host fills it for as long as it runs.
class GuiAppSlot {
public:
    /// `app` is the running application until another one comes or this object goes; then one that
    /// was before it is. An application has one slot.
    explicit GuiAppSlot(IGuiApp& app);
    GuiAppSlot(const GuiAppSlot&) = delete;
    GuiAppSlot& operator=(const GuiAppSlot&) = delete;
    ~GuiAppSlot();

    /// It is the one that runs, again: the user works with it.
    void MakeCurrent();

private:
    IGuiApp& m_app;
};

/// The caption of a usual button in the user's language: 8 agrees, 1 cancels. Empty for a number
/// that has none.
SharedText GetButtonCaption(int button);
