// SPDX-License-Identifier: GPL-3.0-or-later
// One survey of the band: its stations, and the memories that are made of them.
#include "drivers/receiver/survey/survey.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "drivers/receiver/library/scenes.h"
#include "drivers/receiver/survey/presets.h"
#include "drivers/receiver/survey/rate_check.h"
#include "drivers/receiver/synth/band_generator.h"
#include "tests/support/temp_folder.h"

namespace hm16::receiver {
namespace {

std::vector<double> places(const std::vector<FoundStation>& stations) {
    std::vector<double> result;
    for (const auto& station : stations) result.push_back(std::round(station.mhz * 100) / 100);
    return result;
}

TEST(LoudChannels, AStationStandsInTheMiddleOfWhatItFills) {
    const std::vector<float> levels{30, 31, 50, 89, 90, 89.5F, 40, 30, 30, 30};
    EXPECT_THAT(places(loudChannels(levels, 98)), testing::ElementsAre(98.4));
}

TEST(LoudChannels, TwoNeighboursAreTwoStationsTheStrongerFirst) {
    const std::vector<float> levels{30, 40, 70, 45, 80, 45, 30, 30, 30, 30};
    EXPECT_THAT(places(loudChannels(levels, 88)), testing::ElementsAre(88.4, 88.2));
}

TEST(LoudChannels, AStationWhoseModulationLeavesItsMiddleIsFoundThere) {
    const std::vector<float> levels{30, 30, 31, 85, 82, 85.5F, 31, 30, 30, 30};
    EXPECT_THAT(places(loudChannels(levels, 97.4)), testing::ElementsAre(97.8));
}

TEST(LoudChannels, WhatWasNotReceivedIsNoFloor) {
    const std::vector<float> levels{0, 0, 0, 0, 0, 60, 60.2F, 60.1F, 59.9F, 0, 0};
    EXPECT_THAT(loudChannels(levels, 88), testing::IsEmpty());
    EXPECT_THAT(loudChannels({0, 0}, 88), testing::IsEmpty());
    EXPECT_THAT(loudChannels({}, 88), testing::IsEmpty());
}

class Survey : public testing::Test {
 protected:
    std::vector<FoundStation> stationsOf(Scene scene, std::size_t most = 16) {
        ReceiverOptions options;
        options.pace = Pace::Fast;
        options.levelStepDb = 0;
        ReceiverUnit unit(options, std::make_unique<BandGenerator>(sceneOf(scene, 0, 0)), readings_,
                          folder_.path());
        return surveyBand(unit, most);
    }
    PublishedReadings readings_;
    const hmonitor::test::TempFolder folder_;
};

TEST_F(Survey, FindsTheStationsStrongestFirstAndNamesThemByRds) {
    const auto stations = stationsOf(Scene::Band);
    ASSERT_THAT(places(stations), testing::ElementsAre(98.5, 97.8));
    EXPECT_EQ(stations[0].name, "SYNTH FM");
    EXPECT_EQ(stations[1].name, "");
    EXPECT_NEAR(stations[0].levelDbuv, 89.5, 1);
    EXPECT_EQ(stationsOf(Scene::Band, 1).size(), 1u);
}

TEST_F(Survey, NoiseAloneIsNoStation) {
    EXPECT_THAT(stationsOf(Scene::Silence), testing::IsEmpty());
}

TEST(Presets, TakeTheStationsAndEmptyTheRest) {
    const std::string block =
        withPresets(std::string(320, 'x'), std::vector<FoundStation>{{98.5, 90, "SYNTH FM"},
                                                                     {100.1, 80, ""},
                                                                     {88.75, 70, "Long name here"},
                                                                     {91.2, 70,
                                                                      "N\xD1"
                                                                      "U"}});
    EXPECT_EQ(block.size(), 320u);
    EXPECT_EQ(block.substr(0, 16), std::string(16, 'x'));
    EXPECT_EQ(block.substr(16, 16), "-SYNTH FM -985  ");
    EXPECT_EQ(block.substr(32, 16), "-100.1 MHz-1001 ");
    EXPECT_EQ(block.substr(48, 16), "-Long name-8875 ");
    EXPECT_EQ(block.substr(64, 16), "-N.U      -912  ");
    EXPECT_EQ(block.substr(80, 16), "-         -     ");
    EXPECT_EQ(block.substr(256, 16), "-         -     ");
    EXPECT_EQ(block.substr(272), std::string(48, 'x'));
    EXPECT_EQ(withPresets("", {}).size(), 300u);
}

// A station 100 kHz above the centre, in samples of the given rate.
std::vector<Sample> stationAt(double rateHz, double pilotHz, double seconds) {
    BandPlan band;
    band.rateHz = rateHz;
    band.carrierToNoiseDb = 50;
    StationPlan station;
    station.offsetHz = 100e3;
    station.amplitude = 0.5;
    station.pilotDeviationHz = pilotHz;
    station.programme.level = 0.8;
    band.stations = {station};
    std::vector<Sample> samples(static_cast<std::size_t>(seconds * rateHz));
    BandGenerator(band).read(samples);
    return samples;
}

TEST(RateCheck, ThePilotOfARightRateStandsAt19Khz) {
    const auto samples = stationAt(1.2e6, 6750, 1);
    const auto pilot = seemingPilotHz(samples, 1.2e6, 100e3);
    ASSERT_TRUE(pilot);
    EXPECT_NEAR(*pilot, 19e3, 20);
    EXPECT_EQ(rateFault("a.cu8", 1.2e6, *pilot), "");
}

TEST(RateCheck, AWrongRateIsToldByThePilotThatStandsElsewhere) {
    const auto samples = stationAt(1.2e6, 6750, 1);
    for (const double told : {1e6, 2.4e6}) {
        const auto pilot = seemingPilotHz(samples, told, 100e3 * told / 1.2e6);
        ASSERT_TRUE(pilot) << told;
        EXPECT_NEAR(*pilot, 19e3 * told / 1.2e6, 40);
        EXPECT_THAT(rateFault("a.cu8", told, *pilot),
                    testing::HasSubstr("at 1200000 it would stand at 19 kHz."));
    }
}

TEST(RateCheck, WithoutAPilotNothingIsSaid) {
    const auto samples = stationAt(1.2e6, 0, 1);
    EXPECT_EQ(seemingPilotHz(samples, 1.2e6, 100e3), std::nullopt);
    EXPECT_EQ(seemingPilotHz(std::span(samples).first(1000), 1.2e6, 100e3), std::nullopt);
    // A tone that would be a pilot at no rate that radios have.
    EXPECT_EQ(rateFault("a.cu8", 2.4e6, 10e3), "");
}

}  // namespace
}  // namespace hm16::receiver
