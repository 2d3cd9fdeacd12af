// Changes of the documents that objects have, and of what objects take over from them. The key of a
// use means its object; a document is named by its file.
#pragma once

#include "platform/product/edits/ProductChanges.h"
#include "platform/product/model/ProductTexts.h"

#include <optional>
#include <string>
#include <vector>

namespace platform {

/// The object has its format from the document, or name and designation, and nothing else was
/// given to it since.
bool HasFormatOf(const ShownValues& shown, const PartEntry& object, const DocumentRecord& document);
bool IsNamedBy(const ShownValues& shown, const PartEntry& object, const DocumentRecord& document);

class DocumentChange : public ProductChange {
public:
    bool Plan(const EditRules& rules, ValuePlan& plan) const final;
    SharedText MakeStepName() const override { return GetText(m_stepName); }

protected:
    using Documents = std::vector<DocumentRecord>;

    DocumentChange(UniqueMetaObjectKey part, ProductText stepName)
        : ProductChange(std::move(part), 0), m_stepName(stepName) {}

    /// What the list becomes. No value: it can't be had.
    virtual std::optional<Documents> ChangeList(const EditRules& rules, const PartEntry& object,
                                                Documents documents, ValuePlan& plan) const = 0;

private:
    ProductText m_stepName;
};

/// Behind those that are there. A file that is there already is passed over.
class DocumentsAddition final : public DocumentChange {
public:
    DocumentsAddition(UniqueMetaObjectKey part, Documents documents)
        : DocumentChange(std::move(part), ProductText::NewDocuments),
          m_documents(std::move(documents)) {}

protected:
    std::optional<Documents> ChangeList(const EditRules& rules, const PartEntry& object,
                                        Documents documents, ValuePlan& plan) const override;

private:
    Documents m_documents;
};

/// The file stays, and what the object has taken over.
class DocumentRemoval final : public DocumentChange {
public:
    DocumentRemoval(UniqueMetaObjectKey part, std::string file)
        : DocumentChange(std::move(part), ProductText::DocumentRemoval), m_file(std::move(file)) {}

    const std::string& GetFile() const { return m_file; }

protected:
    std::optional<Documents> ChangeList(const EditRules& rules, const PartEntry& object,
                                        Documents documents, ValuePlan& plan) const override;

private:
    std::string m_file;
};

/// The object has the document's format, or none any more.
class DocumentFormatChange final : public DocumentChange {
public:
    DocumentFormatChange(UniqueMetaObjectKey part, std::string file, bool isUsed)
        : DocumentChange(std::move(part),
                         isUsed ? ProductText::DocumentFormat : ProductText::DocumentFormatCleared),
          m_file(std::move(file)), m_isUsed(isUsed) {}

protected:
    std::optional<Documents> ChangeList(const EditRules& rules, const PartEntry& object,
                                        Documents documents, ValuePlan& plan) const override;

private:
    std::string m_file;
    bool m_isUsed;
};

/// The object takes what the document has of name and designation, or keeps what it has as its own.
class DocumentSourceChange final : public DocumentChange {
public:
    DocumentSourceChange(UniqueMetaObjectKey part, std::string file, bool isSource)
        : DocumentChange(std::move(part), isSource ? ProductText::DocumentSource
                                                   : ProductText::DocumentSourceCleared),
          m_file(std::move(file)), m_isSource(isSource) {}

protected:
    std::optional<Documents> ChangeList(const EditRules& rules, const PartEntry& object,
                                        Documents documents, ValuePlan& plan) const override;

private:
    std::string m_file;
    bool m_isSource;
};

/// The document says something else, and the object follows it where it has taken that over.
class DocumentTextsChange final : public DocumentChange {
public:
    /// Of `document` all that the user can edit counts.
    DocumentTextsChange(UniqueMetaObjectKey part, DocumentRecord document)
        : DocumentChange(std::move(part), ProductText::DocumentEdit),
          m_document(std::move(document)) {}

    SharedText MakeStepName() const override;

protected:
    std::optional<Documents> ChangeList(const EditRules& rules, const PartEntry& object,
                                        Documents documents, ValuePlan& plan) const override;

private:
    DocumentRecord m_document;
};

} // namespace platform
