#include "items/ItemIcons.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace productTree {

namespace {

struct IconPair {
    int from;
    int icon;
};

// clang-format off
constexpr std::array c_objectIcons = {
    63248, 63247, 58775, 58778, 57348, 58599, 61275, 58598, 58465, // 0 to 8
    58764, 58775, 58806, 58787, 58764, 58881, 60275, 60730, 60735, // 9 to 17
    60731, 60732, 60732, 60733, 60736, 60730, 63251, 63250, 58764, // 18 to 26
};

constexpr std::array c_sectionIcons = {
    IconPair{5, 60276},
    IconPair{10, 58762},
    IconPair{15, 58762},
    IconPair{20, 58759},
    IconPair{25, 58766},
    IconPair{30, 58766},
    IconPair{35, 60737},
};

constexpr std::array c_groupIcons = {
    IconPair{63248, 58763},
    IconPair{63247, 58760},
    IconPair{58775, 58776},
    IconPair{58764, 58767},
    IconPair{60275, 60897},
    IconPair{58787, 58782},
    IconPair{57348, 58033},
    IconPair{61275, 61276},
    IconPair{58598, 58598},
    IconPair{58806, 58806},
    IconPair{58881, 58881},
    IconPair{58465, 58465},
};
// clang-format on

template <std::size_t N>
int FindIcon(const std::array<IconPair, N>& icons, int from) {
    const auto row = std::ranges::find(icons, from, &IconPair::from);
    return row == icons.end() ? c_commonIcon : row->icon;
}

} // namespace

int GetObjectIcon(int type) {
    const auto index = static_cast<std::size_t>(type);
    return type >= 0 && index < c_objectIcons.size() ? c_objectIcons[index] : c_objectIcons.back();
}

int GetSectionIcon(int number) {
    return FindIcon(c_sectionIcons, number);
}

int GetMemberIcon(int icon) {
    return icon == 58778 ? 58775 : icon;
}

int GetGroupIcon(int memberIcon) {
    return FindIcon(c_groupIcons, memberIcon);
}

} // namespace productTree
