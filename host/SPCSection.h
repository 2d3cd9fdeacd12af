// The host's record of a specification section.
#pragma once

#include "host/PropValue.h"

#include <array>
#include <cstdint>

struct SPCSection {
    /// The section's number, its subsection, the section and block of a document-wide block, the
    /// section and block of a section's own block; 0 where a level is not used.
    std::array<std::int32_t, 6> numbers{};
    SharedText name;

    friend bool operator==(const SPCSection&, const SPCSection&) = default;
};

/// The text of a default section: 5 to 40 in steps of five; empty for any other number.
SharedText GetDefaultSectionNumbName(int number);

namespace spc_section {

/// Takes the section from the structured value of the property "SPCSection". What the tree does not
/// say, or says with what is no number, is 0 or empty.
void FromPropertyTree(SPCSection& section, const PropValue::Tree& tree);
/// The value that says so; an empty one for no section, which is one without numbers and name.
PropValue ToPropValue(const SPCSection& section);

} // namespace spc_section
