// SPDX-License-Identifier: GPL-3.0-or-later
#include "analyzer/place_text.h"

#include <cmath>

#include "analyzer/session_info.h"
#include "core/numbers.h"

namespace hmonitor {

namespace {

constexpr double kSixty = 60.0;

std::string placeText(double place, std::string_view notAvailable, const char* above,
                      const char* below) {
    if (place == double{kNotAvailable}) return std::string(notAvailable);
    const PlaceParts parts = PlaceParts::of(place);
    // Seconds are rounded without a carry: 59.96 is shown as "60.0".
    return shortText(parts.degrees).str() + "°  " + shortText(parts.minutes).str() + "' " +
           mask("00.0", parts.seconds).str() + "'' " + (place <= 0 ? below : above);
}

}  // namespace

PlaceParts PlaceParts::of(double place) {
    const double size = std::fabs(place);
    PlaceParts parts;
    parts.degrees = std::floor(size);
    const double minutes = (size - parts.degrees) * kSixty;
    parts.minutes = std::floor(minutes);
    parts.seconds = (minutes - parts.minutes) * kSixty;
    return parts;
}

std::string latitudeText(double latitude, std::string_view notAvailable) {
    return placeText(latitude, notAvailable, " N ", " S ");
}

std::string longitudeText(double longitude, std::string_view notAvailable) {
    return placeText(longitude, notAvailable, " E ", " W ");
}

std::string altitudeText(float metres, std::string_view notAvailable) {
    if (metres == kNotAvailable) return std::string(notAvailable);
    return mask("####0 mts", metres).str();
}

PlaceFields PlaceFields::of(double place) {
    const PlaceParts parts = PlaceParts::of(place);
    PlaceFields fields;
    fields.degrees = mask("00", parts.degrees);
    fields.minutes = mask("00", parts.minutes);
    // To hundredths before the mask, halves to even.
    const double hundredths = toWhole(parts.seconds * 100);
    fields.seconds = mask("00.0", hundredths / 100);
    fields.side = place <= 0 ? Hemisphere::SouthOrWest : Hemisphere::NorthOrEast;
    return fields;
}

double PlaceFields::place() const {
    const double value = valueOf(seconds) / 3600 + valueOf(minutes) / kSixty + valueOf(degrees);
    if (value == 0) return 0;
    return side == Hemisphere::SouthOrWest ? -std::fabs(value) : value;
}

}  // namespace hmonitor
