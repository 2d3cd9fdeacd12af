#include "desktop/LevelChoice.h"

#include "desktop/messages/MessageTexts.h"
#include "platform/product/model/AssemblyLevels.h"

#include <algorithm>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace desktop {

namespace {

using platform::ObjectRecord;
using platform::ProductLevel;
using platform::ProductModel;

constexpr std::wstring_view c_blanks = L" \t\r\n\u00A0\u3000";

std::wstring_view Trim(std::wstring_view text) {
    const std::size_t begin = text.find_first_not_of(c_blanks);
    if (begin == std::wstring_view::npos)
        return {};
    return text.substr(begin, text.find_last_not_of(c_blanks) - begin + 1);
}

using Matcher = bool (*)(std::wstring_view text, std::wstring_view asked);

/// Some names have blanks at their ends that nobody types, and that alone tell them from others.
constexpr Matcher c_matchers[] = {
    [](std::wstring_view text, std::wstring_view asked) { return text == asked; },
    [](std::wstring_view text, std::wstring_view asked) { return Trim(text) == Trim(asked); },
};

std::vector<const ObjectRecord*> ListObjects(const ProductModel& model) {
    std::vector<const ObjectRecord*> objects{&model.root};
    for (const auto* const list : {&model.objects, &model.objectsBelow}) {
        for (const ObjectRecord& object : *list)
            objects.push_back(&object);
    }
    return objects;
}

std::vector<const ObjectRecord*> FindByName(const ProductModel& model, std::wstring_view name) {
    for (const Matcher matches : c_matchers) {
        std::vector<const ObjectRecord*> found;
        for (const ObjectRecord* const object : ListObjects(model)) {
            const SharedText designation =
                object->marking.Make(VariantMarkingData::MakeAll, false, false);
            if (matches(object->name.Str(), name) || matches(designation.Str(), name))
                found.push_back(object);
        }
        if (!found.empty())
            return found;
    }
    return {};
}

/// Assemblies have the order of the document.
std::vector<UniqueMetaObjectKey> ListAssemblies(const ProductModel& model,
                                                const std::vector<const ObjectRecord*>& objects) {
    if (!HasLevels(model)) {
        const bool isRoot = !model.objects.empty() && std::ranges::count(objects, &model.root) > 0;
        return isRoot ? std::vector{model.root.key} : std::vector<UniqueMetaObjectKey>();
    }
    std::vector<UniqueMetaObjectKey> found;
    for (const platform::AssemblyRecord& assembly : model.assemblies) {
        if (std::ranges::find(objects, assembly.object, &ObjectRecord::key) != objects.end())
            found.push_back(assembly.object);
    }
    return found;
}

FileError NobodyIsCalled(const std::wstring& name) {
    return {"no product is called " + Quote(name)};
}

} // namespace

std::variant<std::string, FileError> ShowLevel(ProductModel& model,
                                               const step::StepOptions& options) {
    ProductLevel level = platform::GetHome(model);
    std::string note;
    if (!options.assembly.empty()) {
        const std::wstring name = FromUtf8OrLatin1(options.assembly);
        const std::vector<const ObjectRecord*> objects = FindByName(model, name);
        if (objects.empty())
            return NobodyIsCalled(name);
        const std::vector<UniqueMetaObjectKey> assemblies = ListAssemblies(model, objects);
        if (assemblies.empty())
            return FileError{Quote(name) + " is no assembly: it has no components"};
        level.assembly = assemblies.front();
        if (const std::size_t others = assemblies.size() - 1)
            note = std::to_string(others) +
                   (others == 1 ? " other assembly has" : " other assemblies have") +
                   " the same name as the one shown";
    }
    if (!HasLevels(model))
        return note;
    level.allParts = options.flatten;
    if (platform::EnterLevel(model, level) == platform::LevelFault::TooManyParts)
        return FileError{"more than " + std::to_string(platform::c_mostParts) +
                         " parts when flattened"};
    return note;
}

std::variant<UniqueMetaObjectKey, FileError> FindObject(const ProductModel& model,
                                                        const std::string& name) {
    if (name.empty())
        return model.root.key;
    const std::wstring wide = FromUtf8OrLatin1(name);
    const std::vector<const ObjectRecord*> objects = FindByName(model, wide);
    if (objects.empty())
        return NobodyIsCalled(wide);
    return objects.front()->key;
}

} // namespace desktop
