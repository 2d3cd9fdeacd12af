// What the product tree listens to on the bus: a document has changed outside of the panel.
#pragma once

#include "host/EventsBus.h"

namespace document_events {

/// The router of documents and the one message on it that the panel takes.
inline constexpr EventsRouterID c_router{0, 7};
inline constexpr unsigned c_changed = 0x601;

/// Its `wParam`, with an `lParam` of 0: which objects there are, or how they are built up, has
/// changed, and the panel builds its rows anew. With anything else it reads the values again.
inline constexpr unsigned long c_structure = 15;
inline constexpr unsigned long c_values = 0;

} // namespace document_events
