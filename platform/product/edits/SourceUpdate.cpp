#include "platform/product/edits/SourceUpdate.h"

#include "platform/product/edits/SourceReport.h"
#include "platform/product/index/ShownValues.h"
#include "platform/product/model/AssemblyLevels.h"
#include "platform/product/model/SectionKinds.h"
#include "platform/product/model/SourceProduct.h"

#include <algorithm>
#include <utility>

namespace platform {

namespace {

using Keys = std::unordered_set<UniqueMetaObjectKey>;
using Records = std::vector<ObjectRecord>;

ProductModel PutBack(const ProductModel& model) {
    ProductModel flat = model;
    PutAllBack(flat);
    return flat;
}

/// Keys that nothing of a product has.
class FreeKeys {
public:
    /// With all records put back.
    explicit FreeKeys(const ProductModel& model) {
        for (const EmbodimentRecord& embodiment : model.embodiments)
            m_taken.insert(embodiment.key);
        Add(model.objectsBelow);
        for (const AssemblyRecord& assembly : model.assemblies) {
            Add(assembly.components);
            Add(assembly.allParts);
        }
        for (const DeletedUse& use : model.source->deletedUses) {
            m_taken.insert(use.object);
            m_taken.insert(use.use);
        }
    }

    /// The key itself, or one that is made of it.
    UniqueMetaObjectKey Take(const UniqueMetaObjectKey& key) {
        UniqueMetaObjectKey free = key;
        for (int number = 2; !m_taken.insert(free).second; ++number)
            free = UniqueMetaObjectKey(key.String() + '-' + std::to_string(number));
        return free;
    }

private:
    void Add(const Records& objects) {
        for (const ObjectRecord& object : objects) {
            Add(object);
            for (const OccurrenceRecord& use : object.occurrences)
                Add(use);
        }
    }
    void Add(const PartRecord& part) {
        m_taken.insert(part.key);
        for (const LinkRecord& link : part.links)
            m_taken.insert(link.target);
    }

    Keys m_taken;
};

/// Whoever refers to what is gone forgets it. A billet goes with its owner.
void MendReferences(Records& objects, const UniqueMetaObjectKey& root) {
    Keys known;
    for (std::size_t count = objects.size() + 1; count != objects.size();) {
        count = objects.size();
        known.clear();
        for (const ObjectRecord& object : objects)
            known.insert(object.key);
        std::erase_if(objects, [&](const ObjectRecord& object) {
            return object.billet != BilletKind::None && !known.contains(object.billetOwner);
        });
    }
    Keys parts = known;
    for (const ObjectRecord& object : objects) {
        for (const OccurrenceRecord& use : object.occurrences)
            parts.insert(use.key);
    }
    const auto mendGroup = [&](PartRecord& part) {
        if (!parts.contains(part.groupKey) && !(part.groupKey == root))
            part.groupKey = {};
    };
    for (ObjectRecord& object : objects) {
        std::erase_if(object.parents, [&](const auto& key) { return !known.contains(key); });
        std::erase_if(object.owners,
                      [&](const auto& key) { return !known.contains(key) && !(key == root); });
        mendGroup(object);
        std::ranges::for_each(object.occurrences, mendGroup);
    }
}

bool HasLinks(const ProductModel& model) {
    return !model.root.links.empty() ||
           std::ranges::any_of(model.objects, [](const ObjectRecord& object) {
               return !object.links.empty() ||
                      std::ranges::any_of(object.occurrences, [](const OccurrenceRecord& use) {
                          return !use.links.empty();
                      });
           });
}

/// A use like its object, with nothing of its own.
OccurrenceRecord MakeUse(const ObjectRecord& object, UniqueMetaObjectKey key) {
    OccurrenceRecord use;
    static_cast<PartRecord&>(use) = object;
    use.key = std::move(key);
    use.groupKey = {};
    use.properties.clear();
    use.links.clear();
    use.counts.clear();
    return use;
}

/// Of the uses at these places so many go, those with nothing of their own first.
std::unordered_set<std::size_t> ChooseGone(const std::vector<OccurrenceRecord>& uses,
                                           const std::vector<std::size_t>& places,
                                           std::size_t count, GoneParts gone) {
    std::unordered_set<std::size_t> chosen;
    for (const bool haveOwn : {false, true}) {
        if (haveOwn && gone == GoneParts::Keep)
            break;
        for (auto place = places.rbegin(); place != places.rend() && chosen.size() < count; ++place)
            if (HasOwn(uses[*place]) == haveOwn)
                chosen.insert(*place);
    }
    return chosen;
}

class Updating final {
public:
    Updating(const ProductModel& present, const ProductModel& fresh, GoneParts gone)
        : m_present(present), m_gone(gone), m_model(PutBack(present)), m_fresh(PutBack(fresh)),
          m_match(m_model, m_fresh), m_freeKeys(m_model) {}

    SourceUpdate Make() {
        if (!m_model.embodiments.empty() && m_fresh.assemblies.size() > 1)
            return {UpdateFault::Embodiments, m_present, {}, {}};
        MergeObjects();
        MergeAssemblies();
        if (FindAssemblyCycle(m_model))
            return {UpdateFault::Cycle, m_present, {}, {}};
        SourceUpdate update;
        MendDeletedUses();
        m_model.source->contents = m_fresh.source->contents;
        TakeAllOut(m_model);
        for (AssemblyRecord& assembly : m_model.assemblies)
            MendReferences(assembly.allParts, assembly.object);
        KeepShownValues();
        update.model = std::move(m_model);
        update.keys = std::move(m_keys);
        Report(m_present, std::move(m_changed), update);
        return update;
    }

private:
    struct DeletedHere {
        DeletedUse* use;
        bool isInFile = false;
    };

    void MergeObjects() {
        for (std::size_t i = 0; i < m_model.objectsBelow.size(); ++i)
            m_places.emplace(m_model.objectsBelow[i].key, i);
        Keys assembliesBefore;
        for (const AssemblyRecord& assembly : m_model.assemblies)
            assembliesBefore.insert(assembly.object);
        Keys assembliesNow;
        for (const AssemblyRecord& assembly : m_fresh.assemblies)
            assembliesNow.insert(assembly.object);
        for (ObjectRecord& object : m_model.objectsBelow) {
            if (!object.source)
                continue;
            m_imported.insert(object.key);
            // What is kept of it is the user's own.
            if (!m_match.IsMatched(object.key))
                object.source.reset();
        }
        for (const ObjectRecord& fresh : m_fresh.objectsBelow) {
            const auto matched = m_match.Get().find(fresh.key);
            const UniqueMetaObjectKey key =
                matched == m_match.Get().end() ? m_freeKeys.Take(fresh.key) : matched->second;
            m_keys.emplace(fresh.key, key);
            const auto place = m_places.find(key);
            if (place == m_places.end())
                AddObject(fresh, key);
            else
                FollowObject(m_model.objectsBelow[place->second], fresh,
                             assembliesBefore.contains(key), assembliesNow.contains(fresh.key));
        }
    }

    void AddObject(const ObjectRecord& fresh, const UniqueMetaObjectKey& key) {
        m_places.emplace(key, m_model.objectsBelow.size());
        ObjectRecord& object = m_model.objectsBelow.emplace_back(fresh);
        object.key = key;
        object.part.used = meta_data::SPUsed({m_model.styleId});
    }

    void FollowObject(ObjectRecord& object, const ObjectRecord& fresh, bool wasAssembly,
                      bool isAssembly) {
        if (!object.source)
            return;
        bool isChanged = Follow(object, *fresh.source);
        if (object.kind != fresh.kind) {
            m_kindsBefore.emplace(object.key, object.kind);
            if (object.section.numbers[0] == FindUsualSection(object.kind).section)
                object.section = fresh.section;
            object.kind = fresh.kind;
            object.iconType = fresh.iconType;
            isChanged = true;
        }
        if (isAssembly != wasAssembly && (isAssembly || object.sumsPartMasses)) {
            object.sumsPartMasses = isAssembly;
            object.volume.reset();
            std::erase_if(object.properties,
                          [](const auto& value) { return value.first == number::mass; });
        }
        if (isChanged)
            m_changed.insert(object.key);
    }

    void MergeAssemblies() {
        std::unordered_map<UniqueMetaObjectKey, std::size_t> places;
        for (std::size_t i = 0; i < m_model.assemblies.size(); ++i)
            places.emplace(m_model.assemblies[i].object, i);
        for (DeletedUse& use : m_model.source->deletedUses)
            m_deleted[use.assembly][use.object].push_back({&use});
        Keys met;
        for (const AssemblyRecord& fresh : m_fresh.assemblies) {
            const UniqueMetaObjectKey key = m_keys.at(fresh.object);
            met.insert(key);
            const auto [place, isNew] = places.try_emplace(key, m_model.assemblies.size());
            if (isNew)
                m_model.assemblies.push_back({key, {}, {}, {}});
            MergeComponents(m_model.assemblies[place->second], fresh.components);
        }
        // An assembly that is a part now is left with what the user has put into it.
        for (AssemblyRecord& assembly : m_model.assemblies) {
            if (m_match.IsMatched(assembly.object) && !met.contains(assembly.object))
                MergeComponents(assembly, {});
        }
        const UniqueMetaObjectKey home = m_model.assemblies.front().object;
        std::erase_if(m_model.assemblies, [&](const AssemblyRecord& assembly) {
            return assembly.components.empty() && !(assembly.object == home) &&
                   !met.contains(assembly.object);
        });
    }

    void MergeComponents(AssemblyRecord& assembly, const Records& fresh) {
        Records before = std::exchange(assembly.components, {});
        std::unordered_map<UniqueMetaObjectKey, std::size_t> places;
        for (std::size_t i = 0; i < before.size(); ++i)
            places.emplace(before[i].key, i);
        std::vector<bool> isGone(before.size());
        for (std::size_t i = 0; i < before.size(); ++i)
            isGone[i] = m_gone == GoneParts::Remove && m_imported.contains(before[i].key);
        // What is new stands behind what stands before it in the file.
        std::vector<Records> behind(before.size() + 1);
        std::size_t last = 0;
        for (const ObjectRecord& component : fresh) {
            const UniqueMetaObjectKey& key = m_keys.at(component.key);
            if (const auto place = places.find(key); place != places.end()) {
                ObjectRecord& standing = before[place->second];
                // The user has made a billet of it, which has no uses.
                const bool isBillet = standing.billet != BilletKind::None;
                if (!isBillet)
                    MergeUses(assembly.object, standing, component);
                isGone[place->second] =
                    !isBillet && standing.occurrences.empty() && !component.occurrences.empty();
                last = place->second + 1;
                continue;
            }
            ObjectRecord standing;
            standing.key = key;
            MergeUses(assembly.object, standing, component);
            if (!standing.occurrences.empty())
                behind[last].push_back(std::move(standing));
        }
        const auto add = [&](Records& records) {
            assembly.components.insert(assembly.components.end(),
                                       std::make_move_iterator(records.begin()),
                                       std::make_move_iterator(records.end()));
        };
        add(behind.front());
        for (std::size_t i = 0; i < before.size(); ++i) {
            if (!isGone[i])
                assembly.components.push_back(std::move(before[i]));
            add(behind[i + 1]);
        }
        MendReferences(assembly.components, assembly.object);
    }

    /// Uses are known by their numbers, the rest in their order.
    void MergeUses(const UniqueMetaObjectKey& assembly, ObjectRecord& standing,
                   const ObjectRecord& fresh) {
        const ObjectRecord& object = m_model.objectsBelow[m_places.at(standing.key)];
        std::vector<OccurrenceRecord>& uses = standing.occurrences;
        std::vector<DeletedHere>& deleted = m_deleted[assembly][standing.key];
        Keys inFile;
        for (const OccurrenceRecord& use : fresh.occurrences)
            inFile.insert(use.key);
        std::vector<std::size_t> open;
        for (std::size_t i = 0; i < uses.size(); ++i) {
            if (inFile.erase(uses[i].key) == 0)
                open.push_back(i);
        }
        for (DeletedHere& use : deleted)
            use.isInFile = inFile.erase(use.use->use) > 0;
        std::vector<UniqueMetaObjectKey> rest;
        for (const OccurrenceRecord& use : fresh.occurrences) {
            if (inFile.contains(use.key))
                rest.push_back(use.key);
        }
        const std::unordered_set<std::size_t> gone =
            ChooseGone(uses, open, open.size() - std::min(open.size(), rest.size()), m_gone);
        auto next = rest.begin() + static_cast<std::ptrdiff_t>(std::min(open.size(), rest.size()));
        for (DeletedHere& use : deleted) {
            if (use.isInFile || next == rest.end())
                continue;
            use.isInFile = true;
            use.use->use = *next++;
        }
        if (const auto kind = m_kindsBefore.find(object.key); kind != m_kindsBefore.end()) {
            for (OccurrenceRecord& use : uses)
                use.kind = use.kind == kind->second ? object.kind : use.kind;
        }
        std::size_t place = 0;
        std::erase_if(uses, [&](const OccurrenceRecord&) { return gone.contains(place++); });
        for (; next != rest.end(); ++next)
            uses.push_back(MakeUse(object, m_freeKeys.Take(*next)));
    }

    /// What the file does not have any more needs no remembering.
    void MendDeletedUses() {
        std::vector<DeletedUse> left;
        for (DeletedUse& use : m_model.source->deletedUses) {
            const std::vector<DeletedHere>& here = m_deleted[use.assembly][use.object];
            if (std::ranges::none_of(here, [&](const DeletedHere& entry) {
                    return entry.use == &use && entry.isInFile;
                }))
                continue;
            const ObjectRecord& object = m_model.objectsBelow[m_places.at(use.object)];
            use.id = object.source->id;
            use.name = object.source->name;
            left.push_back(use);
        }
        m_model.source->deletedUses = std::move(left);
    }

    /// A property that was linked to what is gone keeps what it showed.
    void KeepShownValues() {
        if (!HasLinks(m_present))
            return;
        ProductIndex index;
        index.Rebuild(m_present);
        std::unordered_map<UniqueMetaObjectKey, PartRecord*> parts;
        parts.emplace(m_model.root.key, &m_model.root);
        for (ObjectRecord& object : m_model.objects) {
            parts.emplace(object.key, &object);
            for (OccurrenceRecord& use : object.occurrences)
                parts.emplace(use.key, &use);
        }
        const ShownValues shown(index);
        for (const PartEntry* const part : index.GetLinkedParts()) {
            const auto left = parts.find(part->key);
            for (const LinkRecord& link : part->record->links) {
                if (left != parts.end() && index.Find(link.target) && !parts.contains(link.target))
                    Keep(*left->second, part->isUse, link.property,
                         shown.Get(*part, link.property));
            }
        }
    }

    static void Keep(PartRecord& part, bool isUse, unsigned long number, PropValue value) {
        if (number == ProductProperties::nameId) {
            static_cast<ObjectRecord&>(part).name = value.to_wstring();
            return;
        }
        std::erase_if(part.properties, [&](const auto& held) { return held.first == number; });
        if (isUse || !value.IsEmpty())
            part.properties.emplace_back(number, std::move(value));
    }

    const ProductModel& m_present;
    GoneParts m_gone;
    ProductModel m_model;
    const ProductModel m_fresh;
    const SourceMatch m_match;
    FreeKeys m_freeKeys;
    /// Of the model's objects in `objectsBelow`.
    std::unordered_map<UniqueMetaObjectKey, std::size_t> m_places;
    SourceMatch::Keys m_keys;
    /// Present objects that came from the file.
    Keys m_imported;
    Keys m_changed;
    std::unordered_map<UniqueMetaObjectKey, int> m_kindsBefore;
    /// By assembly and object.
    std::unordered_map<UniqueMetaObjectKey,
                       std::unordered_map<UniqueMetaObjectKey, std::vector<DeletedHere>>>
        m_deleted;
};

} // namespace

SourceUpdate UpdateFromSource(const ProductModel& present, const ProductModel& fresh,
                              GoneParts gone) {
    return Updating(present, fresh, gone).Make();
}

} // namespace platform
