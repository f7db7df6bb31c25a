// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <string>

#include "app/history_tap.h"
#include "history/recorder.h"

namespace hmonitor {

/// The name of its folder in the working folder.
inline constexpr const char* kHistoryFolder = "history";

/// Shows on the rack's head why the history cannot be written, as long as that holds.
class HistoryTroubles final : public DoorListener {
 public:
    HistoryTroubles(Program& program, const history::Recorder& recorder);
    ~HistoryTroubles() override;
    HistoryTroubles(const HistoryTroubles&) = delete;
    HistoryTroubles& operator=(const HistoryTroubles&) = delete;

    /// Asked for by the heartbeat, whatever the unit does; it looks once a second.
    void measured(const Measured& now) override;

    /// What the rack's head says of a recorder that stands so, but for what could not be written.
    static hmonitor::HistoryNotice noticeOf(const history::StoreStatus& status);

 private:
    Program& program_;
    const history::Recorder& recorder_;
    unsigned number_ = 0;
    history::StoreStatus status_;
    display::Time looked_ = std::chrono::seconds(-1);
    std::string aside_;  ///< the file that was set aside last
    display::Time asideSince_{0};
    bool asideOver_ = false;  ///< it was told for long enough
};

/// The history of what the unit measures, recorded from here on in the working folder.
class RecordedHistory {
 public:
    explicit RecordedHistory(Program& program);
    RecordedHistory(Program& program, history::StoreSettings settings);

    /// Writes what is left.
    ~RecordedHistory() = default;

 private:
    history::Recorder recorder_;
    HistoryTap tap_;
    HistoryTroubles troubles_;
};

}  // namespace hmonitor
