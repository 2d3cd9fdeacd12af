// What a view does about the documents of its selected row beside what the panel itself does.
#include "desktop/Session.h"
#include "items/ProductTreeItemData.h"
#include "platform/view/HostFrame.h"

#include <algorithm>

namespace desktop {

platform::DocumentBox* Session::GetDocumentBox() const {
    return m_frame->GetDocumentBox();
}

// As the panel has it: the documents are those of the one selected row.
UniqueMetaObjectKey Session::FindListedObject() const {
    const auto selected = GetView().GetSelectedRows();
    const productTree::ProductTreeItemData* const data =
        selected.size() == 1 ? selected.front()->GetData() : nullptr;
    return data ? data->GetObjectKey() : UniqueMetaObjectKey();
}

std::wstring Session::FindDocumentPath(const std::wstring& file) const {
    const std::vector<PartDocument> documents = m_product->GetPartDocuments(FindListedObject());
    const auto found = std::ranges::find(documents, file, &PartDocument::file);
    return found == documents.end() ? std::wstring() : found->path;
}

bool Session::CanEditDocument(const std::wstring& file) const {
    return m_product->CanEditDocument(FindListedObject(), file);
}

void Session::EditDocument(const std::wstring& file) {
    m_product->EditDocument(FindListedObject(), file);
}

void Session::AddDocuments(const std::vector<std::filesystem::path>& paths) {
    m_product->AddDocumentFiles(FindListedObject(), paths);
}

} // namespace desktop
