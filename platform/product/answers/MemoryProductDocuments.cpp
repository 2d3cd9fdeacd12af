#include "platform/product/answers/MemoryProductState.h"

namespace platform {

std::vector<PartDocument>
MemoryProduct::GetPartDocuments(const UniqueMetaObjectKey& /*key*/) const {
    return {};
}

bool MemoryProduct::CanAddDocument(const UniqueMetaObjectKey& /*key*/) const {
    return false;
}

ProductInfObjChangesResult MemoryProduct::AddDocument(const UniqueMetaObjectKey& /*key*/) {
    return {};
}

bool MemoryProduct::CanRemoveDocuments(const UniqueMetaObjectKey& /*key*/,
                                       const std::vector<std::wstring>& /*files*/) const {
    return false;
}

ProductInfObjChangesResult MemoryProduct::RemoveDocument(const UniqueMetaObjectKey& /*key*/,
                                                         const PartDocument& /*document*/) {
    return {};
}

bool MemoryProduct::CanOpenDocument(const UniqueMetaObjectKey& /*key*/,
                                    const PartDocument& /*document*/) const {
    return false;
}

void MemoryProduct::OpenDocument(const PartDocument& /*document*/,
                                 const VariantMarking& /*marking*/, const MbPath& /*path*/) {}

bool MemoryProduct::CanPreviewDocument(const UniqueMetaObjectKey& /*key*/,
                                       const PartDocument& /*document*/) const {
    return false;
}

bool MemoryProduct::CanChangeDocumentSource(const UniqueMetaObjectKey& /*key*/,
                                            const PartDocument& /*document*/) const {
    return false;
}

ProductInfObjChangesResult MemoryProduct::SetDocumentSource(const UniqueMetaObjectKey& /*key*/,
                                                            const PartDocument& /*document*/) {
    return {};
}

ProductInfObjChangesResult MemoryProduct::ClearDocumentSource(const UniqueMetaObjectKey& /*key*/,
                                                              const PartDocument& /*document*/) {
    return {};
}

bool MemoryProduct::CanUseDocumentFormat(const UniqueMetaObjectKey& /*key*/,
                                         const PartDocument& /*document*/,
                                         const std::wstring& /*format*/) const {
    return false;
}

ProductInfObjChangesResult MemoryProduct::UseDocumentFormat(const UniqueMetaObjectKey& /*key*/,
                                                            const PartDocument& /*document*/,
                                                            const std::wstring& /*format*/) {
    return {};
}

ProductInfObjChangesResult MemoryProduct::ClearDocumentFormat(const UniqueMetaObjectKey& /*key*/,
                                                              const PartDocument& /*document*/) {
    return {};
}

} // namespace platform
