// SPDX-License-Identifier: GPL-3.0-or-later
// The states of a slot's figures: the radio was elsewhere, or its input was too strong.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <string>
#include <vector>

#include "drivers/receiver/library/receiver_unit.h"
#include "tests/drivers/receiver/playback.h"
#include "tests/drivers/receiver/signals.h"

namespace hm16::receiver {
namespace {

using testing::HasSubstr;

// So narrow that other frequencies need another tuning; there is no signal there.
class TunableRadio : public BandGenerator {
 public:
    using BandGenerator::BandGenerator;
    double centreHz() const override { return centreHz_; }
    bool tunable() const override { return true; }
    bool retune(double hz) override {
        centreHz_ = std::fabs(hz - kHomeHz) < 300e3 ? kHomeHz : hz;
        return true;
    }
    std::size_t read(std::span<Sample> into) override {
        if (centreHz_ == kHomeHz) return BandGenerator::read(into);
        std::fill(into.begin(), into.end(), Sample());
        return into.size();
    }

    static constexpr double kHomeHz = 98.4e6;

 private:
    double centreHz_ = kHomeHz;
};

BandPlan narrowBand() {
    BandPlan band = bandWith(
        [](StationPlan& station) {
            station.offsetHz = 100e3;
            station.amplitude = 0.3;
            station.pilotDeviationHz = 6750;
            station.tones = {{1000, 0.4, 0.1}};
        },
        600e3);
    band.centreHz = TunableRadio::kHomeHz;
    return band;
}

std::vector<HM16_Slot> allSlots(const ReceiverUnit& unit) {
    std::vector<HM16_Slot> slots(600);
    std::uint64_t next = 0;
    const int count = unit.slots()->copy(0, slots.data(), sizeof(HM16_Slot), 600, &next);
    slots.resize(static_cast<std::size_t>(count));
    return slots;
}

class SlotStates : public testing::Test {
 protected:
    SlotStates() {
        options_.pace = Pace::Fast;
        options_.levelStepDb = 0;
    }

    std::unique_ptr<ReceiverUnit> unit(std::unique_ptr<SampleSource> source) {
        auto result =
            std::make_unique<ReceiverUnit>(options_, std::move(source), readings_, folder_.path());
        result->step(0);
        return result;
    }

 private:
    ReceiverOptions options_;
    PublishedReadings readings_;
    const hmonitor::test::TempFolder folder_;
};

// 0.3 seconds elsewhere pass through the station's chain, two seconds go past it; slots come in
// both cases.
TEST_F(SlotStates, SlotsSayThatTheRadioWasElsewhereAndNoGapIsCounted) {
    const auto pilot = static_cast<std::size_t>(placeOfFigure("pilot_level"));
    for (const int levels : {15, 100}) {
        const auto measured = unit(std::make_unique<TunableRadio>(narrowBand()));
        measured->measure({.frequency = 985});
        EXPECT_TRUE(measured->step(10));
        const std::uint64_t before = measured->slots()->nextNumber();
        measured->stop();
        const double seconds = levels * 0.02;
        for (int n = 0; n < levels; ++n) measured->levelAt(n % 2 == 0 ? 1010 : 1030);
        if (levels == 100) {
            EXPECT_NEAR(static_cast<double>(measured->slots()->nextNumber() - before),
                        seconds / 0.05, 2);
        }
        measured->sweep({.start = 983, .stop = 985, .stepKhz = 100});
        measured->levelAt(985);
        for (int frame = 0; frame < 16; ++frame) EXPECT_TRUE(measured->step(1));
        const auto slots = allSlots(*measured);
        std::size_t away = 0;
        for (std::size_t n = 0; n < slots.size(); ++n) {
            EXPECT_EQ(slots[n].number, n);
            // At the edges of an absence a slot may be a little longer or shorter.
            const bool edge = n > 0 && (slots[n].state[pilot] == HM16_UNIT_AWAY) !=
                                           (slots[n - 1].state[pilot] == HM16_UNIT_AWAY);
            if (n > 0) {
                EXPECT_NEAR(static_cast<double>(slots[n].signalNs - slots[n - 1].signalNs), 50e6,
                            edge ? 50e6 : 10)
                    << n;
            }
            for (const std::uint8_t state : std::span(slots[n].state).first(20))
                EXPECT_NE(state, HM16_GAP) << n;
            away += slots[n].state[pilot] == HM16_UNIT_AWAY ? 1 : 0;
        }
        EXPECT_NEAR(static_cast<double>(away), seconds / 0.05, 3) << levels;
        EXPECT_EQ(slots.back().state[pilot], HM16_KNOWN);
        EXPECT_NEAR(slots.back().value[pilot], 9, 0.05);
        EXPECT_THAT(measured->report(), HasSubstr("gaps: 0 with 0 samples lost, bursts: 0\n"));
    }
}

TEST_F(SlotStates, SlotsSayThatTheConverterIsDrivenTooHard) {
    const auto field = static_cast<std::size_t>(placeOfFigure("field"));
    for (const double amplitude : {0.9, 1.3}) {
        BandPlan band = narrowBand();
        band.eightBit = true;
        band.stations.front().amplitude = amplitude;
        const auto measured = unit(std::make_unique<BandGenerator>(band));
        measured->measure({.frequency = 985});
        EXPECT_TRUE(measured->step(12));
        const auto slots = allSlots(*measured);
        ASSERT_GE(slots.size(), 10U);
        for (const HM16_Slot& slot : slots)
            EXPECT_EQ(slot.state[field], amplitude > 1 ? HM16_OVERLOAD : HM16_KNOWN);
        const std::string line =
            "slots with samples at the converter's end: " + std::to_string(slots.size()) + "\n";
        EXPECT_EQ(measured->report().find(line) != std::string::npos, amplitude > 1);
    }
}

}  // namespace
}  // namespace hm16::receiver
