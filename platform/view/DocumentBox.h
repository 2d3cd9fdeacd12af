// The box below the tree in memory: the list of documents, and what the preview is to show. A front
// end listens to it and draws both.
#pragma once

#include "host/view/IParamSlideBoxModel.h"
#include "platform/view/DocumentTable.h"

#include <string>

namespace productTree {
class IfProductTreeCtrl;
}

namespace platform {

/// No operation may change the box from inside the call.
class DocumentBoxObserver {
public:
    virtual ~DocumentBoxObserver() = default;

    /// Rows, selection or commands of the list. Called for each change: a front end gathers them.
    virtual void OnDocumentsChanged() = 0;
    /// Whether the preview is shown, or of what.
    virtual void OnPreviewChanged() = 0;
};

class DocumentBox final : public RcBase<IParamSlideBoxModel> {
public:
    /// Of a box with the list of the control's documents.
    explicit DocumentBox(productTree::IfProductTreeCtrl* control);
    ~DocumentBox() override;

    boost::intrusive_ptr<IParamTableModel> GetTable() override { return m_table; }
    boost::intrusive_ptr<IParamSlideBoxModel> GetSubPanel() override;

    DocumentTable& GetDocuments() const { return *m_table; }
    struct Preview {
        bool isShown = false;
        /// What PartDocument::file says; empty before there was any.
        std::wstring file;
        /// How often it was asked for: the same file again is to be looked at again.
        unsigned turn = 0;
        /// In pixels of a screen of 96 a inch.
        int height = 0;
    };
    const Preview& GetPreview() const { return m_preview; }
    /// The user sees the list, or does not: hidden at first, and not filled then.
    void SetVisibleByUser(bool visible);
    bool IsVisible() const { return m_isVisible; }

    /// At most one; null takes it away. It must be gone before the front end is.
    void SetObserver(DocumentBoxObserver* observer) { m_observer = observer; }
    /// The panel is gone: nothing is told any more.
    void ForgetControl() { m_control = nullptr; }

private:
    class PreviewPanel;

    bool Tell(int eventId, unsigned command);

    productTree::IfProductTreeCtrl* m_control;
    DocumentBoxObserver* m_observer = nullptr;
    boost::intrusive_ptr<DocumentTable> m_table;
    boost::intrusive_ptr<PreviewPanel> m_panel;
    Preview m_preview;
    bool m_isVisible = false;
    bool m_isInControl = false;
};

} // namespace platform
