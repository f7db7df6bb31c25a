// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <deque>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "core/folder_lock.h"
#include "history/civil_day.h"
#include "history/day_file.h"
#include "history/index_file.h"
#include "history/recording.h"
#include "history/retention.h"

namespace history {

struct StoreSettings {
    std::filesystem::path folder;
    Flush flush = Flush::Full;
    const char* vfs = nullptr;  ///< the name of SQLite's system layer; tests use others
    Retention retention;
};

/// The state of the store.
struct StoreStatus {
    enum class State {
        Recording,
        LookingOn,  ///< another recorder has the folder
        Newer,      ///< `file` was made by a newer version; nothing is recorded
        Failing     ///< `file` could not be written for `reason`; the data waits
    };
    State state = State::Recording;
    bool thinning = false;  ///< little space on the disk: old days of seconds are removed
    std::string file;
    std::string reason;
    int systemError = 0;           ///< Failing: the nearest errno value
    std::string setAside;          ///< the damaged file that was set aside last
    std::int64_t lostSeconds = 0;  ///< lost, because the disk failed for too long

    bool operator==(const StoreStatus&) const = default;
};

/// Writes seconds and events to files: the day's file every few seconds, the index every minute.
/// Nothing throws: data that cannot be written waits, and writing is tried again.
class Store final : public RecordingSink {
 public:
    /// So many seconds wait while the disk fails; older ones are lost.
    static constexpr std::size_t kMostWaiting = 600;

    explicit Store(StoreSettings settings);
    ~Store() override;

    /// Locks the folder and repairs what the last run left. `now`: seconds since 1970.
    void open(std::int64_t now);
    /// The epoch of a recording that begins at `now`: a new one if that time was recorded already.
    int epochFor(std::int64_t now) const;

    void keep(const Second& second) override;
    void keep(const Event& event) override;

    /// Writes all waiting data; `now` closes minutes, hours and days that are over.
    void commit(std::int64_t now);
    /// Removes what is too old or too much.
    void tidy(std::int64_t now);

    const StoreStatus& status() const { return status_; }

 private:
    struct SpanKey {
        int station = 0;
        std::int64_t step = kMinute;
        std::int64_t begin = 0;
        std::int64_t end = 0;
        int epoch = 0;
        auto operator<=>(const SpanKey&) const = default;
    };

    // store_files.cpp
    std::filesystem::path pathOf(const CivilDay& day) const;
    std::vector<CivilDay> days() const;
    bool openFolder();
    void leaveWhatWasRemoved();
    void leaveIndex();
    bool bringUp(std::int64_t now);
    void openIndex(std::int64_t now);
    DayFile& openDay(const CivilDay& day);
    void finishDay();
    void closeDay();
    void setAside(const std::filesystem::path& path, std::int64_t now);
    void fail(const std::string& file, const std::string& reason, int systemError);
    /// Runs `work`; a fault of the disk or damage of `file` stops it. False if it did not finish.
    template <typename Work>
    bool guarded(const std::filesystem::path& file, std::int64_t now, Work work);

    // store_spans.cpp
    bool repair(std::int64_t now);
    bool repairDay(const CivilDay& day, std::int64_t now);
    std::vector<MinuteKey> withoutSpans(const std::vector<MinuteKey>& minutes);
    void noteSpans(const MinuteKey& key);
    void writeSpans(std::int64_t now);
    Span spanOfKey(const SpanKey& key);
    Span minuteSpan(const ClosedMinute& minute) const;

    // store.cpp
    bool writeGroup(std::int64_t now);
    void dropWaiting();

    StoreSettings settings_;
    StoreStatus status_;
    std::unique_ptr<hmonitor::FolderLock> lock_;
    std::unique_ptr<IndexFile> index_;
    bool isUp_ = false;        // what the last run left is repaired
    bool isRemaking_ = false;  // the index has all days as soon as all spans are written
    std::unique_ptr<DayFile> day_;
    CivilDay dayOpen_;
    std::set<MinuteKey> openMinutes_;
    std::deque<Second> waiting_;
    std::deque<Event> waitingEvents_;
    std::vector<ClosedMinute> unsummed_;
    std::vector<Event> unindexed_;
    std::set<SpanKey> pendingSpans_;
    DayRows::Told told_;
    std::int64_t lost_ = 0;
    std::int64_t nextTidy_ = INT64_MIN;
};

template <typename Work>
bool Store::guarded(const std::filesystem::path& file, std::int64_t now, Work work) {
    try {
        work();
        return true;
    } catch (const NewerFile& newer) {
        status_.state = StoreStatus::State::Newer;
        status_.file = newer.what();
    } catch (const DatabaseFault& fault) {
        closeDay();
        if (fault.isDamage()) {
            setAside(file, now);
        } else {
            fail(file.filename().string(), fault.what(), fault.systemError());
        }
    }
    return false;
}

}  // namespace history
