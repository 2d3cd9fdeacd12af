// Asks the user what properties are to show the value of, and plans their links to it. Knows which
// properties can be linked at all.
#pragma once

#include "platform/product/edits/ProductChanges.h"

#include <vector>

namespace platform {

class IUserDecisions;
struct PropertyRequest;

/// Of a number or a text without a list: others have no place for a link to be shown.
bool CanBeLinked(const PropertyTraits& property);

class LinkDialog final {
public:
    /// All must outlive the dialog.
    LinkDialog(const EditRules& rules, const PropertyDescriptions& descriptions,
               IUserDecisions& decisions)
        : m_rules(rules), m_descriptions(descriptions), m_decisions(decisions) {}

    /// The links that the user has chosen for the holders; empty when he has chosen nothing. Those
    /// that would lead to themselves are left out, and the user is told.
    ValuePlan Ask(const std::vector<ValueHolder>& holders);

private:
    bool CanShow(const std::vector<ValueHolder>& holders, const PropertyTraits& target) const;
    PropertyRequest MakeRequest(const std::vector<ValueHolder>& holders) const;

    const EditRules& m_rules;
    const PropertyDescriptions& m_descriptions;
    IUserDecisions& m_decisions;
};

} // namespace platform
