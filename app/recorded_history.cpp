// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/recorded_history.h"

#include <cerrno>
#include <chrono>
#include <filesystem>
#include <utility>

#include "core/files.h"

namespace hmonitor {

namespace {

using Standing = history::StoreStatus::State;

constexpr display::Time kLookEvery = std::chrono::seconds(1);
constexpr display::Time kTellAside = std::chrono::minutes(10);
/// What a commit may take; with less room on the disk the trouble stands.
constexpr std::size_t kCommitBytes = 1'000'000;

/// A disk or a folder in which no file can be stored; of those one line is shown for all files.
bool isOfAllFiles(int systemError) {
    return systemError == ENOSPC || systemError == EROFS || systemError == EACCES ||
           systemError == EPERM;
}

history::StoreSettings settingsIn(const Files& files) {
    history::StoreSettings settings;
    settings.folder = files.folder() / kHistoryFolder;
    return settings;
}

}  // namespace

HistoryTroubles::HistoryTroubles(Program& program, const history::Recorder& recorder)
    : program_(program), recorder_(recorder) {
    program_.driver.listeners().join(*this);
}

HistoryTroubles::~HistoryTroubles() {
    program_.driver.listeners().leave(*this);
}

void HistoryTroubles::measured(const Measured& now) {
    if (now.at - looked_ < kLookEvery) return;
    looked_ = now.at;
    const unsigned number = recorder_.statusNumber();
    const bool isNew = number != number_;
    if (isNew) {
        number_ = number;
        status_ = recorder_.status();
        if (status_.setAside != aside_) asideSince_ = now.at;
        aside_ = status_.setAside;
    }
    // Nothing is to be done about it: told for a while, and for ever among the events.
    const bool isOver = !aside_.empty() && now.at - asideSince_ >= kTellAside;
    if (isOver) status_.setAside.clear();
    if (isNew || isOver != asideOver_) program_.HistoryNotice = noticeOf(status_);
    asideOver_ = isOver;
    // It is forgotten by whoever shows it, and stands as long as the recorder says so.
    if (status_.state != Standing::Failing || !isOfAllFiles(status_.systemError)) return;
    const std::filesystem::path folder = program_.files.folder();
    const bool isFolder = status_.file == kHistoryFolder;
    const auto file = isFolder ? folder / kHistoryFolder : folder / kHistoryFolder / status_.file;
    (void)program_.files.troubles().failed(file, status_.systemError, kCommitBytes);
}

hmonitor::HistoryNotice HistoryTroubles::noticeOf(const history::StoreStatus& status) {
    if (status.state == Standing::Newer) {
        return {status.file + " es de una versión más nueva: no se registra nada",
                status.file + " is from a newer version: nothing is recorded"};
    }
    if (status.state == Standing::Failing && !isOfAllFiles(status.systemError)) {
        return {"No se puede guardar " + status.file, status.file + " cannot be stored"};
    }
    if (!status.setAside.empty()) {
        return {status.setAside + " estaba dañado y se apartó",
                status.setAside + " was damaged and was set aside"};
    }
    if (status.state == Standing::Recording && status.thinning) {
        return {"Queda poco disco: se borran los segundos más antiguos",
                "Little room on the disk: the oldest seconds are removed"};
    }
    return {};
}

RecordedHistory::RecordedHistory(Program& program)
    : RecordedHistory(program, settingsIn(program.files)) {}

RecordedHistory::RecordedHistory(Program& program, history::StoreSettings settings)
    : recorder_(std::move(settings)), tap_(program, recorder_), troubles_(program, recorder_) {
    recorder_.start();
}

}  // namespace hmonitor
