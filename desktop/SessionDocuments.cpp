// What a view does about the documents of its selected row beside what the panel itself does.
#include "desktop/Session.h"
#include "items/ProductTreeItemData.h"
#include "platform/values/Utf8.h"
#include "platform/view/HostFrame.h"
#include "platform/view/TreeTableView.h"

#include <algorithm>
#include <utility>

namespace desktop {

namespace {

/// The row of the product itself names no object.
UniqueMetaObjectKey KeyOf(const platform::TreeTableRow& row, const Session& session) {
    if (&row == session.GetView().GetRoot())
        return session.GetProduct().GetRootKey();
    const productTree::ProductTreeItemData* const data = row.GetData();
    return data ? data->GetObjectKey() : UniqueMetaObjectKey();
}

} // namespace

platform::DocumentBox* Session::GetDocumentBox() const {
    return m_frame->GetDocumentBox();
}

// As the panel has it: the documents are those of the one selected row.
UniqueMetaObjectKey Session::FindListedObject() const {
    const auto selected = GetView().GetSelectedRows();
    return selected.size() == 1
               ? KeyOf(static_cast<const platform::TreeTableRow&>(*selected.front()), *this)
               : UniqueMetaObjectKey();
}

std::wstring Session::FindDocumentPath(const std::wstring& file) const {
    const std::vector<PartDocument> documents = m_product->GetPartDocuments(FindListedObject());
    const auto found = std::ranges::find(documents, file, &PartDocument::file);
    return found == documents.end() ? std::wstring() : found->path;
}

StepPart Session::FindDocumentPart(const std::wstring& file) const {
    const std::filesystem::path source = GetSourcePath();
    return !source.empty() && FindDocumentPath(file) == platform::FromUtf8(source.native())
               ? FindStepPart(FindListedObject())
               : StepPart();
}

StepPart Session::FindStepPart(const platform::TreeTableRow& row) const {
    const productTree::ProductTreeItemData* const data = row.GetData();
    if (!data || !data->IsGroup())
        return FindStepPart(KeyOf(row, *this));
    StepPart part;
    for (const UniqueMetaObjectKey& member : data->GetAllKeys()) {
        StepPart other = FindStepPart(member);
        if (other.IsEmpty() || (!part.IsEmpty() && other != part))
            return {};
        part = std::move(other);
    }
    return part;
}

StepPart Session::FindStepPart(const UniqueMetaObjectKey& part) const {
    const std::optional<platform::SourcePart> found = m_product->FindSourcePart(part);
    if (!found)
        return {};
    const platform::ProductModel& model = m_product->GetModel();
    return {found->product.id.Str(), found->product.name.Str(),
            m_file->source.FindKeyInFile(model, found->object).String(), model.source->encoding};
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
