// Material, density and mass of several objects, chosen together: what the user is to be shown of
// them, and the step that follows from his answer. It asks nobody and writes nothing.
//
// Objects of which a value can't be changed keep it, and so does a mass that is a sum. An object
// with a volume gets its mass from it whenever a density is chosen and no mass typed.
#pragma once

#include "platform/product/edits/EditHistory.h"
#include "platform/product/edits/ProductChanges.h"
#include "platform/services/UserDecisions.h"

#include <array>
#include <vector>

namespace platform {

class MaterialChoice {
public:
    /// The objects of these parts, each of them once. All must stay as they are for as long as this
    /// is used.
    MaterialChoice(const EditRules& rules, const std::vector<UniqueMetaObjectKey>& parts);

    /// Why nothing can be changed for any of the objects; no value: something can.
    std::optional<ProductText> FindRefusal() const;
    MaterialRequest MakeRequest() const;
    /// What the user wants; no value, with a reason in GetRefused, when a property does not take
    /// it. Without edits where all is so already.
    std::optional<Step> MakeStep(const MaterialDecision& decision);
    /// Materials go, and with each of them the density that came with it. No value where there are
    /// none that can go.
    std::optional<Step> MakeRemoval();

    std::optional<ProductText> GetRefused() const { return m_refused; }
    /// What some of the objects keep, a sentence each; here for the materials alone.
    std::vector<SharedText> MakeNotes(unsigned long number) const;

private:
    using Objects = std::vector<const PartEntry*>;
    class Draft;

    std::optional<ProductText> FindObstacle(const PartEntry& object, unsigned long number) const;
    std::optional<ProductText> FindObstacle(unsigned long number) const;
    Objects ListFree(unsigned long number) const;
    PropValue Get(const PartEntry& object, unsigned long number) const;
    /// The value that all of them have; no value: they differ.
    std::optional<PropValue> FindCommon(unsigned long number) const;
    SharedText CaptionOf(unsigned long number) const;

    void Fill(MaterialRequest::Number& field, unsigned long number) const;
    void FillVolumes(MaterialRequest& request) const;
    std::vector<MaterialRequest::Material> ListMaterials() const;
    bool WeighAnew(const MaterialDecision& decision, Draft& draft) const;

    EditRules m_rules;
    ShownValues m_shown;
    Objects m_objects;
    std::optional<ProductText> m_refused;
};

} // namespace platform
