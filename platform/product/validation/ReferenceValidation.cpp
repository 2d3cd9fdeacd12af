#include "platform/product/validation/ReferenceValidation.h"

#include "platform/product/validation/ModelPath.h"
#include "platform/values/Utf8.h"

#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <utility>

namespace platform {

namespace {

using Keys = std::vector<UniqueMetaObjectKey>;

class ReferenceValidator final {
public:
    /// The objects of the product, or as they stand in an assembly, and `list` is where they stand.
    ReferenceValidator(const ProductModel& model, const UniqueMetaObjectKey& root,
                       const std::vector<ObjectRecord>& objects, const ModelPath& list)
        : m_model(model), m_root(root), m_all(objects), m_list(list) {}

    std::optional<ModelFault> ValidateProduct() {
        CollectEmbodiments();
        CollectKeys();
        if (!m_fault)
            CheckProduct();
        return Validate();
    }
    std::optional<ModelFault> ValidateAssembly() {
        CollectKeys();
        return Validate();
    }

private:
    using KeySet = std::unordered_set<UniqueMetaObjectKey>;

    std::optional<ModelFault> Validate() {
        if (!m_fault)
            CheckObjects();
        if (!m_fault)
            CheckChains();
        return std::move(m_fault);
    }

    void Fail(const ModelPath& path, std::string reason) {
        if (!m_fault)
            m_fault = ModelFault{path.ToText(), m_object, std::move(reason)};
    }

    void CheckKey(const ModelPath& path, const UniqueMetaObjectKey& key, KeySet& known) {
        if (key.IsEmpty())
            return Fail(path, "a key is needed");
        if (key.String().find('|') != std::string::npos)
            return Fail(path, "a key must not hold '|'");
        if (!FromUtf8(key.String()))
            return Fail(path, "the key is not UTF-8");
        if (!known.insert(key).second)
            Fail(path, "the key '" + key.String() + "' is taken already");
    }

    void CollectEmbodiments() {
        const ModelPath product;
        const ModelPath embodiments(product, "embodiments");
        for (std::size_t i = 0; i < m_model.embodiments.size(); ++i) {
            const ModelPath place(embodiments, i);
            CheckKey({place, "key"}, m_model.embodiments[i].key, m_embodiments);
        }
    }

    void CollectKeys() {
        const ModelPath product;
        const ModelPath root(product, "product");
        CheckKey({root, "key"}, m_root, m_parts);
        for (std::size_t i = 0; i < m_all.size() && !m_fault; ++i)
            CollectObject({m_list, i}, i);
    }

    void CollectObject(const ModelPath& path, std::size_t index) {
        const ObjectRecord& object = m_all[index];
        m_object = object.key;
        CheckKey({path, "key"}, object.key, m_parts);
        m_objects.emplace(object.key, index);
        const ModelPath uses(path, "uses");
        for (std::size_t i = 0; i < object.occurrences.size(); ++i) {
            const ModelPath use(uses, i);
            CheckKey({use, "key"}, object.occurrences[i].key, m_parts);
        }
        m_object = {};
    }

    /// A link may name what is gone, but it must be able to stand in a file.
    void CheckLinks(const ModelPath& path, const PartRecord& part) {
        const ModelPath links(path, "links");
        for (std::size_t i = 0; i < part.links.size(); ++i) {
            if (!FromUtf8(part.links[i].target.String()))
                Fail({links, i}, "the key is not UTF-8");
        }
    }

    void CheckCounts(const ModelPath& path, const PartRecord& part) {
        KeySet met;
        const ModelPath counts(path, "counts");
        for (std::size_t i = 0; i < part.counts.size(); ++i) {
            const ModelPath place(counts, i);
            const UniqueMetaObjectKey& key = part.counts[i].embodiment;
            if (!m_embodiments.contains(key) && key != m_root)
                Fail({place, "embodiment"}, "there is no embodiment '" + key.String() + "'");
            if (!met.insert(key).second)
                Fail({place, "embodiment"}, "the embodiment has a count already");
        }
    }

    void CheckEmbodimentKeys(const ModelPath& path, const Keys& keys) {
        KeySet met;
        for (std::size_t i = 0; i < keys.size(); ++i) {
            if (!m_embodiments.contains(keys[i]))
                Fail({path, i}, "there is no embodiment '" + keys[i].String() + "'");
            if (!met.insert(keys[i]).second)
                Fail({path, i}, "the embodiment stands here twice");
        }
    }

    void CheckProduct() {
        const ModelPath product;
        CheckEmbodimentKeys({product, "currentEmbodiments"}, m_model.currentEmbodiments);
        const UniqueMetaObjectKey& active = m_model.activeEmbodiment;
        if (!active.IsEmpty() && !m_embodiments.contains(active))
            Fail({product, "activeEmbodiment"}, "there is no embodiment '" + active.String() + "'");
        m_object = m_model.root.key;
        CheckGroup({product, "product"}, m_model.root);
        CheckLinks({product, "product"}, m_model.root);
        CheckCounts({product, "product"}, m_model.root);
        m_object = {};
    }

    void CheckGroup(const ModelPath& path, const PartRecord& part) {
        if (!part.groupKey.IsEmpty() && !m_parts.contains(part.groupKey))
            Fail({path, "group"}, "there is no part '" + part.groupKey.String() + "'");
    }

    /// The product itself may own objects, as the document that they were made in.
    void CheckObjectKeys(const ModelPath& path, const Keys& keys, bool isRootAllowed) {
        KeySet met;
        for (std::size_t i = 0; i < keys.size(); ++i) {
            const bool isKnown =
                m_objects.contains(keys[i]) || (isRootAllowed && keys[i] == m_root);
            if (!isKnown)
                Fail({path, i}, "there is no object '" + keys[i].String() + "'");
            if (!met.insert(keys[i]).second)
                Fail({path, i}, "the object stands here twice");
        }
    }

    void CheckBillet(const ModelPath& path, const ObjectRecord& object) {
        const ModelPath owner(path, "billetOwner");
        const UniqueMetaObjectKey& key = object.billetOwner;
        if (object.billet == BilletKind::None) {
            if (!key.IsEmpty())
                Fail(owner, "only a billet has an owner of that kind");
            return;
        }
        if (key.IsEmpty())
            return Fail(owner, "a billet needs an owner");
        if (!m_objects.contains(key))
            Fail(owner, "there is no object '" + key.String() + "'");
    }

    void CheckObjects() {
        for (std::size_t i = 0; i < m_all.size() && !m_fault; ++i) {
            const ObjectRecord& object = m_all[i];
            const ModelPath path(m_list, i);
            m_object = object.key;
            CheckGroup(path, object);
            CheckLinks(path, object);
            CheckCounts(path, object);
            CheckObjectKeys({path, "parents"}, object.parents, false);
            CheckObjectKeys({path, "owners"}, object.owners, true);
            CheckBillet(path, object);
            const ModelPath uses(path, "uses");
            for (std::size_t j = 0; j < object.occurrences.size(); ++j) {
                const ModelPath use(uses, j);
                CheckGroup(use, object.occurrences[j]);
                CheckLinks(use, object.occurrences[j]);
                CheckCounts(use, object.occurrences[j]);
                CheckEmbodimentKeys({use, "embodiments"}, object.occurrences[j].embodiments);
            }
        }
    }

    void CheckChains() {
        FindCycle("parents", "the object is part of itself",
                  [](const ObjectRecord& object) { return object.parents; });
        FindCycle("owners", "the object owns itself",
                  [](const ObjectRecord& object) { return object.owners; });
        FindCycle("billetOwner", "the billet belongs to itself", [](const ObjectRecord& object) {
            return object.billetOwner.IsEmpty() ? Keys() : Keys{object.billetOwner};
        });
    }

    /// Goes along the references of one kind, each object once, without recursion: a chain may be
    /// as long as the product.
    template <class Next>
    void FindCycle(std::string_view member, std::string_view reason, const Next& next) {
        enum class State : std::uint8_t { New, Open, Done };
        struct Step {
            std::size_t object;
            Keys next;
        };
        std::vector<State> states(m_all.size(), State::New);
        std::vector<Step> open;
        const auto enter = [&](std::size_t index) {
            states[index] = State::Open;
            open.push_back({index, next(m_all[index])});
        };
        for (std::size_t start = 0; start < states.size(); ++start) {
            if (states[start] == State::New)
                enter(start);
            while (!open.empty()) {
                if (open.back().next.empty()) {
                    states[open.back().object] = State::Done;
                    open.pop_back();
                    continue;
                }
                const auto found = m_objects.find(open.back().next.back());
                open.back().next.pop_back();
                if (found == m_objects.end())
                    continue;
                if (states[found->second] == State::Open)
                    return FailObject(found->second, member, reason);
                if (states[found->second] == State::New)
                    enter(found->second);
            }
        }
    }

    void FailObject(std::size_t index, std::string_view member, std::string_view reason) {
        const ModelPath path(m_list, index);
        m_object = m_all[index].key;
        Fail({path, member}, std::string(reason));
    }

    const ProductModel& m_model;
    const UniqueMetaObjectKey& m_root;
    const std::vector<ObjectRecord>& m_all;
    const ModelPath& m_list;
    KeySet m_parts;
    KeySet m_embodiments;
    std::unordered_map<UniqueMetaObjectKey, std::size_t> m_objects;
    UniqueMetaObjectKey m_object;
    std::optional<ModelFault> m_fault;
};

} // namespace

std::optional<ModelFault> ValidateReferences(const ProductModel& model) {
    const ModelPath product;
    const ModelPath objects(product, "objects");
    if (auto fault =
            ReferenceValidator(model, model.root.key, model.objects, objects).ValidateProduct())
        return fault;
    const ModelPath list(product, "assemblies");
    for (std::size_t i = 0; i < model.assemblies.size(); ++i) {
        const ModelPath place(list, i);
        for (const auto& [name, components] :
             {std::pair("components", &model.assemblies[i].components),
              std::pair("allParts", &model.assemblies[i].allParts)}) {
            const ModelPath path(place, name);
            if (auto fault =
                    ReferenceValidator(model, model.assemblies[i].object, *components, path)
                        .ValidateAssembly())
                return fault;
        }
    }
    return std::nullopt;
}

} // namespace platform
