#include "control/ProductTreeDocumentPreviewBox.h"

namespace productTree {

void ProductTreeDocumentPreviewBox::PreviewDocument(const std::wstring& path) {
    DocumentPreviewBox::PreviewDocument(path);
    m_lastPath = path;
}

void ProductTreeDocumentPreviewBox::RepeatPreview() {
    if (!m_lastPath.empty())
        PreviewDocument(m_lastPath);
}

void ProductTreeDocumentPreviewBox::SetShown(bool shown) {
    m_shown = shown;
    UpdateVisibility();
}

void ProductTreeDocumentPreviewBox::TurnOver() {
    m_wanted = !m_wanted;
    SetShown(m_wanted);
}

} // namespace productTree
