#include "platform/product/edits/MassRules.h"

#include "platform/product/model/AssemblyLevels.h"
#include "platform/product/model/PropertyNumbers.h"
#include "platform/product/model/ValueFitting.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <unordered_map>
#include <unordered_set>

namespace platform {

namespace {

using Keys = std::unordered_set<UniqueMetaObjectKey>;

PropertyValues::value_type* FindValue(ObjectRecord& object, unsigned long number) {
    const auto found =
        std::ranges::find(object.properties, number, &PropertyValues::value_type::first);
    return found == object.properties.end() ? nullptr : &*found;
}

/// Older files have masses with all that binary makes of them.
PropValue RoundedMass(const PropValue& mass) {
    return PropValue(SimplePropVal(Rounded(mass.to_double())));
}

void ApplyVolume(ObjectRecord& object, double volume) {
    const auto* const density = FindValue(object, number::density);
    const auto* const before = FindValue(object, number::mass);
    const auto massOf = [&](double cubicMetres) {
        return density ? MakeMass(cubicMetres, density->second) : PropValue();
    };
    // A mass that does not follow from the volume was typed, and stays.
    const bool isTyped = before && !before->second.IsEmpty() &&
                         !(object.volume && RoundedMass(before->second) == massOf(*object.volume));
    object.volume = volume;
    const PropValue mass = massOf(volume);
    if (mass.IsEmpty() || isTyped)
        return;
    if (auto* const present = FindValue(object, number::mass))
        present->second = mass;
    else
        object.properties.emplace_back(number::mass, mass);
}

/// The objects whose shown density is another one: those that hold it, and those linked to them.
Keys FindLighterAndHeavier(ModelEditor& editor) {
    const Keys changed(editor.GetDensityChanges().begin(), editor.GetDensityChanges().end());
    if (changed.empty())
        return {};
    Keys keys = changed;
    const ProductIndex& index = editor.GetIndex();
    const ShownValues shown(index);
    for (const PartEntry* const part : index.GetLinkedParts()) {
        const ValueHolder density{part, number::density};
        const bool isLinked = !part->isUse && shown.FindLink(density);
        const std::optional<ValueHolder> end = isLinked ? shown.Follow(density) : std::nullopt;
        if (end && end->number == number::density && changed.contains(end->part->key))
            keys.insert(part->key);
    }
    return keys;
}

std::optional<double> SumPartMasses(const ProductModel& model, const ProductIndex& index) {
    const ShownValues shown(index);
    double sum = 0;
    for (const PartEntry& object : index.GetObjects()) {
        if (object.object->useCount == 0)
            continue;
        const PropValue mass = shown.Get(object, number::mass);
        if (mass.IsEmpty())
            return std::nullopt;
        sum += mass.to_double() * object.object->useCount;
    }
    return model.objects.empty() || !std::isfinite(sum) ? std::nullopt
                                                        : std::optional(Rounded(sum));
}

using Masses = std::unordered_map<UniqueMetaObjectKey, std::optional<double>>;

/// Of all objects below the shown level's root; no value for an assembly of which a part has none.
Masses SumAssemblies(const ProductModel& model) {
    Masses masses;
    const auto note = [&](const ObjectRecord& object) {
        const auto value =
            std::ranges::find(object.properties, number::mass, &PropertyValues::value_type::first);
        const bool hasMass = value != object.properties.end() && !value->second.IsEmpty();
        masses[object.key] = hasMass ? std::optional(value->second.to_double()) : std::nullopt;
    };
    std::ranges::for_each(model.objects, note);
    std::ranges::for_each(model.objectsBelow, note);
    std::unordered_set<UniqueMetaObjectKey> sums;
    const auto noteSum = [&](const ObjectRecord& object) {
        if (object.sumsPartMasses)
            sums.insert(object.key);
    };
    std::ranges::for_each(model.objects, noteSum);
    std::ranges::for_each(model.objectsBelow, noteSum);
    std::vector<const AssemblyRecord*> order = SortAssemblies(model, model.root.key);
    for (auto assembly = order.rbegin(); assembly != order.rend(); ++assembly) {
        if (!sums.contains((*assembly)->object))
            continue;
        std::optional<double> sum;
        for (const ObjectRecord& component : GetComponents(model, **assembly)) {
            if (component.occurrences.empty())
                continue;
            const std::optional<double> mass = masses[component.key];
            if (!mass) {
                sum.reset();
                break;
            }
            sum = sum.value_or(0) + *mass * static_cast<double>(component.occurrences.size());
        }
        const double whole = Rounded(sum.value_or(std::numeric_limits<double>::infinity()));
        masses[(*assembly)->object] = std::isfinite(whole) ? std::optional(whole) : std::nullopt;
    }
    return masses;
}

bool IsSumOfAssembly(const ProductModel& model, const ObjectRecord& object) {
    return object.sumsPartMasses && OpensLevel(model, object.key);
}

/// Goes down to the parts at the ends of the structure.
class MassSearch {
public:
    MassSearch(const ProductModel& model, const ProductIndex& index)
        : m_model(model), m_index(index), m_shown(index) {
        for (const ObjectRecord& object : model.objectsBelow)
            m_below.emplace(object.key, &object);
        for (const AssemblyRecord& assembly : model.assemblies)
            m_assemblies.emplace(assembly.object, &assembly);
    }

    void AddBelow(const ObjectRecord& object) {
        if (&object == &m_model.root || object.key == m_model.root.key) {
            for (const PartEntry& part : m_index.GetObjects()) {
                if (part.object->useCount > 0)
                    Add(*part.object->record);
            }
            return;
        }
        const auto assembly = m_assemblies.find(object.key);
        if (assembly == m_assemblies.end())
            return;
        for (const ObjectRecord& component : GetComponents(m_model, *assembly->second)) {
            if (!component.occurrences.empty())
                AddKey(component.key);
        }
    }
    MassesBelow Take() { return std::move(m_found); }

private:
    void AddKey(const UniqueMetaObjectKey& key) {
        const PartEntry* const part = m_index.Find(key);
        const auto below = m_below.find(key);
        if (part)
            Add(*part->object->record);
        else if (below != m_below.end())
            Add(*below->second);
    }
    void Add(const ObjectRecord& object) {
        if (!m_visited.insert(object.key).second)
            return;
        if (object.sumsPartMasses && m_assemblies.contains(object.key)) {
            AddBelow(object);
            return;
        }
        ++m_found.parts;
        if (!HasMass(object))
            m_found.without.push_back(object.key);
    }
    bool HasMass(const ObjectRecord& object) const {
        if (const PartEntry* const part = m_index.Find(object.key))
            return !m_shown.Get(*part, number::mass).IsEmpty();
        const auto mass =
            std::ranges::find(object.properties, number::mass, &PropertyValues::value_type::first);
        return mass != object.properties.end() && !mass->second.IsEmpty();
    }

    const ProductModel& m_model;
    const ProductIndex& m_index;
    ShownValues m_shown;
    std::unordered_map<UniqueMetaObjectKey, const ObjectRecord*> m_below;
    std::unordered_map<UniqueMetaObjectKey, const AssemblyRecord*> m_assemblies;
    Keys m_visited;
    MassesBelow m_found;
};

} // namespace

PropValue MakeMass(double volume, const PropValue& density) {
    const double mass = Rounded(volume * density.to_double());
    return density.IsEmpty() || !std::isfinite(mass) ? PropValue() : PropValue(SimplePropVal(mass));
}

MassesBelow FindMassesBelow(const ProductModel& model, const ProductIndex& index,
                            const PartEntry& object) {
    const ObjectRecord& record = *object.object->record;
    const bool isSum = object.isRoot ? record.sumsPartMasses : IsSumOfAssembly(model, record);
    if (!isSum)
        return {};
    MassSearch search(model, index);
    search.AddBelow(record);
    return search.Take();
}

void ApplyVolumes(ProductModel& model, const PartVolumes& volumes) {
    const std::unordered_map<UniqueMetaObjectKey, double> byKey(volumes.begin(), volumes.end());
    const auto apply = [&](ObjectRecord& object) {
        const auto volume = byKey.find(object.key);
        if (volume != byKey.end() && std::isfinite(volume->second) && volume->second > 0)
            ApplyVolume(object, volume->second);
    };
    apply(model.root);
    std::ranges::for_each(model.objects, apply);
    std::ranges::for_each(model.objectsBelow, apply);
}

std::vector<HeldValue> FindMassesByDensity(ModelEditor& editor) {
    std::vector<HeldValue> masses;
    for (const UniqueMetaObjectKey& key : FindLighterAndHeavier(editor)) {
        const PartEntry* const part = editor.GetIndex().Find(key);
        if (!part || part->isUse || !part->object->record->volume || editor.IsMassChanged(key))
            continue;
        const ShownValues shown(editor.GetIndex());
        const ValueHolder mass{part, number::mass};
        const PropValue wanted =
            MakeMass(*part->object->record->volume, shown.Get(*part, number::density));
        // Also a mass that stays belongs to the step: the way back must not work it out anew.
        if (shown.FindLink(mass))
            continue;
        masses.push_back({key, number::mass,
                          wanted.IsEmpty() ? std::nullopt : std::optional(wanted),
                          PartPlace::none});
    }
    return masses;
}

std::vector<HeldValue> FindAssemblyMasses(ModelEditor& editor) {
    const ProductModel& model = editor.GetModel();
    const auto isSum = [&](const ObjectRecord& object) { return IsSumOfAssembly(model, object); };
    if (!HasLevels(model) || !editor.AreMassesChanged() ||
        std::ranges::none_of(model.objects, isSum))
        return {};
    const ProductIndex& index = editor.GetIndex();
    const Masses masses = SumAssemblies(model);
    std::vector<HeldValue> found;
    for (const ObjectRecord& object : model.objects) {
        if (!isSum(object))
            continue;
        const auto sum = masses.find(object.key);
        std::optional<PropValue> wanted;
        if (sum != masses.end() && sum->second)
            wanted = PropValue(SimplePropVal(*sum->second));
        if (ShownValues(index).GetHeld({index.Find(object.key), number::mass}) != wanted)
            found.push_back({object.key, number::mass, std::move(wanted), PartPlace::none});
    }
    return found;
}

std::vector<HeldValue> FindProductMass(ModelEditor& editor) {
    const ProductModel& model = editor.GetModel();
    const bool mayBeOther = editor.AreMassesChanged() || editor.GetIndex().AreMassesLinked();
    if (!model.root.sumsPartMasses || !mayBeOther)
        return {};
    const ProductIndex& index = editor.GetIndex();
    const ValueHolder mass{&index.GetRoot(), number::mass};
    const std::optional<double> sum = SumPartMasses(model, index);
    const std::optional<PropValue> wanted =
        sum ? std::optional(PropValue(SimplePropVal(*sum))) : std::nullopt;
    if (ShownValues(index).GetHeld(mass) == wanted)
        return {};
    return {{model.root.key, number::mass, wanted, PartPlace::none}};
}

} // namespace platform
