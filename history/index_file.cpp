// SPDX-License-Identifier: GPL-3.0-or-later
#include "history/index_file.h"

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "history/crc.h"

namespace history {

namespace {

bool makeIndexReady(Database& database, const std::filesystem::path& path, Flush flush) {
    const FileKind kind = kindOf(database);
    if (kind == FileKind::Newer) throw NewerFile(path.filename().string());
    if (kind == FileKind::Foreign) throw DatabaseFault(26, "not a file of this program");
    prepareIndex(database, flush);
    return true;
}

}  // namespace

IndexRows::IndexRows(Database& database) : database_(database), columns_(readFigures(database)) {}

std::vector<int> IndexRows::stations() const {
    std::vector<int> stations;
    Statement rows(database_, "SELECT khz FROM station ORDER BY khz LIMIT 10000");
    while (rows.step()) stations.push_back(static_cast<int>(rows.number(0)));
    return stations;
}

std::vector<Event> IndexRows::events(std::int64_t begin, std::int64_t end) const {
    return readEvents(database_, begin, end);
}

bool IndexRows::has(int station, std::int64_t step, std::int64_t t, int epoch) const {
    Statement row(database_,
                  "SELECT 1 FROM span WHERE station=?1 AND step=?2 AND t=?3 AND epoch=?4");
    row.bind(1, std::int64_t{station}).bind(2, step).bind(3, t).bind(4, std::int64_t{epoch});
    return row.step();
}

std::optional<std::int64_t> IndexRows::outermost(int station, std::int64_t step,
                                                 const char* order) const {
    Statement row(database_,
                  std::string("SELECT t FROM span WHERE station=?1 AND step=?2 ORDER BY ") + order +
                      " LIMIT 1");
    row.bind(1, std::int64_t{station}).bind(2, step);
    if (!row.step()) return std::nullopt;
    return row.number(0);
}

std::optional<std::int64_t> IndexRows::first(int station, std::int64_t step) const {
    return outermost(station, step, "t");
}

std::optional<std::int64_t> IndexRows::last(int station, std::int64_t step) const {
    return outermost(station, step, "t DESC");
}

void IndexRows::spans(int station, std::int64_t step, std::int64_t begin, std::int64_t end,
                      std::span<const std::size_t> figures, const Take& take) const {
    Statement rows(database_,
                   "SELECT t,epoch,data,crc FROM span WHERE station=?1 AND step=?2 AND t>=?3 AND "
                   "t<?4 ORDER BY t,epoch");
    rows.bind(1, std::int64_t{station}).bind(2, step).bind(3, begin).bind(4, end);
    while (rows.step()) {
        const std::string_view data = rows.bytes(2);
        const bool isSound = crc32Of(data) == rows.number(3);
        const auto block = isSound ? SpanBlock::open(data) : std::nullopt;
        for (std::size_t which = 0; which < figures.size(); ++which) {
            const FileFigure* figure = columns_.of(figures[which]);
            std::optional<SpanValue> value;
            if (block) value = figure ? block->figure(*figure) : SpanValue{};
            take(rows.number(0), block ? block->seconds() : step, static_cast<int>(rows.number(1)),
                 which, value);
        }
    }
}

IndexFile::IndexFile(const std::filesystem::path& path, Flush flush, const char* vfs)
    : path_(path),
      database_(path, Access::Write, vfs),
      ready_(makeIndexReady(database_, path, flush)),
      rows_(database_) {}

void IndexFile::keep(std::span<const StepSpan> spans, std::span<const Event> events) {
    Transaction transaction(database_);
    Statement insert(database_,
                     "INSERT OR REPLACE INTO span(station,step,t,epoch,data,crc) "
                     "VALUES(?1,?2,?3,?4,?5,?6)");
    std::set<int> stations;
    for (const StepSpan& one : spans) {
        const Span& span = one.span;
        if (stations.insert(span.station).second) addStation(database_, span.station);
        const std::string data = packSpan(span, rows_.columns());
        insert.bind(1, std::int64_t{span.station})
            .bind(2, one.step)
            .bind(3, span.t)
            .bind(4, std::int64_t{span.epoch})
            .bindBytes(5, data)
            .bind(6, std::int64_t{crc32Of(data)});
        insert.run();
    }
    for (const Event& event : events) addEvent(database_, event);
    transaction.commit();
}

void IndexFile::keepMissing(std::span<const Event> events) {
    if (events.empty()) return;
    const auto there = readEvents(database_, events.front().t, events.back().t + 1);
    std::multiset<Event> known(there.begin(), there.end());
    std::vector<Event> missing;
    for (const Event& event : events) {
        const auto found = known.find(event);
        if (found == known.end()) {
            missing.push_back(event);
        } else {
            known.erase(found);
        }
    }
    if (!missing.empty()) keep({}, missing);
}

void IndexFile::removeBefore(std::int64_t step, std::int64_t t) {
    Transaction transaction(database_);
    Statement remove(database_, "DELETE FROM span WHERE step=?1 AND t<?2");
    remove.bind(1, step).bind(2, t);
    remove.run();
    transaction.commit();
    database_.run("PRAGMA incremental_vacuum");
}

bool IndexFile::hasAllDays() {
    return database_.number("SELECT count(*) FROM about WHERE key='all days'") > 0;
}

void IndexFile::tellAllDays() {
    setAbout(database_, "all days", "yes");
}

int IndexFile::lastEpoch() {
    return static_cast<int>(std::clamp<std::int64_t>(
        database_.number("SELECT coalesce(max(epoch),0) FROM span WHERE step=86400"), 0,
        INT32_MAX - 1));
}

}  // namespace history
