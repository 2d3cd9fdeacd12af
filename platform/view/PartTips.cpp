#include "platform/view/PartTips.h"

namespace platform {

PartTipsId PartTipsTable::With(PartTipsId id, std::size_t place, const SharedText& tip,
                               NameTable& names) {
    const Step& known = m_sets[id].steps[place];
    if (known.to != 0 && known.tip.IsSame(tip))
        return known.to;
    PartTips tips = Get(id);
    tips[place] = names.IdOf(tip);
    const auto [found, isNew] = m_ids.try_emplace(tips, static_cast<PartTipsId>(m_sets.size()));
    if (isNew)
        m_sets.push_back({tips, {}});
    m_sets[id].steps[place] = {tip, found->second};
    return found->second;
}

} // namespace platform
