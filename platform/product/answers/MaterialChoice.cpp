#include "platform/product/answers/MaterialChoice.h"

#include "platform/product/answers/UserWords.h"
#include "platform/product/edits/MassRules.h"
#include "platform/product/model/AssemblyLevels.h"
#include "platform/product/model/ValueFitting.h"

#include <algorithm>
#include <map>
#include <set>
#include <unordered_set>

namespace platform {

namespace {

constexpr std::array c_numbers{number::material, number::density, number::mass};

bool IsSum(const ProductModel& model, const PartEntry& object) {
    return object.object->record->sumsPartMasses &&
           (object.isRoot || OpensLevel(model, object.key));
}

std::optional<double> VolumeOf(const PartEntry& object) {
    return object.object->record->volume;
}

PropValue ToStored(const PropertyRecord& record, std::optional<double> shown) {
    return shown ? PropValue(SimplePropVal(Rounded(*shown / CoefficientOf(record)))) : PropValue();
}

double ToShown(const PropertyRecord& record, const PropValue& stored) {
    return Rounded(stored.to_double() * CoefficientOf(record));
}

} // namespace

/// What the step will be made of, and what is to be said of it.
class MaterialChoice::Draft {
public:
    explicit Draft(const EditRules& rules) : m_rules(rules), m_plan(rules.index) {}

    /// False for a value that does not fit.
    bool Set(const PartEntry& object, unsigned long number, const PropValue& value) {
        const std::optional<PropValue> before = m_plan.GetHeld({&object, number});
        if (!ValueChange(object.key, number, value).Plan(m_rules, m_plan))
            return false;
        if (m_plan.GetHeld({&object, number}) != before)
            Note(object, number);
        else if (number == number::mass)
            m_kept.push_back({object.key, number, before, PartPlace::none});
        return true;
    }
    void Note(const PartEntry& object, unsigned long number) {
        m_changed.insert(number);
        m_objects.insert(&object);
    }
    std::optional<ProductText> GetRefusal() const { return m_plan.GetRefusal(); }
    PropValue GetHeld(const PartEntry& object, unsigned long number) const {
        return m_plan.GetHeld({&object, number}).value_or(PropValue());
    }

    const std::set<unsigned long>& GetChanged() const { return m_changed; }
    Step MakeStep(ProductText one, ProductText several, const SharedText& what) const {
        Step step;
        step.edits = m_plan.MakeEdits();
        if (m_objects.empty())
            return step;
        // A mass that stays is said, too: it would be worked out from a density that is new.
        if (!m_kept.empty())
            step.edits.push_back(std::make_unique<ValuesEdit>(m_kept));
        const SharedText name = NameOf(ShownValues(m_rules.index), **m_objects.begin());
        if (m_objects.size() > 1)
            step.name = GetText(several, {what, std::to_wstring(m_objects.size())});
        else if (name.IsEmpty())
            step.name = GetText(ProductText::Change, {what});
        else
            step.name = GetText(one, {what, name});
        return step;
    }

private:
    const EditRules& m_rules;
    ValuePlan m_plan;
    std::vector<HeldValue> m_kept;
    std::set<unsigned long> m_changed;
    std::unordered_set<const PartEntry*> m_objects;
};

MaterialChoice::MaterialChoice(const EditRules& rules,
                               const std::vector<UniqueMetaObjectKey>& parts)
    : m_rules(rules), m_shown(rules.index) {
    std::unordered_set<const PartEntry*> known;
    for (const UniqueMetaObjectKey& key : parts) {
        const PartEntry* const part = rules.index.Find(key);
        if (part && known.insert(part->owner).second)
            m_objects.push_back(part->owner);
    }
}

std::optional<ProductText> MaterialChoice::FindObstacle(const PartEntry& object,
                                                        unsigned long number) const {
    if (m_rules.model.isReadOnly)
        return ProductText::UpdateReadOnly;
    if (number == number::mass && IsSum(m_rules.model, object))
        return ProductText::RefusedSum;
    if (m_shown.FindLink({&object, number}))
        return ProductText::RefusedLinked;
    if (m_rules.IsFixed(object, number))
        return ProductText::RefusedFixed;
    return std::nullopt;
}

std::optional<ProductText> MaterialChoice::FindObstacle(unsigned long number) const {
    if (m_objects.empty())
        return ProductText::RefusedNoObjects;
    return ListFree(number).empty() ? FindObstacle(*m_objects.front(), number) : std::nullopt;
}

std::optional<ProductText> MaterialChoice::FindRefusal() const {
    const auto isFixed = [&](unsigned long number) { return FindObstacle(number).has_value(); };
    return std::ranges::all_of(c_numbers, isFixed) ? FindObstacle(number::material) : std::nullopt;
}

MaterialChoice::Objects MaterialChoice::ListFree(unsigned long number) const {
    Objects free;
    std::ranges::copy_if(m_objects, std::back_inserter(free), [&](const PartEntry* object) {
        return !FindObstacle(*object, number).has_value();
    });
    return free;
}

PropValue MaterialChoice::Get(const PartEntry& object, unsigned long number) const {
    return m_shown.Get(object, number);
}

std::optional<PropValue> MaterialChoice::FindCommon(unsigned long number) const {
    std::optional<PropValue> common;
    for (const PartEntry* const object : m_objects) {
        PropValue value = Get(*object, number);
        if (common && !(*common == value))
            return std::nullopt;
        common = std::move(value);
    }
    return common;
}

SharedText MaterialChoice::CaptionOf(unsigned long number) const {
    const PropertyRecord* const record = m_rules.properties.Get(number).record;
    return record ? SharedText(record->caption) : SharedText();
}

MaterialRequest MaterialChoice::MakeRequest() const {
    MaterialRequest request;
    request.objectCount = m_objects.size();
    const SharedText caption = CaptionOf(number::material);
    const SharedText name = m_objects.empty() ? SharedText() : NameOf(m_shown, *m_objects.front());
    if (m_objects.size() > 1)
        request.title =
            GetText(ProductText::MaterialOfSeveral, {caption, std::to_wstring(m_objects.size())});
    else
        request.title =
            name.IsEmpty() ? caption : GetText(ProductText::MaterialOf, {caption, name});
    const std::optional<PropValue> material = FindCommon(number::material);
    request.material.isMixed = !material;
    request.materialName = material ? material->to_wstring() : SharedText();
    if (const std::optional<ProductText> obstacle = FindObstacle(number::material))
        request.material.fixed = GetText(*obstacle);
    Fill(request.density, number::density);
    Fill(request.mass, number::mass);
    FillVolumes(request);
    for (const unsigned long number : c_numbers)
        std::ranges::move(MakeNotes(number), std::back_inserter(request.notes));
    request.fromFile = ListMaterials();
    return request;
}

void MaterialChoice::Fill(MaterialRequest::Number& field, unsigned long number) const {
    if (const std::optional<ProductText> obstacle = FindObstacle(number))
        field.fixed = GetText(*obstacle);
    const PropertyRecord* const record = m_rules.properties.Get(number).record;
    if (!record)
        return;
    const std::optional<PropValue> common = FindCommon(number);
    field.isMixed = !common;
    if (common && !common->IsEmpty())
        field.value = ToShown(*record, *common);
    field.unit = UnitOf(*record);
    field.coefficient = CoefficientOf(*record);
    if (record->isVariable || (record->min == 0 && record->max == 0))
        return;
    field.min = record->min * field.coefficient;
    field.max = record->max * field.coefficient;
}

void MaterialChoice::FillVolumes(MaterialRequest& request) const {
    const Objects weighed = ListFree(number::mass);
    const auto known = std::ranges::count_if(
        weighed, [](const PartEntry* object) { return VolumeOf(*object).has_value(); });
    if (known == 0)
        return;
    const bool isKnownOfAll = static_cast<std::size_t>(known) == weighed.size();
    request.volumes = isKnownOfAll ? MaterialRequest::Volumes::All : MaterialRequest::Volumes::Some;
    const std::optional<double> first = VolumeOf(*weighed.front());
    const auto isFirst = [&](const PartEntry* object) { return VolumeOf(*object) == first; };
    if (std::ranges::all_of(weighed, isFirst))
        request.volume = first;
}

std::vector<SharedText> MaterialChoice::MakeNotes(unsigned long number) const {
    std::map<ProductText, std::size_t> obstacles;
    std::size_t count = 0;
    for (const PartEntry* const object : m_objects) {
        if (const std::optional<ProductText> obstacle = FindObstacle(*object, number)) {
            ++obstacles[*obstacle];
            ++count;
        }
    }
    std::vector<SharedText> notes;
    // What nobody can change is said where it stands.
    if (count == m_objects.size())
        return notes;
    for (const auto& [obstacle, objects] : obstacles)
        notes.push_back(GetText(ProductText::MaterialKept,
                                {CaptionOf(number), std::to_wstring(objects),
                                 std::to_wstring(m_objects.size()), GetText(obstacle)}));
    return notes;
}

std::vector<MaterialRequest::Material> MaterialChoice::ListMaterials() const {
    std::set<std::pair<std::wstring, std::optional<double>>> found;
    const PropertyRecord* const record = m_rules.properties.Get(number::density).record;
    const auto add = [&](const PropValue& material, const PropValue& density) {
        const bool hasDensity = record && !density.IsEmpty();
        if (!material.IsEmpty())
            found.emplace(material.to_wstring().Str(),
                          hasDensity ? std::optional(ToShown(*record, density)) : std::nullopt);
    };
    add(Get(m_rules.index.GetRoot(), number::material),
        Get(m_rules.index.GetRoot(), number::density));
    for (const PartEntry& object : m_rules.index.GetObjects())
        add(Get(object, number::material), Get(object, number::density));
    for (const ObjectRecord& object : m_rules.model.objectsBelow) {
        const auto held = [&](unsigned long number) {
            const auto value =
                std::ranges::find(object.properties, number, &PropertyValues::value_type::first);
            return value == object.properties.end() ? PropValue() : value->second;
        };
        add(held(number::material), held(number::density));
    }
    std::vector<MaterialRequest::Material> materials;
    materials.reserve(found.size());
    for (const auto& [name, density] : found)
        materials.push_back({SharedText(name), density});
    return materials;
}

std::optional<Step> MaterialChoice::MakeStep(const MaterialDecision& decision) {
    Draft draft(m_rules);
    const auto setAll = [&](unsigned long number, const PropValue& value) {
        return std::ranges::all_of(ListFree(number), [&](const PartEntry* object) {
            return draft.Set(*object, number, value);
        });
    };
    const PropertyRecord* const density = m_rules.properties.Get(number::density).record;
    const bool isTaken =
        (!decision.name || setAll(number::material, PropValue(SimplePropVal(*decision.name)))) &&
        (!decision.density || !density ||
         setAll(number::density, ToStored(*density, *decision.density))) &&
        WeighAnew(decision, draft);
    if (!isTaken) {
        m_refused = draft.GetRefusal().value_or(ProductText::RefusedValue);
        return std::nullopt;
    }
    unsigned long what = number::material;
    if (!decision.name && decision.density.has_value() != decision.mass.has_value())
        what = decision.density ? number::density : number::mass;
    return draft.MakeStep(ProductText::MaterialOf, ProductText::MaterialOfSeveral, CaptionOf(what));
}

bool MaterialChoice::WeighAnew(const MaterialDecision& decision, Draft& draft) const {
    const PropertyRecord* const record = m_rules.properties.Get(number::mass).record;
    const bool isTyped = decision.mass && *decision.mass;
    const bool isAnyOther = decision.mass || (decision.density && *decision.density);
    if (!record || !isAnyOther)
        return true;
    for (const PartEntry* const object : ListFree(number::mass)) {
        PropValue mass = isTyped ? ToStored(*record, *decision.mass) : PropValue();
        if (const std::optional<double> volume = VolumeOf(*object); !isTyped && volume) {
            const bool isLinked = m_shown.FindLink({object, number::density}) != nullptr;
            mass = MakeMass(*volume, isLinked ? Get(*object, number::density)
                                              : draft.GetHeld(*object, number::density));
        }
        // A chosen density says nothing of an object without a volume.
        const bool isSaid = decision.mass || !mass.IsEmpty();
        if (isSaid && !draft.Set(*object, number::mass, mass))
            return false;
    }
    return true;
}

std::optional<Step> MaterialChoice::MakeRemoval() {
    Draft draft(m_rules);
    m_refused = m_objects.empty() ? ProductText::RefusedNoObjects : ProductText::RefusedNoMaterial;
    for (const PartEntry* const object : m_objects) {
        if (Get(*object, number::material).IsEmpty())
            continue;
        if (const std::optional<ProductText> obstacle = FindObstacle(*object, number::material)) {
            m_refused = obstacle;
            continue;
        }
        static_cast<void>(draft.Set(*object, number::material, {}));
        const bool hasDensity = !Get(*object, number::density).IsEmpty();
        if (!hasDensity || FindObstacle(*object, number::density))
            continue;
        static_cast<void>(draft.Set(*object, number::density, {}));
        // It goes with the density.
        const bool hasMass = !Get(*object, number::mass).IsEmpty();
        if (VolumeOf(*object) && hasMass && !FindObstacle(*object, number::mass))
            draft.Note(*object, number::mass);
    }
    std::vector<SharedText> what;
    for (const unsigned long number : draft.GetChanged())
        what.push_back(CaptionOf(number));
    if (what.empty())
        return std::nullopt;
    if (what.size() == 2)
        what = {GetText(ProductText::MaterialAnd, what)};
    else if (what.size() == 3)
        what = {GetText(ProductText::MaterialList, what)};
    return draft.MakeStep(ProductText::MaterialRemoval, ProductText::MaterialRemovals,
                          what.front());
}

} // namespace platform
