#include "platform/product/answers/MemoryStyle.h"

#include <algorithm>

namespace platform {

namespace {

class MemoryBlock final : public SpcSectionsBlock, public SpcTuningSectionsBlock {
public:
    MemoryBlock(const StyleBlockRecord& record, const StyleRecord& style) : m_record(record) {
        m_usesSection.reserve(style.sections.size());
        for (const StyleSectionRecord& section : style.sections)
            m_usesSection.push_back(std::find(record.sections.begin(), record.sections.end(),
                                              section.number) != record.sections.end());
    }

    int GetNumber() const override { return m_record.number; }
    SharedText GetName() const override { return m_record.name; }

    bool IsUse() const override { return m_record.isUsed; }
    bool IsUseSection(std::size_t index) const override {
        return index < m_usesSection.size() && m_usesSection[index];
    }

private:
    const StyleBlockRecord& m_record;
    std::vector<bool> m_usesSection;
};

/// The blocks of one list as the style and as the choices show them, place by place.
class MemoryBlocks {
public:
    MemoryBlocks(const std::vector<StyleBlockRecord>& records, const StyleRecord& style) {
        for (const StyleBlockRecord& record : records) {
            m_blocks.push_back(std::make_unique<MemoryBlock>(record, style));
            m_styleArray.push_back(m_blocks.back().get());
            m_tuningArray.push_back(m_blocks.back().get());
        }
    }

    const SpcBlockArray* GetStyleArray() const {
        return m_blocks.empty() ? nullptr : &m_styleArray;
    }
    const SpcTuningBlockArray* GetTuningArray() const {
        return m_blocks.empty() ? nullptr : &m_tuningArray;
    }

private:
    std::vector<std::unique_ptr<MemoryBlock>> m_blocks;
    SpcBlockArray m_styleArray;
    SpcTuningBlockArray m_tuningArray;
};

class MemorySection final : public SpcStyleSection {
public:
    MemorySection(const StyleSectionRecord& record, const MemoryBlocks& blocks)
        : m_record(record), m_blocks(blocks) {}

    int GetNumber() const override { return m_record.number; }
    SharedText GetName() const override { return m_record.name; }
    const SpcBlockArray* GetAdditionalBlockArr() const override { return m_blocks.GetStyleArray(); }

private:
    const StyleSectionRecord& m_record;
    const MemoryBlocks& m_blocks;
};

class MemoryTuningSection final : public SpcTuningSection {
public:
    MemoryTuningSection(const StyleSectionRecord& record, const MemoryBlocks& blocks)
        : m_record(record), m_blocks(blocks) {}

    bool IsAddSectionsBlock() const override { return m_record.addBlocks; }
    const SpcTuningBlockArray* GetAdditionalBlockArr() const override {
        return m_blocks.GetTuningArray();
    }

private:
    const StyleSectionRecord& m_record;
    const MemoryBlocks& m_blocks;
};

class MemoryStyle final : public SpcStyle {
public:
    MemoryStyle(const StyleRecord& record, const MemoryBlocks& blocks)
        : m_record(record), m_blocks(blocks) {}

    void Append(const SpcStyleSection& section) { m_sections.push_back(&section); }

    bool IsSectionSort_() const override { return m_record.sortBySections; }
    const std::vector<const SpcStyleSection*>& _GetArrSection() const override {
        return m_sections;
    }
    const SpcBlockArray* GetAdditionalBlockArr() const override { return m_blocks.GetStyleArray(); }

private:
    const StyleRecord& m_record;
    const MemoryBlocks& m_blocks;
    std::vector<const SpcStyleSection*> m_sections;
};

class MemoryTuningStyle final : public SpcTuningStyle {
public:
    MemoryTuningStyle(const StyleRecord& record, const MemoryBlocks& blocks)
        : m_record(record), m_blocks(blocks) {}

    /// Null for a section that the user's choices do not know.
    void Append(const SpcTuningSection* section) { m_sections.push_back(section); }

    const std::vector<const SpcTuningSection*>& _GetArrTuningSection() const override {
        return m_sections;
    }
    bool IsAddSectionsBlock() const override { return m_record.addBlocks; }
    const SpcTuningBlockArray* GetAdditionalBlockArr() const override {
        return m_blocks.GetTuningArray();
    }

private:
    const StyleRecord& m_record;
    const MemoryBlocks& m_blocks;
    std::vector<const SpcTuningSection*> m_sections;
};

class MemorySpcDescription final : public SpcDescription {
public:
    explicit MemorySpcDescription(const StyleRecord& record)
        : m_record(record), m_blocks(record.blocks, record), m_style(record, m_blocks),
          m_tuning(record, m_blocks) {
        for (const StyleSectionRecord& section : record.sections) {
            const SectionParts& parts =
                *m_sections.emplace_back(std::make_unique<SectionParts>(section, record));
            m_style.Append(parts.section);
            m_tuning.Append(section.isTuned ? &parts.tuning : nullptr);
        }
    }

    /// The document's copy and the style of the library are one here.
    const SpcStyle* GetSpcStyle(bool /*forShow*/, bool /*fromFile*/) const override {
        return m_record.isAvailable ? &m_style : nullptr;
    }
    const SpcTuningStyle* GetTuningStyle() const override {
        return m_record.isTuned ? &m_tuning : nullptr;
    }

private:
    struct SectionParts {
        SectionParts(const StyleSectionRecord& record, const StyleRecord& style)
            : blocks(record.blocks, style), section(record, blocks), tuning(record, blocks) {}

        MemoryBlocks blocks;
        MemorySection section;
        MemoryTuningSection tuning;
    };

    const StyleRecord& m_record;
    MemoryBlocks m_blocks;
    MemoryStyle m_style;
    MemoryTuningStyle m_tuning;
    std::vector<std::unique_ptr<SectionParts>> m_sections;
};

} // namespace

std::unique_ptr<SpcDescription> MakeSpcDescription(const StyleRecord& record) {
    return std::make_unique<MemorySpcDescription>(record);
}

} // namespace platform
