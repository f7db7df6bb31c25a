// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/figures.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cmath>
#include <string>
#include <vector>

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
        std::vector<Output> outputs;
        for (const Figure& figure : all()) {
            if (figure.source.mode == Mode::Any || figure.source.mode == mode) {
                outputs.push_back(figure.source.output);
            }
        }
        for (const Output output : kOutputs) {
            EXPECT_EQ(std::ranges::count(outputs, output), 1);
        }
        EXPECT_EQ(outputs.size(), kOutputs.size());
    }
}

TEST(Figures, FollowFromTheOutputByTheirFactor) {
    EXPECT_FLOAT_EQ(find("deviation_peak")->source.factor, 0.75f);  // percent to kHz
    EXPECT_FLOAT_EQ(find("relative_power")->source.factor, 10);
    EXPECT_FLOAT_EQ(find("carrier_error")->source.factor, 100);  // units of 100 Hz to Hz
    EXPECT_EQ(find("stereo_phase")->kind, Kind::Angle);
    EXPECT_EQ(find("field")->kind, Kind::Level);
    EXPECT_EQ(find("peaks_per_minute")->kind, Kind::Count);
    for (const char* key :
         {"noise_left", "noise_right", "separation_left", "separation_right", "distortion"}) {
        EXPECT_EQ(find(key)->known, Known::NotZero) << key;
    }
    EXPECT_EQ(find("pilot_error")->known, Known::WithPilot);
}

State stateOfKey(const char* key, const Readings& readings, Mode mode = Mode::LeftRight) {
    const State held = heldBy(*find(key), readings, mode);
    return held == State::Known ? knownWhen(*find(key), readings) : held;
}

TEST(FigureState, OfNoiseSeparationAndDistortionIsNotMeasuredAt0) {
    Readings readings;
    readings.noiseLeft = -61;
    readings.separationRight = 40;
    readings.distortion = 0.5f;
    EXPECT_EQ(stateOfKey("noise_left", readings), State::Known);
    EXPECT_EQ(stateOfKey("noise_right", readings), State::NotMeasured);
    EXPECT_EQ(stateOfKey("separation_left", readings), State::NotMeasured);
    EXPECT_EQ(stateOfKey("separation_right", readings), State::Known);
    EXPECT_EQ(stateOfKey("distortion", readings), State::Known);
    EXPECT_EQ(stateOfKey("distortion", Readings{}), State::NotMeasured);
}

TEST(FigureState, OfSubcarriersNeedsMoreThanThreeTenthsOfAPercent) {
    Readings readings;
    readings.pilotLevel = readings.rdsLevel = 0.3f;
    EXPECT_EQ(stateOfKey("pilot_error", readings), State::NoPilot);
    EXPECT_EQ(stateOfKey("rds_error", readings), State::NoCarrier);
    readings.pilotLevel = readings.rdsLevel = 0.31f;
    EXPECT_EQ(stateOfKey("pilot_error", readings), State::Known);
    EXPECT_EQ(stateOfKey("rds_error", readings), State::Known);
    EXPECT_EQ(stateOfKey("pilot_level", Readings{}), State::Known);
    EXPECT_EQ(stateOfKey("rds_level", Readings{}), State::Known);
}

TEST(FigureState, OfLevelsFollowsTheAudioMode) {
    for (const char* key : {"level_left", "level_right"}) {
        EXPECT_EQ(stateOfKey(key, {}, Mode::LeftRight), State::Known);
        EXPECT_EQ(stateOfKey(key, {}, Mode::SumDifference), State::NotMeasured);
    }
    for (const char* key : {"level_sum", "level_difference"}) {
        EXPECT_EQ(stateOfKey(key, {}, Mode::LeftRight), State::NotMeasured);
        EXPECT_EQ(stateOfKey(key, {}, Mode::SumDifference), State::Known);
    }
}

TEST(FigureState, BeyondTheRangeOfTheFigureIsOutOfRange) {
    Readings readings;
    readings.peakModulation = 333;  // 249.75 kHz
    EXPECT_EQ(stateOfKey("deviation_peak", readings), State::Known);
    readings.peakModulation = 334;
    EXPECT_EQ(stateOfKey("deviation_peak", readings), State::OutOfRange);
    readings.carrierDeviation = -101;  // -10.1 kHz
    EXPECT_EQ(stateOfKey("carrier_error", readings), State::OutOfRange);
    EXPECT_FLOAT_EQ(valueOf(*find("carrier_error"), readings), -10100);
}

TEST(FigureState, OfThePilotIsNotMeasuredWhileTheEndMarkStands) {
    Readings readings;
    readings.pilotError = 11583.4f;
    readings.pilotLevel = 18.9f;
    EXPECT_TRUE(showsEndMark(readings));
    EXPECT_EQ(stateOfKey("pilot_error", readings), State::NotMeasured);
    EXPECT_EQ(stateOfKey("pilot_level", readings), State::NotMeasured);
    readings.pilotError = 1;
    EXPECT_FALSE(showsEndMark(readings));
    EXPECT_EQ(stateOfKey("pilot_level", readings), State::Known);
}

}  // namespace
}  // namespace figures
