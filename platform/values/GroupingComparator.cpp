// The order of objects by their grouping records. Objects that compare equal are alike when they
// have an identity; those without one are told apart by the document's order and at last by their
// keys, so that the order is total and the same at every run.
//
// With option A parts at different places of the document are never alike: their group would have
// no place of its own.

#include "host/data/Grouping.h"

#include "host/data/GroupingRecord.h"
#include "host/data/IfProductDataAggregator.h"
#include "platform/values/OpenTable.h"

#include <algorithm>
#include <unordered_map>

namespace meta_data::grouping {

namespace {

template <class T>
int Order(const T& a, const T& b) {
    return a < b ? -1 : b < a ? 1 : 0;
}

/// Finds the records of parts. Under options for which the product's own records do not serve each
/// is made anew once.
class RecordSource {
public:
    void SetOptions(TextOptions options) {
        m_options = options;
        m_remade.clear();
    }

    const GroupingRecord& Get(const ConstProductPart& part) const {
        static const GroupingRecord unknown;
        const GroupingRecord* const record =
            part.metaData ? part.metaData->GetGroupingRecord(part.key) : nullptr;
        if (!record)
            return unknown;
        return m_options.numbersAsNumbers && !m_options.ignoresCase ? *record : Remade(*record);
    }

private:
    const GroupingRecord& Remade(const GroupingRecord& record) const {
        const auto [found, isNew] = m_remade.try_emplace(&record);
        if (isNew)
            found->second = MakeGroupingRecord(record.section, record.designation, record.name,
                                               record.material, record.mass, m_options);
        return found->second;
    }

    TextOptions m_options;
    mutable std::unordered_map<const GroupingRecord*, GroupingRecord> m_remade;
};

/// Brings like records together, so that only one of them has to be sorted.
class LikeTable {
public:
    explicit LikeTable(std::size_t records) { m_table.Reset(records); }

    /// The number given first to a record like this one; `next`, when there is none yet.
    std::uint32_t Find(const GroupingRecord& record, std::uint32_t next) {
        Entry& entry = m_table.Find(record.hash, [&](const Entry& known) {
            return known.hash == record.hash && CompareRecords(record, *known.record) == 0;
        });
        if (entry.IsFree())
            entry = {record.hash, &record, next};
        return entry.number;
    }

private:
    struct Entry {
        std::size_t hash = 0;
        const GroupingRecord* record = nullptr;
        std::uint32_t number = 0;

        bool IsFree() const { return !record; }
    };

    platform::OpenTable<Entry> m_table;
};

/// One place to be given: to the parts of a class of like ones, or to a single part.
struct PlaceEntry {
    const GroupingRecord* record;
    const UniqueMetaObjectKey* key;
    InfObjIndex index;
    std::uint32_t number;
    /// Of the designation: the bytes behind those that all begin with.
    std::uint64_t prefix = 0;
};

std::size_t CommonSize(std::string_view a, std::string_view b) {
    const std::size_t size = std::min(a.size(), b.size());
    return static_cast<std::size_t>(
        std::mismatch(a.begin(), a.begin() + static_cast<std::ptrdiff_t>(size), b.begin()).first -
        a.begin());
}

std::uint64_t PrefixOf(std::string_view key) {
    std::uint64_t prefix = 0;
    for (std::size_t i = 0; i < sizeof(prefix); ++i)
        prefix = prefix << 8 | (i < key.size() ? static_cast<unsigned char>(key[i]) : 0u);
    return prefix;
}

/// Most pairs are then told apart without a look at the records, which lie far from each other.
void SetPrefixes(std::vector<PlaceEntry>& entries) {
    if (entries.empty())
        return;
    std::string_view common = entries.front().record->GetDesignationKey();
    for (const PlaceEntry& entry : entries)
        common = common.substr(0, CommonSize(common, entry.record->GetDesignationKey()));
    for (PlaceEntry& entry : entries)
        entry.prefix = PrefixOf(entry.record->GetDesignationKey().substr(common.size()));
}

class GroupingComparator final : public IfGroupingComparator {
public:
    int Compare(const ConstProductPart& a, const ConstProductPart& b) const override {
        if (m_documentOrderFirst) {
            if (const int order = Order(FindIndex(a.key), FindIndex(b.key)))
                return order;
        }
        const GroupingRecord& record = m_records.Get(a);
        if (const int order = CompareRecords(record, m_records.Get(b)))
            return order;
        if (HasIdentity(record))
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
        m_options.numbersAsNumbers = on;
        m_records.SetOptions(m_options);
    }
    void SetOptionC(bool on) override {
        m_options.ignoresCase = on;
        m_records.SetOptions(m_options);
    }
    void SetIndexMap(const IfInfObjOrder& order) override { m_order = &order; }

private:
    /// A key that the order does not know stands at its very beginning.
    InfObjIndex FindIndex(const UniqueMetaObjectKey& key) const {
        return m_order ? m_order->GetIndex(key) : InfObjIndex();
    }

    /// The classes of like parts, and in `classes` the class of each part.
    std::vector<PlaceEntry> CollectClasses(const std::vector<ConstProductPart>& parts,
                                           std::vector<std::uint32_t>& classes) const {
        LikeTable table(parts.size());
        std::vector<PlaceEntry> entries;
        for (std::size_t i = 0; i < parts.size(); ++i) {
            const GroupingRecord& record = m_records.Get(parts[i]);
            const auto next = static_cast<std::uint32_t>(entries.size());
            const bool mayShare = !m_documentOrderFirst && HasIdentity(record);
            classes[i] = mayShare ? table.Find(record, next) : next;
            if (classes[i] == next)
                entries.push_back({&record, &parts[i].key, {}, next});
        }
        return entries;
    }

    void SortEntries(std::vector<PlaceEntry>& entries) const {
        if (m_documentOrderFirst) {
            SortByDocument(entries.begin(), entries.end());
            return;
        }
        SetPrefixes(entries);
        std::sort(entries.begin(), entries.end(), [](const PlaceEntry& a, const PlaceEntry& b) {
            if (a.prefix != b.prefix)
                return a.prefix < b.prefix;
            return CompareRecords(*a.record, *b.record) < 0;
        });
        // The document's order is asked only where it decides.
        for (auto begin = entries.begin(); begin != entries.end();) {
            const auto end = std::find_if(begin + 1, entries.end(), [&](const PlaceEntry& entry) {
                return entry.prefix != begin->prefix ||
                       CompareRecords(*begin->record, *entry.record) != 0;
            });
            if (end - begin > 1)
                SortByDocument(begin, end);
            begin = end;
        }
    }

    /// By the document's order, and within one place of it as Compare does.
    void SortByDocument(std::vector<PlaceEntry>::iterator begin,
                        std::vector<PlaceEntry>::iterator end) const {
        for (auto entry = begin; entry != end; ++entry)
            entry->index = FindIndex(*entry->key);
        std::sort(begin, end, [](const PlaceEntry& a, const PlaceEntry& b) {
            if (const int order = Order(a.index, b.index))
                return order < 0;
            if (const int order = CompareRecords(*a.record, *b.record))
                return order < 0;
            return !HasIdentity(*a.record) && *a.key < *b.key;
        });
    }

    static bool IsOnePlace(const PlaceEntry& a, const PlaceEntry& b) {
        if (a.prefix != b.prefix || !(a.index == b.index) ||
            CompareRecords(*a.record, *b.record) != 0)
            return false;
        return HasIdentity(*a.record) || *a.key == *b.key;
    }

    bool m_documentOrderFirst = false;
    TextOptions m_options;
    RecordSource m_records;
    const IfInfObjOrder* m_order = nullptr;
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
