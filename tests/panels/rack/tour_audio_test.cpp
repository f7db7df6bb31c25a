// SPDX-License-Identifier: GPL-3.0-or-later
// The outputs that the audio and stereo panel shows, at their limits and one step beyond.
#include <gtest/gtest.h>

#include <map>
#include <string>

#include "tests/panels/rack/tour.h"

namespace hmonitor::test {
namespace {

TEST(Tour, LeftLevel) {
    visit(2, {{0, {{"left bar", "51+0^51"}, {"left figure", "0"}}},
              {0.9f, {{"left bar", "51+0^51"}, {"left figure", "0"}}},
              {1, {{"left bar", "51+2^53"}, {"left figure", "1 red"}}},
              {-0.1f, {{"left bar", "49+0^49"}, {"left figure", "-1"}}},
              {4.9f, {{"left bar", "51+8^59"}, {"left figure", "4 red"}}},
              {5, {{"left bar", "51+10^61"}, {"left figure", "5 red"}}},
              {6, {{"left bar", "51+10^61"}, {"left figure", "6 red"}}},
              {-24, {{"left bar", "3+0^3"}, {"left figure", "-24"}}},
              {-25, {{"left bar", "1+0^1"}, {"left figure", "-25"}}},
              {-26, {{"left bar", "1+0^1"}, {"left figure", "-26"}}},
              {-63, {{"left bar", "1+0^1"}, {"left figure", "-63"}}},
              {-64, {{"left bar", "1+0^1"}, {"left figure", "-64"}}},
              // A window maximum begins at the scale's lowest value.
              {-65, {{"left bar", "1+0^1"}, {"left figure", "-64"}}},
              {10000, {{"left bar", "51+10^61"}, {"left figure", "10000 red"}}},
              {-10000, {{"left bar", "1+0^1"}, {"left figure", "-64"}}},
              {10001, {}},
              {-10001, {}}});
}

TEST(Tour, RightLevel) {
    visit(3, {{0, {{"right bar", "51+0^51"}, {"right figure", "0"}}},
              {1, {{"right bar", "51+2^53"}, {"right figure", "1 red"}}},
              {5, {{"right bar", "51+10^61"}, {"right figure", "5 red"}}},
              {6, {{"right bar", "51+10^61"}, {"right figure", "6 red"}}},
              {-25, {{"right bar", "1+0^1"}, {"right figure", "-25"}}},
              {-26, {{"right bar", "1+0^1"}, {"right figure", "-26"}}},
              {-64, {{"right bar", "1+0^1"}, {"right figure", "-64"}}},
              {-65, {{"right bar", "1+0^1"}, {"right figure", "-64"}}},
              {10000, {{"right bar", "51+10^61"}, {"right figure", "10000 red"}}},
              {10001, {}}});
}

/// The needle and its trail stay within -90 to 90 degrees whatever the unit says; label and digits
/// show the reading.
TEST(Tour, StereoPhase) {
    const char* const right = "90.00";
    const char* const left = "-90.00";
    const auto stop = [](const char* label, const char* needle, const char* digits) {
        return std::map<std::string, std::string>{{"phase", label},
                                                  {"phase needle", needle},
                                                  {"phase trail", needle},
                                                  {"phase digits", digits}};
    };
    visit(4, {{0, stop("00.00", right, "__0")},
              {0.01f, stop("00.01", "89.98", "__0")},
              {-0.01f, stop("-00.01", right, "__0")},
              {-1, stop("-01.00", right, "__0")},
              {-64, stop("-64.00", right, "__0")},
              {9.99f, stop("09.99", "70.02", "__9")},
              {10, stop("10.00", "70.00", "_10")},
              {89.99f, stop("89.99", "-89.98", "_89")},
              {90, stop("90.00", left, "_90")},
              {90.01f, stop("90.01", left, "_90")},
              {95, stop("95.00", left, "_95")},
              {99.99f, stop("99.99", left, "_99")},
              {100, stop("100.00", left, "100")},
              {101, stop("101.00", left, "101")},
              {199, stop("199.00", left, "199")},
              // The hundreds place can only show a 1.
              {234, stop("234.00", left, "134")},
              {10000, stop("10000.00", left, "100")},
              {-10000, stop("-10000.00", right, "__0")},
              {10001, {}},
              {-10001, {}}});
}

TEST(Tour, RelativePower) {
    const auto stop = [](const char* text, const char* needle, const char* digits) {
        return std::map<std::string, std::string>{
            {"power", text}, {"power needle", needle}, {"power digits", digits}};
    };
    visit(5, {{5, stop("50", "25.00", "50")},
              {4.96f, stop("49.6", "24.00", "50")},
              {9.9f, stop("99", "74.00", "99")},
              // A tens digit of 10 leaves the place as it was: the 2 of the 25.
              {10, stop("100", "75.00", "20")},
              {10.1f, stop("101", "76.00", "21")},
              {10001, {}},
              {-10001, {}}});
}

}  // namespace
}  // namespace hmonitor::test
