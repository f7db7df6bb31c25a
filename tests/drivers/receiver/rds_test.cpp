// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <bit>
#include <set>

#include "drivers/receiver/rds/rds_code.h"
#include "drivers/receiver/rds/rds_decoder.h"
#include "drivers/receiver/synth/rds_waveform.h"
#include "tests/drivers/receiver/rds_signals.h"
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

// Collects the groups that a decoder finds.
struct KeptGroups {
    std::vector<RdsGroup> groups;
    RdsDecoder decoder{[this](const RdsGroup& group) { groups.push_back(group); }};

    void add(const std::vector<bool>& bits) {
        for (const bool bit : bits) decoder.bit(bit);
    }
};

constexpr std::size_t kGroupBits = kRdsBlocks * kRdsBlockBits;

// Where block `place` of group `group` begins.
std::size_t startOf(std::size_t group, std::size_t place) {
    return group * kGroupBits + place * kRdsBlockBits;
}

TEST(RdsCode, EveryBurstOfUpToFiveBitsLeavesARemainderOfItsOwn) {
    std::set<std::uint32_t> remainders;
    for (std::uint32_t pattern = 1; pattern < 32; pattern += 2) {
        for (int place = 0; pattern << place < 1U << kRdsBlockBits; ++place) {
            const std::uint32_t burst = pattern << place;
            EXPECT_EQ(rdsBurst(rdsRemainder(burst)), burst);
            remainders.insert(rdsRemainder(burst));
        }
    }
    // 26 single errors and 25, 48, 92 and 176 bursts of two to five bits.
    EXPECT_EQ(remainders.size(), 367U);
    int explained = 0;
    for (std::uint32_t remainder = 0; remainder < 1024; ++remainder)
        explained += rdsBurst(remainder) != 0 ? 1 : 0;
    EXPECT_EQ(explained, 367);
}

TEST(RdsDecoder, CorrectsEveryBurstOfUpToFiveBits) {
    const auto bits = rdsBits(plan());
    KeptGroups sent;
    sent.add(bits);
    for (std::uint32_t pattern = 1; pattern < 32; pattern += 2) {
        for (std::size_t place = 0; place < kRdsBlocks; ++place) {
            for (int first = 0; pattern << first < 1U << kRdsBlockBits; ++first) {
                auto spoilt = bits;
                for (int bit = 0; bit < 5; ++bit)
                    if ((pattern >> bit & 1U) != 0)
                        spoilt[startOf(4, place + 1) - 1 - static_cast<std::size_t>(first + bit)]
                            .flip();
                KeptGroups kept;
                kept.add(spoilt);
                ASSERT_EQ(kept.decoder.correctedBlocks(), 1U) << pattern << " from " << first;
                ASSERT_EQ(kept.decoder.badBlocks(), 0U);
                ASSERT_EQ(kept.groups.size(), sent.groups.size());
                RdsBlock expected = sent.groups[4].blocks[place];
                expected.state = RdsBlockState::Corrected;
                expected.correctedBits = static_cast<std::uint8_t>(std::bit_width(pattern));
                ASSERT_EQ(kept.groups[4].blocks[place], expected);
                ASSERT_TRUE(kept.groups[4].whole());
            }
        }
    }
}

// Noise flips weak bits. A burst of strong bits is another error pattern with the same remainder.
TEST(RdsDecoder, DoesNotTurnRoundStrongBitsBesideWeakOnes) {
    auto bits = rdsBits(plan());
    const std::size_t wrong = startOf(4, 1) + 9;
    bits[wrong].flip();
    for (const bool weakElsewhere : {false, true}) {
        const std::size_t weak = weakElsewhere ? wrong + 7 : wrong;
        RdsDecoder decoder;
        for (std::size_t n = 0; n < bits.size(); ++n) decoder.bit(bits[n], n == weak ? 0.1F : 1);
        EXPECT_EQ(decoder.correctedBlocks(), weakElsewhere ? 0U : 1U);
        EXPECT_EQ(decoder.badBlocks(), weakElsewhere ? 1U : 0U);
    }
}

// Two errors farther apart than a burst sometimes look like another burst. Where blocks are lost
// that is likely, so only information that came before is believed; without lost blocks the burst
// is.
TEST(RdsDecoder, WhereBlocksGetLostABurstCountsOnlyIfItSaysWhatCameBefore) {
    const auto once = rdsBits(plan());
    // Counts, of all pairs of errors in block 3 of group 4, the wrong corrections.
    const auto wrongAfter = [&](bool lostBefore, bool cameBefore) {
        int wrong = 0;
        for (std::size_t first = 0; first < kRdsBlockBits; ++first) {
            for (std::size_t second = first + 6; second < kRdsBlockBits; ++second) {
                std::vector<bool> bits;
                if (cameBefore) bits = once;
                const std::size_t groups = bits.size() / kGroupBits;
                bits.insert(bits.end(), once.begin(), once.end());
                // Seven wrong bits in a row are no burst that can be corrected.
                if (lostBefore)
                    for (std::size_t n = 0; n < 26; n += 4) bits[startOf(groups + 2, 1) + n].flip();
                bits[startOf(groups + 4, 2) + first].flip();
                bits[startOf(groups + 4, 2) + second].flip();
                KeptGroups sent;
                sent.add(once);
                KeptGroups kept;
                kept.add(bits);
                const RdsBlock& block = kept.groups.at(groups + 4).blocks[2];
                wrong += block.state == RdsBlockState::Corrected &&
                                 block.information != sent.groups[4].blocks[2].information
                             ? 1
                             : 0;
            }
        }
        return wrong;
    };
    const int careless = wrongAfter(false, false);
    EXPECT_GE(careless, 40);
    EXPECT_LE(wrongAfter(true, false), careless / 20);
    // A burst of five is corrected there, too, if its information came before.
    for (const bool known : {false, true}) {
        std::vector<bool> bits;
        if (known) bits = once;
        const std::size_t groups = bits.size() / kGroupBits;
        bits.insert(bits.end(), once.begin(), once.end());
        for (std::size_t n = 0; n < 26; n += 4) bits[startOf(groups + 2, 1) + n].flip();
        bits[startOf(groups + 3, 3) + 5].flip();
        bits[startOf(groups + 3, 3) + 9].flip();
        KeptGroups kept;
        kept.add(bits);
        const RdsBlock& block = kept.groups.at(groups + 3).blocks[3];
        EXPECT_EQ(block.state, known ? RdsBlockState::Corrected : RdsBlockState::Lost);
    }
}

// Wherever a bit is missing or repeated in a block, only that block is lost.
TEST(RdsDecoder, ASlipCostsTheBlockThatItHappensIn) {
    const auto bits = rdsBits(plan());
    KeptGroups sent;
    sent.add(bits);
    for (const bool twice : {false, true}) {
        for (std::size_t place = 0; place < kRdsBlocks; ++place) {
            for (std::size_t bit = 0; bit < kRdsBlockBits; ++bit) {
                auto slipped = bits;
                const auto at =
                    slipped.begin() + static_cast<std::ptrdiff_t>(startOf(5, place) + bit);
                if (twice) {
                    slipped.insert(at, *at);
                } else {
                    slipped.erase(at);
                }
                KeptGroups kept;
                kept.add(slipped);
                ASSERT_LE(kept.decoder.badBlocks() + kept.decoder.correctedBlocks(), 1U)
                    << bit << " of block " << place;
                ASSERT_EQ(kept.groups.size(), sent.groups.size());
                kept.groups[5].blocks[place] = sent.groups[5].blocks[place];
                ASSERT_EQ(kept.groups, sent.groups);
            }
        }
    }
}

// Faultless by itself and with the fourth behind it, and yet ruled out by the second: it cannot be
// slipped to, where the decoder stands already.
TEST(RdsDecoder, AThirdBlockOfTheOtherVersionIsNotTakenAsItIsAndCostsNoMore) {
    const auto bits = rdsBits(plan());
    KeptGroups sent;
    sent.add(bits);
    auto other = bits;
    const bool versionB = (sent.groups[5].blocks[1].information >> 11 & 1) != 0;
    const std::uint32_t block =
        rdsBlock(sent.groups[5].blocks[2].information, versionB ? RdsOffset::C : RdsOffset::CPrime);
    for (std::size_t bit = 0; bit < kRdsBlockBits; ++bit) {
        other[startOf(5, 2) + bit] = (block >> (kRdsBlockBits - 1 - bit) & 1) != 0;
    }
    KeptGroups kept;
    kept.add(other);
    ASSERT_EQ(kept.groups.size(), sent.groups.size());
    EXPECT_NE(kept.groups[5].blocks[2].state, RdsBlockState::Good);
    kept.groups[5].blocks[2] = sent.groups[5].blocks[2];
    EXPECT_EQ(kept.groups, sent.groups);
}

TEST(RdsDecoder, GoesOnBehindMissingBits) {
    const auto bits = rdsBits(plan());
    for (std::size_t missing = 1; missing < 3 * kGroupBits; missing += 5) {
        auto cut = bits;
        const auto from = cut.begin() + static_cast<std::ptrdiff_t>(startOf(5, 1) + 11);
        cut.erase(from, from + static_cast<std::ptrdiff_t>(missing));
        RdsDecoder decoder;
        for (const bool bit : cut) decoder.bit(bit);
        // The rests of two blocks, and the blocks that are needed to find the group's place again.
        EXPECT_LE(decoder.badBlocks(), 4U) << missing;
        EXPECT_GE(decoder.goodBlocks() + 7, cut.size() / kRdsBlockBits) << missing;
    }
}

std::vector<bool> groupsNaming(const std::vector<std::uint16_t>& programmes) {
    std::vector<bool> bits;
    for (const std::uint16_t programme : programmes) {
        RdsPlan one = plan();
        one.programme = programme;
        const auto all = rdsBits(one);
        bits.insert(bits.end(), all.begin(), all.begin() + kGroupBits);
    }
    return bits;
}

// A block may pass its check by chance.
TEST(RdsDecoder, TheProgrammeIsWhatTwoBlocksInARowName) {
    const auto named = [](const std::vector<std::uint16_t>& programmes) {
        RdsDecoder decoder;
        for (const bool bit : groupsNaming(programmes)) decoder.bit(bit);
        return decoder.programme();
    };
    EXPECT_EQ(named({0x1111, 0x2222}), std::nullopt);
    EXPECT_EQ(named({0x1111, 0x2222, 0x3333}), std::nullopt);
    EXPECT_EQ(named({0x1111, 0x1111, 0x3333}), 0x1111);
    EXPECT_EQ(named({0x1111, 0x1111, 0x2222, 0x1111, 0x1111, 0x1111}), 0x1111);
    EXPECT_EQ(named({0x1111, 0x1111, 0x2222, 0x2222, 0x1111}), 0x2222);
}

TEST(RdsDecoder, FindsNothingInRandomBits) {
    RdsDecoder decoder;
    Random random(3);
    for (int bit = 0; bit < 60000; ++bit) decoder.bit(random.uniform() < 0.5);
    EXPECT_EQ(decoder.name(), "");
    EXPECT_EQ(decoder.programme(), std::nullopt);
    EXPECT_LT(decoder.goodBlocks(), 20U);
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
