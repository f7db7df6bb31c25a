// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <vector>

#include "program/door_listener.h"

namespace hmonitor {

/// All who listen at the driver door. Each hears everything, in the order in which they joined.
class DoorListeners final : public DoorListener {
 public:
    /// From here on it hears what passes. It leaves before it goes, and outside of what it hears.
    void join(DoorListener& listener) { all_.push_back(&listener); }
    void leave(const DoorListener& listener) { std::erase(all_, &listener); }
    bool none() const { return all_.empty(); }

    void tuned(const Tuned& to) override {
        for (DoorListener* one : all_) one->tuned(to);
    }
    void measured(const Measured& now) override {
        for (DoorListener* one : all_) one->measured(now);
    }
    void slotCame(const MeasuredSlot& slot) override {
        for (DoorListener* one : all_) one->slotCame(slot);
    }
    void silent(display::Time at) override {
        for (DoorListener* one : all_) one->silent(at);
    }
    void halted(display::Time at) override {
        for (DoorListener* one : all_) one->halted(at);
    }
    void demoBegan(display::Time at) override {
        for (DoorListener* one : all_) one->demoBegan(at);
    }
    void frameCame(const SweepFrame& frame) override {
        for (DoorListener* one : all_) one->frameCame(frame);
    }
    void levelRead(const MeasuredLevel& level) override {
        for (DoorListener* one : all_) one->levelRead(level);
    }

 private:
    std::vector<DoorListener*> all_;
};

}  // namespace hmonitor
