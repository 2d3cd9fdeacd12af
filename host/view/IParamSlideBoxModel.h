// The box below the tree, with the list of documents and the preview of one. A host that has no
// such box derives from it and overrides nothing.
#pragma once

#include "host/RcBase.h"
#include "host/view/IParamTableModel.h"

class IParamSlideBoxModel : public IRefItem {
public:
    /// Null: documents are not listed.
    virtual boost::intrusive_ptr<IParamTableModel> GetTable() { return nullptr; }
    /// The part of the box that a preview stands in; null: there is none.
    virtual boost::intrusive_ptr<IParamSlideBoxModel> GetSubPanel() { return nullptr; }

    // Of the part with the preview, for DocumentPreviewBox.
    virtual void SetShown(bool /*shown*/) {}
    /// Shows the document. It may take as long as it needs: the call returns at once, and a newer
    /// one takes its place. `height` is what the preview would like to have, in pixels of a screen
    /// of 96 a inch.
    virtual void ShowDocument(const std::wstring& /*path*/, int /*height*/) {}
};
