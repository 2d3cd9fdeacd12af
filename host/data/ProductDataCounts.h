// How often objects stand in the product, in which of its embodiments, and their positions.
#pragma once

#include "host/PropValue.h"
#include "host/PropertyRef.h"
#include "host/SPCSection.h"
#include "host/UniqueMetaObjectKey.h"
#include "host/data/EmbodimentsModel.h"
#include "host/data/ProductInfObjChangesResult.h"

#include <optional>
#include <set>
#include <string>

class IProductDataEmbodiments {
public:
    virtual ~IProductDataEmbodiments() = default;

    virtual bool HasEmbodiments() const = 0;
    /// One count column an embodiment stands in place of the count column.
    virtual bool IsEmbodimentMode() const = 0;
    virtual void SetEmbodimentMode(bool on) = 0;
    virtual const EmbodimentsModel& GetEmbodiments() const = 0;
    /// The embodiment that is worked on.
    virtual bool HasActiveEmbodiment() const = 0;
    virtual UniqueMetaObjectKey GetActiveEmbodiment() const = 0;
    /// Which embodiments the user has chosen to see, in words of the panel's own: kept with the
    /// document and given back as they are. Empty: nothing was chosen.
    virtual std::wstring GetEmbodimentFilter() const = 0;
    virtual void SetEmbodimentFilter(const std::wstring& text) = 0;
};

/// How often objects stand in the product. An object has one count an embodiment, under the
/// property "count": PropertyRef::objectKey names the object or the use of one that a row stands
/// for, `secondKey` the embodiment. GetValue, IsReadOnly, MakeValueChanges and what is asked about
/// links all take such references. A reference with the key of a group row is about the group as a
/// whole; `inGroup` is false then and for rows that stand alone, true for rows below a group row,
/// and without value where it makes no difference.
///
/// A count is a text to the library, stored as it is shown: a number, a number with a unit, a mark.
/// The text "x" is a mark that is set, no value one that is not (see IsCountMark).
class IProductDataCounts {
public:
    virtual ~IProductDataCounts() = default;

    /// The embodiments that the one column "count" stands for. Never empty: a product without
    /// embodiments has a key of the host's for itself here. Asked while cells are made, once for
    /// each row.
    virtual std::set<UniqueMetaObjectKey> GetCurrentEmbodiments() const = 0;
    /// The embodiment whose count of the object a column shows that stands for several of them; one
    /// of `embodiments`, which is not empty. `inGroup`: the object's row stands below a group row.
    /// Asked while cells are made, and good until the next full build.
    virtual UniqueMetaObjectKey GetCountKey(const UniqueMetaObjectKey& key,
                                            const std::set<UniqueMetaObjectKey>& embodiments,
                                            bool inGroup) const = 0;
    /// The count of a whole group in a column that stands for two embodiments or more; with one, it
    /// is GetValue that is asked. `key` is that of the group row. Empty for no count.
    virtual PropValue GetGroupCount(const UniqueMetaObjectKey& key,
                                    const std::set<UniqueMetaObjectKey>& embodiments) const = 0;
    /// The count could be worked out from the product and has another value, for instance one that
    /// the user has typed. Asked at each reading of a count.
    virtual bool IsRecalcAvailable(const PropertyRef& ref) const = 0;
    /// The change set that gives the object, or the group, the count that follows from the product.
    /// Empty when that is the one it has. Of a group only what is its own changes, not the counts
    /// of its members, whose changes may stand in the same set before it.
    virtual ProductInfObjChangesResult MakeRecalcChanges(const UniqueMetaObjectKey& key,
                                                         const UniqueMetaObjectKey& embodiment) = 0;
};

/// The numbering of objects in the specification.
class IProductDataPositions {
public:
    virtual ~IProductDataPositions() = default;

    /// The command that numbers the whole tree is offered now. Asked when the state of commands is
    /// shown; a document that could be numbered may still answer false, for instance while the user
    /// works on something else.
    virtual bool CanCalculatePositions() const = 0;
    /// The number that numbering begins with, 1 or more.
    virtual unsigned GetFirstPosition() const = 0;
    /// The root row may number its children. Asked when numbering runs; false keeps every position
    /// as it is, whoever has given the command.
    virtual bool CanStartPositions() const = 0;
    virtual bool CanSetPosition(const UniqueMetaObjectKey& key) const = 0;
    /// The object has a position of its own that numbering leaves alone and passes over.
    virtual bool KeepsOwnPosition(const UniqueMetaObjectKey& key) const = 0;
    /// The object has a position that numbering takes away, since it gives it none.
    virtual bool CanClearPosition(const UniqueMetaObjectKey& key) const = 0;
    /// Objects of the section have positions.
    virtual bool IsSectionNumbered(const SPCSection& section) const = 0;
};
