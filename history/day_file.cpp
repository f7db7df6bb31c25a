// SPDX-License-Identifier: GPL-3.0-or-later
#include "history/day_file.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <set>
#include <string>
#include <string_view>

#include "history/crc.h"

namespace history {

namespace {

std::int64_t minuteOf(std::int64_t t) {
    return t - ((t % kMinute) + kMinute) % kMinute;
}

/// A block that its row tells the truth about.
std::optional<SecondBlock> soundBlock(std::string_view data, std::int64_t n, std::int64_t crc) {
    if (crc32Of(data) != crc) return std::nullopt;
    std::optional<SecondBlock> block = SecondBlock::open(data);
    if (block && block->size() != n) return std::nullopt;
    return block;
}

bool makeDayReady(Database& database, const std::filesystem::path& path, Flush flush) {
    const FileKind kind = kindOf(database);
    if (kind == FileKind::Newer) throw NewerFile(path.filename().string());
    if (kind == FileKind::Foreign) throw DatabaseFault(26, "not a file of this program");
    prepareDay(database, flush);
    return true;
}

/// Keys and epochs from a file that may hold anything.
bool isPlausible(std::int64_t station, std::int64_t epoch) {
    return station >= 0 && station <= INT32_MAX && epoch >= 0 && epoch <= INT32_MAX;
}

void putSeconds(std::vector<Second>& into, std::vector<Second> more) {
    for (Second& second : more) {
        const auto place = std::ranges::lower_bound(into, second.t, {}, &Second::t);
        if (place != into.end() && place->t == second.t) {
            joinSecond(*place, second);
        } else {
            into.insert(place, second);
        }
    }
}

}  // namespace

MinuteKey MinuteKey::of(const Second& second) {
    return {second.station, minuteOf(second.t), second.epoch};
}

DayRows::DayRows(Database& database) : database_(database), columns_(readFigures(database)) {}

std::vector<MinuteKey> DayRows::minutes(std::int64_t begin, std::int64_t end) const {
    std::set<MinuteKey> keys;
    Statement rows(database_,
                   "SELECT station,minute,epoch FROM second WHERE minute>=?1 AND minute<?2 UNION "
                   "SELECT station,t-((t%60)+60)%60,epoch FROM tail WHERE t>=?1 AND t<?2");
    rows.bind(1, minuteOf(begin)).bind(2, end);
    while (rows.step()) {
        if (!isPlausible(rows.number(0), rows.number(2))) continue;
        keys.insert(
            {static_cast<int>(rows.number(0)), rows.number(1), static_cast<int>(rows.number(2))});
    }
    return {keys.begin(), keys.end()};
}

std::vector<int> DayRows::stations() const {
    std::vector<int> stations;
    Statement rows(database_, "SELECT khz FROM station ORDER BY khz LIMIT 10000");
    while (rows.step()) {
        if (isPlausible(rows.number(0), 0)) stations.push_back(static_cast<int>(rows.number(0)));
    }
    return stations;
}

std::vector<Event> DayRows::events(std::int64_t begin, std::int64_t end) const {
    return readEvents(database_, begin, end);
}

void DayRows::seconds(int station, std::int64_t begin, std::int64_t end,
                      std::span<const std::size_t> figures, const Take& take) const {
    blocks(station, begin, end, figures, take);
    tail(station, begin, end, figures, take);
}

void DayRows::blocks(int station, std::int64_t begin, std::int64_t end,
                     std::span<const std::size_t> figures, const Take& take) const {
    Statement rows(database_,
                   "SELECT minute,epoch,n,data,crc FROM second WHERE station=?1 AND minute>=?2 AND "
                   "minute<?3 ORDER BY minute,epoch");
    rows.bind(1, std::int64_t{station}).bind(2, minuteOf(begin)).bind(3, end);
    std::array<FigureSecond, kMinute> column;
    while (rows.step()) {
        const std::int64_t minute = rows.number(0);
        const std::int64_t epoch = rows.number(1);
        if (!isPlausible(0, epoch)) continue;
        const auto block = soundBlock(rows.bytes(3), rows.number(2), rows.number(4));
        const int count = block ? block->size() : static_cast<int>(kMinute);
        for (std::size_t which = 0; which < figures.size(); ++which) {
            const FileFigure* figure = columns_.of(figures[which]);
            column.fill(block ? FigureSecond{} : FigureSecond{0, 0, State::Gap});
            if (block && figure) block->column(*figure, column);
            for (int i = 0; i < count; ++i) {
                const std::int64_t t = minute + (block ? block->offset(i) : i);
                if (t >= begin && t < end) {
                    take(t, static_cast<int>(epoch), which, column[static_cast<std::size_t>(i)]);
                }
            }
        }
    }
}

void DayRows::tail(int station, std::int64_t begin, std::int64_t end,
                   std::span<const std::size_t> figures, const Take& take) const {
    Statement rows(database_,
                   "SELECT t,epoch,data FROM tail WHERE station=?1 AND t>=?2 AND t<?3 ORDER BY t");
    rows.bind(1, std::int64_t{station}).bind(2, begin).bind(3, end);
    std::array<FigureSecond, kMinute> column;
    while (rows.step()) {
        if (!isPlausible(0, rows.number(1))) continue;
        const auto block = SecondBlock::open(rows.bytes(2));
        for (std::size_t which = 0; which < figures.size(); ++which) {
            const FileFigure* figure = columns_.of(figures[which]);
            column[0] = block ? FigureSecond{} : FigureSecond{0, 0, State::Gap};
            if (block && figure) block->column(*figure, column);
            take(rows.number(0), static_cast<int>(rows.number(1)), which, column[0]);
        }
    }
}

DayRows::Told DayRows::lastTold() const {
    Told last;
    const auto tell = [&](std::int64_t epoch, std::int64_t end) {
        if (isPlausible(0, epoch)) last = std::max(last, Told{static_cast<int>(epoch), end});
    };
    // Beside max() the other columns are those of its row.
    Statement blocks(database_,
                     "SELECT epoch,max(minute),n,data,crc FROM second GROUP BY epoch,station");
    while (blocks.step()) {
        const auto block = soundBlock(blocks.bytes(3), blocks.number(2), blocks.number(4));
        const int behind = block ? block->offset(block->size() - 1) + 1 : static_cast<int>(kMinute);
        tell(blocks.number(0), blocks.number(1) + behind);
    }
    Statement tails(database_, "SELECT epoch,max(t)+1 FROM tail GROUP BY epoch");
    while (tails.step()) tell(tails.number(0), tails.number(1));
    return last;
}

std::vector<Second> DayRows::minute(const MinuteKey& key) const {
    std::vector<Second> seconds;
    Statement row(database_,
                  "SELECT n,data,crc FROM second WHERE station=?1 AND minute=?2 AND epoch=?3");
    row.bind(1, std::int64_t{key.station}).bind(2, key.minute).bind(3, std::int64_t{key.epoch});
    if (row.step()) {
        if (const auto block = soundBlock(row.bytes(1), row.number(0), row.number(2))) {
            seconds = secondsOf(*block, columns_, key.station, key.minute, key.epoch);
        }
    }
    Statement rows(database_,
                   "SELECT data FROM tail WHERE station=?1 AND t>=?2 AND t<?3 AND epoch=?4");
    rows.bind(1, std::int64_t{key.station}).bind(2, key.minute).bind(3, key.minute + kMinute);
    rows.bind(4, std::int64_t{key.epoch});
    while (rows.step()) {
        const auto block = SecondBlock::open(rows.bytes(0));
        if (!block) continue;
        putSeconds(seconds, secondsOf(*block, columns_, key.station, key.minute, key.epoch));
    }
    return seconds;
}

DayFile::DayFile(const std::filesystem::path& path, Flush flush, const char* vfs)
    : path_(path),
      database_(path, Access::Write, vfs),
      ready_(makeDayReady(database_, path, flush)),
      rows_(database_) {}

std::vector<MinuteKey> DayFile::openMinutes() {
    std::vector<MinuteKey> keys;
    Statement rows(database_, "SELECT DISTINCT station,t-((t%60)+60)%60,epoch FROM tail");
    while (rows.step()) {
        keys.push_back(
            {static_cast<int>(rows.number(0)), rows.number(1), static_cast<int>(rows.number(2))});
    }
    return keys;
}

std::vector<ClosedMinute> DayFile::keep(std::span<const Second> seconds,
                                        std::span<const Event> events,
                                        std::span<const MinuteKey> over) {
    std::vector<ClosedMinute> closed;
    Transaction transaction(database_);
    Statement insert(database_,
                     "INSERT OR REPLACE INTO tail(station,t,epoch,data) VALUES(?1,?2,?3,?4)");
    std::set<int> stations;
    for (const Second& second : seconds) {
        if (stations.insert(second.station).second) addStation(database_, second.station);
        put(second, insert);
    }
    for (const Event& event : events) addEvent(database_, event);
    for (const MinuteKey& key : over) closed.push_back(pack(key));
    transaction.commit();
    return closed;
}

/// A second that is there already was left for another station, or by a program that ended in it.
void DayFile::put(const Second& second, Statement& insert) {
    Second whole = second;
    Statement there(database_, "SELECT data FROM tail WHERE station=?1 AND t=?2 AND epoch=?3");
    there.bind(1, std::int64_t{second.station})
        .bind(2, second.t)
        .bind(3, std::int64_t{second.epoch});
    if (there.step()) {
        if (const auto block = SecondBlock::open(there.bytes(0))) {
            const MinuteKey key = MinuteKey::of(second);
            joinSecond(
                whole,
                secondsOf(*block, rows_.columns(), key.station, key.minute, key.epoch).front());
        }
    }
    const std::string data = packSeconds(std::span(&whole, 1), rows_.columns());
    insert.bind(1, std::int64_t{second.station})
        .bind(2, second.t)
        .bind(3, std::int64_t{second.epoch})
        .bindBytes(4, data);
    insert.run();
}

ClosedMinute DayFile::pack(const MinuteKey& key) {
    ClosedMinute closed{key, rows_.minute(key)};
    if (!closed.seconds.empty()) {
        const std::string data = packSeconds(closed.seconds, rows_.columns());
        Statement insert(database_,
                         "INSERT OR REPLACE INTO second(station,minute,epoch,n,data,crc) "
                         "VALUES(?1,?2,?3,?4,?5,?6)");
        insert.bind(1, std::int64_t{key.station})
            .bind(2, key.minute)
            .bind(3, std::int64_t{key.epoch})
            .bind(4, static_cast<std::int64_t>(closed.seconds.size()))
            .bindBytes(5, data)
            .bind(6, std::int64_t{crc32Of(data)});
        insert.run();
    }
    Statement remove(database_,
                     "DELETE FROM tail WHERE station=?1 AND t>=?2 AND t<?3 AND epoch=?4");
    remove.bind(1, std::int64_t{key.station}).bind(2, key.minute).bind(3, key.minute + kMinute);
    remove.bind(4, std::int64_t{key.epoch});
    remove.run();
    return closed;
}

void DayFile::finish() {
    database_.run("PRAGMA wal_checkpoint(TRUNCATE)");
    database_.run("PRAGMA journal_mode=DELETE");
}

}  // namespace history
