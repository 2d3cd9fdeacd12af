// The question before objects are deleted. Rows that can be deleted ask it, each in its own words.
#pragma once

#include "host/SharedText.h"
#include "host/UniqueMetaObjectKey.h"

#include <set>
#include <string_view>
#include <vector>

class IfProductTreeData;

namespace productTree {

/// The resource text of that name with its placeholders replaced; empty when they don't fit, and
/// the question is asked all the same.
SharedText FormatResourceText(std::string_view name, const std::vector<SharedText>& arguments);

/// Asks, and deletes the keys when the user agrees. False when nobody can be asked, when the user
/// refuses and when nothing was deleted.
bool AskAndDelete(IfProductTreeData& data, const std::set<UniqueMetaObjectKey>& keys,
                  std::string_view titleName, const SharedText& text);

} // namespace productTree
