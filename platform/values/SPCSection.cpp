#include "host/SPCSection.h"

#include <boost/property_tree/ptree.hpp>
#include <memory>

namespace {

// In the order of the numbers.
const std::array<std::wstring, 6> c_numbers = {L"section", L"subSectionNumb",  L"blockSection",
                                               L"block",   L"ownBlockSection", L"ownBlock"};
const std::wstring c_name = L"name";

std::wstring ReadText(const PropValue::Tree& tree, const std::wstring& name) {
    const auto found = tree.find(name);
    return found == tree.not_found() ? std::wstring() : found->second.data();
}

} // namespace

namespace spc_section {

void FromPropertyTree(SPCSection& section, const PropValue::Tree& tree) {
    for (std::size_t i = 0; i < c_numbers.size(); ++i)
        section.numbers[i] = SimplePropVal(SharedText(ReadText(tree, c_numbers[i]))).to_int();
    section.name = ReadText(tree, c_name);
}

PropValue ToPropValue(const SPCSection& section) {
    if (section == SPCSection())
        return {};
    auto tree = std::make_shared<PropValue::Tree>();
    for (std::size_t i = 0; i < c_numbers.size(); ++i) {
        if (section.numbers[i] != 0)
            tree->push_back({c_numbers[i], PropValue::Tree(std::to_wstring(section.numbers[i]))});
    }
    if (!section.name.IsEmpty())
        tree->push_back({c_name, PropValue::Tree(section.name.Str())});
    return PropValue(std::move(tree));
}

} // namespace spc_section
