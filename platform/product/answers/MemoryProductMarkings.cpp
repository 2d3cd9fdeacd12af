// Designations to choose from: those that the objects of the product have.
#include "platform/product/answers/MemoryProductState.h"
#include "platform/services/UserDecisions.h"

#include <algorithm>
#include <unordered_set>

namespace platform {

namespace {

/// One object a designation, in the document's order.
std::vector<const ObjectRecord*> FindDesignated(const ProductModel& model,
                                                const VariantMarking& present) {
    std::unordered_set<std::wstring> known{
        present.Make(VariantMarkingData::MakeAll, false, false).Str(), std::wstring()};
    std::vector<const ObjectRecord*> objects;
    const auto add = [&](const ObjectRecord& object) {
        const SharedText text = object.marking.Make(VariantMarkingData::MakeAll, false, false);
        if (known.insert(text.Str()).second)
            objects.push_back(&object);
    };
    add(model.root);
    std::ranges::for_each(model.objects, add);
    std::ranges::for_each(model.objectsBelow, add);
    return objects;
}

} // namespace

VariantMarking MemoryProduct::ChooseMarking(const VariantMarking& marking) {
    IUserDecisions* const decisions = m_state->look->decisions;
    if (!decisions)
        return marking;
    const std::vector<const ObjectRecord*> objects = FindDesignated(m_state->model, marking);
    if (objects.empty()) {
        decisions->Tell(GetText(ProductText::DesignationsTitle),
                        GetText(ProductText::DesignationsNone));
        return marking;
    }
    ObjectRequest request;
    request.title = GetText(ProductText::DesignationsTitle);
    for (const ObjectRecord* const object : objects)
        request.objects.push_back(
            {object->key, object->name,
             object->marking.Make(VariantMarkingData::MakeAll, false, false)});
    const std::optional<UniqueMetaObjectKey> chosen = decisions->ChooseObject(request);
    const auto found = std::ranges::find_if(
        objects, [&](const ObjectRecord* object) { return chosen && object->key == *chosen; });
    return found == objects.end() ? marking : (*found)->marking;
}

} // namespace platform
