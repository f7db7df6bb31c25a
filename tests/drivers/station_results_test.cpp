// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/unit/station_results.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/temp_folder.h"

namespace hm16 {
namespace {

using hmonitor::test::TempFolder;

const LocalTime kNow{2026, 3, 4, 9, 5, 7};

Readings someReadings() {
    Readings r;
    r.peakModulation = 88.24f;
    r.levelFirst = -6.1f;
    r.levelSecond = -7;
    r.stereoPhase = 45.5f;
    r.relativePower = 3.26f;
    r.pilotError = -0.43f;
    r.pilotLevel = 9.04f;
    r.noiseLeft = -66.24f;
    r.noiseRight = -65;
    r.separationLeft = 44.6f;
    r.separationRight = 43.2f;
    r.distortion = 0.351f;
    r.carrierDeviation = -2.4f;
    r.field = 71;
    r.multipath = 6.3f;
    r.peaksPerMinute = 3;
    r.rdsError = -1.25f;
    r.rdsLevel = 3.02f;
    return r;
}

TEST(StationResults, WritesTwentyFourLinesInTheirOrder) {
    StationResults results(887);
    results.add(someReadings(), 12.7);
    EXPECT_EQ(results.text(kNow),
              "887\r\n20260304\r\n09:05\r\n12\r\n88.2\r\n88.2\r\n-6.1\r\n-7\r\n45.5\r\n3.26\r\n6.3"
              "\r\n6.3\r\n3\r\n-1.25\r\n3.02\r\n-0.43\r\n9.04\r\n-66.2\r\n-65\r\n44.6\r\n43.2\r\n"
              "0.35\r\n-0.24\r\n71\r\n");
}

TEST(StationResults, MarksResultsThatWereNeverMeasured) {
    const StationResults results(1025.5);
    const std::string text = results.text(kNow);
    EXPECT_THAT(text, testing::StartsWith("1025.5\r\n20260304\r\n09:05\r\n0\r\n"));
    EXPECT_THAT(text, testing::EndsWith("\r\nxx\r\nxx\r\n0\r\n0\r\n0\r\n0\r\n0\r\n"));
}

TEST(StationResults, KeepsTheBestOfNoiseSeparationAndDistortion) {
    StationResults results(887);
    Readings readings = someReadings();
    results.add(readings, 1);
    readings.noiseLeft = -70;
    readings.noiseRight = -60;
    readings.separationLeft = 40;
    readings.separationRight = 50;
    readings.distortion = 0.2f;
    results.add(readings, 1);
    EXPECT_EQ(results.noiseLeft(), -70.0f);
    EXPECT_EQ(results.noiseRight(), -65.0f);
    EXPECT_EQ(results.separationLeft(), 44.6f);
    EXPECT_EQ(results.separationRight(), 50.0f);
    EXPECT_EQ(results.distortion(), 0.2f);
}

TEST(StationResults, TakesAReadingOfZeroForNotMeasured) {
    StationResults results(887);
    results.add(someReadings(), 1);
    results.add(Readings{}, 1);
    EXPECT_EQ(results.noiseRight(), -65.0f);
    EXPECT_EQ(results.separationLeft(), 44.6f);
    EXPECT_EQ(results.distortion(), 0.351f);
}

TEST(StationResults, HoldsTheWorstModulationMultipathAndPeaks) {
    StationResults results(887);
    Readings readings = someReadings();
    readings.peakModulation = 130;
    readings.multipath = 30;
    readings.peaksPerMinute = 200;
    results.add(readings, 1);
    results.add(someReadings(), 1);
    EXPECT_EQ(results.highestModulation(), 130.0f);
    EXPECT_EQ(results.worstMultipath(), 30.0f);
    EXPECT_EQ(results.mostPeaks(), 200.0f);
    EXPECT_EQ(results.last(), someReadings());
}

TEST(StationResults, ClearsNoiseAlone) {
    StationResults results(887);
    results.add(someReadings(), 1);
    results.clear(StoredResult::Noise);
    EXPECT_EQ(results.noiseLeft(), std::nullopt);
    EXPECT_EQ(results.noiseRight(), std::nullopt);
    EXPECT_EQ(results.separationLeft(), 44.6f);
    EXPECT_EQ(results.distortion(), 0.351f);
    EXPECT_THAT(results.text(kNow), testing::HasSubstr("9.04\r\nxx\r\nxx\r\n44.6"));
}

TEST(StationResults, ClearsDistortionAlone) {
    StationResults results(887);
    results.add(someReadings(), 1);
    results.clear(StoredResult::Distortion);
    EXPECT_EQ(results.distortion(), std::nullopt);
    EXPECT_EQ(results.noiseLeft(), -66.24f);
    EXPECT_EQ(results.separationRight(), 43.2f);
}

TEST(StationResults, ClearsSeparationAlone) {
    StationResults results(887);
    results.add(someReadings(), 1);
    results.clear(StoredResult::Separation);
    EXPECT_EQ(results.separationLeft(), std::nullopt);
    EXPECT_EQ(results.separationRight(), std::nullopt);
    EXPECT_EQ(results.noiseRight(), -65.0f);
    EXPECT_EQ(results.distortion(), 0.351f);
}

TEST(StationResults, CountsSecondsForYears) {
    StationResults results(887);
    const double years = 3e8;
    results.add(someReadings(), years);
    StationResults read = StationResults::parse(887, results.text(kNow));
    EXPECT_EQ(read.seconds(), years);
    read.add(someReadings(), 1);
    EXPECT_EQ(StationResults::parse(887, read.text(kNow)).seconds(), years + 1);
    EXPECT_EQ(StationResults::parse(887, "\n\n\n-5\n").seconds(), 0);
}

TEST(StationResults, ReadsBackWhatItWrote) {
    const TempFolder folder;
    StationResults results(1025.5);
    results.add(someReadings(), 90);
    ASSERT_EQ(results.write(folder.path(), kNow), std::nullopt);
    ASSERT_TRUE(folder.has("1025.5.dat"));
    const StationResults read = StationResults::read(folder.path(), 1025.5);
    EXPECT_EQ(read.text(kNow), results.text(kNow));
    EXPECT_EQ(read.seconds(), 90);
}

TEST(StationResults, ClearedResultsStayClearedWhenReadBack) {
    StationResults results(887);
    results.add(someReadings(), 1);
    results.clear(StoredResult::Noise);
    results.clear(StoredResult::Separation);
    const StationResults read = StationResults::parse(887, results.text(kNow));
    EXPECT_EQ(read.noiseLeft(), std::nullopt);
    EXPECT_EQ(read.separationLeft(), std::nullopt);
    EXPECT_EQ(read.distortion(), 0.35f);
}

TEST(StationResults, ReadsAFileCutAtEveryLengthLineByLine) {
    StationResults results(887);
    results.add(someReadings(), 90);
    const std::string whole = results.text(kNow);
    const std::size_t noise = whole.find("-66.2\r\n");
    for (std::size_t length = 0; length <= whole.size(); ++length) {
        const std::string cut = whole.substr(0, length);
        const StationResults read = StationResults::parse(887, cut);
        EXPECT_EQ(read.noiseLeft().has_value(), length >= noise + 2) << cut;
    }
    const auto upToNoise = whole.find("-65\r\n");
    const StationResults read = StationResults::parse(887, whole.substr(0, upToNoise));
    EXPECT_EQ(read.noiseLeft(), -66.2f);
    EXPECT_EQ(read.noiseRight(), std::nullopt);
    EXPECT_EQ(read.distortion(), std::nullopt);
}

TEST(StationResults, AreFoundUnderAFrequencyThatWasWorkedOutFromMegahertz) {
    const TempFolder folder;
    ASSERT_EQ(StationResults(10.0 * 98.7f).write(folder.path(), kNow), std::nullopt);  // 986.99997
    ASSERT_EQ(StationResults(1025.5).write(folder.path(), kNow), std::nullopt);
    EXPECT_TRUE(std::filesystem::exists(folder.path() / "0987.dat"));
    EXPECT_TRUE(std::filesystem::exists(folder.path() / "1025.5.dat"));
}

TEST(StationResults, TakesOddLinesForMissingOnes) {
    const std::string odd = "x\n\n\xff\nmany\ninf\n1e30\n99999999\n";
    const StationResults read = StationResults::parse(887, odd + std::string(30, '\n') + "5\n");
    EXPECT_EQ(read.text(kNow), StationResults(887).text(kNow));
}

}  // namespace
}  // namespace hm16
