#include "platform/product/edits/SourceReport.h"

#include "platform/product/model/AssemblyLevels.h"
#include "platform/product/model/SourceProduct.h"

#include <algorithm>
#include <utility>

namespace platform {

namespace {

using Keys = std::unordered_set<UniqueMetaObjectKey>;

/// What stands in which assembly of a model.
class Standings {
public:
    struct Entry {
        UniqueMetaObjectKey assembly;
        const ObjectRecord* component;
    };

    explicit Standings(const ProductModel& model) : m_model(model) {
        if (HasLevels(model)) {
            for (const AssemblyRecord* const assembly : SortAssemblies(model, model.root.key))
                Add(assembly->object, GetComponents(model, *assembly));
        } else {
            Add(model.root.key, model.objects);
        }
        m_objects.emplace(model.root.key, &model.root);
        for (const auto* const list : {&model.objects, &model.objectsBelow}) {
            for (const ObjectRecord& object : *list)
                m_objects.emplace(object.key, &object);
        }
    }

    const std::vector<Entry>& Get() const { return m_entries; }
    const ObjectRecord* Find(const UniqueMetaObjectKey& assembly,
                             const UniqueMetaObjectKey& object) const {
        const auto components = m_components.find(assembly);
        if (components == m_components.end())
            return nullptr;
        const auto found = components->second.find(object);
        return found == components->second.end() ? nullptr : found->second;
    }
    bool Has(const UniqueMetaObjectKey& object) const { return m_objects.contains(object); }
    SharedText GetTitle(const UniqueMetaObjectKey& object) const {
        const auto found = m_objects.find(object);
        return found == m_objects.end() ? SharedText() : TitleOf(*found->second);
    }

private:
    using Components = std::unordered_map<UniqueMetaObjectKey, const ObjectRecord*>;

    void Add(const UniqueMetaObjectKey& assembly, const std::vector<ObjectRecord>& components) {
        for (const ObjectRecord& component : components) {
            m_entries.push_back({assembly, &component});
            m_components[assembly].emplace(component.key, &component);
        }
    }

    const ProductModel& m_model;
    std::vector<Entry> m_entries;
    std::unordered_map<UniqueMetaObjectKey, Components> m_components;
    Components m_objects;
};

std::size_t CountLostUses(const ObjectRecord& before, const ObjectRecord& after) {
    Keys left;
    for (const OccurrenceRecord& use : after.occurrences)
        left.insert(use.key);
    return static_cast<std::size_t>(
        std::ranges::count_if(before.occurrences, [&](const OccurrenceRecord& use) {
            return HasOwn(use) && !left.contains(use.key);
        }));
}

} // namespace

void Report(const ProductModel& before, std::unordered_set<UniqueMetaObjectKey> changed,
            SourceUpdate& update) {
    const Standings present(before);
    const Standings updated(update.model);
    Keys gone;
    for (const auto& [assembly, component] : present.Get()) {
        const UniqueMetaObjectKey& key = component->key;
        const ObjectRecord* const now = updated.Find(assembly, key);
        if (now) {
            if (const std::size_t lost = CountLostUses(*component, *now))
                update.gone.push_back({present.GetTitle(key), present.GetTitle(assembly), lost});
            if (component->occurrences.size() != now->occurrences.size())
                changed.insert(key);
        } else if (!updated.Has(key)) {
            if (gone.insert(key).second)
                update.gone.push_back({present.GetTitle(key), {}, 0});
        } else if (updated.Has(assembly)) {
            update.gone.push_back({present.GetTitle(key), present.GetTitle(assembly), 0});
        }
    }
    for (const auto& [assembly, component] : updated.Get())
        update.newParts += present.Find(assembly, component->key) ? 0 : 1;
    update.changedParts = static_cast<std::size_t>(std::ranges::count_if(
        changed, [&](const UniqueMetaObjectKey& key) { return updated.Has(key); }));
}

} // namespace platform
