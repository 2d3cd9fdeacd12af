#include "platform/product/answers/DocumentList.h"

#include "platform/product/answers/DocumentFiles.h"
#include "platform/product/edits/DocumentChanges.h"
#include "platform/product/model/DocumentNames.h"
#include "platform/product/model/SourceProduct.h"
#include "platform/values/Utf8.h"

#include <algorithm>

namespace platform {

namespace {

std::wstring CommentOf(const DocumentRecord& document, bool isMissing) {
    std::wstring comment = document.comment.Str();
    if (isMissing)
        comment = GetText(ProductText::DocumentGoneComment).Str() +
                  (comment.empty() ? L"" : L". " + comment);
    return comment;
}

} // namespace

DocumentList::DocumentList(const ProductModel& model, const ProductIndex& index,
                           const PartEntry& part, const IDocumentFiles* files)
    : m_model(model), m_index(index), m_object(*part.owner), m_files(files) {}

std::vector<PartDocument> DocumentList::Make() const {
    std::vector<PartDocument> list;
    for (const DocumentRecord& document : m_object.object->record->documents) {
        PartDocument& shown = list.emplace_back(Show(document));
        shown.isSource = IsNamedBy(ShownValues(m_index), m_object, document);
    }
    if (HasSource()) {
        PartDocument source = Show(MakeSourceDocument(*m_model.source, *m_object.object->record));
        source.isSource &= std::ranges::none_of(list, &PartDocument::isSource);
        list.insert(list.begin(), std::move(source));
    }
    return list;
}

const DocumentRecord* DocumentList::Find(const std::wstring& file) const {
    const std::vector<DocumentRecord>& documents = m_object.object->record->documents;
    const auto found = std::ranges::find_if(
        documents, [&](const DocumentRecord& document) { return NameFile(document.file) == file; });
    return found == documents.end() ? nullptr : &*found;
}

bool DocumentList::Has(const std::string& path) const {
    const std::vector<DocumentRecord>& documents = m_object.object->record->documents;
    return std::ranges::find(documents, path, &DocumentRecord::file) != documents.end() ||
           (HasSource() && m_model.source->path == path);
}

// A product file may list it as any other.
bool DocumentList::HasSource() const {
    const ObjectRecord& object = *m_object.object->record;
    return object.source && m_model.source &&
           std::ranges::find(object.documents, m_model.source->path, &DocumentRecord::file) ==
               object.documents.end();
}

std::wstring DocumentList::NameFile(const std::string& path) const {
    const std::string shown = m_files ? PathFrom(m_files->GetFolder(), path) : path;
    return FromUtf8(shown).value_or(std::wstring());
}

PartDocument DocumentList::Show(const DocumentRecord& document) const {
    PartDocument shown;
    shown.file = NameFile(document.file);
    shown.path = FromUtf8(document.file).value_or(std::wstring());
    shown.marking = document.marking;
    shown.format = document.format.Str();
    shown.isMissing = m_files && m_files->Look(document.file) != IDocumentFiles::Found::File;
    shown.comment = CommentOf(document, shown.isMissing);
    shown.formatUsed = HasFormatOf(ShownValues(m_index), m_object, document);
    shown.isSource = document.isSource;
    shown.sourceLocked = document.sourceLocked;
    return shown;
}

} // namespace platform
