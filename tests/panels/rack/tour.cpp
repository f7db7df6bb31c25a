// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/panels/rack/tour.h"

#include <gtest/gtest.h>

#include "tests/panels/rack/rack_view.h"

namespace hmonitor::test {

namespace {

constexpr float kOrdinary[] = {80, -10, -12,  45, 2.5f, 1.5f, 9.5f, -60,  -61,
                               40, 41,  0.5f, 12, 60,   5,    7,    0.4f, 4.2f};

const Sights kOrdinarySights = {{"percent", "80.0"},
                                {"kHz", "60.0"},
                                {"bar", "80"},
                                {"left bar", "31+0^31"},
                                {"left figure", "-10"},
                                {"right bar", "27+0^27"},
                                {"right figure", "-12"},
                                {"phase", "45.00"},
                                {"phase needle", "0.00"},
                                {"phase trail", "0.00"},
                                {"phase digits", "_45"},
                                {"power", "25"},
                                {"power digits", "25"},
                                {"power needle", "0.00"},
                                {"19 kHz", "+1.5"},
                                {"19 kHz digits", "+_15"},
                                {"pilot", "9.5"},
                                {"pilot digits", "_95"},
                                {"left noise", "-60.0"},
                                {"right noise", "-61.0"},
                                {"noise digits", "6061"},
                                {"left separation", "40.0"},
                                {"right separation", "41.0"},
                                {"separation digits", "4041"},
                                {"distortion", "0.50"},
                                {"distortion digits", "050"},
                                {"carrier", "1.2"},
                                {"over", "dark"},
                                {"field", "60.0"},
                                {"tenths", "600"},
                                {"multipath", "##### GOOD"},
                                {"peaks", "7"},
                                {"57 kHz", "+0.4"},
                                {"RDS", "4.2"}};

}  // namespace

void visit(int output, std::initializer_list<Stop> stops) {
    for (const Stop& stop : stops) {
        RackBench bench;
        for (int i = 1; i <= kRdsLevel; ++i) bench.output(i) = kOrdinary[i - 1];
        bench.start();
        bench.advance(std::chrono::milliseconds(1000));
        bench.output(output) = stop.said;
        bench.advance(std::chrono::milliseconds(13000));
        const RackView view(bench);
        Sights expected = kOrdinarySights;
        for (const auto& [place, shown] : stop.sights) expected[place] = shown;
        const Sights seen = view.all();
        ASSERT_EQ(seen.size(), expected.size());
        for (const auto& [place, shown] : seen) {
            EXPECT_EQ(shown, expected[place])
                << place << " while output " << output << " says " << stop.said;
        }
    }
}

}  // namespace hmonitor::test
