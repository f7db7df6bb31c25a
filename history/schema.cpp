// SPDX-License-Identifier: GPL-3.0-or-later
#include "history/schema.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "core/numbers.h"
#include "history/figure_second.h"

namespace history {

namespace {

constexpr const char* kBoth =
    "CREATE TABLE IF NOT EXISTS about(key TEXT PRIMARY KEY, value TEXT) WITHOUT ROWID;"
    "CREATE TABLE IF NOT EXISTS figure(id INTEGER PRIMARY KEY, key TEXT UNIQUE, unit TEXT, "
    "kind INTEGER, step REAL);"
    "CREATE TABLE IF NOT EXISTS station(id INTEGER PRIMARY KEY, khz INTEGER UNIQUE, name TEXT);"
    "CREATE TABLE IF NOT EXISTS event(t INTEGER, station INTEGER, kind INTEGER, text TEXT);"
    "CREATE INDEX IF NOT EXISTS event_t ON event(t);";
constexpr const char* kDay =
    "CREATE TABLE IF NOT EXISTS tail(station INTEGER, t INTEGER, epoch INTEGER, data BLOB, "
    "PRIMARY KEY(station,t,epoch)) WITHOUT ROWID;"
    "CREATE TABLE IF NOT EXISTS second(station INTEGER, minute INTEGER, epoch INTEGER, n INTEGER, "
    "data BLOB, crc INTEGER, PRIMARY KEY(station,minute,epoch)) WITHOUT ROWID;";
constexpr const char* kIndex =
    "CREATE TABLE IF NOT EXISTS span(station INTEGER, step INTEGER, t INTEGER, epoch INTEGER, "
    "data BLOB, crc INTEGER, PRIMARY KEY(station,step,t,epoch)) WITHOUT ROWID;";
constexpr std::size_t kLongestText = 200;

std::string numberText(std::int64_t number) {
    return hmonitor::wholeText(number).str();
}

void addFigures(Database& database) {
    FigureColumns there = readFigures(database);
    Statement insert(database, "INSERT INTO figure(id,key,unit,kind,step) VALUES(?1,?2,?3,?4,?5)");
    int id = there.highestId();
    const auto registry = figures::all();
    for (std::size_t i = 0; i < figureCount(); ++i) {
        const figures::Figure& figure = registry[i];
        if (there.byKey(figure.key)) continue;
        insert.bind(1, std::int64_t{++id})
            .bindText(2, figure.key)
            .bindText(3, figure.unit)
            .bind(4, static_cast<std::int64_t>(figure.kind))
            .bind(5, stepOf(figure));
        insert.run();
    }
}

void prepare(Database& database, Flush flush, const char* tables) {
    // Only while the file is empty; so that room which is given back can leave the file.
    database.run("PRAGMA auto_vacuum=INCREMENTAL");
    database.run("PRAGMA journal_mode=WAL");
    database.run(flush == Flush::Full ? "PRAGMA synchronous=FULL" : "PRAGMA synchronous=OFF");
    Transaction transaction(database);
    database.run(std::string(kBoth) + tables);
    database.run("PRAGMA application_id=" + numberText(kApplicationId));
    database.run("PRAGMA user_version=" + numberText(kSchemaVersion));
    addFigures(database);
    transaction.commit();
}

}  // namespace

FileKind kindOf(Database& database) {
    const std::int64_t id = database.number("PRAGMA application_id");
    const std::int64_t version = database.number("PRAGMA user_version");
    if (id == kApplicationId) {
        return version > kSchemaVersion ? FileKind::Newer : FileKind::Ours;
    }
    const bool isEmpty =
        id == 0 && version == 0 && database.number("SELECT count(*) FROM sqlite_schema") == 0;
    return isEmpty ? FileKind::Empty : FileKind::Foreign;
}

void prepareDay(Database& database, Flush flush) {
    prepare(database, flush, kDay);
}

void prepareIndex(Database& database, Flush flush) {
    prepare(database, flush, kIndex);
}

FigureColumns readFigures(Database& database) {
    constexpr int kLastKind = static_cast<int>(figures::Kind::State);
    FigureColumns columns;
    Statement rows(database, "SELECT id,key,unit,kind,step FROM figure ORDER BY id LIMIT 1000");
    while (rows.step()) {
        const std::int64_t id = rows.number(0);
        const std::int64_t kind = rows.number(3);
        if (id < 1 || id > 1000000 || kind < 0 || kind > kLastKind) continue;
        columns.add({static_cast<int>(id), std::string(rows.bytes(1)), std::string(rows.bytes(2)),
                     static_cast<figures::Kind>(kind), rows.real(4), std::nullopt});
    }
    return columns;
}

void addStation(Database& database, int khz) {
    Statement insert(database, "INSERT OR IGNORE INTO station(id,khz,name) VALUES(?1,?1,'')");
    insert.bind(1, std::int64_t{khz});
    insert.run();
}

void addEvent(Database& database, const Event& event) {
    Statement insert(database, "INSERT INTO event(t,station,kind,text) VALUES(?1,?2,?3,?4)");
    insert.bind(1, event.t)
        .bind(2, std::int64_t{event.station})
        .bind(3, static_cast<std::int64_t>(event.kind))
        .bindText(4, event.text);
    insert.run();
}

std::vector<Event> readEvents(Database& database, std::int64_t begin, std::int64_t end) {
    std::vector<Event> events;
    Statement rows(database,
                   "SELECT t,station,kind,text FROM event WHERE t>=?1 AND t<?2 ORDER BY t,rowid");
    rows.bind(1, begin).bind(2, end);
    while (rows.step()) {
        const std::int64_t kind = rows.number(2);
        const std::int64_t station = rows.number(1);
        if (kind < 1 || kind > static_cast<std::int64_t>(kLastEventKind)) continue;
        events.push_back(
            {rows.number(0), static_cast<int>(std::clamp<std::int64_t>(station, 0, INT32_MAX)),
             static_cast<EventKind>(kind), std::string(rows.bytes(3).substr(0, kLongestText))});
    }
    return events;
}

void setAbout(Database& database, std::string_view key, std::string_view value) {
    Statement insert(database, "INSERT OR REPLACE INTO about(key,value) VALUES(?1,?2)");
    insert.bindText(1, key).bindText(2, value);
    insert.run();
}

}  // namespace history
