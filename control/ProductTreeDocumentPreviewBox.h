// The preview of the selected document. Whether it is seen depends on two: the user wants one, and
// there is something to be shown.
#pragma once

#include "host/view/DocumentPreviewBox.h"

#include <string>

namespace productTree {

class ProductTreeDocumentPreviewBox final : public DocumentPreviewBox {
public:
    using DocumentPreviewBox::DocumentPreviewBox;

    void PreviewDocument(const std::wstring& path) override;
    bool IsShown() const override { return m_shown && m_wanted; }
    void RepeatPreview() override;

    /// Whether the selection has something to be shown.
    void SetShown(bool shown);
    /// The user turns previews on, or off.
    void TurnOver();
    bool IsWanted() const { return m_wanted; }

private:
    bool m_shown = true;
    bool m_wanted = true;
    std::wstring m_lastPath;
};

} // namespace productTree
