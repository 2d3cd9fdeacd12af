#include "control/EmbodimentFilter.h"

#include "host/data/IfProductTreeData.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace productTree {

namespace {

constexpr std::size_t c_blockSize = 10;
constexpr const wchar_t* c_showAll = L"ShowAll";

std::wstring MakeShortName(const VariantMarking& marking) {
    if (marking.GetEmbodimentNum().IsEmpty())
        return marking.GetBase();
    std::wstring name;
    if (marking.GetEmbodimentNumDelim() != 0)
        name += marking.GetEmbodimentNumDelim();
    return name + marking.GetEmbodimentNum().Str();
}

// Digits alone, and no more than the type holds.
std::optional<std::uint64_t> ParseNumber(std::wstring_view text) {
    constexpr std::uint64_t most = std::numeric_limits<std::uint64_t>::max();
    std::uint64_t number = 0;
    for (const wchar_t c : text) {
        if (c < L'0' || c > L'9')
            return std::nullopt;
        const auto digit = static_cast<std::uint64_t>(c - L'0');
        if (number > (most - digit) / 10)
            return std::nullopt;
        number = number * 10 + digit;
    }
    return text.empty() ? std::nullopt : std::optional(number);
}

struct Range {
    std::uint64_t first;
    std::uint64_t last;
};

std::optional<Range> ParseRange(std::wstring_view token) {
    const std::size_t dash = token.find(L'-');
    const auto first = ParseNumber(token.substr(0, dash));
    const auto last = dash == std::wstring_view::npos ? first : ParseNumber(token.substr(dash + 1));
    if (!first || !last)
        return std::nullopt;
    return Range{std::min(*first, *last), std::max(*first, *last)};
}

std::wstring FormatRange(std::size_t first, std::size_t last) {
    const std::wstring text = std::to_wstring(first);
    return first == last ? text : text + L'-' + std::to_wstring(last);
}

} // namespace

std::vector<std::size_t> ParseRanges(std::wstring_view text, std::size_t limit) {
    std::vector<std::size_t> numbers;
    while (!text.empty()) {
        const std::size_t comma = text.find(L',');
        if (const std::optional<Range> range = ParseRange(text.substr(0, comma))) {
            for (std::uint64_t i = range->first; i <= range->last && i <= limit; ++i)
                numbers.push_back(i);
        }
        text.remove_prefix(comma == std::wstring_view::npos ? text.size() : comma + 1);
    }
    return numbers;
}

std::wstring FormatRanges(const std::set<std::size_t>& numbers) {
    std::wstring text;
    for (auto number = numbers.begin(); number != numbers.end();) {
        const std::size_t first = *number;
        std::size_t last = first;
        while (++number != numbers.end() && *number == last + 1)
            last = *number;
        if (!text.empty())
            text += L',';
        text += FormatRange(first, last);
    }
    return text;
}

std::vector<EmbodimentGroup> EmbodimentFilter::ReadEmbodiments(const IfProductTreeData& data) {
    std::vector<EmbodimentGroup> groups;
    const EmbodimentsModel& embodiments = data.GetEmbodiments();
    for (std::size_t i = 0; i < embodiments.GetCount(); ++i) {
        std::set<UniqueMetaObjectKey> keys = embodiments.GetRawKeys(i);
        if (!keys.empty())
            groups.push_back({std::move(keys), MakeShortName(embodiments.GetEmbodimentMarking(i))});
    }
    return groups;
}

void EmbodimentFilter::Update(std::vector<EmbodimentGroup> groups) {
    if (m_mode == Picked) {
        std::set<std::set<UniqueMetaObjectKey>> kept;
        for (const EmbodimentGroup& group : groups)
            kept.insert(group.rawKeys);
        const bool survives = std::ranges::any_of(m_picked, [&](std::size_t number) {
            return number < m_groups.size() && kept.contains(m_groups[number].rawKeys);
        });
        if (!survives)
            m_picked.clear();
    }
    m_groups = std::move(groups);
    Normalize();
}

void EmbodimentFilter::Normalize() {
    if (m_mode == Picked)
        m_picked.erase(m_picked.lower_bound(m_groups.size()), m_picked.end());
    else
        m_picked.clear();
    if (m_picked.empty() && m_mode == Picked)
        m_mode = LastBlock;
}

void EmbodimentFilter::ApplyStoredText(std::vector<EmbodimentGroup> groups,
                                       const std::wstring& text) {
    Update(std::move(groups));
    if (m_groups.empty() || text.empty())
        return;
    if (text == c_showAll) {
        m_mode = All;
        Normalize();
    } else {
        SetFromText(text);
    }
}

std::wstring EmbodimentFilter::GetStoredText() const {
    if (m_mode == LastBlock)
        return {};
    return m_mode == All ? std::wstring(c_showAll) : FormatText();
}

std::vector<std::size_t> EmbodimentFilter::Parse(std::wstring_view text) const {
    if (m_groups.empty())
        return {};
    return ParseRanges(text, m_groups.size() - 1);
}

void EmbodimentFilter::SetFromText(std::wstring_view text) {
    const std::vector<std::size_t> numbers = Parse(text);
    m_mode = Picked;
    m_picked = {numbers.begin(), numbers.end()};
    Normalize();
}

void EmbodimentFilter::Toggle(std::wstring_view text, bool checked) {
    m_picked = GetShownNumbers();
    m_mode = Picked;
    for (const std::size_t number : Parse(text)) {
        if (checked)
            m_picked.insert(number);
        else
            m_picked.erase(number);
    }
    Normalize();
}

void EmbodimentFilter::ToggleAll() {
    m_mode = m_mode == All || AreAllShown() ? LastBlock : All;
    Normalize();
}

bool EmbodimentFilter::AreAllShown() const {
    switch (m_mode) {
    case Picked:
        return m_picked.size() == m_groups.size();
    case LastBlock:
        return m_groups.size() <= c_blockSize;
    case All:
        break;
    }
    return true;
}

std::size_t EmbodimentFilter::GetLastBlockStart() const {
    const std::size_t count = m_groups.size();
    return count <= c_blockSize ? 0 : (count - 1) / c_blockSize * c_blockSize;
}

std::size_t EmbodimentFilter::GetFirstShown() const {
    return m_mode == LastBlock ? GetLastBlockStart() : 0;
}

std::set<std::size_t> EmbodimentFilter::GetShownNumbers() const {
    if (m_mode == Picked)
        return m_picked;
    std::set<std::size_t> numbers;
    for (std::size_t i = GetFirstShown(); i < m_groups.size(); ++i)
        numbers.insert(numbers.end(), i);
    return numbers;
}

std::vector<EmbodimentGroup> EmbodimentFilter::GetShown() const {
    std::vector<EmbodimentGroup> shown;
    for (const std::size_t number : GetShownNumbers())
        shown.push_back(m_groups[number]);
    return shown;
}

std::wstring EmbodimentFilter::FormatText() const {
    return FormatRanges(GetShownNumbers());
}

std::optional<bool> EmbodimentFilter::GetBlockState(std::size_t start, std::size_t end) const {
    if (m_mode != Picked)
        return m_mode == All || start == GetLastBlockStart();
    const auto picked = static_cast<std::size_t>(
        std::distance(m_picked.lower_bound(start), m_picked.lower_bound(end)));
    if (picked > 0 && picked < end - start)
        return std::nullopt;
    return picked > 0;
}

std::vector<EmbodimentFilter::Block> EmbodimentFilter::GetBlocks() const {
    std::vector<Block> blocks;
    for (std::size_t start = 0; start < m_groups.size(); start += c_blockSize) {
        const std::size_t end = std::min(start + c_blockSize, m_groups.size());
        blocks.push_back({FormatRange(start, end - 1), GetBlockState(start, end)});
    }
    return blocks;
}

} // namespace productTree
