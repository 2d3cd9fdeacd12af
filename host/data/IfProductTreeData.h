// The product data of a document, cut by theme into small roles. A host implements it role by role;
// the library sees only the whole. Questions never change anything and never call back; operations
// that change the document may tell of it, on the bus or by the wrapper, from inside the call. An
// operation stands here from the day on which the library calls it.
#pragma once

#include "host/data/ProductDataCounts.h"
#include "host/data/ProductDataObjects.h"
#include "host/data/ProductDataRefresh.h"
#include "host/data/ProductDataStructure.h"
#include "host/data/ProductDataValues.h"

class IfProductTreeData : public IProductDataRefresh,
                          public IProductDataStructure,
                          public IProductDataColumns,
                          public IProductDataValues,
                          public IProductDataMaterials,
                          public IProductDataRoughness,
                          public IProductDataMarking,
                          public IProductDataSections,
                          public IProductDataHypertext,
                          public IProductDataRows,
                          public IProductDataDeleting,
                          public IProductDataObjectCommands,
                          public IProductDataAttributes,
                          public IProductDataDocuments,
                          public IProductDataSelection,
                          public IProductDataCommands,
                          public IProductDataEmbodiments,
                          public IProductDataCounts,
                          public IProductDataPositions {
public:
    using IProductDataRefresh::IsReadOnly;
    using IProductDataValues::IsReadOnly;

    /// The four questions that a cell has each time it shows its value. Answers as they do one by
    /// one for that property of the object, without embodiment and group; a host that looks for the
    /// object at each of them can do with one look here, and lend the value instead of copying it.
    virtual PropertyReading ReadProperty(const UniqueMetaObjectKey& objectKey,
                                         const SharedText& propertyId) const {
        const PropertyRef ref{objectKey, {}, propertyId, std::nullopt};
        return {nullptr, GetValue(ref), IsReadOnly(ref), IsHypertext(ref), GetBySource(ref)};
    }
};
