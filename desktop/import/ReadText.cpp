#include "desktop/import/ReadText.h"

#include "desktop/import/StepText.h"

#include <TCollection_HAsciiString.hxx>

namespace desktop::step {

std::string RawText(const TCollection_HAsciiString* text) {
    if (!text)
        return {};
    return RestoreString({text->ToCString(), static_cast<std::size_t>(text->Length())});
}

} // namespace desktop::step
