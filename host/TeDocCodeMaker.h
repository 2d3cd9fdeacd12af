// The host's dialog of document codes.
#pragma once

#include "host/SharedText.h"

class IGuiWindow;

class TeDocCodeMaker {
public:
    /// Lets the user choose the document code of a designation and changes `text` in place; it
    /// stays as it is when he cancels or leaves the code as it was. The dialog begins with the code
    /// that VariantMarking::Parse finds in `text`, and Parse finds the chosen one in what comes
    /// back. Any text is a code, and an empty one takes the code away. An empty `text` stands for
    /// several designations: whatever is confirmed for them, also no code, leaves another text.
    /// `withDelimiter`: the code stands behind its delimiter. `onlyCode`: `text` is the code alone.
    /// `parent` may be null.
    static void SetDocCode(SharedText& text, bool withDelimiter, bool onlyCode, IGuiWindow* parent);
};
