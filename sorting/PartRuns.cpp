#include "sorting/PartRuns.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <numeric>

namespace productTree {

namespace {

using meta_data::grouping::IfGroupingComparator;

// Brings `parts` and `places` into the order of the places.
void SortByPlaces(std::vector<ConstProductPart>& parts, std::vector<std::uint32_t>& places) {
    std::vector<std::uint32_t> order(parts.size());
    std::iota(order.begin(), order.end(), 0U);
    // Parts of one place keep their order, so that the same product gives the same rows each time.
    std::ranges::sort(order, [&](std::uint32_t a, std::uint32_t b) {
        return places[a] != places[b] ? places[a] < places[b] : a < b;
    });
    std::vector<ConstProductPart> sortedParts;
    std::vector<std::uint32_t> sortedPlaces;
    sortedParts.reserve(parts.size());
    sortedPlaces.reserve(parts.size());
    for (const std::uint32_t from : order) {
        sortedParts.push_back(std::move(parts[from]));
        sortedPlaces.push_back(places[from]);
    }
    parts = std::move(sortedParts);
    places = std::move(sortedPlaces);
}

template <class IsAlike>
void CutRuns(const std::vector<ConstProductPart>& parts, const IsAlike& isAlike,
             const std::function<void(PartRun)>& onRun) {
    for (std::size_t begin = 0; begin < parts.size();) {
        std::size_t end = begin + 1;
        while (end < parts.size() && isAlike(end, begin))
            ++end;
        onRun(PartRun(parts).subspan(begin, end - begin));
        begin = end;
    }
}

} // namespace

void ForEachRun(std::vector<ConstProductPart>& parts, const IfGroupingComparator& comparator,
                const std::function<void(PartRun)>& onRun) {
    std::vector<std::uint32_t> places = comparator.GetPlaces(parts);
    if (places.size() == parts.size()) {
        SortByPlaces(parts, places);
        CutRuns(
            parts, [&](std::size_t a, std::size_t b) { return places[a] == places[b]; }, onRun);
        return;
    }
    std::ranges::stable_sort(parts, [&](const ConstProductPart& a, const ConstProductPart& b) {
        return comparator.Compare(a, b) < 0;
    });
    CutRuns(
        parts,
        [&](std::size_t a, std::size_t b) { return comparator.Compare(parts[a], parts[b]) == 0; },
        onRun);
}

} // namespace productTree
