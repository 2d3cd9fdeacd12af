#include "platform/view/DocumentBox.h"

#include "control/IfProductTreeCtrl.h"

namespace platform {

/// The part of the box that the preview stands in.
class DocumentBox::PreviewPanel final : public RcBase<IParamSlideBoxModel> {
public:
    explicit PreviewPanel(DocumentBox& box) : m_box(&box) {}

    void SetShown(bool shown) override {
        if (!m_box || m_box->m_preview.isShown == shown)
            return;
        m_box->m_preview.isShown = shown;
        Announce();
    }
    void ShowDocument(const std::wstring& path, int height) override {
        if (!m_box)
            return;
        m_box->m_preview.file = path;
        m_box->m_preview.height = height;
        ++m_box->m_preview.turn;
        Announce();
    }
    void Forget() { m_box = nullptr; }

private:
    void Announce() const {
        if (m_box->m_observer)
            m_box->m_observer->OnPreviewChanged();
    }

    /// Null when the box is gone.
    DocumentBox* m_box;
};

DocumentBox::DocumentBox(productTree::IfProductTreeCtrl* control)
    : m_control(control),
      m_table(new DocumentTable(
          [this](int eventId, unsigned command) { return Tell(eventId, command); },
          [this] {
              if (m_observer)
                  m_observer->OnDocumentsChanged();
          })),
      m_panel(new PreviewPanel(*this)) {}

DocumentBox::~DocumentBox() {
    m_panel->Forget();
}

boost::intrusive_ptr<IParamSlideBoxModel> DocumentBox::GetSubPanel() {
    return m_panel;
}

void DocumentBox::SetVisibleByUser(bool visible) {
    if (m_isVisible == visible)
        return;
    m_isVisible = visible;
    if (m_control)
        m_control->SetDocsListVisible(visible);
}

bool DocumentBox::Tell(int eventId, unsigned command) {
    if (!m_control || m_isInControl)
        return false;
    struct Scope {
        explicit Scope(bool& flag) : m_flag(flag) { m_flag = true; }
        ~Scope() { m_flag = false; }
        Scope(const Scope&) = delete;
        Scope& operator=(const Scope&) = delete;
        bool& m_flag;
    };
    const boost::intrusive_ptr<DocumentBox> hold(this);
    const Scope scope(m_isInControl);
    m_control->OnDocsListEvent(eventId, command);
    return true;
}

} // namespace platform
