// What properties can show the value of, and the links to it. Knows which properties can be linked
// at all.
#pragma once

#include "platform/product/edits/ProductChanges.h"

#include <vector>

namespace platform {

struct PropertyChoice;
struct PropertyRequest;

/// Of a number or a text without a list: others have no place for a link to be shown.
bool CanBeLinked(const PropertyTraits& property);

class LinkTargets final {
public:
    struct Plan {
        ValuePlan links;
        /// A link that would have led to itself was left out.
        bool isAnyRefused = false;
    };

    /// Both must outlive it.
    LinkTargets(EditRules rules, const PropertyDescriptions& descriptions)
        : m_rules(rules), m_descriptions(descriptions) {}

    /// What the user is asked where these are to show the value of something.
    PropertyRequest MakeRequest(const std::vector<ValueHolder>& holders) const;
    /// The links to what he has chosen; none where it is not there.
    Plan MakePlan(const std::vector<ValueHolder>& holders, const PropertyChoice& choice) const;

private:
    bool CanShow(const std::vector<ValueHolder>& holders, const PropertyTraits& target) const;

    EditRules m_rules;
    const PropertyDescriptions& m_descriptions;
};

} // namespace platform
