#include "platform/product/validation/LinkValidation.h"

#include "platform/product/index/ShownValues.h"
#include "platform/product/validation/ModelPath.h"

#include <algorithm>
#include <cstdint>
#include <unordered_map>

namespace platform {

namespace {

struct HolderHash {
    std::size_t operator()(const ValueHolder& holder) const {
        return std::hash<const PartEntry*>{}(holder.part) * 31 + holder.number;
    }
};

/// Walks along the links, each once.
class LinkWalk final {
public:
    explicit LinkWalk(const ProductIndex& index) : m_index(index), m_shown(index) {}

    bool ComesBack(ValueHolder holder) {
        std::vector<ValueHolder> way;
        bool comesBack = false;
        while (true) {
            const auto [state, isNew] = m_states.try_emplace(holder, State::Open);
            comesBack = state->second == State::Open && !isNew;
            if (!isNew)
                break;
            way.push_back(holder);
            const LinkRecord* const link = m_shown.FindLink(holder);
            const PartEntry* const target = link ? m_index.Find(link->target) : nullptr;
            if (!target)
                break;
            holder = m_shown.FindHolder(*target, link->targetProperty);
        }
        for (const ValueHolder& passed : way)
            m_states[passed] = State::Done;
        return comesBack;
    }

private:
    enum class State : std::uint8_t { Open, Done };

    const ProductIndex& m_index;
    ShownValues m_shown;
    std::unordered_map<ValueHolder, State, HolderHash> m_states;
};

std::string PathOf(const PartPlace& place, std::size_t link) {
    const ModelPath product;
    const ModelPath objects(product, "objects");
    const ModelPath object = place.object == PartPlace::none ? ModelPath(product, "product")
                                                             : ModelPath(objects, place.object);
    if (place.use == PartPlace::none) {
        const ModelPath links(object, "links");
        return ModelPath(links, link).ToText();
    }
    const ModelPath uses(object, "uses");
    const ModelPath use(uses, place.use);
    const ModelPath links(use, "links");
    return ModelPath(links, link).ToText();
}

bool HasLinks(const ProductModel& model) {
    const auto isLinked = [](const PartRecord& part) { return !part.links.empty(); };
    return isLinked(model.root) ||
           std::ranges::any_of(model.objects, [&](const ObjectRecord& object) {
               return isLinked(object) || std::ranges::any_of(object.occurrences, isLinked);
           });
}

} // namespace

std::optional<ModelFault> ValidateLinks(const ProductModel& model) {
    if (!HasLinks(model))
        return std::nullopt;
    ProductIndex index;
    index.Rebuild(model);
    LinkWalk walk(index);
    for (const PartEntry* const part : index.GetLinkedParts()) {
        for (std::size_t i = 0; i < part->record->links.size(); ++i) {
            if (walk.ComesBack({part, part->record->links[i].property}))
                return ModelFault{PathOf(index.GetPlace(*part), i), part->owner->key,
                                  "the link leads back to itself"};
        }
    }
    return std::nullopt;
}

} // namespace platform
