// What an imported object takes over from its source product, and what of that the user has left
// alone. The import fills objects by it, and an update tells an edit from an old reading by it.
#pragma once

#include "platform/product/model/ProductModel.h"

namespace platform {

/// What people call the object: its name, or its designation where it has no name.
SharedText TitleOf(const ObjectRecord& object);

/// Without its folders.
SharedText FileNameOf(const SourceFile& source);

/// The file as a document of an object that came from it. It is the source as long as the object
/// has name and designation as the file last said.
DocumentRecord MakeSourceDocument(const SourceFile& source, const ObjectRecord& object);

/// Gives the object name, designation, material and density of the product, as they come with an
/// import, and remembers them.
void TakeOver(ObjectRecord& object, SourceProduct product);

/// The object follows its product from its last reading to `now`, but for what the user has given
/// it himself. False: nothing of the object has changed.
bool Follow(ObjectRecord& object, const SourceProduct& now);

} // namespace platform
