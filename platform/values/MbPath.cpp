#include "host/MbPath.h"

#include "platform/values/Utf8.h"

MbPath MbPath_From_String(const std::wstring& text) {
    return MbPath(platform::ToUtf8(text));
}
