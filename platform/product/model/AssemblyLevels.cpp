#include "platform/product/model/AssemblyLevels.h"

#include "platform/product/model/PropertyNumbers.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>
#include <utility>

namespace platform {

namespace {

using Keys = std::unordered_set<UniqueMetaObjectKey>;
using Records = std::vector<ObjectRecord>;

template <class Entry, class IsIt>
void SwapEntries(std::vector<Entry>& a, std::vector<Entry>& b, const IsIt& isIt) {
    std::vector<Entry> fromB;
    const auto move = [&](std::vector<Entry>& from, std::vector<Entry>& to) {
        const auto gone = std::stable_partition(from.begin(), from.end(), std::not_fn(isIt));
        to.insert(to.end(), std::make_move_iterator(gone), std::make_move_iterator(from.end()));
        from.erase(gone, from.end());
    };
    move(b, fromB);
    move(a, b);
    move(fromB, a);
}

/// The standings of two records of one object change places.
void SwapStanding(ObjectRecord& a, ObjectRecord& b) {
    std::swap(a.groupKey, b.groupKey);
    a.counts.swap(b.counts);
    a.parents.swap(b.parents);
    a.owners.swap(b.owners);
    std::swap(a.billet, b.billet);
    std::swap(a.billetOwner, b.billetOwner);
    a.occurrences.swap(b.occurrences);
    SwapEntries(a.properties, b.properties,
                [](const auto& value) { return value.first == number::position; });
    SwapEntries(a.links, b.links,
                [](const LinkRecord& link) { return link.property == number::position; });
}

/// The object's standing, which the object has no more then.
ObjectRecord TakeStanding(ObjectRecord& object) {
    ObjectRecord standing;
    standing.key = object.key;
    SwapStanding(object, standing);
    return standing;
}

AssemblyRecord* FindAssembly(ProductModel& model, const UniqueMetaObjectKey& object) {
    const auto found = std::ranges::find(model.assemblies, object, &AssemblyRecord::object);
    return found == model.assemblies.end() ? nullptr : &*found;
}

/// Uses in the list of all parts are worked out each time; what they have of their own stays.
void KeepWhatIsOwn(Records& parts) {
    for (ObjectRecord& part : parts)
        std::erase_if(part.occurrences, std::not_fn(HasOwn));
    std::erase_if(parts, [](const ObjectRecord& part) {
        ObjectRecord plain;
        plain.key = part.key;
        return part == plain;
    });
}

void PutBack(ProductModel& model) {
    AssemblyRecord& shown = *FindAssembly(model, model.level.assembly);
    Records& list = model.level.allParts ? shown.allParts : shown.components;
    list.clear();
    for (ObjectRecord& object : model.objects) {
        list.push_back(TakeStanding(object));
        model.objectsBelow.push_back(std::move(object));
    }
    model.objects.clear();
    if (model.level.allParts)
        KeepWhatIsOwn(list);
    if (!(model.level.assembly == GetHome(model).assembly))
        std::swap(shown.sectionAbove, model.root.section);
    model.objectsBelow.push_back(std::exchange(model.root, {}));
}

std::size_t CountShownUses(const ObjectRecord& component) {
    return static_cast<std::size_t>(
        std::ranges::count_if(component.occurrences, &OccurrenceRecord::isShown));
}

/// The uses of a part of which so many stand below an assembly.
std::vector<OccurrenceRecord> MakeUses(const ObjectRecord& part, std::size_t count,
                                       std::vector<OccurrenceRecord> own) {
    std::unordered_map<UniqueMetaObjectKey, OccurrenceRecord*> known;
    for (OccurrenceRecord& use : own)
        known.emplace(use.key, &use);
    OccurrenceRecord plain;
    static_cast<PartRecord&>(plain) = part;
    plain.properties.clear();
    plain.links.clear();
    plain.counts.clear();
    plain.groupKey = {};
    std::vector<OccurrenceRecord> uses;
    uses.reserve(count);
    for (std::size_t i = 1; i <= count; ++i) {
        plain.key = UniqueMetaObjectKey(part.key.String() + '*' + std::to_string(i));
        const auto found = known.find(plain.key);
        uses.push_back(found == known.end() ? plain : std::move(*found->second));
    }
    return uses;
}

/// The parts at the ends of the structure below an assembly in the order in which they are met, and
/// how often each is used there.
class PartsBelow {
public:
    PartsBelow(const ProductModel& model, const UniqueMetaObjectKey& top) {
        std::unordered_map<UniqueMetaObjectKey, std::size_t> users;
        users[top] = 1;
        const std::vector<const AssemblyRecord*> order = SortAssemblies(model, top);
        Keys assemblies;
        for (const AssemblyRecord& assembly : model.assemblies)
            assemblies.insert(assembly.object);
        for (const AssemblyRecord* const user : order) {
            const std::size_t times = users[user->object];
            for (const ObjectRecord& component : GetComponents(model, *user)) {
                const std::size_t uses = Times(times, CountShownUses(component));
                // An object without uses stands by itself, but for billets, which are no parts.
                const bool isAlone =
                    component.occurrences.empty() && component.billet == BilletKind::None;
                if (uses == 0 && !isAlone)
                    continue;
                if (assemblies.contains(component.key)) {
                    std::size_t& sum = users[component.key];
                    sum = std::min(sum + uses, c_tooMany);
                    continue;
                }
                const auto [place, isNew] = m_places.try_emplace(component.key, m_parts.size());
                if (isNew)
                    m_parts.emplace_back(component.key, 0);
                std::size_t& sum = m_parts[place->second].second;
                sum = std::min(sum + uses, c_tooMany);
                m_total = std::min(m_total + uses, c_tooMany);
            }
        }
    }

    bool AreTooMany() const { return m_total == c_tooMany; }
    const std::vector<std::pair<UniqueMetaObjectKey, std::size_t>>& Get() const { return m_parts; }

private:
    static constexpr std::size_t c_tooMany = c_mostParts + 1;

    static std::size_t Times(std::size_t a, std::size_t b) {
        return b != 0 && a > c_tooMany / b ? c_tooMany : std::min(a * b, c_tooMany);
    }

    std::vector<std::pair<UniqueMetaObjectKey, std::size_t>> m_parts;
    std::unordered_map<UniqueMetaObjectKey, std::size_t> m_places;
    std::size_t m_total = 0;
};

/// The records in `objectsBelow`, each of which can be taken out once.
class BelowPool {
public:
    explicit BelowPool(ProductModel& model) : m_records(model.objectsBelow) {
        for (std::size_t i = 0; i < m_records.size(); ++i)
            m_places.emplace(m_records[i].key, i);
    }
    ~BelowPool() {
        std::erase_if(m_records, [](const ObjectRecord& record) { return record.key.IsEmpty(); });
    }
    BelowPool(const BelowPool&) = delete;
    BelowPool& operator=(const BelowPool&) = delete;

    std::optional<ObjectRecord> Take(const UniqueMetaObjectKey& key) {
        const auto place = m_places.find(key);
        if (place == m_places.end())
            return std::nullopt;
        ObjectRecord record = std::exchange(m_records[place->second], {});
        m_places.erase(place);
        return record;
    }

private:
    Records& m_records;
    std::unordered_map<UniqueMetaObjectKey, std::size_t> m_places;
};

void TakeOutParts(ProductModel& model, AssemblyRecord& shown, BelowPool& pool,
                  const PartsBelow& parts) {
    std::unordered_map<UniqueMetaObjectKey, ObjectRecord> own;
    for (ObjectRecord& standing : std::exchange(shown.allParts, {}))
        own.emplace(standing.key, std::move(standing));
    for (const auto& [key, count] : parts.Get()) {
        std::optional<ObjectRecord> object = pool.Take(key);
        if (!object)
            continue;
        if (const auto standing = own.find(key); standing != own.end())
            SwapStanding(*object, standing->second);
        object->occurrences = MakeUses(*object, count, std::move(object->occurrences));
        model.objects.push_back(std::move(*object));
    }
}

} // namespace

const std::vector<ObjectRecord>& GetComponents(const ProductModel& model,
                                               const AssemblyRecord& assembly) {
    const bool isShown = !model.level.allParts && model.level.assembly == assembly.object;
    return isShown ? model.objects : assembly.components;
}

bool OpensLevel(const ProductModel& model, const UniqueMetaObjectKey& object) {
    return std::ranges::find(model.assemblies, object, &AssemblyRecord::object) !=
           model.assemblies.end();
}

ProductLevel GetHome(const ProductModel& model) {
    return HasLevels(model) ? ProductLevel{model.assemblies.front().object, false} : ProductLevel();
}

void TakeOut(ProductModel& model, const ProductLevel& level) {
    AssemblyRecord& shown = *FindAssembly(model, level.assembly);
    model.level = {};
    std::optional<PartsBelow> parts;
    if (level.allParts)
        parts.emplace(model, level.assembly);
    BelowPool pool(model);
    model.root = pool.Take(level.assembly).value_or(ObjectRecord());
    if (!(level.assembly == GetHome(model).assembly))
        std::swap(shown.sectionAbove, model.root.section);
    if (parts) {
        TakeOutParts(model, shown, pool, *parts);
    } else {
        for (ObjectRecord& standing : std::exchange(shown.components, {})) {
            if (std::optional<ObjectRecord> object = pool.Take(standing.key)) {
                SwapStanding(*object, standing);
                model.objects.push_back(std::move(*object));
            }
        }
    }
    model.level = level;
}

LevelFault EnterLevel(ProductModel& model, const ProductLevel& level) {
    if (!HasLevels(model) || !FindAssembly(model, level.assembly))
        return LevelFault::Missing;
    if (level == model.level)
        return LevelFault::None;
    if (level.allParts && PartsBelow(model, level.assembly).AreTooMany())
        return LevelFault::TooManyParts;
    PutBack(model);
    TakeOut(model, level);
    return LevelFault::None;
}

namespace {

/// At the home.
void DropUnused(ProductModel& model) {
    Keys used;
    for (const AssemblyRecord* const assembly : SortAssemblies(model, model.root.key)) {
        used.insert(assembly->object);
        for (const ObjectRecord& component : GetComponents(model, *assembly))
            used.insert(component.key);
    }
    std::erase_if(model.assemblies,
                  [&](const AssemblyRecord& assembly) { return !used.contains(assembly.object); });
    const auto isUnused = [&](const ObjectRecord& object) { return !used.contains(object.key); };
    std::erase_if(model.objectsBelow, isUnused);
    for (AssemblyRecord& assembly : model.assemblies)
        std::erase_if(assembly.allParts, isUnused);
}

} // namespace

void PutAllBack(ProductModel& model) {
    if (!HasLevels(model)) {
        model.assemblies.push_back({model.root.key, {}, {}, {}});
        model.level = {model.root.key, false};
    }
    EnterLevel(model, GetHome(model));
    PutBack(model);
    model.level = {};
}

void TakeAllOut(ProductModel& model) {
    TakeOut(model, GetHome(model));
    DropUnused(model);
    // Without assemblies in it there is one level, and nothing to be told of it.
    if (model.assemblies.size() == 1) {
        model.assemblies.clear();
        model.level = {};
    }
}

ProductModel MakeSaved(const ProductModel& model) {
    ProductModel saved = model;
    if (!HasLevels(saved))
        return saved;
    EnterLevel(saved, GetHome(saved));
    DropUnused(saved);
    const auto forgetSum = [](ObjectRecord& object) {
        if (object.sumsPartMasses)
            std::erase_if(object.properties,
                          [](const auto& value) { return value.first == number::mass; });
    };
    forgetSum(saved.root);
    std::ranges::for_each(saved.objects, forgetSum);
    std::ranges::for_each(saved.objectsBelow, forgetSum);
    return saved;
}

namespace {

/// Visits assemblies depth first without recursion, since a file can nest as deep as it likes.
class AssemblyWalk {
public:
    explicit AssemblyWalk(const ProductModel& model)
        : m_model(model), m_states(model.assemblies.size(), State::New) {
        for (std::size_t i = 0; i < model.assemblies.size(); ++i)
            m_places.emplace(model.assemblies[i].object, i);
    }

    void Visit(const UniqueMetaObjectKey& top) {
        Enter(top);
        while (!m_path.empty()) {
            auto& [assembly, next] = m_path.back();
            const Records& components = GetComponents(m_model, m_model.assemblies[assembly]);
            if (next < components.size()) {
                Enter(components[next++].key);
                continue;
            }
            m_states[assembly] = State::Closed;
            m_finished.push_back(&m_model.assemblies[assembly]);
            m_path.pop_back();
        }
    }

    /// Users after what they use.
    std::vector<const AssemblyRecord*>& GetFinished() { return m_finished; }
    const AssemblyRecord* GetCulprit() const { return m_culprit; }

private:
    enum class State : char { New, Open, Closed };

    void Enter(const UniqueMetaObjectKey& object) {
        const auto place = m_places.find(object);
        if (place == m_places.end() || m_states[place->second] == State::Closed)
            return;
        if (m_states[place->second] == State::Open) {
            m_culprit = &m_model.assemblies[place->second];
            return;
        }
        m_states[place->second] = State::Open;
        m_path.emplace_back(place->second, 0);
    }

    const ProductModel& m_model;
    std::unordered_map<UniqueMetaObjectKey, std::size_t> m_places;
    std::vector<State> m_states;
    std::vector<std::pair<std::size_t, std::size_t>> m_path;
    std::vector<const AssemblyRecord*> m_finished;
    const AssemblyRecord* m_culprit = nullptr;
};

} // namespace

std::vector<const AssemblyRecord*> SortAssemblies(const ProductModel& model,
                                                  const UniqueMetaObjectKey& top) {
    AssemblyWalk walk(model);
    walk.Visit(top);
    std::ranges::reverse(walk.GetFinished());
    return std::move(walk.GetFinished());
}

bool IsInProduct(const ProductModel& model, const UniqueMetaObjectKey& assembly) {
    return HasLevels(model) && std::ranges::any_of(SortAssemblies(model, GetHome(model).assembly),
                                                   [&](const AssemblyRecord* known) {
                                                       return known->object == assembly;
                                                   });
}

UniqueMetaObjectKey FindUser(const ProductModel& model, const UniqueMetaObjectKey& top,
                             const UniqueMetaObjectKey& object) {
    for (const AssemblyRecord* const assembly : SortAssemblies(model, top)) {
        const Records& components = GetComponents(model, *assembly);
        if (std::ranges::find(components, object, &ObjectRecord::key) != components.end())
            return assembly->object;
    }
    return {};
}

const AssemblyRecord* FindAssemblyCycle(const ProductModel& model) {
    AssemblyWalk walk(model);
    for (const AssemblyRecord& assembly : model.assemblies)
        walk.Visit(assembly.object);
    return walk.GetCulprit();
}

void KeepBelow(ProductModel& model, const std::vector<const ObjectRecord*>& gone) {
    Keys used;
    for (const AssemblyRecord& assembly : model.assemblies) {
        if (&GetComponents(model, assembly) != &assembly.components)
            continue;
        for (const ObjectRecord& component : assembly.components)
            used.insert(component.key);
    }
    for (const ObjectRecord* const object : gone) {
        if (!used.contains(object->key))
            continue;
        ObjectRecord kept = *object;
        TakeStanding(kept);
        model.objectsBelow.push_back(std::move(kept));
    }
}

void TakeFromBelow(ProductModel& model, const std::vector<UniqueMetaObjectKey>& back) {
    const Keys keys(back.begin(), back.end());
    BelowPool pool(model);
    for (ObjectRecord& object : model.objects) {
        if (!keys.contains(object.key))
            continue;
        if (std::optional<ObjectRecord> kept = pool.Take(object.key)) {
            SwapStanding(*kept, object);
            object = std::move(*kept);
        }
    }
}

} // namespace platform
