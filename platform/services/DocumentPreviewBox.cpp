#include "host/view/DocumentPreviewBox.h"

DocumentPreviewBox::DocumentPreviewBox(IParamSlideBoxModel& panel, int height)
    : m_panel(panel), m_height(height) {}

DocumentPreviewBox::~DocumentPreviewBox() = default;

void DocumentPreviewBox::PreviewDocument(const std::wstring& path) {
    m_panel.ShowDocument(path, m_height);
}

bool DocumentPreviewBox::IsShown() const {
    return true;
}

void DocumentPreviewBox::RepeatPreview() {}

void DocumentPreviewBox::UpdateVisibility() {
    m_panel.SetShown(IsShown());
}
