#include "sorting/PartRuns.h"

#include <algorithm>
#include <cstddef>
#include <numeric>

namespace productTree {

namespace {

using meta_data::grouping::IfGroupingComparator;

using Order = std::vector<std::uint32_t>;

Order MakeOrder(const std::vector<ConstProductPart>& parts,
                const std::vector<std::uint32_t>& places, const IfGroupingComparator& comparator) {
    Order order(parts.size());
    std::iota(order.begin(), order.end(), 0U);
    if (places.size() == parts.size()) {
        std::ranges::sort(order, [&](std::uint32_t a, std::uint32_t b) {
            return places[a] != places[b] ? places[a] < places[b] : a < b;
        });
    } else {
        std::ranges::stable_sort(order, [&](std::uint32_t a, std::uint32_t b) {
            return comparator.Compare(parts[a], parts[b]) < 0;
        });
    }
    return order;
}

void BringInto(const Order& order, std::vector<ConstProductPart>& parts) {
    std::vector<ConstProductPart> sorted;
    sorted.reserve(parts.size());
    for (const std::uint32_t origin : order)
        sorted.push_back(std::move(parts[origin]));
    parts = std::move(sorted);
}

} // namespace

void ForEachRun(std::vector<ConstProductPart>& parts, const IfGroupingComparator& comparator,
                const std::function<void(const PartRun&)>& onRun) {
    const std::vector<std::uint32_t> places = comparator.GetPlaces(parts);
    const Order order = MakeOrder(parts, places, comparator);
    BringInto(order, parts);

    const bool hasPlaces = places.size() == parts.size();
    const auto isAlike = [&](std::size_t a, std::size_t b) {
        return hasPlaces ? places[order[a]] == places[order[b]]
                         : comparator.Compare(parts[a], parts[b]) == 0;
    };
    for (std::size_t begin = 0; begin < parts.size();) {
        std::size_t end = begin + 1;
        while (end < parts.size() && isAlike(end, begin))
            ++end;
        onRun({std::span(parts).subspan(begin, end - begin),
               std::span(order).subspan(begin, end - begin)});
        begin = end;
    }
}

} // namespace productTree
