// The documents of one object as the panel lists them: those that it keeps, and before them the
// file that it was imported from, which is worked out here and kept nowhere. Made for a question
// and gone with it.
#pragma once

#include "host/data/PartDocument.h"
#include "platform/product/index/ShownValues.h"

#include <string>
#include <vector>

namespace platform {

class IDocumentFiles;

class DocumentList {
public:
    /// `files` may be null.
    DocumentList(const ProductModel& model, const ProductIndex& index, const PartEntry& part,
                 const IDocumentFiles* files);

    /// Looks at each file once.
    std::vector<PartDocument> Make() const;
    /// What is kept of the document that is listed with that file; null for none.
    const DocumentRecord* Find(const std::wstring& file) const;
    /// The object has the file already, kept or not.
    bool Has(const std::string& path) const;

private:
    PartDocument Show(const DocumentRecord& document) const;
    /// As a product file names it.
    std::wstring NameFile(const std::string& path) const;
    bool HasSource() const;

    const ProductModel& m_model;
    const ProductIndex& m_index;
    const PartEntry& m_object;
    const IDocumentFiles* m_files;
};

} // namespace platform
