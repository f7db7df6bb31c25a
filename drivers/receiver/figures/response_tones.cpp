// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/figures/response_tones.h"

#include <algorithm>
#include <cmath>

#include "drivers/receiver/figures/audio_power.h"

namespace hm16::receiver {
namespace {

constexpr double kToneDb = 20;  // over all else: a test tone, not music
constexpr double kQuietToneDb = -45;
constexpr double kOffBy = 0.03;  // share by which a generator may miss the frequency
constexpr double kOffByHz = 3;
constexpr std::size_t kSilentLooks = 12;
// After this time even the last tone has filled a whole window.
constexpr std::size_t kLastLooks = 4;
constexpr int kReferenceHz = 1000;

int testToneAt(double hz) {
    for (const int tone : ResponseTones::kTones)
        if (std::fabs(hz - tone) < std::max(kOffBy * tone, kOffByHz)) return tone;
    return 0;
}

}  // namespace

void ResponseTones::look(const SteadyTone& tone) {
    if (ended_) return;
    const double db = levelDb(tone.meanSquare);
    const int hz = testToneAt(tone.hz);
    // Harmonics belong to a test tone; other lines beside it mean that it is programme.
    if (hz == 0 || tone.dominanceDb() < kToneDb || db < kQuietToneDb) {
        const std::size_t patience = count_ == kTones.size() ? 1 : kSilentLooks;
        if (count_ > 0 && ++looksWithout_ >= patience) ended_ = true;
        return;
    }
    looksWithout_ = 0;
    if (count_ == kTones.size() && ++looksAtLast_ >= kLastLooks) ended_ = true;
    for (std::size_t n = 0; n < count_; ++n) {
        if (found_[n]->hz != hz) continue;
        // A window that the tone fills only in part reads low, so the highest reading counts.
        found_[n]->db = std::max(found_[n]->db, db);
        return;
    }
    found_[count_++] = Found{hz, db};
}

std::array<ResponseTones::Result, 8> ResponseTones::results() const {
    std::array<Result, 8> results;
    if (count_ == 0) return results;
    double reference = found_[0]->db;
    for (std::size_t n = 0; n < count_; ++n)
        if (found_[n]->hz == kReferenceHz) reference = found_[n]->db;
    for (std::size_t n = 0; n < count_; ++n) {
        results[n].hz = found_[n]->hz;
        results[n].tenthsOfDb = static_cast<int>(std::lround(10 * (found_[n]->db - reference)));
    }
    return results;
}

}  // namespace hm16::receiver
