// The host application.
#pragma once

#include "host/RcBase.h"

class ITreeTableModel;
class TreeModelId;

/// Gives the views of the panels.
class ITreeModelProvider {
public:
    virtual ~ITreeModelProvider() = default;

    /// The view of the panel with that id; null when there is none.
    virtual boost::intrusive_ptr<ITreeTableModel> GetTreeModel(const TreeModelId& id) = 0;
};

class IGuiApp {
public:
    virtual ~IGuiApp() = default;

    /// Null while the application has no window.
    virtual ITreeModelProvider* GetTreeModelProvider() = 0;
};

/// The running application; null before it is up and after it is gone.
IGuiApp* GuiApp();
