// The order of objects: designation, name, section, material, mass. Objects equal in all of these
// are alike when they have an identity, a designation or the name of a standard part; objects
// without one are told apart by the document's order and at last by their keys, so that the order
// is total and the same at every run.
//
// With option A parts at different places of the document are never alike: their group would have
// no place of its own.

#include "host/data/Grouping.h"

#include "host/data/IfProductDataAggregator.h"
#include "platform/values/GroupingKeys.h"
#include "platform/values/NaturalOrder.h"

#include <algorithm>
#include <cstring>
#include <unordered_map>

namespace meta_data::grouping {

namespace {

using platform::GroupingRecord;
using platform::IGroupingKeys;

template <class T>
int Order(const T& a, const T& b) {
    return a < b ? -1 : b < a ? 1 : 0;
}

int CompareBytes(const std::string& a, const std::string& b) {
    const int order = std::memcmp(a.data(), b.data(), std::min(a.size(), b.size()));
    return order != 0 ? order : Order(a.size(), b.size());
}

int CompareTexts(const SharedText& a, const SharedText& b) {
    return a.IsSame(b) ? 0 : a.Str().compare(b.Str());
}

/// By the prepared keys; equal numbers in different writing are told apart by code points.
int CompareTexts(const std::string& keyA, const SharedText& a, const std::string& keyB,
                 const SharedText& b) {
    if (a.IsSame(b))
        return 0;
    const int order = CompareBytes(keyA, keyB);
    return order != 0 ? order : CompareTexts(a, b);
}

int CompareTails(const GroupingRecord& a, const GroupingRecord& b, bool numbersAsNumbers) {
    if (const int order = Order(a.section.numbers[0], b.section.numbers[0]))
        return order;
    if (platform::IsNamedStandardPart(a) && platform::IsNamedStandardPart(b))
        return 0;
    if (const int order = Order(a.section.numbers, b.section.numbers))
        return order;
    if (const int order = CompareTexts(a.section.name, b.section.name))
        return order;
    if (!a.material.IsSame(b.material)) {
        const int natural =
            numbersAsNumbers ? platform::CompareNatural(a.material.Str(), b.material.Str()) : 0;
        if (const int order = natural != 0 ? natural : CompareTexts(a.material, b.material))
            return order;
    }
    return Order(a.mass, b.mass);
}

int CompareRecords(const GroupingRecord& a, const GroupingRecord& b, bool numbersAsNumbers) {
    if (&a == &b)
        return 0;
    if (const int order =
            CompareTexts(a.designationKey, a.designation, b.designationKey, b.designation))
        return order;
    if (const int order = CompareTexts(a.nameKey, a.name, b.nameKey, b.name))
        return order;
    return CompareTails(a, b, numbersAsNumbers);
}

/// Finds the records of parts: the body is looked at once, and under options for which the
/// product's own keys do not serve a record is made anew once.
class RecordSource {
public:
    void SetOptions(bool numbersAsNumbers, bool ignoresCase) {
        m_numbersAsNumbers = numbersAsNumbers;
        m_ignoresCase = ignoresCase;
        m_remade.clear();
    }

    const GroupingRecord& Get(const ConstProductPart& part) const {
        const IGroupingKeys* const keys = FindKeys(part.metaData);
        const GroupingRecord* const record = keys ? keys->GetGroupingRecord(part.key) : nullptr;
        if (!record)
            return c_unknown;
        return m_numbersAsNumbers && !m_ignoresCase ? *record : Remade(*record);
    }

private:
    const IGroupingKeys* FindKeys(const IfMetaProductData* body) const {
        if (!body)
            return nullptr;
        if (body == m_lastBody)
            return m_lastKeys;
        const auto [found, isNew] = m_bodies.try_emplace(body, nullptr);
        if (isNew)
            found->second = dynamic_cast<const IGroupingKeys*>(body);
        m_lastBody = body;
        m_lastKeys = found->second;
        return m_lastKeys;
    }

    SharedText Folded(const SharedText& text) const {
        return m_ignoresCase ? SharedText(platform::FoldCase(text.Str())) : text;
    }

    const GroupingRecord& Remade(const GroupingRecord& record) const {
        const auto [found, isNew] = m_remade.try_emplace(&record);
        if (!isNew)
            return found->second;
        found->second =
            platform::MakeGroupingRecord(record.section, Folded(record.designation),
                                         Folded(record.name), Folded(record.material), record.mass);
        if (!m_numbersAsNumbers) {
            found->second.designationKey = platform::MakePlainKey(found->second.designation.Str());
            found->second.nameKey = platform::MakePlainKey(found->second.name.Str());
        }
        return found->second;
    }

    static const GroupingRecord c_unknown;

    bool m_numbersAsNumbers = false;
    bool m_ignoresCase = false;
    mutable std::unordered_map<const IfMetaProductData*, const IGroupingKeys*> m_bodies;
    mutable const IfMetaProductData* m_lastBody = nullptr;
    mutable const IGroupingKeys* m_lastKeys = nullptr;
    mutable std::unordered_map<const GroupingRecord*, GroupingRecord> m_remade;
};

const GroupingRecord RecordSource::c_unknown;

/// Like records together, so that only one of them has to be sorted.
class LikeTable {
public:
    explicit LikeTable(std::size_t records) {
        std::size_t size = 16;
        while (size < records * 2)
            size *= 2;
        m_slots.resize(size);
    }

    /// The number given first to a record like this one, which is `next` when there is none yet.
    template <class IsAlike>
    std::uint32_t Find(std::size_t hash, std::uint32_t next, IsAlike isAlike) {
        const std::size_t mask = m_slots.size() - 1;
        for (std::size_t i = hash & mask;; i = (i + 1) & mask) {
            Slot& slot = m_slots[i];
            if (slot.number == c_free) {
                slot = {hash, next};
                return next;
            }
            if (slot.hash == hash && isAlike(slot.number))
                return slot.number;
        }
    }

private:
    static constexpr std::uint32_t c_free = 0xFFFFFFFF;
    struct Slot {
        std::size_t hash = 0;
        std::uint32_t number = c_free;
    };

    std::vector<Slot> m_slots;
};

/// One place to be given: the parts of a class of like ones, or a single part.
struct PlaceEntry {
    const GroupingRecord* record;
    const UniqueMetaObjectKey* key;
    InfObjIndex index;
    std::uint32_t number;
};

class GroupingComparator final : public IfGroupingComparator {
public:
    int Compare(const ConstProductPart& a, const ConstProductPart& b) const override {
        if (m_documentOrderFirst) {
            if (const int order = Order(FindIndex(a.key), FindIndex(b.key)))
                return order;
        }
        const GroupingRecord& recordA = m_records.Get(a);
        const GroupingRecord& recordB = m_records.Get(b);
        if (const int order = CompareRecords(recordA, recordB, m_numbersAsNumbers))
            return order;
        if (platform::HasIdentity(recordA))
            return 0;
        if (const int order = Order(FindIndex(a.key), FindIndex(b.key)))
            return order;
        return Order(a.key, b.key);
    }

    std::vector<std::uint32_t>
    GetPlaces(const std::vector<ConstProductPart>& parts) const override {
        std::vector<std::uint32_t> classes(parts.size());
        std::vector<PlaceEntry> entries = CollectClasses(parts, classes);
        SortEntries(entries);

        std::vector<std::uint32_t> placeOfClass(entries.size());
        std::uint32_t place = 0;
        for (std::size_t i = 0; i < entries.size(); ++i) {
            if (i > 0 && !IsOnePlace(entries[i - 1], entries[i]))
                ++place;
            placeOfClass[entries[i].number] = place;
        }
        for (std::uint32_t& number : classes)
            number = placeOfClass[number];
        return classes;
    }

    void SetOptionA(bool on) override { m_documentOrderFirst = on; }
    void SetOptionB(bool on) override {
        m_numbersAsNumbers = on;
        m_records.SetOptions(m_numbersAsNumbers, m_ignoresCase);
    }
    void SetOptionC(bool on) override {
        m_ignoresCase = on;
        m_records.SetOptions(m_numbersAsNumbers, m_ignoresCase);
    }
    void SetIndexMap(const InfObjIndexMap& index) override { m_index = &index; }

private:
    /// A key that the order does not know stands at its very begin.
    InfObjIndex FindIndex(const UniqueMetaObjectKey& key) const {
        if (!m_index)
            return {};
        const auto found = m_index->find(key);
        return found == m_index->end() ? InfObjIndex() : found->second;
    }

    /// The classes of like parts, and in `classes` the class of each part.
    std::vector<PlaceEntry> CollectClasses(const std::vector<ConstProductPart>& parts,
                                           std::vector<std::uint32_t>& classes) const {
        LikeTable table(parts.size());
        std::vector<PlaceEntry> entries;
        for (std::size_t i = 0; i < parts.size(); ++i) {
            const GroupingRecord& record = m_records.Get(parts[i]);
            const auto next = static_cast<std::uint32_t>(entries.size());
            classes[i] = next;
            if (!m_documentOrderFirst && platform::HasIdentity(record)) {
                classes[i] = table.Find(record.hash, next, [&](std::uint32_t number) {
                    const GroupingRecord& other = *entries[number].record;
                    return platform::HasIdentity(other) &&
                           CompareRecords(record, other, m_numbersAsNumbers) == 0;
                });
            }
            if (classes[i] == next)
                entries.push_back({&record, &parts[i].key, {}, next});
        }
        return entries;
    }

    void SortEntries(std::vector<PlaceEntry>& entries) const {
        if (m_documentOrderFirst) {
            for (PlaceEntry& entry : entries)
                entry.index = FindIndex(*entry.key);
            std::sort(entries.begin(), entries.end(), [this](const auto& a, const auto& b) {
                if (const int order = Order(a.index, b.index))
                    return order < 0;
                if (const int order = CompareRecords(*a.record, *b.record, m_numbersAsNumbers))
                    return order < 0;
                return !platform::HasIdentity(*a.record) && *a.key < *b.key;
            });
            return;
        }
        std::sort(entries.begin(), entries.end(), [this](const auto& a, const auto& b) {
            return CompareRecords(*a.record, *b.record, m_numbersAsNumbers) < 0;
        });
        // The document's order is asked only where it decides, since its map is slow.
        for (auto begin = entries.begin(); begin != entries.end();) {
            const auto end = std::find_if(begin + 1, entries.end(), [&](const auto& entry) {
                return CompareRecords(*begin->record, *entry.record, m_numbersAsNumbers) != 0;
            });
            if (end - begin > 1)
                SortByDocument(begin, end);
            begin = end;
        }
    }

    void SortByDocument(std::vector<PlaceEntry>::iterator begin,
                        std::vector<PlaceEntry>::iterator end) const {
        for (auto entry = begin; entry != end; ++entry)
            entry->index = FindIndex(*entry->key);
        std::sort(begin, end, [](const auto& a, const auto& b) {
            const int order = Order(a.index, b.index);
            return order != 0 ? order < 0 : *a.key < *b.key;
        });
    }

    bool IsOnePlace(const PlaceEntry& a, const PlaceEntry& b) const {
        if (!(a.index == b.index) || CompareRecords(*a.record, *b.record, m_numbersAsNumbers) != 0)
            return false;
        return platform::HasIdentity(*a.record) || *a.key == *b.key;
    }

    bool m_documentOrderFirst = false;
    bool m_numbersAsNumbers = false;
    bool m_ignoresCase = false;
    RecordSource m_records;
    const InfObjIndexMap* m_index = nullptr;
};

} // namespace

std::unique_ptr<IfGroupingComparator>
CreateDescrGroupingComparator(const SpcDescription& /*description*/) {
    // A style says where objects stand, not which of them are alike.
    return std::make_unique<GroupingComparator>();
}

std::unique_ptr<IfGroupingComparator> CreateDefaultGroupingComparator() {
    return std::make_unique<GroupingComparator>();
}

} // namespace meta_data::grouping
