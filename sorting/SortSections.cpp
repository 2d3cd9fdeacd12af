#include "sorting/SortSections.h"

#include "host/data/IfProductTreeData.h"

#include <array>
#include <cstddef>

namespace productTree {

namespace {

constexpr std::array c_defaultSections = {5, 10, 15, 20, 25, 30, 35, 40};

// Where a section and its block write their numbers: once for the blocks of the whole
// specification, once for those of a single section.
struct Levels {
    std::size_t section;
    std::size_t block;
};
constexpr Levels c_documentBlocks{2, 3};
constexpr Levels c_sectionBlocks{4, 5};

SharedText MakeLabel(const SharedText& name, const SharedText& parentLabel) {
    if (parentLabel.IsEmpty())
        return name;
    return name.Str() + L". " + parentLabel.Str();
}

class StyleSections {
public:
    StyleSections(const SpcStyle& style, const SpcTuningStyle& tuning)
        : m_style(style), m_tuning(tuning) {}

    std::vector<SortSection> Make() && {
        const auto& entries = m_style._GetArrSection();
        const auto& tunings = m_tuning._GetArrTuningSection();
        for (std::size_t i = 0; i < entries.size() && i < tunings.size(); ++i) {
            if (entries[i] && tunings[i])
                AddSection(*entries[i], *tunings[i]);
        }
        if (m_tuning.IsAddSectionsBlock())
            AddBlocks({}, c_documentBlocks, true, m_style.GetAdditionalBlockArr(),
                      m_tuning.GetAdditionalBlockArr());
        return std::move(m_sections);
    }

private:
    void AddSection(const SpcStyleSection& entry, const SpcTuningSection& tuning) {
        SortSection section;
        section.section.numbers[0] = entry.GetNumber();
        section.section.name = section.label = entry.GetName();
        m_sections.push_back(section);
        if (tuning.IsAddSectionsBlock())
            AddBlocks(section, c_sectionBlocks, false, entry.GetAdditionalBlockArr(),
                      tuning.GetAdditionalBlockArr());
    }

    // `parent` by value: it may stand in the list that grows here.
    // NOLINTNEXTLINE(performance-unnecessary-value-param)
    void AddBlocks(SortSection parent, Levels levels, bool deep, const SpcBlockArray* blocks,
                   const SpcTuningBlockArray* tunings) {
        if (!blocks || !tunings)
            return;
        for (std::size_t i = 0; i < blocks->size() && i < tunings->size(); ++i) {
            const SpcSectionsBlock* block = (*blocks)[i];
            const SpcTuningSectionsBlock* tuning = (*tunings)[i];
            if (!block || !tuning || !tuning->IsUse())
                continue;
            SortSection section = parent;
            section.section.numbers[levels.block] = block->GetNumber();
            section.section.name = block->GetName();
            section.label = MakeLabel(section.section.name, parent.label);
            m_sections.push_back(section);
            AddBlockSections(section, levels, deep, *tuning);
        }
    }

    void AddBlockSections(const SortSection& parent, Levels levels, bool deep,
                          const SpcTuningSectionsBlock& tuning) {
        const auto& entries = m_style._GetArrSection();
        const auto& tunings = m_tuning._GetArrTuningSection();
        for (std::size_t j = 0; j < entries.size(); ++j) {
            const SpcStyleSection* entry = entries[j];
            if (!entry || !tuning.IsUseSection(j))
                continue;
            SortSection section = parent;
            section.section.numbers[levels.section] = entry->GetNumber();
            section.section.name = entry->GetName();
            section.label = MakeLabel(section.section.name, parent.label);
            m_sections.push_back(section);
            if (deep && j < tunings.size() && tunings[j])
                AddBlocks(section, c_sectionBlocks, false, entry->GetAdditionalBlockArr(),
                          tunings[j]->GetAdditionalBlockArr());
        }
    }

    const SpcStyle& m_style;
    const SpcTuningStyle& m_tuning;
    std::vector<SortSection> m_sections;
};

std::vector<SortSection> MakeDefaultSections() {
    std::vector<SortSection> sections;
    for (const int number : c_defaultSections) {
        SortSection& section = sections.emplace_back();
        section.section.numbers[0] = number;
        section.section.name = section.label = GetDefaultSectionNumbName(number);
    }
    return sections;
}

} // namespace

std::vector<SortSection> MakeSortSections(const IfProductTreeData& data) {
    if (!data.AreSectionRowsShown())
        return std::vector<SortSection>(1);
    const SpcDescription* description = data.GetSpcDescription();
    if (!description)
        return MakeDefaultSections();
    const SpcStyle* style = description->GetSpcStyle(true, false);
    const SpcTuningStyle* tuning = description->GetTuningStyle();
    if (!style || !tuning)
        return {};
    if (!style->IsSectionSort_())
        return std::vector<SortSection>(1);
    return StyleSections(*style, *tuning).Make();
}

} // namespace productTree
