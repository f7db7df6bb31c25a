// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/figures.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cmath>
#include <set>
#include <string>

namespace figures {
namespace {

TEST(Figures, HaveKeysForEver) {
    std::vector<std::string> keys;
    for (const Figure& figure : all()) keys.emplace_back(figure.key);
    EXPECT_THAT(keys, testing::ElementsAre(
                          "deviation_peak", "level_left", "level_right", "level_sum",
                          "level_difference", "stereo_phase", "relative_power", "pilot_error",
                          "pilot_level", "noise_left", "noise_right", "separation_left",
                          "separation_right", "distortion", "carrier_error", "field", "multipath",
                          "peaks_per_minute", "rds_error", "rds_level"));
    for (const std::string& key : keys) {
        EXPECT_TRUE(std::ranges::all_of(key, [](char c) { return std::islower(c) || c == '_'; }))
            << key;
        ASSERT_NE(find(key), nullptr);
        EXPECT_EQ(find(key)->key, key);
    }
    EXPECT_EQ(find("loudness"), nullptr);
}

TEST(Figures, SpeakBothLanguagesAndStandInAFiniteRange) {
    for (const Figure& figure : all()) {
        for (const Words& words : {figure.name, figure.definition}) {
            EXPECT_STRNE(words.spanish, "") << figure.key;
            EXPECT_STRNE(words.english, "") << figure.key;
            EXPECT_STRNE(words.spanish, words.english) << figure.key;
        }
        EXPECT_EQ(*figure.remark.spanish == 0, *figure.remark.english == 0) << figure.key;
        EXPECT_TRUE(std::isfinite(figure.range.lowest) && std::isfinite(figure.range.highest))
            << figure.key;
        EXPECT_LT(figure.range.lowest, figure.range.highest) << figure.key;
        EXPECT_GT(figure.step, 0) << figure.key;
        if (std::isfinite(figure.good.lowest)) {
            EXPECT_GE(figure.good.lowest, figure.range.lowest) << figure.key;
        }
        if (std::isfinite(figure.good.highest)) {
            EXPECT_LE(figure.good.highest, figure.range.highest) << figure.key;
        }
    }
}

TEST(Figures, SayWhatIsGoodOfEach) {
    for (const Figure& figure : all()) {
        const bool bounded =
            std::isfinite(figure.good.lowest) || std::isfinite(figure.good.highest);
        EXPECT_TRUE(bounded || *figure.remark.english != 0) << figure.key;
    }
}

TEST(Figures, TakeEachOutputOfTheUnitOnceInEachAudioMode) {
    for (const Mode mode : {Mode::LeftRight, Mode::SumDifference}) {
        std::multiset<int> outputs;
        for (const Figure& figure : all()) {
            if (figure.source.mode == Mode::Any || figure.source.mode == mode) {
                outputs.insert(figure.source.output);
            }
        }
        for (int output = 1; output <= Source::kRdsLevel; ++output) {
            EXPECT_EQ(outputs.count(output), 1u) << output;
        }
        EXPECT_EQ(outputs.size(), 18u);
    }
}

TEST(Figures, FollowFromTheOutputByTheirFactor) {
    EXPECT_FLOAT_EQ(find("deviation_peak")->source.factor, 0.75f);  // kHz of a percent
    EXPECT_FLOAT_EQ(find("relative_power")->source.factor, 10);
    EXPECT_FLOAT_EQ(find("carrier_error")->source.factor, 100);  // Hz of units of 100 Hz
    EXPECT_EQ(find("stereo_phase")->kind, Kind::Angle);
    EXPECT_EQ(find("field")->kind, Kind::Level);
    EXPECT_EQ(find("peaks_per_minute")->kind, Kind::Count);
    for (const char* key :
         {"noise_left", "noise_right", "separation_left", "separation_right", "distortion"}) {
        EXPECT_EQ(find(key)->known, Known::NotZero) << key;
    }
    EXPECT_EQ(find("pilot_error")->known, Known::WithPilot);
}

}  // namespace
}  // namespace figures
