// Whether there is a screen to open a window on.
#pragma once

namespace desktop {

/// True when a display server answers. A variable that names a server which is gone, as in a
/// changed root or a closed remote session, is no display: a window would end the program.
bool HasDisplay();

} // namespace desktop
