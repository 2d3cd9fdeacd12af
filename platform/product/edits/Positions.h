// Positions of a product's rows: which row takes a number when all rows are numbered, which loses
// the one it has, and which objects have a position together.
//
// A row gets no number when
// - it is the product's own or a section's,
// - its section has no positions, as documentation by default,
// - no part that it shows stands in the current specification,
// - every object that it shows keeps its own position, can't be changed or has it by a link,
// - it shows again an object that is never in a group and has a row already,
// - it is that of a billet that stands at several places.
// The last two are left as they are, and so are positions that are kept or can't be written. Any
// other position of such a row is taken away.
#pragma once

#include "platform/product/edits/ProductChanges.h"

namespace platform {

/// The row of the part is given a number, for the object of this very part among others.
bool TakesNumber(const EditRules& rules, const PartEntry& part);
/// The number of the row is passed over, since the object has one of its own.
bool KeepsPosition(const PartEntry& part);
/// The object's position is taken away when rows are numbered.
bool LosesPosition(const EditRules& rules, const PartEntry& part);
/// Gives the position of an object to all that share its row, but for those that keep their own.
void SpreadPosition(const EditRules& rules, const PartEntry& object, const PropValue& position,
                    ValuePlan& plan);

} // namespace platform
