#include "host/ProductProperties.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string_view>
#include <unordered_map>

namespace ProductProperties {

namespace {

struct Row {
    unsigned long number;
    std::wstring_view path;
};

// Documents name properties by these numbers: a number never changes its path. The list has no gap,
// a number is its row.
// clang-format off
constexpr std::array c_rows = std::to_array<Row>({
    {1, L"position"},
    {2, L"SPCSection"},
    {3, L"format"},
    {4, L"marking"},
    {5, L"name"},
    {6, L"count"},
    {7, L"zone"},
    {8, L"material"},
    {9, L"material.density"},
    {10, L"mass"},
    {11, L"comment"},
    {12, L"note"},
    {13, L"documentNumber"},
    {14, L"marking.base"},
    {15, L"marking.embodimentNumber"},
    {16, L"marking.additionalNumber"},
    {17, L"marking.documentNumber"},
    {18, L"variantName"},
    {19, L"productName"},
    {20, L"density"},
    {21, L"featureType"},
    {22, L"fromExternalLibrary"},
    {23, L"accuracyClass"},
    {24, L"SPCSection.subSectionNumb"},
    {25, L"structureNumber"},
    {26, L"number"},
    {27, L"additionNumber"},
    {28, L"arrayElement"},
    {29, L"specRoughSign"},
    {30, L"specRoughValue"},
    {31, L"color"},
    {32, L"priority"},
    {33, L"advancedColor"},
    {34, L"ambient"},
    {35, L"diffuse"},
    {36, L"specularity"},
    {37, L"shininess"},
    {38, L"transparency"},
    {39, L"emission"},
    {40, L"sourceColor"},
    {41, L"variantUseCaseColor"},
    {42, L"hatchGroup"},
    {43, L"hatchStyle"},
    {44, L"angle"},
    {45, L"notSected"},
    {46, L"hatchColor"},
    {47, L"hatchAngle"},
    {48, L"zoneCount"},
    {49, L"spcObjNumber"},
    {50, L"materialHatch"},
    {51, L"additionColumn"},
    {52, L"\u0441olumn"},
    {53, L"revisionLetter"},
    {54, L"jobDescription"},
    {55, L"signer"},
    {56, L"sheetsNumber"},
    {57, L"productCode"},
    {58, L"author"},
    {59, L"organization"},
    {60, L"fullFileName"},
    {61, L"fileName"},
    {62, L"isPhantom"},
    {63, L"billets"},
    {64, L"stampAuthor"},
    {65, L"checkedBy"},
    {66, L"approvedBy"},
    {67, L"mfgApprovedBy"},
    {68, L"rateOfInspection"},
    {69, L"materials"},
    {70, L"location"},
});
// clang-format on

constexpr bool HasRowsByNumber() {
    for (std::size_t i = 0; i < c_rows.size(); ++i) {
        if (c_rows[i].number != i + 1)
            return false;
    }
    return true;
}
static_assert(HasRowsByNumber());
static_assert(c_rows[markingId - 1].path == L"marking" && c_rows[nameId - 1].path == L"name");

struct FeatureType {
    std::wstring_view word;
    SystemFeatureTypeEnum type;
};

// clang-format off
constexpr std::array c_featureTypes = std::to_array<FeatureType>({
    {L"assembly", SystemFeatureTypeEnum::Assembly},
    {L"detail", SystemFeatureTypeEnum::Detail},
    {L"standard", SystemFeatureTypeEnum::Standard},
    {L"libComponent", SystemFeatureTypeEnum::LibComponent},
    {L"billet", SystemFeatureTypeEnum::Billet},
    {L"stCompBillet", SystemFeatureTypeEnum::StCompBillet},
    {L"feature", SystemFeatureTypeEnum::Feature},
    {L"extView", SystemFeatureTypeEnum::ExtView},
    {L"insfrg", SystemFeatureTypeEnum::InsFrg},
    {L"macrodraft", SystemFeatureTypeEnum::MacroDraft},
    {L"sheet", SystemFeatureTypeEnum::Sheet},
    {L"Orvex", SystemFeatureTypeEnum::Orvex},
});
// clang-format on

constexpr std::wstring_view c_userPrefix = L"user.";

using Numbers = std::unordered_map<std::wstring_view, unsigned long>;

const Numbers& GetNumbers() {
    static const Numbers numbers = [] {
        Numbers made;
        made.reserve(c_rows.size());
        for (const Row& row : c_rows)
            made.emplace(row.path, row.number);
        return made;
    }();
    return numbers;
}

std::wstring MakeUserPath(unsigned long number) {
    std::array<char, 24> digits;
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    std::wstring path(c_userPrefix);
    path.append(digits.data(), end);
    return path;
}

/// Takes only what MakeUserPath writes, so that a property has one path.
unsigned long ParseUserPath(std::wstring_view path) {
    const std::wstring_view wide = path.substr(c_userPrefix.size());
    std::array<char, 24> digits;
    if (wide.empty() || wide.size() > digits.size() || wide.front() == L'0')
        return 0;
    for (std::size_t i = 0; i < wide.size(); ++i) {
        if (wide[i] < L'0' || wide[i] > L'9')
            return 0;
        digits[i] = static_cast<char>(wide[i]);
    }
    unsigned long number = 0;
    const auto result = std::from_chars(digits.data(), digits.data() + wide.size(), number);
    return result.ec == std::errc() && number > lastSystemId ? number : 0;
}

} // namespace

std::wstring GetPath(unsigned long number) {
    if (number > lastSystemId)
        return MakeUserPath(number);
    if (number == 0 || number > c_rows.size())
        return {};
    return std::wstring(c_rows[number - 1].path);
}

unsigned long GetPropId(const std::wstring& path) {
    if (path.starts_with(c_userPrefix))
        return ParseUserPath(path);
    const Numbers& numbers = GetNumbers();
    const auto found = numbers.find(path);
    return found == numbers.end() ? 0 : found->second;
}

SystemFeatureTypeEnum ft::GetFtType(const std::wstring& word) {
    const auto found = std::find_if(c_featureTypes.begin(), c_featureTypes.end(),
                                    [&](const FeatureType& row) { return row.word == word; });
    return found == c_featureTypes.end() ? SystemFeatureTypeEnum::Unknown : found->type;
}

} // namespace ProductProperties
