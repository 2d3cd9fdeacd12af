// Paths of files on their way from the product data to whoever opens them.
#pragma once

#include <filesystem>
#include <string>

using MbPath = std::filesystem::path;

/// The path that the text names; an empty text names none.
MbPath MbPath_From_String(const std::wstring& text);
