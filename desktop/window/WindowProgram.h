// The two things that need the window toolkit: running the window, and taking a picture of it.
#pragma once

#include "desktop/Session.h"

#include <filesystem>
#include <memory>

namespace desktop {

class UserLists;

/// Runs until the user closes the window. The program's exit status.
int RunWindow(std::unique_ptr<Session> session, UserLists& lists);

/// The same with a window that is empty but for the message that the file can't be opened.
void RunEmptyWindow(const std::filesystem::path& path, const FileError& error, UserLists& lists);

/// Draws the window without a display and writes it as a PNG file. False when that can't be
/// written.
bool WritePicture(std::unique_ptr<Session> session, const std::filesystem::path& path);

} // namespace desktop
