// SPDX-License-Identifier: GPL-3.0-or-later
// The outputs that the modulation panel shows, at their limits and one step beyond.
#include <gtest/gtest.h>

#include "tests/panels/rack/tour.h"

namespace hmonitor::test {
namespace {

TEST(Tour, PeakModulation) {
    visit(1, {{0, {{"percent", "0.0"}, {"kHz", "0.0"}, {"bar", "0"}}},
              {1, {{"percent", "1.0"}, {"kHz", "0.8"}, {"bar", "1"}}},
              {99.9f, {{"percent", "99.9"}, {"kHz", "74.9"}, {"bar", "99"}}},
              {100, {{"percent", "100.0"}, {"kHz", "75.0"}, {"bar", "100"}}},
              {160, {{"percent", "160.0"}, {"kHz", "120.0"}, {"bar", "160"}}},
              {161, {{"percent", "161.0"}, {"kHz", "120.8"}, {"bar", "160"}}},
              {1000, {{"percent", "1000.0"}, {"kHz", "750.0"}, {"bar", "160"}}},
              {1001, {}},
              // The held peak falls below zero and comes back to it.
              {-1, {{"percent", "0.0"}, {"kHz", "-0.8"}, {"bar", "-1"}}},
              {-1001, {}}});
}

TEST(Tour, CarrierDeviation) {
    visit(13, {{0, {{"carrier", "0.0"}}},
               {99, {{"carrier", "9.9"}}},
               {99.99f, {{"carrier", "10.0"}}},
               {100, {{"carrier", "10.0 bad"}, {"over", "lit"}}},
               {100.5f, {{"carrier", "10.1 bad"}, {"over", "lit"}}},
               {101, {{"carrier", "10.1 bad"}}},
               {-99, {{"carrier", "-9.9"}}},
               {-99.5f, {{"carrier", "-10.0"}, {"over", "lit"}}},
               {-100, {{"carrier", "-10.0 bad"}, {"over", "lit"}}},
               {-101, {{"carrier", "-10.1 bad"}}},
               {10000, {{"carrier", "1000.0 bad"}}},
               {10001, {}}});
}

TEST(Tour, FieldIntensity) {
    visit(14, {{60.04f, {{"field", "60.0"}, {"tenths", "600.4"}}},
               {45, {{"field", "45.0"}, {"tenths", "450"}}},
               // The row was lit before; it goes dark when the field is too weak to judge.
               {44.9f, {{"field", "44.9"}, {"tenths", "449"}, {"multipath", "..... BAD"}}},
               {0, {{"field", "0.0"}, {"tenths", "0"}, {"multipath", "..... BAD"}}},
               {-1, {{"field", "-1.0"}, {"tenths", "-10"}, {"multipath", "..... BAD"}}},
               {99.9f, {{"field", "99.9"}, {"tenths", "999"}}},
               {100, {{"field", "100.0"}, {"tenths", "999"}}},
               {10000, {{"field", "10000.0"}, {"tenths", "999"}}},
               {10001, {}},
               {-10001, {}}});
}

TEST(Tour, Multipath) {
    visit(15, {{0, {}},
               {5, {}},
               {6, {{"multipath", "####. GOOD"}}},
               {10, {{"multipath", "####. GOOD"}}},
               {11, {{"multipath", "###.. GOOD"}}},
               {15, {{"multipath", "###.. GOOD"}}},
               {16, {{"multipath", "##..."}}},
               {20, {{"multipath", "##..."}}},
               {21, {{"multipath", "#...."}}},
               {27, {{"multipath", "#...."}}},
               {27.9f, {{"multipath", "#...."}}},
               {28, {{"multipath", "..... BAD"}}},
               {29, {{"multipath", "..... BAD"}}},
               {-27, {{"multipath", "#...."}}},
               {-27.1f, {{"multipath", "..... BAD"}}},
               {10000, {{"multipath", "..... BAD"}}},
               {10001, {}}});
}

TEST(Tour, PeaksPerMinute) {
    visit(16, {{0, {{"peaks", "0"}}},
               {1, {{"peaks", "1"}}},
               {0.5f, {{"peaks", "0.5"}}},
               {-1, {{"peaks", "-1"}}},
               {10000, {{"peaks", "10000"}}},
               {10001, {}}});
}

}  // namespace
}  // namespace hmonitor::test
