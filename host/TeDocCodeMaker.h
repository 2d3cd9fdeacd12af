// The host's dialog of document codes.
#pragma once

#include "host/SharedText.h"

class IGuiWindow;

class TeDocCodeMaker {
public:
    /// Lets the user choose the document code of a designation and changes `text` in place; it
    /// stays as it is when he cancels. `withDelimiter`: the code stands behind its delimiter.
    /// `onlyCode`: `text` is the code alone. `parent` may be null.
    static void SetDocCode(SharedText& text, bool withDelimiter, bool onlyCode, IGuiWindow* parent);
};
