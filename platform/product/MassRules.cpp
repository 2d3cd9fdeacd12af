#include "platform/product/MassRules.h"

#include "platform/product/PropertyNumbers.h"

#include <algorithm>
#include <cmath>
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

PropValue MassOf(double volume, const PropValue& density) {
    const double mass = volume * density.to_double();
    return density.IsEmpty() || !std::isfinite(mass) ? PropValue() : PropValue(SimplePropVal(mass));
}

void ApplyVolume(ObjectRecord& object, double volume) {
    object.volume = volume;
    const auto* const density = FindValue(object, number::density);
    const PropValue mass = density ? MassOf(volume, density->second) : PropValue();
    if (mass.IsEmpty())
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
        const Slot density{part, number::density};
        const bool isLinked = !part->isUse && shown.FindLink(density);
        const std::optional<Slot> end = isLinked ? shown.Follow(density) : std::nullopt;
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
    return model.objects.empty() || !std::isfinite(sum) ? std::nullopt : std::optional(sum);
}

} // namespace

void ApplyVolumes(ProductModel& model, const PartVolumes& volumes) {
    const std::unordered_map<UniqueMetaObjectKey, double> byKey(volumes.begin(), volumes.end());
    const auto apply = [&](ObjectRecord& object) {
        const auto volume = byKey.find(object.key);
        if (volume != byKey.end() && std::isfinite(volume->second) && volume->second > 0)
            ApplyVolume(object, volume->second);
    };
    apply(model.root);
    std::ranges::for_each(model.objects, apply);
}

std::vector<HeldValue> FindMassesByDensity(ModelEditor& editor) {
    std::vector<HeldValue> masses;
    for (const UniqueMetaObjectKey& key : FindLighterAndHeavier(editor)) {
        const PartEntry* const part = editor.GetIndex().Find(key);
        if (!part || part->isUse || !part->object->record->volume || editor.IsMassChanged(key))
            continue;
        const ShownValues shown(editor.GetIndex());
        const Slot mass{part, number::mass};
        const PropValue wanted =
            MassOf(*part->object->record->volume, shown.Get(*part, number::density));
        // Also a mass that stays belongs to the step: the way back must not work it out anew.
        if (shown.FindLink(mass))
            continue;
        masses.push_back({key, number::mass,
                          wanted.IsEmpty() ? std::nullopt : std::optional(wanted),
                          PartPlace::none});
    }
    return masses;
}

std::vector<HeldValue> FindProductMass(ModelEditor& editor) {
    const ProductModel& model = editor.GetModel();
    const bool mayBeOther = editor.AreMassesChanged() || editor.GetIndex().GetLinkCount() > 0;
    if (!model.root.sumsPartMasses || !mayBeOther)
        return {};
    const ProductIndex& index = editor.GetIndex();
    const Slot mass{&index.GetRoot(), number::mass};
    const std::optional<double> sum = SumPartMasses(model, index);
    const std::optional<PropValue> wanted =
        sum ? std::optional(PropValue(SimplePropVal(*sum))) : std::nullopt;
    if (ShownValues(index).GetHeld(mass) == wanted)
        return {};
    return {{model.root.key, number::mass, wanted, PartPlace::none}};
}

} // namespace platform
