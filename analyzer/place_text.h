// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

#include "core/small_text.h"

namespace hmonitor {

/// A latitude or longitude in degrees, minutes and seconds, with a letter in place of the sign.
struct PlaceParts {
    double degrees = 0;
    double minutes = 0;
    double seconds = 0;

    static PlaceParts of(double place);
};

/// "34°  36' 30.0'' S ". At or below 0 the place is south.
std::string latitudeText(double latitude, std::string_view notAvailable);
/// The same with " E " and, at or below 0, " W ".
std::string longitudeText(double longitude, std::string_view notAvailable);
/// "25 mts"
std::string altitudeText(float metres, std::string_view notAvailable);

enum class Hemisphere { NorthOrEast, SouthOrWest };

/// A latitude or longitude in the fields of the session's editor.
struct PlaceFields {
    SmallText degrees = "00";
    SmallText minutes = "00";
    SmallText seconds = "00.0";
    Hemisphere side = Hemisphere::NorthOrEast;

    static PlaceFields of(double place);
    /// Degrees, south and west negative; never a negative 0.
    double place() const;
};

}  // namespace hmonitor
