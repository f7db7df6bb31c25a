// SPDX-License-Identifier: GPL-3.0-or-later
// The unit behind the nineteen functions, with recordings and with a radio that disappears.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <chrono>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <thread>

#include "drivers/receiver/library/readings_of.h"
#include "drivers/receiver/library/receiver_unit.h"
#include "drivers/receiver/library/scenes.h"
#include "tests/drivers/receiver/signals.h"

namespace hm16::receiver {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::Not;

// The first `length` samples of a band, then the end.
class Excerpt : public SampleSource {
 public:
    Excerpt(const BandPlan& plan, std::uint64_t length) : band_(plan), left_(length) {}
    double rateHz() const override { return band_.rateHz(); }
    double centreHz() const override { return band_.centreHz(); }
    std::size_t read(std::span<Sample> into) override {
        const auto count = static_cast<std::size_t>(std::min<std::uint64_t>(left_, into.size()));
        band_.read(into.first(count));
        left_ -= count;
        return count;
    }
    void rewind() override {}

 private:
    BandGenerator band_;
    std::uint64_t left_;
};

// A station's multiplex with one low tone: cheap to generate for minutes.
class Hum : public SampleSource {
 public:
    Domain domain() const override { return Domain::Composite; }
    double rateHz() const override { return 120e3; }
    double centreHz() const override { return 0; }
    std::size_t read(std::span<Sample> into) override {
        for (Sample& sample : into) sample = (at_++ % 1200 < 600) ? 0.3F : -0.3F;
        return into.size();
    }
    void rewind() override { at_ = 0; }

 private:
    std::size_t at_ = 0;
};

// A radio that is unplugged while it runs.
class Unplugged : public BandGenerator {
 public:
    using BandGenerator::BandGenerator;
    bool live() const override { return true; }
    std::size_t read(std::span<Sample> into) override {
        if (++reads_ > 8) throw SourceError("The radio \"x\" has stopped sending.");
        return BandGenerator::read(into);
    }

 private:
    int reads_ = 0;
};

class ReceiverUnitTest : public testing::Test {
 protected:
    ReceiverUnitTest()
        : folder_(fs::temp_directory_path() / ("hm16_unit_" + std::to_string(getpid()))) {
        fs::create_directories(folder_);
        options_.pace = Pace::Fast;
        options_.levelStepDb = 0;
    }
    ~ReceiverUnitTest() override { fs::remove_all(folder_); }

    std::unique_ptr<ReceiverUnit> unit(std::unique_ptr<SampleSource> source) {
        auto result =
            std::make_unique<ReceiverUnit>(options_, std::move(source), readings_, folder_);
        if (options_.pace == Pace::Fast) result->step(0);
        return result;
    }
    std::unique_ptr<ReceiverUnit> sceneUnit(Scene scene) {
        return unit(std::make_unique<BandGenerator>(sceneOf(scene, 0, 0)));
    }

    ReceiverOptions options_;
    PublishedReadings readings_;
    const fs::path folder_;
};

TEST_F(ReceiverUnitTest, MeasuresTheTunedStationStepByStep) {
    const auto unit = sceneUnit(Scene::Station);
    unit->measure({.frequency = 985});
    EXPECT_TRUE(unit->step(30));
    const Readings now = readings_.latest();
    EXPECT_NEAR(now.pilotLevel, 9, 0.05);
    EXPECT_NEAR(now.pilotError, 0.5, 0.01);
    EXPECT_NEAR(now.rdsLevel, 100 * 2000 / 75e3, 0.05);
    EXPECT_NEAR(now.carrierDeviation, 1.2, 0.3);
    EXPECT_NEAR(now.field, 100 + 20 * std::log10(0.3), 0.2);
    EXPECT_THAT(unit->report(), HasSubstr("rds programme: E123"));
    EXPECT_THAT(unit->report(), HasSubstr("rds name: SYNTH FM"));
    std::array<RdsGroup, 40> groups;
    std::uint64_t next = 0;
    const std::size_t count = unit->groups().copy(0, groups, next);
    ASSERT_GE(count, 10U);
    EXPECT_EQ(next, groups.at(count - 1).number + 1);
    // The first group was received from its middle on.
    for (std::size_t n = 1; n < count; ++n) {
        EXPECT_TRUE(groups.at(n).whole());
        EXPECT_EQ(groups.at(n).blocks[0].information, 0xE123);
        EXPECT_GT(groups.at(n).endSeconds, 0);
        EXPECT_LT(groups.at(n).endSeconds, 1.5);
    }
    EXPECT_THAT(unit->report(), HasSubstr("gaps: 0 with 0 samples lost, bursts: 0\n"));
}

TEST_F(ReceiverUnitTest, TellsWhatItTakesOutOfTheSamples) {
    BandPlan band = bandWith(
        [](StationPlan& station) {
            station.offsetHz = 90e3;
            station.pilotDeviationHz = 6750;
            station.tones = {{1000, 0.4, 0.1}};
        },
        400e3);
    band.centreHz = 98.4e6;
    const auto reportOf = [&](const BandPlan& plan) {
        const auto unit = this->unit(std::make_unique<BandGenerator>(plan));
        unit->measure({.frequency = 985});
        EXPECT_TRUE(unit->step(75));
        return unit->report();
    };
    EXPECT_THAT(reportOf(band), Not(HasSubstr("corrected in the samples")));
    band.gainError = 0.122;  // 1 dB
    band.phaseErrorDegrees = 3;
    band.offsetI = 0.02;
    band.offsetQ = -0.01;
    // A constant of 0.0224 is 33 dB below full scale.
    EXPECT_THAT(reportOf(band), testing::ContainsRegex(
                                    "corrected in the samples: Q by (1|0\\.9[0-9]|1\\.0[0-9]) dB "
                                    "and (3|2\\.[89][0-9]?|3\\.[01][0-9]?) degrees, a constant "
                                    "(33|3[23]\\.[0-9]) dB below full scale"));
}

TEST(ReceiverOptions, TakeTheEdgeOfTheMultiplexForPeaksFromTheSettings) {
    const auto edgeOf = [](const std::string& text) {
        Settings settings = Settings::parse(text, "hm-16.ini");
        const PeakEdge edge = readOptions(settings, ".").peakEdge;
        EXPECT_EQ(settings.faults().empty(), text.find("90") == std::string::npos) << text;
        return edge;
    };
    EXPECT_EQ(edgeOf(""), PeakEdge::At80);
    EXPECT_EQ(edgeOf("composite_khz = 80\n"), PeakEdge::At80);
    EXPECT_EQ(edgeOf("composite_khz = 100\n"), PeakEdge::At100);
    EXPECT_EQ(edgeOf("composite_khz = 90\n"), PeakEdge::At80);
}

// A radio that loses a buffer every half second.
class Losing : public BandGenerator {
 public:
    using BandGenerator::BandGenerator;
    std::size_t read(std::span<Sample> into) override {
        losses_.clear();
        if (++reads_ % 20 != 0) return BandGenerator::read(into);
        const std::size_t half = into.size() / 2;
        BandGenerator::read(into.first(half));
        std::vector<Sample> lost(5000);
        BandGenerator::read(lost);
        BandGenerator::read(into.subspan(half));
        losses_.push_back({half, lost.size()});
        return into.size();
    }
    std::span<const Loss> losses() const override { return losses_; }

 private:
    int reads_ = 0;
    std::vector<Loss> losses_;
};

TEST_F(ReceiverUnitTest, LostSamplesAreCountedAndTheRestGoesOn) {
    const auto unit = this->unit(std::make_unique<Losing>(sceneOf(Scene::Station, 0, 0)));
    unit->measure({.frequency = 985});
    EXPECT_TRUE(unit->step(31));
    EXPECT_NEAR(readings_.latest().pilotLevel, 9, 0.05);
    EXPECT_GT(readings_.latest().peakModulation, 20);
    EXPECT_THAT(unit->report(), HasSubstr("gaps: 3 with 15000 samples lost"));
    // Slots have rising numbers and times, and those with missing samples are marked.
    std::array<HM16_Slot, 40> slots{};
    std::uint64_t next = 0;
    const int count = unit->slots()->copy(0, slots.data(), sizeof(HM16_Slot), 40, &next);
    ASSERT_GE(count, 30);
    int gaps = 0;
    const auto pilot = static_cast<std::size_t>(placeOfFigure("pilot_level"));
    for (int n = 0; n < count; ++n) {
        const HM16_Slot& slot = slots.at(static_cast<std::size_t>(n));
        EXPECT_EQ(slot.number, static_cast<std::uint64_t>(n));
        EXPECT_EQ(slot.lengthMs, 50U);
        EXPECT_NEAR(static_cast<double>(slot.signalNs) * 1e-9, 0.05 * (n + 1), 0.001);
        if (n > 6 && slot.state[pilot] == HM16_KNOWN) {
            EXPECT_NEAR(slot.value[pilot], 9, 0.05);
        }
        gaps += slot.state[pilot] == HM16_GAP ? 1 : 0;
    }
    EXPECT_GE(gaps, 3);
    EXPECT_LE(gaps, 6);
}

TEST_F(ReceiverUnitTest, TunesWithinTheSamplesAndFindsNothingOutsideThem) {
    const auto unit = sceneUnit(Scene::Band);
    unit->measure({.frequency = 978});
    unit->step(30);
    EXPECT_NEAR(readings_.latest().peakModulation, 82 / 0.75, 1);
    EXPECT_NEAR(readings_.latest().carrierDeviation, -24, 0.1);
    unit->stop();
    unit->measure({.frequency = 1040});
    EXPECT_TRUE(unit->step(10));
    EXPECT_EQ(readings_.latest(), readingsOf(Figures(), 0, AudioMode::LeftRight, 0));
    EXPECT_EQ(readings_.latest().field, 0);
    EXPECT_EQ(unit->levelAt(1040), 0.0F);
}

TEST_F(ReceiverUnitTest, LevelsAreWholeDecibelsUnlessAskedOtherwise) {
    options_.levelStepDb = 1;
    const auto unit = sceneUnit(Scene::Station);
    EXPECT_EQ(unit->levelAt(985), 90.0F);
    options_.levelStepDb = 0;
    EXPECT_NEAR(*sceneUnit(Scene::Station)->levelAt(985), 100 + 20 * std::log10(0.3), 0.2);
}

TEST_F(ReceiverUnitTest, AFrameShowsTheCarrierAmongTheNoise) {
    const auto unit = sceneUnit(Scene::Band);
    unit->sweep({.start = 976, .stop = 988, .stepKhz = 25});
    EXPECT_TRUE(unit->step(1));
    EXPECT_TRUE(unit->frames().frameArrived());
    EXPECT_GT(unit->frames().level(985), unit->frames().level(981.5) + 40);
    EXPECT_EQ(unit->frames().level(1060), 0);
}

TEST_F(ReceiverUnitTest, ARecordingThatEndsWhileMeasuringLeavesNoFigures) {
    options_.atEnd = AtEnd::Stop;
    const auto unit = this->unit(std::make_unique<Excerpt>(sceneOf(Scene::Station, 0, 0), 1200000));
    unit->measure({.frequency = 985});
    EXPECT_FALSE(unit->step(100));
    EXPECT_EQ(readings_.latest(), readingsOf(Figures(), 0, AudioMode::LeftRight, 0));
    EXPECT_EQ(unit->levelAt(985), std::nullopt);
    EXPECT_FALSE(unit->step(1));
}

TEST_F(ReceiverUnitTest, ARadioThatDisappearsLeavesNoFiguresAndFailsLevels) {
    options_.pace = Pace::Real;
    const auto unit = this->unit(std::make_unique<Unplugged>(sceneOf(Scene::Station, 0, 0)));
    unit->measure({.frequency = 985});
    for (int wait = 0; wait < 500 && unit->report().find("ended") == std::string::npos; ++wait)
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    EXPECT_THAT(unit->report(), HasSubstr("ended"));
    EXPECT_EQ(readings_.latest().field, 0);
    EXPECT_EQ(unit->levelAt(985), std::nullopt);
    unit->stop();
    unit->measure({.frequency = 985});
    EXPECT_EQ(readings_.latest().peakModulation, 0);
}

TEST_F(ReceiverUnitTest, ResultsAreKeptInTheStationsFileAndCleared) {
    const auto unit = sceneUnit(Scene::Tones);
    unit->measure({.frequency = 985});
    unit->step(40);
    unit->stop();
    const auto kept = StationResults::read(folder_, 985);
    ASSERT_TRUE(kept.separationLeft());
    EXPECT_GT(*kept.separationLeft(), 55);
    unit->clearResults(StoredResult::Separation);
    EXPECT_FALSE(StationResults::read(folder_, 985).separationLeft());
}

// Needs more than a minute of signal, too slow under the thread sanitizer.
#if !defined(HMONITOR_SANITIZED_THREAD)
TEST_F(ReceiverUnitTest, TheDaysLogGetsItsLine) {
    {
        const auto unit = this->unit(std::make_unique<Hum>());
        unit->measure({.frequency = 985, .log = DayLogging::On});
        unit->step(1300);
    }
    bool found = false;
    for (const auto& entry : fs::directory_iterator(folder_))
        found |= entry.path().extension() == ".log" && fs::file_size(entry) > 0;
    EXPECT_TRUE(found);
}
#endif

TEST_F(ReceiverUnitTest, AResponseRunEndsWithTheMarkAndItsResults) {
    BandPlan band = sceneOf(Scene::Silence, 600e3, 98.4e6);
    StationPlan station;
    station.offsetHz = 100e3;
    // Three tones of a second each.
    station.preEmphasisUs = 0;
    for (const double start : {0.0, 1.0, 2.0})
        station.bursts.push_back({start,
                                  1.0,
                                  {start == 0   ? 400.0
                                   : start == 1 ? 1000.0
                                                : 4000.0,
                                   30e3}});
    band.stations.push_back(station);
    options_.deemphasisUs = 0;
    const auto unit = this->unit(std::make_unique<BandGenerator>(band));
    unit->measure({.frequency = 985, .response = hm16::ResponseRun::Armed});
    int slots = 0;
    while (readings_.latest().pilotError != kEndMarkError && slots++ < 160) unit->step(1);
    EXPECT_EQ(readings_.latest().pilotError, kEndMarkError);
    EXPECT_EQ(readings_.latest().pilotLevel, kEndMarkLevel);
    unit->stop();
    const auto results = unit->response();
    const std::vector<int> expected{400, 1000, 4000, 0};
    for (std::size_t n = 0; n < expected.size(); ++n) {
        EXPECT_EQ(results[n].frequency, expected[n]);
        EXPECT_NEAR(results[n].level, 0, 1);
    }
}

// How far the sound deviates from a steady sine of 1 kHz at 48,000 samples a second.
double breakIn(const std::vector<StereoSample>& sound) {
    const double twice = 2 * std::cos(2 * M_PI * 1000 / kSoundHz);
    double worst = 0;
    for (std::size_t n = 2; n < sound.size(); ++n)
        worst = std::max(worst, std::fabs(sound[n].left - twice * sound[n - 1].left +
                                          static_cast<double>(sound[n - 2].left)));
    return worst;
}

TEST_F(ReceiverUnitTest, TheTunedStationGoesOnWhileLevelsAndASweepAreMade) {
    const auto unit = sceneUnit(Scene::Tones);
    unit->measure({.frequency = 985});
    unit->step(10);
    const std::uint64_t slots = unit->slots()->nextNumber();
    std::uint64_t place = unit->sound().newest();
    unit->levelAt(984);
    unit->stop();
    for (int level = 0; level < 5; ++level) unit->levelAt(985);
    unit->sweep({.start = 980, .stop = 986, .stepKhz = 100});
    for (int frame = 0; frame < 10; ++frame) EXPECT_TRUE(unit->step(1));
    unit->stop();
    EXPECT_NEAR(static_cast<double>(unit->slots()->nextNumber() - slots), 0.31 / 0.05, 1);
    std::vector<StereoSample> sound(48000);
    sound.resize(unit->sound().read(place, sound));
    // 60 ms of levels and 250 ms of frames, each in whole slots.
    EXPECT_NEAR(static_cast<double>(sound.size()), 0.31 * kSoundHz, 0.05 * kSoundHz);
    EXPECT_LT(breakIn(sound), 3e-3);
    double highest = 0;
    for (const StereoSample& sample : sound)
        highest = std::max(highest, std::fabs(static_cast<double>(sample.left)));
    EXPECT_NEAR(highest, 0.7 * 67.5 / 75, 0.01);
}

TEST_F(ReceiverUnitTest, ReadingsCanBeCopiedFromAnotherThreadWhileItMeasures) {
    options_.pace = Pace::Real;
    const auto unit = sceneUnit(Scene::Tones);
    std::atomic<bool> stop{false};
    std::thread reader([&] {
        while (!stop) EXPECT_TRUE(std::isfinite(readings_.latest().field));
    });
    for (int round = 0; round < 3; ++round) {
        unit->measure({.frequency = 985});
        std::this_thread::sleep_for(std::chrono::milliseconds(60));
        unit->levelAt(985);
        unit->stop();
        unit->sweep({.start = 980, .stop = 986, .stepKhz = 100});
        std::this_thread::sleep_for(std::chrono::milliseconds(30));
        unit->stop();
    }
    stop = true;
    reader.join();
}

TEST(ReceiverOptionsTest, WrongSettingsAreSentencesWithFileAndLine) {
    const auto faults = [](const std::string& text) {
        Settings settings = Settings::parse(text, "hm-16.ini");
        readOptions(settings, ".");
        std::string all;
        for (const auto& fault : settings.faults()) all += fault + "\n";
        return all;
    };
    EXPECT_EQ(faults(""), "");
    EXPECT_THAT(faults("version = 1.8\nsource = tape\n"), HasSubstr("hm-16.ini, line 2"));
    EXPECT_THAT(faults("clock_ppm = fast\n"), HasSubstr("line 1"));
    EXPECT_THAT(faults("source = recording\n"), HasSubstr("file is missing"));
    EXPECT_THAT(faults("source = soapy\npace = fast\n"), HasSubstr("line 2"));
    EXPECT_THAT(faults("centre = 98\n"), HasSubstr("centre"));
}

TEST(ReceiverOptionsTest, RatesAndCentresTakeUsualWords) {
    const auto options = [](const std::string& text) {
        Settings settings = Settings::parse(text, "hm-16.ini");
        return readOptions(settings, ".");
    };
    EXPECT_EQ(options("rate_hz = 2.4M\n").rateHz, 2.4e6);
    EXPECT_EQ(options("rate_hz = 1.2e6\n").rateHz, 1.2e6);
    EXPECT_EQ(options("centre_mhz = 98.2\n").centreHz, 98.2e6);
    EXPECT_EQ(options("centre_mhz = 98.2M\n").centreHz, 98.2e6);
    EXPECT_EQ(options("centre_mhz = 98200000\n").centreHz, 98.2e6);
}

// The unit must accept the template that is shipped.
TEST(ReceiverOptionsTest, TheTemplateHasNoFaults) {
    const fs::path folder = fs::path(HMONITOR_SOURCE_DIR) / "drivers/receiver";
    Settings settings = Settings::read(folder / "hm-16.ini");
    EXPECT_EQ(readOptions(settings, folder).version, 1.8F);
    EXPECT_TRUE(settings.faults().empty());
}

}  // namespace
}  // namespace hm16::receiver
