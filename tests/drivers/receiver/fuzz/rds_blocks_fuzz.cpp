// SPDX-License-Identifier: GPL-3.0-or-later
// Any bits as those of RDS; the bits of the first byte give their strengths, in turn.
#include <cstdint>

#include "drivers/receiver/rds/rds_decoder.h"
#include "tests/fuzz/check.h"

namespace {

using namespace hm16::receiver;

void look(const RdsGroup& group) {
    for (const RdsBlock& block : group.blocks) {
        const bool corrected = block.state == RdsBlockState::Corrected;
        FUZZ_CHECK(corrected == (block.correctedBits > 0));
        FUZZ_CHECK(block.correctedBits <= kRdsLongestBurst);
        FUZZ_CHECK(block.state != RdsBlockState::Lost || block.information == 0);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    std::uint64_t groups = 0;
    double end = 0;
    RdsDecoder decoder([&](const RdsGroup& group) {
        look(group);
        FUZZ_CHECK(group.number == groups);
        ++groups;
        FUZZ_CHECK(group.endSeconds >= end);
        end = group.endSeconds;
    });
    std::uint64_t bits = 0;
    for (std::size_t n = 1; n < size; ++n) {
        for (unsigned bit = 0; bit < 8; ++bit, ++bits) {
            const bool strong = (data[0] >> (bits % 7) & 1U) != 0;
            decoder.bit((data[n] >> (7 - bit) & 1U) != 0, strong ? 1 : 0.1F,
                        static_cast<double>(bits));
        }
    }
    const std::uint64_t usable = decoder.goodBlocks() + decoder.correctedBlocks();
    // After a slip two blocks may share some bits, but never more than that.
    FUZZ_CHECK(usable <= bits);
    FUZZ_CHECK(groups <= usable + decoder.badBlocks());
    FUZZ_CHECK(!decoder.programme() || decoder.goodBlocks() >= 2);
    FUZZ_CHECK(decoder.name().empty() || decoder.goodBlocks() >= 8);
    return 0;
}
