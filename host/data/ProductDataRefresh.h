// When the panel has to catch up with the document, and with what of it.
#pragma once

#include "host/UniqueMetaObjectKey.h"

#include <cstdint>
#include <vector>

/// Which objects' rows have to be read again.
struct ChangedObjects {
    /// False: any row may have to be.
    bool isKnown = false;
    /// In any order. More than there need be, an object named twice and one without a row do no
    /// harm.
    std::vector<UniqueMetaObjectKey> keys;
};

/// When the panel has to catch up.
class IProductDataRefresh {
public:
    virtual ~IProductDataRefresh() = default;

    /// Changes when the document does, and only then.
    virtual std::uint64_t GetChangeStamp() const = 0;
    /// Nothing in the document can be changed now.
    virtual bool IsReadOnly() const = 0;
    /// What has changed since the last BeginRebuild needs other rows or columns, not only other
    /// values in them.
    virtual bool IsRebuildRequired() const = 0;
    /// Called at the beginning of each full build, before anything is read for it.
    virtual void BeginRebuild() = 0;
    /// Called before the objects are sorted into rows.
    virtual void PrepareData() = 0;
    /// The objects of the rows that a full build has made, in the order in which they will be read
    /// from now on; of several rows of one object the first is meant. Called before the BeginRead
    /// of each full build. A host need not do anything with it: it is for having at hand what will
    /// be asked for next.
    virtual void ExpectReads(const std::vector<UniqueMetaObjectKey>&) {}
    /// All objects about which any question of a row may be answered otherwise now than when the
    /// change stamp was `since`. A part is one of them where its value came from an object or by a
    /// link that changed, where it is counted in another number, and where another row shows it.
    /// Rows that stand for others, and the root row, are read again whenever one below them is.
    /// What concerns all rows, as a document that becomes read-only, is not known. A host that
    /// can't tell says so, and has all rows read at each refresh. Called at the beginning of a
    /// refresh.
    virtual ChangedObjects GetChangedObjects(std::uint64_t /*since*/) const { return {}; }
    /// Bracket each walk that reads the values of rows: of all of them, or of those that have
    /// changed.
    virtual void BeginRead() = 0;
    virtual void EndRead() = 0;
};
