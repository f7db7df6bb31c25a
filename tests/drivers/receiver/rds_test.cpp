// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "drivers/receiver/rds/rds_code.h"
#include "drivers/receiver/rds/rds_decoder.h"
#include "drivers/receiver/synth/rds_waveform.h"
#include "tests/drivers/receiver/signals.h"

namespace hm16::receiver {
namespace {

TEST(RdsCode, ABlockLeavesItsOffsetWordAndNoOther) {
    for (const std::uint16_t word : {0x0000, 0x1234, 0xFFFF, 0xE123}) {
        EXPECT_TRUE(rdsBlockIs(rdsBlock(word, RdsOffset::B), RdsOffset::B));
        EXPECT_FALSE(rdsBlockIs(rdsBlock(word, RdsOffset::B), RdsOffset::A));
        for (unsigned bit = 0; bit < kRdsBlockBits; ++bit)
            EXPECT_FALSE(rdsBlockIs(rdsBlock(word, RdsOffset::B) ^ (1U << bit), RdsOffset::B));
    }
}

RdsPlan plan() {
    RdsPlan result;
    result.deviationHz = 2000;
    result.programme = 0xD3C8;
    result.name = "HALDEN 1";
    return result;
}

TEST(RdsDecoder, ReadsProgrammeAndNameFromAnyBitOn) {
    const auto bits = rdsBits(plan());
    for (std::size_t start = 0; start < 104; start += 13) {
        RdsDecoder decoder;
        for (std::size_t n = 0; n < bits.size(); ++n) decoder.bit(bits[(start + n) % bits.size()]);
        EXPECT_TRUE(decoder.synchronized());
        EXPECT_EQ(decoder.programme(), 0xD3C8);
        EXPECT_EQ(decoder.name(), "HALDEN 1");
        EXPECT_EQ(decoder.badBlocks(), 0U);
    }
}

TEST(RdsDecoder, CountsADamagedBlockAndDoesNotUseIt) {
    auto bits = rdsBits(plan());
    bits[104 * 4 + 5] = !bits[104 * 4 + 5];
    RdsDecoder decoder;
    for (const bool bit : bits) decoder.bit(bit);
    EXPECT_EQ(decoder.badBlocks(), 1U);
    EXPECT_EQ(decoder.programme(), 0xD3C8);
}

TEST(RdsDecoder, FindsNothingInRandomBits) {
    RdsDecoder decoder;
    Random random(3);
    for (int bit = 0; bit < 3000; ++bit) decoder.bit(random.uniform() < 0.5);
    EXPECT_EQ(decoder.name(), "");
}

TEST(RdsReceiver, DecodesBesideProgrammeAtBothPhases) {
    for (const double phase : {0.0, 90.0}) {
        const auto band = bandWith([&](StationPlan& s) {
            s.pilotDeviationHz = 6750;
            s.tones = {{1000, 0.6, 0.1}, {9000, 0.1, 0.2}};
            s.rds = plan();
            s.rds.phaseDegrees = phase;
        });
        const Figures figures = measure(band, 1.8);
        EXPECT_EQ(figures.rdsProgramme, 0xD3C8);
        EXPECT_EQ(figures.rdsName, "HALDEN 1");
        EXPECT_GT(figures.rdsGoodBlocks, 50U);
        EXPECT_EQ(figures.rdsBadBlocks, 0U);
    }
}

TEST(RdsReceiver, DecodesWithoutAPilot) {
    const auto band = bandWith([&](StationPlan& s) {
        s.direct = {{700, 40e3}};
        s.rds = plan();
    });
    const Figures figures = measure(band, 1.8);
    EXPECT_FALSE(figures.stereo);
    EXPECT_EQ(figures.rdsName, "HALDEN 1");
}

}  // namespace
}  // namespace hm16::receiver
