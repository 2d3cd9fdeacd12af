#include "platform/product/answers/DocumentFiles.h"
#include "platform/product/answers/DocumentList.h"
#include "platform/product/answers/MemoryProductState.h"
#include "platform/product/edits/DocumentChanges.h"
#include "platform/product/model/DocumentNames.h"
#include "platform/product/model/SheetFormats.h"
#include "platform/product/model/ValueFitting.h"
#include "platform/services/UserDecisions.h"
#include "platform/values/Utf8.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <utility>

namespace platform {

namespace {

/// More lines than that would make a message taller than a screen.
constexpr std::size_t c_mostLines = 15;

std::wstring ListLines(const std::vector<std::wstring>& lines) {
    std::wstring text = GetText(ProductText::DocumentsRefused).Str();
    const std::size_t shown = lines.size() > c_mostLines ? c_mostLines - 1 : lines.size();
    for (std::size_t i = 0; i < shown; ++i)
        text += L'\n' + lines[i];
    if (shown < lines.size())
        text += L'\n' +
                GetText(ProductText::DocumentsMore, {std::to_wstring(lines.size() - shown)}).Str();
    return text;
}

/// On one line, and in some way also where it can't be read.
std::wstring NameOnLine(const std::string& path) {
    const std::string_view whole = std::string_view(path).substr(0, path.find_last_not_of('/') + 1);
    const std::string_view bytes = whole.substr(whole.rfind('/') + 1);
    std::wstring name = FromUtf8(bytes).value_or(std::wstring());
    if (name.empty())
        std::ranges::transform(bytes, std::back_inserter(name),
                               [](unsigned char c) { return static_cast<wchar_t>(c); });
    std::ranges::replace_if(
        name, [](wchar_t c) { return c < 0x20 || c == 0x7F; }, L' ');
    return name.empty() ? L"/" : name;
}

DocumentTexts TextsOf(const DocumentRecord& document) {
    return {document.marking.GetDisplayName(), document.name, document.format, document.comment};
}

bool AreGood(const DocumentTexts& texts) {
    return IsGoodText(texts.designation) && IsGoodText(texts.name) && IsGoodText(texts.format) &&
           IsGoodText(texts.comment);
}

/// A designation that was left alone keeps its parts, whatever its text reads as.
DocumentRecord WithTexts(DocumentRecord document, const DocumentTexts& texts) {
    if (!(texts.designation == document.marking.GetDisplayName()))
        document.marking.Parse(texts.designation);
    document.name = texts.name;
    document.format = texts.format;
    document.comment = texts.comment;
    return document;
}

} // namespace

void MemoryProduct::SetDocumentFiles(IDocumentFiles* files) {
    m_state->documentFiles = files;
}

std::optional<DocumentList>
MemoryProduct::State::FindDocuments(const UniqueMetaObjectKey& key) const {
    const PartEntry* const part = index.Find(key);
    return part ? std::optional(DocumentList(model, index, *part, documentFiles)) : std::nullopt;
}

const DocumentRecord* MemoryProduct::State::FindDocument(const UniqueMetaObjectKey& key,
                                                         const std::wstring& file) const {
    const std::optional<DocumentList> list = FindDocuments(key);
    return list ? list->Find(file) : nullptr;
}

bool MemoryProduct::State::CanMake(const ProductChange& change) const {
    ValuePlan plan(index);
    return change.Plan(GetRules(), plan);
}

std::vector<PartDocument> MemoryProduct::GetPartDocuments(const UniqueMetaObjectKey& key) const {
    const std::optional<DocumentList> list = m_state->FindDocuments(key);
    return list ? list->Make() : std::vector<PartDocument>();
}

bool MemoryProduct::CanAddDocument(const UniqueMetaObjectKey& key) const {
    return !m_state->model.isReadOnly && m_state->look->decisions && m_state->index.Find(key);
}

ProductInfObjChangesResult MemoryProduct::AddDocument(const UniqueMetaObjectKey& key) {
    if (!CanAddDocument(key))
        return {};
    FileRequest request;
    request.title = GetText(ProductText::DocumentsTitle);
    if (m_state->documentFiles)
        request.start = m_state->documentFiles->GetFolder();
    return m_state->MakeSet(std::make_shared<DocumentsAddition>(
        key, m_state->MakeDocuments(key, m_state->look->decisions->ChooseFiles(request))));
}

std::size_t MemoryProduct::AddDocumentFiles(const UniqueMetaObjectKey& key,
                                            const std::vector<std::filesystem::path>& paths) {
    if (m_state->model.isReadOnly)
        return 0;
    std::vector<DocumentRecord> documents = m_state->MakeDocuments(key, paths);
    const std::size_t count = documents.size();
    ProductInfObjChangesResult changes =
        m_state->MakeSet(std::make_shared<DocumentsAddition>(key, std::move(documents)));
    CommitChanges(changes);
    return changes.IsExistsChanges() ? count : 0;
}

std::vector<DocumentRecord>
MemoryProduct::State::MakeDocuments(const UniqueMetaObjectKey& key,
                                    const std::vector<std::filesystem::path>& paths) {
    const std::optional<DocumentList> list = FindDocuments(key);
    std::vector<DocumentRecord> documents;
    if (!list)
        return documents;
    const auto find = [&](const std::string& file) -> std::optional<ProductText> {
        using Found = IDocumentFiles::Found;
        if (!IsSoundFile(file))
            return ProductText::DocumentPath;
        const Found found = documentFiles ? documentFiles->Look(file) : Found::File;
        if (found != Found::File)
            return found == Found::Nothing ? ProductText::DocumentGone
                                           : ProductText::DocumentNoFile;
        const bool isThere =
            list->Has(file) ||
            std::ranges::find(documents, file, &DocumentRecord::file) != documents.end();
        return isThere ? std::optional(ProductText::DocumentThere) : std::nullopt;
    };
    std::vector<std::wstring> refused;
    for (const std::filesystem::path& path : paths) {
        const std::string file = path.lexically_normal().native();
        if (const std::optional<ProductText> reason = find(file)) {
            refused.push_back(
                GetText(ProductText::DocumentLine, {NameOnLine(file), GetText(*reason)}).Str());
            continue;
        }
        DocumentRecord& document = documents.emplace_back(GuessDocument(file));
        const std::optional<SheetSize> size =
            documentFiles ? documentFiles->FindSheetSize(file) : std::nullopt;
        if (size)
            document.format = FindSheetFormat(size->width, size->height);
    }
    if (!refused.empty() && look->decisions)
        look->decisions->Tell(GetText(ProductText::DocumentsTitle), ListLines(refused));
    return documents;
}

bool MemoryProduct::CanRemoveDocuments(const UniqueMetaObjectKey& key,
                                       const std::vector<std::wstring>& files) const {
    return CanAddDocument(key) && std::ranges::all_of(files, [&](const std::wstring& file) {
               return m_state->FindDocument(key, file) != nullptr;
           });
}

// The user is asked when the set is committed, which holds all that are to go.
ProductInfObjChangesResult MemoryProduct::RemoveDocument(const UniqueMetaObjectKey& key,
                                                         const PartDocument& document) {
    if (!CanRemoveDocuments(key, {document.file}))
        return {};
    return m_state->MakeSet(
        std::make_shared<DocumentRemoval>(key, m_state->FindDocument(key, document.file)->file));
}

bool MemoryProduct::State::MayRemove(const ProductInfObjChangesResult& changes) const {
    std::vector<const DocumentRemoval*> removals;
    for (const auto& change : changes.GetChanges()) {
        if (const auto* const removal = dynamic_cast<const DocumentRemoval*>(change.get()))
            removals.push_back(removal);
    }
    if (removals.empty())
        return true;
    if (!look->decisions)
        return false;
    const SharedText text =
        removals.size() == 1
            ? GetText(ProductText::RemovalQuestion, {FileNameOf(removals.front()->GetFile())})
            : GetText(ProductText::RemovalsQuestion, {std::to_wstring(removals.size())});
    return look->decisions->Ask({GetText(ProductText::RemovalTitle),
                                 text,
                                 {GetText(ProductText::RemovalYes),
                                  GetText(ProductText::RemovalNo)}}) == std::size_t{0};
}

bool MemoryProduct::CanOpenDocument(const UniqueMetaObjectKey& key,
                                    const PartDocument& document) const {
    return m_state->documentFiles && m_state->index.Find(key) && !document.isMissing;
}

void MemoryProduct::OpenDocument(const PartDocument& document, const VariantMarking& /*marking*/,
                                 const MbPath& path) {
    IDocumentFiles* const files = m_state->documentFiles;
    if (!files)
        return;
    const std::string& file = path.native();
    const bool isThere = files->Look(file) == IDocumentFiles::Found::File;
    if ((!isThere || !files->Open(file)) && m_state->look->decisions)
        m_state->look->decisions->Tell(
            GetText(ProductText::OpenRefused, {FileNameOf(ToUtf8(document.file))}),
            GetText(isThere ? ProductText::OpenNoProgram : ProductText::DocumentGone));
}

bool MemoryProduct::CanPreviewDocument(const UniqueMetaObjectKey& key,
                                       const PartDocument& document) const {
    // Who shows it says why there is nothing to see.
    return m_state->documentFiles && m_state->index.Find(key) && !document.path.empty();
}

ProductInfObjChangesResult MemoryProduct::SetDocumentSource(const UniqueMetaObjectKey& key,
                                                            const PartDocument& document) {
    return m_state->MakeSourceSet(key, document, true);
}

ProductInfObjChangesResult MemoryProduct::ClearDocumentSource(const UniqueMetaObjectKey& key,
                                                              const PartDocument& document) {
    return m_state->MakeSourceSet(key, document, false);
}

bool MemoryProduct::CanChangeDocumentSource(const UniqueMetaObjectKey& key,
                                            const PartDocument& document) const {
    const DocumentRecord* const record = m_state->FindDocument(key, document.file);
    return record && m_state->CanMake(DocumentSourceChange(key, record->file, !document.isSource));
}

ProductInfObjChangesResult MemoryProduct::State::MakeSourceSet(const UniqueMetaObjectKey& key,
                                                               const PartDocument& document,
                                                               bool isSource) const {
    const DocumentRecord* const record = FindDocument(key, document.file);
    return record ? MakeSet(std::make_shared<DocumentSourceChange>(key, record->file, isSource))
                  : ProductInfObjChangesResult();
}

bool MemoryProduct::CanUseDocumentFormat(const UniqueMetaObjectKey& key,
                                         const PartDocument& document,
                                         const std::wstring& /*format*/) const {
    const DocumentRecord* const record = m_state->FindDocument(key, document.file);
    return record &&
           m_state->CanMake(DocumentFormatChange(key, record->file, !document.formatUsed));
}

ProductInfObjChangesResult MemoryProduct::UseDocumentFormat(const UniqueMetaObjectKey& key,
                                                            const PartDocument& document,
                                                            const std::wstring& /*format*/) {
    return m_state->MakeFormatSet(key, document, true);
}

ProductInfObjChangesResult MemoryProduct::ClearDocumentFormat(const UniqueMetaObjectKey& key,
                                                              const PartDocument& document) {
    return m_state->MakeFormatSet(key, document, false);
}

ProductInfObjChangesResult MemoryProduct::State::MakeFormatSet(const UniqueMetaObjectKey& key,
                                                               const PartDocument& document,
                                                               bool isUsed) const {
    const DocumentRecord* const record = FindDocument(key, document.file);
    return record ? MakeSet(std::make_shared<DocumentFormatChange>(key, record->file, isUsed))
                  : ProductInfObjChangesResult();
}

bool MemoryProduct::CanEditDocument(const UniqueMetaObjectKey& key,
                                    const std::wstring& file) const {
    return CanAddDocument(key) && m_state->FindDocument(key, file);
}

bool MemoryProduct::EditDocument(const UniqueMetaObjectKey& key, const std::wstring& file) {
    // Asked again with what was refused. The document may be another one after each answer, so that
    // nothing of it is kept meanwhile.
    for (std::optional<DocumentTexts> texts;;) {
        if (!CanEditDocument(key, file))
            return false;
        const DocumentRecord& document = *m_state->FindDocument(key, file);
        DocumentRequest request{GetText(ProductText::DocumentTitle, {FileNameOf(document.file)}),
                                texts.value_or(TextsOf(document)),
                                {}};
        if (texts && *texts == TextsOf(document))
            return false;
        if (texts && !AreGood(*texts)) {
            request.refusal = GetText(ProductText::RefusedTextSize);
        } else if (texts) {
            m_state->refusal.reset();
            ProductInfObjChangesResult changes = m_state->MakeSet(
                std::make_shared<DocumentTextsChange>(key, WithTexts(document, *texts)));
            CommitChanges(changes);
            if (changes.IsExistsChanges())
                return true;
            request.refusal = TakeRefusal();
        }
        texts = m_state->look->decisions->EditDocument(request);
        if (!texts)
            return false;
    }
}

} // namespace platform
