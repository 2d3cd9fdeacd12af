// The preview of a document in a part of the box below the tree.
#pragma once

#include "host/view/IParamSlideBoxModel.h"

#include <string>

class DocumentPreviewBox {
public:
    /// The panel outlives the box. `height` in pixels of a screen of 96 a inch.
    DocumentPreviewBox(IParamSlideBoxModel& panel, int height);
    DocumentPreviewBox(const DocumentPreviewBox&) = delete;
    DocumentPreviewBox& operator=(const DocumentPreviewBox&) = delete;
    virtual ~DocumentPreviewBox();

    /// `path` is what PartDocument::file says.
    virtual void PreviewDocument(const std::wstring& path);
    /// Whether the panel is to be seen.
    virtual bool IsShown() const;
    /// Shows again what was shown last.
    virtual void RepeatPreview();

    /// Shows the panel, or hides it, as IsShown says.
    void UpdateVisibility();

private:
    IParamSlideBoxModel& m_panel;
    int m_height;
};
