#include "desktop/StepPart.h"

namespace desktop {

std::optional<UniqueMetaObjectKey> FindObject(const platform::ProductModel& model,
                                              const StepPart& part) {
    std::optional<UniqueMetaObjectKey> found;
    const auto look = [&](const platform::ObjectRecord& object) {
        const bool isCalledSo = object.source && object.source->id.Str() == part.id &&
                                object.source->name.Str() == part.name;
        if (isCalledSo && (!found || object.key.String() == part.key))
            found = object.key;
    };
    look(model.root);
    for (const auto* const list : {&model.objects, &model.objectsBelow}) {
        for (const platform::ObjectRecord& object : *list)
            look(object);
    }
    return found;
}

} // namespace desktop
