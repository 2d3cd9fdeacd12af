#include "platform/product/edits/SourceMatch.h"

#include "platform/product/model/AssemblyLevels.h"

#include <algorithm>
#include <map>
#include <optional>

namespace platform {

namespace {

/// No product writes it.
constexpr wchar_t c_end = L'\0';

/// Without case, blanks and signs: "rod-assembly" and "ROD_ASSEMBLY" are one name.
std::wstring Fold(const std::wstring& text) {
    std::wstring folded;
    for (const wchar_t letter : text) {
        const bool isUpper = letter >= L'A' && letter <= L'Z';
        const bool isKept = isUpper || (letter >= L'a' && letter <= L'z') ||
                            (letter >= L'0' && letter <= L'9') || letter > L'\x7F';
        if (isKept)
            folded += static_cast<wchar_t>(isUpper ? letter - L'A' + L'a' : letter);
    }
    return folded;
}

/// The objects that an assembly is built up of, and how often. `keyOf` gives no value for one that
/// is not known, which makes the signature empty, and an empty key for one that does not count.
template <class KeyOf>
std::string SignatureOf(const AssemblyRecord& assembly, const KeyOf& keyOf) {
    std::map<UniqueMetaObjectKey, std::size_t> parts;
    for (const ObjectRecord& component : assembly.components) {
        const std::optional<UniqueMetaObjectKey> key = keyOf(component.key);
        if (!key)
            return {};
        if (!key->IsEmpty())
            parts[*key] += component.occurrences.size();
    }
    std::string signature;
    for (const auto& [key, count] : parts)
        signature += key.String() + '|' + std::to_string(count) + '|';
    return signature;
}

} // namespace

SourceMatch::SourceMatch(const ProductModel& present, const ProductModel& fresh)
    : m_present(present), m_fresh(fresh) {
    CollectCandidates();
    // The document is that of its root, whatever this is called now.
    Pair(present.assemblies.front().object, fresh.assemblies.front().object);
    PairByTrait(
        [](const Candidate& candidate) {
            const std::string& key = candidate.key.String();
            return std::wstring(key.begin(), key.end()) + c_end + candidate.product->id.Str() +
                   c_end + candidate.product->name.Str();
        },
        false);
    PairByTrait(
        [](const Candidate& candidate) {
            return candidate.product->id.Str() + c_end + candidate.product->name.Str();
        },
        false);
    PairByTrait([](const Candidate& candidate) { return candidate.product->name.Str(); }, true);
    PairByTrait([](const Candidate& candidate) { return candidate.product->id.Str(); }, true);
    PairByTrait(
        [](const Candidate& candidate) {
            const SourceProduct& product = *candidate.product;
            return Fold(product.name.IsEmpty() ? product.id.Str() : product.name.Str());
        },
        true);
    PairByNumbers();
    PairByComponents();
}

void SourceMatch::CollectCandidates() {
    const auto collect = [](const ProductModel& model, Candidates& candidates) {
        for (const ObjectRecord& object : model.objectsBelow) {
            if (object.source)
                candidates.push_back({object.key, &*object.source});
        }
    };
    collect(m_present, m_presentObjects);
    collect(m_fresh, m_freshObjects);
    if (!m_present.source)
        return;
    std::unordered_set<UniqueMetaObjectKey> known;
    for (const ObjectRecord& object : m_present.objectsBelow)
        known.insert(object.key);
    const std::vector<DeletedUse>& deleted = m_present.source->deletedUses;
    m_deleted.reserve(deleted.size());
    for (const DeletedUse& use : deleted) {
        if (!known.insert(use.object).second)
            continue;
        m_deleted.push_back({use.id, use.name, {}, {}});
        m_presentObjects.push_back({use.object, &m_deleted.back()});
    }
}

SourceMatch::UsedObjects SourceMatch::ListUses(const ProductModel& model) {
    UsedObjects objects;
    for (const AssemblyRecord& assembly : model.assemblies) {
        for (const ObjectRecord& component : assembly.components) {
            for (const OccurrenceRecord& use : component.occurrences)
                objects.emplace(use.key, component.key);
        }
    }
    if (model.source) {
        for (const DeletedUse& use : model.source->deletedUses)
            objects.emplace(use.use, use.object);
    }
    return objects;
}

void SourceMatch::Pair(const UniqueMetaObjectKey& present, const UniqueMetaObjectKey& fresh) {
    m_keys.emplace(fresh, present);
    m_matched.insert(present);
}

void SourceMatch::PairByTrait(Trait trait, bool isForOneOnly) {
    struct Known {
        std::vector<const Candidate*> open;
        std::size_t count = 0;
        std::size_t freshCount = 0;
        std::size_t next = 0;
    };
    std::unordered_map<std::wstring, Known> known;
    for (const Candidate& candidate : m_presentObjects) {
        Known& entry = known[trait(candidate)];
        ++entry.count;
        if (!IsMatched(candidate.key))
            entry.open.push_back(&candidate);
    }
    for (const Candidate& candidate : m_freshObjects)
        ++known[trait(candidate)].freshCount;
    for (const Candidate& candidate : m_freshObjects) {
        const std::wstring text = trait(candidate);
        Known& entry = known[text];
        // A name that several have tells nothing of one of them.
        const bool tells =
            !text.empty() && (!isForOneOnly || (entry.count == 1 && entry.freshCount == 1));
        if (tells && !m_keys.contains(candidate.key) && entry.next < entry.open.size())
            Pair(entry.open[entry.next++]->key, candidate.key);
    }
}

/// A product that is called otherwise is the same where both it and one of its uses have kept
/// their numbers: the file was edited, and not exported anew.
void SourceMatch::PairByNumbers() {
    const UsedObjects before = ListUses(m_present);
    std::unordered_set<UniqueMetaObjectKey> open;
    for (const Candidate& candidate : m_presentObjects) {
        if (!IsMatched(candidate.key))
            open.insert(candidate.key);
    }
    for (const auto& [use, object] : ListUses(m_fresh)) {
        const auto found = before.find(use);
        if (found != before.end() && found->second == object && open.contains(object) &&
            !IsMatched(object) && !m_keys.contains(object))
            Pair(object, object);
    }
}

/// What is built up of the same parts is the same assembly.
void SourceMatch::PairByComponents() {
    std::unordered_set<UniqueMetaObjectKey> imported;
    for (const Candidate& candidate : m_presentObjects)
        imported.insert(candidate.key);
    std::unordered_map<std::string, std::vector<UniqueMetaObjectKey>> open;
    for (const AssemblyRecord& assembly : m_present.assemblies) {
        if (IsMatched(assembly.object) || !imported.contains(assembly.object))
            continue;
        open[SignatureOf(assembly, [&](const UniqueMetaObjectKey& key) {
            return std::optional(imported.contains(key) ? key : UniqueMetaObjectKey());
        })].push_back(assembly.object);
    }
    std::vector<const AssemblyRecord*> order =
        SortAssemblies(m_fresh, m_fresh.assemblies.front().object);
    // What is used comes before what uses it.
    std::ranges::reverse(order);
    for (const AssemblyRecord* const assembly : order) {
        if (m_keys.contains(assembly->object))
            continue;
        const std::string signature = SignatureOf(*assembly, [this](const auto& key) {
            const auto found = m_keys.find(key);
            return found == m_keys.end() ? std::nullopt : std::optional(found->second);
        });
        const auto found = open.find(signature);
        if (signature.empty() || found == open.end() || found->second.empty())
            continue;
        Pair(found->second.front(), assembly->object);
        found->second.erase(found->second.begin());
    }
}

} // namespace platform
