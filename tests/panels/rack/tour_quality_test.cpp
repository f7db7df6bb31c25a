// SPDX-License-Identifier: GPL-3.0-or-later
// The outputs that the quality panel shows, at their limits and one step beyond.
#include <gtest/gtest.h>

#include "tests/panels/rack/tour.h"

namespace hmonitor::test {
namespace {

TEST(Tour, PilotError) {
    visit(6, {{0, {{"19 kHz", "0.0"}, {"19 kHz digits", "+__0"}}},
              {0.1f, {{"19 kHz", "+0.1"}, {"19 kHz digits", "+__1"}}},
              {-0.1f, {{"19 kHz", "-0.1"}, {"19 kHz digits", "-__1"}}},
              {0.04f, {{"19 kHz", "+0.0"}, {"19 kHz digits", "+__0"}}},
              {-0.04f, {{"19 kHz", "0.0"}, {"19 kHz digits", "-__0"}}},
              {1.26f, {{"19 kHz", "+1.3"}, {"19 kHz digits", "+_12"}}},
              {9.99f, {{"19 kHz", "+10.0"}, {"19 kHz digits", "+_99"}}},
              {10, {{"19 kHz", "+10.0"}, {"19 kHz digits", "+100"}}},
              {99.9f, {{"19 kHz", "+99.9"}, {"19 kHz digits", "+999"}}},
              {100, {{"19 kHz", "+100.0"}, {"19 kHz digits", "+999"}}},
              {-99.9f, {{"19 kHz", "-99.9"}, {"19 kHz digits", "-999"}}},
              // Beyond that only the sign changes: the digits keep the ordinary station's.
              {-100, {{"19 kHz", "-100.0"}, {"19 kHz digits", "-_15"}}},
              {11583, {{"19 kHz", "+11583.0"}, {"19 kHz digits", "+999"}}},
              {20000, {{"19 kHz", "+20000.0"}, {"19 kHz digits", "+999"}}},
              {-20000, {{"19 kHz", "-20000.0"}, {"19 kHz digits", "-_15"}}},
              {20001, {}},
              {-20001, {}}});
}

TEST(Tour, PilotLevel) {
    visit(7, {{0.31f, {{"pilot", "0.3"}, {"pilot digits", "__3"}}},
              // Without a pilot its error means nothing.
              {0.3f, {{"pilot", "0.3"}, {"pilot digits", "__3"}, {"19 kHz", "----"}}},
              {0, {{"pilot", "0.0"}, {"pilot digits", "__0"}, {"19 kHz", "----"}}},
              {-1, {{"pilot", "-1.0"}, {"pilot digits", "_10"}, {"19 kHz", "----"}}},
              {0.99f, {{"pilot", "1.0"}, {"pilot digits", "__9"}}},
              {1, {{"pilot", "1.0"}, {"pilot digits", "_10"}}},
              {9.99f, {{"pilot", "10.0"}, {"pilot digits", "_99"}}},
              {10, {{"pilot", "10.0"}, {"pilot digits", "100"}}},
              {99.9f, {{"pilot", "99.9"}, {"pilot digits", "999"}}},
              // Of four digits the first three are shown.
              {100, {{"pilot", "100.0"}, {"pilot digits", "100"}}},
              {123.4f, {{"pilot", "123.4"}, {"pilot digits", "123"}}},
              {10000, {{"pilot", "10000.0"}, {"pilot digits", "100"}}},
              {10001, {}}});
}

TEST(Tour, LeftNoise) {
    visit(8, {{0, {{"left noise", "0.0"}, {"noise digits", "0061"}}},
              {-0.9f, {{"left noise", "-0.9"}, {"noise digits", "0061"}}},
              {-9.9f, {{"left noise", "-9.9"}, {"noise digits", "0961"}}},
              {-72.45f, {{"left noise", "-72.5"}, {"noise digits", "7261"}}},
              {-99, {{"left noise", "-99.0"}, {"noise digits", "9961"}}},
              {-99.9f, {{"left noise", "-99.9"}, {"noise digits", "9961"}}},
              {-100, {{"left noise", "-100.0"}, {"noise digits", "9961"}}},
              {1, {{"left noise", "1.0"}, {"noise digits", "0161"}}},
              {-10000, {{"left noise", "-10000.0"}, {"noise digits", "9961"}}},
              {-10001, {}}});
}

TEST(Tour, RightNoise) {
    visit(9, {{0, {{"right noise", "0.0"}, {"noise digits", "6000"}}},
              {-9.9f, {{"right noise", "-9.9"}, {"noise digits", "6009"}}},
              {-99, {{"right noise", "-99.0"}, {"noise digits", "6099"}}},
              {-100, {{"right noise", "-100.0"}, {"noise digits", "6099"}}},
              {10000, {{"right noise", "10000.0"}, {"noise digits", "6099"}}},
              {10001, {}}});
}

TEST(Tour, LeftSeparation) {
    visit(10, {{0, {{"left separation", "0.0"}, {"separation digits", "0041"}}},
               {0.9f, {{"left separation", "0.9"}, {"separation digits", "0041"}}},
               {-1, {{"left separation", "-1.0"}, {"separation digits", "0041"}}},
               {9.99f, {{"left separation", "10.0"}, {"separation digits", "0941"}}},
               {99, {{"left separation", "99.0"}, {"separation digits", "9941"}}},
               {99.9f, {{"left separation", "99.9"}, {"separation digits", "9941"}}},
               {100, {{"left separation", "100.0"}, {"separation digits", "9941"}}},
               {10000, {{"left separation", "10000.0"}, {"separation digits", "9941"}}},
               {10001, {}}});
}

TEST(Tour, RightSeparation) {
    visit(11, {{0, {{"right separation", "0.0"}, {"separation digits", "4000"}}},
               {-1, {{"right separation", "-1.0"}, {"separation digits", "4000"}}},
               {99, {{"right separation", "99.0"}, {"separation digits", "4099"}}},
               {100, {{"right separation", "100.0"}, {"separation digits", "4099"}}},
               {10001, {}}});
}

TEST(Tour, HarmonicDistortion) {
    visit(12, {{0, {{"distortion", "0.00"}, {"distortion digits", "000"}}},
               {0.01f, {{"distortion", "0.01"}, {"distortion digits", "001"}}},
               {-0.01f, {{"distortion", "-0.01"}, {"distortion digits", "000"}}},
               {0.05f, {{"distortion", "0.05"}, {"distortion digits", "005"}}},
               {0.099f, {{"distortion", "0.10"}, {"distortion digits", "009"}}},
               {0.1f, {{"distortion", "0.10"}, {"distortion digits", "010"}}},
               {1, {{"distortion", "1.00"}, {"distortion digits", "100"}}},
               {9.99f, {{"distortion", "9.99"}, {"distortion digits", "999"}}},
               {9.999f, {{"distortion", "10.00"}, {"distortion digits", "999"}}},
               // Of four digits the first three are shown.
               {10, {{"distortion", "10.00"}, {"distortion digits", "100"}}},
               {12.34f, {{"distortion", "12.34"}, {"distortion digits", "123"}}},
               {10000, {{"distortion", "10000.00"}, {"distortion digits", "100"}}},
               {10001, {}}});
}

TEST(Tour, RdsError) {
    visit(kRdsError, {{0, {{"57 kHz", "0.0"}}},
                      {0.04f, {{"57 kHz", "+0.0"}}},
                      {-0.04f, {{"57 kHz", "0.0"}}},
                      {-0.75f, {{"57 kHz", "-0.8"}}},
                      {99.9f, {{"57 kHz", "+99.9"}}},
                      {100, {{"57 kHz", "+100.0"}}},
                      {10000, {{"57 kHz", "+10000.0"}}},
                      {-10000, {{"57 kHz", "-10000.0"}}},
                      {10001, {}},
                      {-10001, {}}});
}

TEST(Tour, RdsLevel) {
    visit(kRdsLevel, {{0.31f, {{"RDS", "0.3"}}},
                      // Without RDS its error means nothing.
                      {0.3f, {{"RDS", "0.3"}, {"57 kHz", "----"}}},
                      {0, {{"RDS", "0.0"}, {"57 kHz", "----"}}},
                      {-1, {{"RDS", "-1.0"}, {"57 kHz", "----"}}},
                      {10000, {{"RDS", "10000.0"}}},
                      {10001, {}},
                      {-10001, {}}});
}

}  // namespace
}  // namespace hmonitor::test
