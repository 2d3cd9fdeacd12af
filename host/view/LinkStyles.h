// How a link is shown.
#pragma once

/// What SetLinkCell, SetNameLinkStyle and SetLinkStyle of a designation take.
enum LinkStyle : int {
    /// What the link leads to is gone.
    LinkStyleDead = 0,
    LinkStyleLive = 2,
};
