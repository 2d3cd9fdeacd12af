// Makes the tables of a ProductIndex from a model. What the tables of the model's last state know
// already is taken over from them: keys and their order always, since keys say themselves what they
// are, and what was made of the records where these are known to hold what they held.
#pragma once

#include "platform/product/index/IndexTables.h"

namespace platform {

/// Where entries have what they share.
struct SharedEntries {
    PropertyLayouts& layouts;
    SharedParts& parts;
    SharedSections& sections;
};

class IndexBuilder {
public:
    /// `previous` is used up. What it points into may be gone already.
    IndexBuilder(IndexTables& previous, SharedEntries shared, bool areRecordsKnown)
        : m_previous(previous), m_shared(shared), m_areRecordsKnown(areRecordsKnown) {}

    IndexTables Build(const ProductModel& model);

private:
    using Parts = std::vector<const PartEntry*>;

    void Reserve(const ProductModel& model);
    void AddObject(const ObjectRecord& record, bool isRoot);
    void AddUses(PartEntry& owner);
    PartEntry& AddPart(const PartRecord& record, const ObjectEntry& object, std::uint32_t before);
    void ReadPart(PartEntry& part, const ObjectRecord& object) const;
    /// The place of the part in the previous tables, `next` most likely; `none` for a new one.
    std::uint32_t FindBefore(const PartRecord& record, std::uint32_t next, bool isUse,
                             bool isRoot) const;
    void EnterParts();
    Parts Order(const Parts& previous, Parts& added) const;
    void Link();

    IndexTables& m_previous;
    SharedEntries m_shared;
    bool m_areRecordsKnown;
    IndexTables m_tables;
    meta_data::SP::StyleId m_style = 0;
    /// By places in the previous tables.
    std::vector<std::uint32_t> m_placesNow;
    /// Where in the previous tables the next object and the next use most likely stand.
    std::uint32_t m_nextObject = 0;
    std::uint32_t m_nextUse = 0;
    Parts m_newObjects;
    Parts m_newUses;
};

} // namespace platform
