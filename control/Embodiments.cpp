#include "control/Embodiments.h"

#include "host/data/IfProductTreeData.h"

#include <utility>

namespace productTree {

namespace {

std::wstring MakeShortName(const VariantMarking& marking) {
    if (marking.GetEmbodimentNum().IsEmpty())
        return marking.GetBase();
    std::wstring name;
    if (marking.GetEmbodimentNumDelim() != 0)
        name += marking.GetEmbodimentNumDelim();
    return name + marking.GetEmbodimentNum().Str();
}

} // namespace

std::vector<EmbodimentGroup> ReadEmbodiments(const IfProductTreeData& data) {
    std::vector<EmbodimentGroup> groups;
    const EmbodimentsModel& embodiments = data.GetEmbodiments();
    for (std::size_t i = 0; i < embodiments.GetCount(); ++i) {
        std::set<UniqueMetaObjectKey> keys = embodiments.GetRawKeys(i);
        if (!keys.empty())
            groups.push_back({std::move(keys), MakeShortName(embodiments.GetEmbodimentMarking(i))});
    }
    return groups;
}

} // namespace productTree
