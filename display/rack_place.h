// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace display {

/// Where the rack stands on the screen and how large it is, in logical pixels.
struct RackPlace {
    int left = 0;
    int top = 0;
    int width = 0;       ///< 0: as large as fits, in the middle of the screen
    bool whole = false;  ///< it takes the whole screen; the rest is what it leaves it for
    bool operator==(const RackPlace&) const = default;
};

}  // namespace display
