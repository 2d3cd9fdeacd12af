#include "desktop/store/SectionNames.h"

#include <algorithm>

namespace desktop::store {

namespace {

const platform::StyleSectionRecord* FindSection(const platform::StyleRecord& style, int number) {
    const auto found =
        std::ranges::find(style.sections, number, &platform::StyleSectionRecord::number);
    return found == style.sections.end() ? nullptr : &*found;
}

SharedText BlockName(const std::vector<platform::StyleBlockRecord>& blocks, int number) {
    const auto found = std::ranges::find(blocks, number, &platform::StyleBlockRecord::number);
    return found == blocks.end() ? SharedText() : found->name;
}

} // namespace

SharedText SectionName(const std::array<std::int32_t, 6>& numbers,
                       const std::optional<platform::StyleRecord>& style) {
    const auto [section, subsection, innerSection, block, ownSection, ownBlock] = numbers;
    const platform::StyleRecord none;
    const platform::StyleRecord& known = style ? *style : none;
    const auto sectionName = [&known](int number) {
        const platform::StyleSectionRecord* const found = FindSection(known, number);
        return found ? found->name : GetDefaultSectionNumbName(number);
    };
    if (ownSection != 0)
        return sectionName(ownSection);
    if (ownBlock != 0) {
        const auto* const owner = FindSection(known, innerSection != 0 ? innerSection : section);
        return owner ? BlockName(owner->blocks, ownBlock) : SharedText();
    }
    if (innerSection != 0)
        return sectionName(innerSection);
    if (block != 0)
        return BlockName(known.blocks, block);
    return section != 0 ? sectionName(section) : SharedText();
}

} // namespace desktop::store
