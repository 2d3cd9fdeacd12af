// What the path of a file tells: its name, the way to it from a product file, and what a document
// is about. Files are not looked at.
#pragma once

#include "platform/product/model/ProductModel.h"

#include <filesystem>
#include <string>

namespace platform {

/// What can be the path of a document.
bool IsSoundFile(const std::string& path);

/// Without its folders.
SharedText FileNameOf(const std::string& path);

/// Of a file in the folder or below it, the path from there, which stays right when both are moved
/// together; of any other the path as it is. An empty folder changes nothing.
std::string PathFrom(const std::filesystem::path& folder, const std::string& path);
/// The way back.
std::string PathIn(const std::filesystem::path& folder, const std::string& stored);

/// A document of that file. Its first word is the designation where it has a digit in it, as in
/// "AB.101 Bracket.pdf"; what follows is the name.
DocumentRecord GuessDocument(std::string path);

} // namespace platform
