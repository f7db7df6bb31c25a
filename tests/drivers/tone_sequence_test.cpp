// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/simulated/tone_sequence.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <vector>

namespace hm16::simulated {
namespace {

const Station* const kStation = &stations()[14];

std::vector<int> frequencies(const ResponseResults& results) {
    std::vector<int> list;
    for (const ResponsePair& pair : results) list.push_back(pair.frequency);
    return list;
}

TEST(ToneSequence, EndsThirteenSecondsAfterItsStart) {
    const ToneSequence tones(kStation, 16, 100);
    EXPECT_FALSE(tones.ended(100));
    EXPECT_FALSE(tones.ended(112.99));
    EXPECT_TRUE(tones.ended(113));
}

TEST(ToneSequence, SendsTheEightTonesFromLowToHighBehindASecondOfWaiting) {
    const ToneSequence tones(kStation, 16, 0);
    EXPECT_EQ(tones.toneAt(0.9), 0);
    std::vector<int> heard;
    for (int i = 0; i < 8; ++i) heard.push_back(tones.toneAt(1.5 + i * 1.5));
    EXPECT_EQ(heard, (std::vector{30, 125, 400, 1000, 4000, 8000, 12000, 15000}));
    EXPECT_EQ(tones.toneAt(13.1), 0);
}

TEST(ToneSequence, GivesEightPairsInAnOrderOfItsOwn) {
    const auto list = frequencies(ToneSequence(kStation, 16, 0).results(13));
    EXPECT_EQ(std::set<int>(list.begin(), list.end()),
              (std::set{30, 125, 400, 1000, 4000, 8000, 12000, 15000}));
    EXPECT_FALSE(std::is_sorted(list.begin(), list.end()));
    EXPECT_FALSE(std::is_sorted(list.rbegin(), list.rend()));
}

TEST(ToneSequence, LevelsFallTowardsBothEndsAndStandOnOneKilohertz) {
    for (const Station& station : stations()) {
        for (const ResponsePair& pair : ToneSequence(&station, 16, 0).results(13)) {
            EXPECT_GE(pair.level, -60) << station.name << pair.frequency;
            EXPECT_LE(pair.level, 20) << station.name << pair.frequency;
            const bool edge = pair.frequency == 30 || pair.frequency == 15000;
            EXPECT_TRUE(pair.frequency != 1000 || pair.level == 0) << station.name;
            EXPECT_TRUE(!edge || pair.level < 0) << station.name << pair.frequency;
        }
    }
}

TEST(ToneSequence, ARunThatIsCutShortHasTheTonesThatHadEnded) {
    const ToneSequence tones(kStation, 16, 0);
    const auto list = frequencies(tones.results(5.6));
    EXPECT_EQ(std::multiset<int>(list.begin(), list.end()),
              (std::multiset{0, 0, 0, 0, 0, 30, 125, 400}));
    for (const ResponsePair& pair : tones.results(0.5)) EXPECT_EQ(pair.frequency, 0);
}

TEST(ToneSequence, BetweenStationsNothingIsHeardAndTheRunStillEnds) {
    const ToneSequence tones(nullptr, 16, 0);
    EXPECT_EQ(tones.toneAt(2), 0);
    EXPECT_TRUE(tones.ended(13));
    for (const ResponsePair& pair : tones.results(13)) EXPECT_EQ(pair.frequency, 0);
}

}  // namespace
}  // namespace hm16::simulated
