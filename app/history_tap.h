// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <functional>

#include "core/small_text.h"
#include "history/input.h"
#include "program/program.h"

namespace hmonitor {

/// Hands on to the recorder what passes the driver door. It only listens: it makes no call, waits
/// for nothing and allocates nothing.
class HistoryTap final : public DoorListener {
 public:
    using Clock = std::function<history::Moment()>;

    /// Listens until it goes. `sink` outlives it.
    HistoryTap(Program& program, history::InputSink& sink, Clock clock = &history::Moment::now);
    ~HistoryTap() override;
    HistoryTap(const HistoryTap&) = delete;
    HistoryTap& operator=(const HistoryTap&) = delete;

    void tuned(const Tuned& to) override;
    void measured(const Measured& now) override;
    void slotCame(const MeasuredSlot& slot) override;
    void silent(display::Time at) override;
    void halted(display::Time at) override;
    void demoBegan(display::Time at) override;
    void frameCame(const SweepFrame& frame) override;
    void levelRead(const MeasuredLevel& level) override;

 private:
    history::Input inputNow(history::Input::What what) const;
    void handOn(const history::Input& input) { sink_.take(input); }
    void tellBusy();
    void tellCorrection();
    bool isFasterThanLife(std::uint32_t lengthMs);
    bool saysNothingNew(const history::Input& readings) const;

    Program& program_;
    history::InputSink& sink_;
    Clock clock_;
    history::Input last_;  ///< the last readings that were handed on
    bool hasLast_ = false;
    std::int64_t busyAt_ = 0;
    double slotsDue_;  ///< so many slots may come at once
    std::int64_t slotsDueAt_ = 0;
    SmallText correction_;  ///< of the field, as it was told
};

}  // namespace hmonitor
