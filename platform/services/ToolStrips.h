// The tool strips of the host's resources, and what a command looks like wherever it stands: its
// texts and its key. Strips and menus are made from here; whether a command can be run is told by
// the view that they belong to.
#pragma once

#include "host/SharedText.h"

#include <span>
#include <string_view>

namespace platform {

/// The commands from left to right; 0 is a line between groups. None for a strip that a window
/// fills itself, and for a name that is none of a strip.
std::span<const unsigned> FindToolStrip(std::string_view name);

struct CommandFace {
    SharedText text;
    /// What it does, for who points at it; empty where the text says it.
    SharedText tip;
    /// As "Ctrl+K"; empty for a command without one.
    std::string_view key;
};

/// Of a command of the module "oProductTree". All is empty for an unknown one.
CommandFace GetCommandFace(unsigned command);

} // namespace platform
