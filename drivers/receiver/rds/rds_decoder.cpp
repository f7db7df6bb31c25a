// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/rds/rds_decoder.h"

namespace hm16::receiver {

void RdsDecoder::takeGroup(const RdsGroup& group) {
    if (onGroup_) onGroup_(group);
    takeProgramme(group.blocks[0]);
    if (group.blocks[2].offset == RdsOffset::CPrime) takeProgramme(group.blocks[2]);
    const RdsBlock& kind = group.blocks[1];
    const RdsBlock& pair = group.blocks[3];
    if (kind.state != RdsBlockState::Good || pair.state != RdsBlockState::Good) return;
    if (kind.information >> 12U != 0) return;  // groups 0A and 0B carry the name
    const unsigned segment = kind.information & 3U;
    letters_[2 * segment] = static_cast<char>(pair.information >> 8U);
    letters_[2 * segment + 1] = static_cast<char>(pair.information & 0xFFU);
    segmentsSeen_ |= 1U << segment;
}

void RdsDecoder::takeProgramme(const RdsBlock& block) {
    if (block.state != RdsBlockState::Good) return;
    if (named_ == block.information) programme_ = named_;
    named_ = block.information;
}

std::string RdsDecoder::name() const {
    constexpr unsigned kAll = (1U << kSegments) - 1;
    return segmentsSeen_ == kAll ? std::string(letters_.begin(), letters_.end()) : std::string();
}

}  // namespace hm16::receiver
