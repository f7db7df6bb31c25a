// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <string>

#include "tests/panels/audio/shown_digit.h"
#include "tests/support/rack_bench.h"

namespace hmonitor::test {

inline constexpr display::Colour kGreen{0x00ff00};
inline constexpr display::Colour kRed{0x2317fd};
inline constexpr display::Colour kUnlit{0x1d1c20};

/// The rack after its start, and what the quality panel shows as text.
class Quality : public testing::Test {
 protected:
    Quality() {
        bench.start();
        bench.takeCalls();
    }

    /// The digits of some places; a dark place is a blank, an invalid one "?".
    template <std::size_t Places>
    static std::string figures(std::array<SegmentDigit, Places>& places, display::Colour lit) {
        std::string text;
        for (SegmentDigit& place : places) {
            const std::string shown = shownFigure(place, lit, kUnlit);
            text += shown.empty() ? " " : shown;
        }
        return text;
    }

    std::string error19() {
        const bool bar = bench.formC.Line147.colour == kGreen;
        const bool upright = bench.formC.Line148.colour == kGreen;
        const bool dark = bench.formC.Line148.colour == kUnlit;
        const std::string sign = bar && upright ? "+" : bar && dark ? "-" : "?";
        return sign + figures(bench.formC.error19, kGreen);
    }
    std::string pilot() { return figures(bench.formC.pilot, kGreen); }
    std::string noise() { return figures(bench.formC.noise, kRed); }
    std::string distortion() { return figures(bench.formC.distortion, kRed); }
    std::string separation() { return figures(bench.formC.separation, kRed); }

    RackBench bench;
};

}  // namespace hmonitor::test
