// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace display {

enum class Align { Left, Centre, Right };
enum class Weight { Normal, Bold };

/// Height, weight and spacing of a text. The size is in twips, whatever the container's unit is.
struct Font {
    float size = 180;
    Weight weight = Weight::Normal;
    bool spaced = false;  ///< letters spaced out, as engraved headings are
    bool operator==(const Font&) const = default;
};

/// What a panel looks like. The model only names the look; each display draws it in its own way.
enum class Surface {
    None,       ///< nothing of its own
    Faceplate,  ///< the metal of a rack unit
    Well,       ///< a dark display set into the faceplate
    Plate,      ///< a light plate for black figures
    Sheet,      ///< white paper
    Glow,       ///< light that grows to the right: the leading end of a moving bar
    Veil        ///< dims what lies under it
};

}  // namespace display
