// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/unit/sweep_store.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace hm16 {

namespace {

// A cell for each 25 kHz, the finest step, over more than any FM band.
constexpr double kCellsPerUnit = 4;
constexpr double kLowest = 600;
constexpr long kCells = 3200;

long cellOf(double frequency) {
    if (!(frequency > 0 && frequency < 1e6)) return -1;
    return std::lround((frequency - kLowest) * kCellsPerUnit);
}

}  // namespace

int SweepRange::points() const {
    if (!(stop >= start) || stepKhz <= 0) return 0;
    const double steps = (stop - start) * 100 / stepKhz;
    return steps > kCells ? static_cast<int>(kCells)
                          : static_cast<int>(std::floor(steps + 1e-3)) + 1;
}

double SweepRange::frequency(int point) const {
    return start + point * (stepKhz / 100.0);
}

SweepStore::SweepStore(float noiseFloor) : noiseFloor_(noiseFloor), cells_(kCells, noiseFloor) {}

void SweepStore::takeFrame(const SweepRange& range, std::span<const float> levels) {
    // Each point covers half a step to either side, so that the cells of a frame meet and do not
    // overlap.
    const long width = std::max(1, range.stepKhz / 25);
    const long first = std::max(cellOf(range.start), 0L);
    const long last = std::min(cellOf(range.stop), kCells - 1);
    const std::lock_guard lock(mutex_);
    for (std::size_t i = 0; i < levels.size(); ++i) {
        const long centre = cellOf(range.frequency(static_cast<int>(i)));
        const long low = std::max(centre - (width - 1) / 2, first);
        const long high = std::min(centre + width / 2, last);
        for (long cell = low; cell <= high; ++cell) {
            cells_[static_cast<std::size_t>(cell)] = levels[i];
        }
    }
    arrived_ = true;
}

bool SweepStore::frameArrived() {
    const std::lock_guard lock(mutex_);
    return std::exchange(arrived_, false);
}

void SweepStore::forgetArrival() {
    const std::lock_guard lock(mutex_);
    arrived_ = false;
}

float SweepStore::level(double frequency) const {
    const long cell = cellOf(frequency);
    if (cell < 0 || cell >= kCells) return noiseFloor_;
    const std::lock_guard lock(mutex_);
    return cells_[static_cast<std::size_t>(cell)];
}

}  // namespace hm16
