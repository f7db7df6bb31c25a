// SPDX-License-Identifier: GPL-3.0-or-later
#include <array>
#include <cmath>

#include "drivers/simulated/station.h"

namespace hm16::simulated {

namespace {

using enum Sound;

// clang-format off
constexpr std::array kStations = {
    //       name        freq    sound      field  mod  pilot  error  rds  carrier noise  sep   thd  multipath
    Station{"COSTA",      879.0, Music,     52,   92,  9.1,   0.4,  2.6,   180, -61.0, 38.0, 0.62, 12},
    Station{"PUERTO",     887.0, Speech,    71,   96,  9.4,  -0.6,  3.0,  -240, -66.0, 44.0, 0.35,  6},
    Station{"CAMPUS",     893.0, Music,     44,   88,  8.3,   1.6,  0.0,   620, -60.2, 31.0, 1.40, 17},  // weak, no RDS
    Station{"DELTA",      899.0, Music,     78,  101,  9.0,   0.2,  3.4,   120, -68.0, 47.0, 0.28,  4},
    Station{"LIRICA",     907.0, Classical, 74,   84,  8.9,  -0.1,  2.2,   -90, -71.5, 54.0, 0.12,  3},
    Station{"VALLE",      913.0, Speech,    58,   93,  0.0,   0.0,  0.0,   310, -62.5,  0.0, 0.90,  9},  // mono
    Station{"NOCHE",      917.5, Music,     66,   97,  9.2,   0.8,  2.8,  -330, -65.0, 42.0, 0.44,  8},  // half step
    Station{"RITMO",      925.0, Music,     83,  104,  9.6,  -0.3,  3.8,   210, -66.5, 41.0, 0.55,  5},
    Station{"NORTE",      931.0, Speech,    49,   90,  8.6,  -1.2,  2.0,  -510, -61.5, 34.0, 1.05, 14},
    Station{"FUERZA",     939.0, Music,     86,  138, 10.0,   0.5,  4.0,   260, -64.0, 36.0, 1.48,  7},  // over-modulated
    Station{"PARQUE",     947.0, Music,     63,   95,  8.8,   0.9,  0.0,   150, -64.5, 40.0, 0.50, 10},  // no RDS
    Station{"MURALLA",    955.0, Music,     68,   98,  9.3,  -0.7,  3.1,  -280, -62.0, 33.0, 0.95, 34},  // heavy multipath
    Station{"ESCALA",     969.0, Classical, 59,   82,  8.5,   0.3,  2.4,    80, -69.0, 50.0, 0.18,  7},
    Station{"TREBOL",     977.0, Music,     46,   91,  8.2,   1.9,  2.1,   740, -60.5, 32.0, 1.20, 19},
    Station{"FAROFM",     985.0, Music,     88,  100,  9.0,   0.1,  3.2,    60, -70.5, 52.0, 0.16,  2},  // the best of all
    Station{"AVENIDA",    993.0, Speech,    64,   94,  9.5,  -0.4,  2.7,  -170, -65.5, 43.0, 0.40,  8},
    Station{"LEJANA",    1001.0, Music,     31,   87,  8.0,  -2.0,  0.0,  -880, -60.0, 30.0, 1.50, 25},  // very weak
    Station{"OCEANO",    1009.0, Music,     76,   99,  9.1,   0.6,  3.5,   190, -67.0, 46.0, 0.30,  5},
    Station{"DERIVA",    1017.0, Music,     70,   96,  8.7,   1.1,  2.9, 12600, -63.0, 37.0, 0.85, 11},  // off its carrier
    Station{"CUARTO",    1025.5, Music,     73,   98,  9.2,  -0.2,  3.0,   140, -66.8, 45.0, 0.33,  6},  // half step
    Station{"SIERRA",    1035.0, Speech,    55,   92,  0.0,   0.0,  2.3,   420, -63.5,  0.0, 0.75, 13},  // mono with RDS
    Station{"PLAZA",     1043.0, Music,     80,  102,  9.4,   0.7,  3.6,  -130, -67.5, 48.0, 0.26,  4},
    Station{"ESTUDIO",   1057.0, Classical, 67,   80,  8.4,  -0.5,  0.0,   230, -70.0, 49.0, 0.20,  9},  // no RDS
    Station{"CENTRAL",   1069.0, Speech,    91,   97,  9.7,   0.0,  3.3,    40, -69.5, 51.0, 0.22,  3},
    Station{"ULTIMA",    1079.0, Music,     61,   94,  8.9,  -0.9,  2.5,  -360, -64.2, 39.0, 0.58, 10},
};
// clang-format on

// The half width of the intermediate-frequency filter.
constexpr double kCapture = 0.75;

}  // namespace

std::span<const Station> stations() {
    return kStations;
}

const Station* stationAt(double frequency) {
    const Station* nearest = nullptr;
    for (const Station& station : kStations) {
        const double distance = std::abs(station.frequency - frequency);
        if (distance <= kCapture &&
            (nearest == nullptr || distance < std::abs(nearest->frequency - frequency))) {
            nearest = &station;
        }
    }
    return nearest;
}

}  // namespace hm16::simulated
