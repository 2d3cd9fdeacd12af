#include "platform/product/model/StyleSections.h"

#include <algorithm>
#include <boost/property_tree/ptree.hpp>

namespace platform {

namespace {

/// Where among a section's numbers a block has its own, and a section in the block.
struct Levels {
    std::size_t block;
    std::size_t section;
};

constexpr Levels c_documentLevels{3, 2};
constexpr Levels c_sectionLevels{5, 4};

std::vector<StyleSection> ListDefaultSections() {
    constexpr int first = 5, last = 40, step = 5;
    std::vector<StyleSection> sections;
    for (int number = first; number <= last; number += step) {
        SPCSection& section = sections.emplace_back().section;
        section.numbers[0] = number;
        section.name = GetDefaultSectionNumbName(number);
    }
    return sections;
}

class SectionList final {
public:
    explicit SectionList(const StyleRecord& style) : m_style(style) {}

    std::vector<StyleSection> Make() {
        for (const StyleSectionRecord& record : m_style.sections) {
            if (!record.isTuned)
                continue;
            const StyleSection section = Add({}, 0, record.number, record.name);
            if (record.addBlocks)
                AddBlocks(section, c_sectionLevels, record.blocks);
        }
        if (m_style.addBlocks)
            AddBlocks(std::nullopt, c_documentLevels, m_style.blocks);
        return std::move(m_sections);
    }

private:
    /// A section in `parent`, or on the top level.
    StyleSection Add(const std::optional<StyleSection>& parent, std::size_t level, int number,
                     const SharedText& name) {
        StyleSection section;
        if (parent)
            section = {parent->section, parent->depth + 1};
        section.section.numbers[level] = number;
        section.section.name = name;
        return m_sections.emplace_back(std::move(section));
    }

    void AddBlocks(const std::optional<StyleSection>& parent, const Levels& levels,
                   const std::vector<StyleBlockRecord>& blocks) {
        for (const StyleBlockRecord& block : blocks) {
            if (block.isUsed)
                AddSectionsOf(block, Add(parent, levels.block, block.number, block.name), levels);
        }
    }

    void AddSectionsOf(const StyleBlockRecord& block, const StyleSection& parent,
                       const Levels& levels) {
        for (const StyleSectionRecord& record : m_style.sections) {
            if (std::ranges::find(block.sections, record.number) == block.sections.end())
                continue;
            const StyleSection section = Add(parent, levels.section, record.number, record.name);
            // Sections of the whole document's blocks have their own blocks in turn.
            if (levels.block == c_documentLevels.block && record.isTuned)
                AddBlocks(section, c_sectionLevels, record.blocks);
        }
    }

    const StyleRecord& m_style;
    std::vector<StyleSection> m_sections;
};

} // namespace

std::vector<StyleSection> ListSections(const ProductModel& model) {
    if (!model.style)
        return ListDefaultSections();
    const bool isKnown = model.style->isAvailable && model.style->isTuned;
    return isKnown ? SectionList(*model.style).Make() : std::vector<StyleSection>();
}

std::optional<std::size_t> FindSection(const std::vector<StyleSection>& sections,
                                       const SPCSection& section) {
    const auto found = std::ranges::find(
        sections, section.numbers, [](const StyleSection& entry) { return entry.section.numbers; });
    if (found == sections.end())
        return std::nullopt;
    return static_cast<std::size_t>(found - sections.begin());
}

std::optional<PropValue> FitSection(const ProductModel& model, const PropValue& value) {
    const SimplePropVal& simple = value.GetSimpleValue();
    if (!simple.IsEmpty() && !simple.to_wstring().IsEmpty())
        return std::nullopt;
    if (value.GetPropertyTree().empty())
        return PropValue();
    SPCSection wanted;
    spc_section::FromPropertyTree(wanted, value.GetPropertyTree());
    const std::vector<StyleSection> sections = ListSections(model);
    const std::optional<std::size_t> place = FindSection(sections, wanted);
    if (!place)
        return std::nullopt;
    return spc_section::ToPropValue(sections[*place].section);
}

} // namespace platform
